/* Ovant: ordered containers whose nodes are the host's own records. */
#ifndef OVANT_H
#define OVANT_H

#include <stdint.h>
#include <stdio.h>

#if defined(__GNUC__)
#define OVANT_API __attribute__((visibility("default")))
#else
#define OVANT_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Records and constants ------------------------------------------------------------------------------------- */

/* The link header inside each node: packed, so it may lie at any address. */
#pragma pack(push, 1)
typedef struct AVL_Link {
    void *Left;
    void *Right;
    signed char Balance;
} AVL_Link;
#pragma pack(pop)

/* Values of AVL_PfadEntry.Dir. */
#define DIR_NEW (-2)
#define DIR_LEFT (-1)
#define DIR_HERE 0
#define DIR_RIGHT 1

typedef struct AVL_PfadEntry {
    void *Node;
    int32_t Dir;
} AVL_PfadEntry;

typedef struct AVL_Tree AVL_Tree;

typedef int (*AVL_CmpFunc)(const void *node_key, const void *key);
typedef int (*AVL_ErrorFunc)(int function, int error);

typedef struct AVL_NodeFuncs {
    void *(*Malloc)(const void *key, void *context);
    void *(*Realloc)(void *node, const void *key, void *context);
    void *(*Free)(void *node, const void *key, void *context);
    void (*Kill)(void *node, void *context);
} AVL_NodeFuncs;

struct AVL_Tree {
    uintptr_t LeftOff;
    uintptr_t RightOff;
    uintptr_t BalOff;
    const AVL_NodeFuncs *Funcs;
    AVL_PfadEntry *Stack;
    void *Root;
    uintptr_t KeyOff;
    AVL_CmpFunc Cmp;
    AVL_ErrorFunc Error;
    void (*Destruktor)(AVL_Tree *tree);
    AVL_Tree *(*Dup)(AVL_Tree *tree);
    AVL_Tree *(*Copy)(const AVL_Tree *tree);
    uint16_t RefCount;
};

/* A walk of the form that AVL_TreeWrite takes. */
typedef AVL_PfadEntry *(*AVL_WalkFunc)(AVL_Tree *tree, AVL_PfadEntry *position);
typedef const char *(*AVL_FormatFunc)(char *buffer, void *node, void *context);

/* ---- Tree life cycle and version ------------------------------------------------------------------------------- */

OVANT_API AVL_Tree *AVL_Konstruktor(uintptr_t link_off, const AVL_NodeFuncs *funcs, uintptr_t key_off, AVL_CmpFunc cmp,
                                    AVL_ErrorFunc error);
OVANT_API void AVL_Destruktor(AVL_Tree *tree);
OVANT_API AVL_Tree *AVL_Dup(AVL_Tree *tree);
OVANT_API AVL_Tree *AVL_Copy(const AVL_Tree *tree);
OVANT_API void AVL_ClrTree(AVL_Tree *tree);
OVANT_API void *AVL_GetTree(AVL_Tree *tree);
OVANT_API int AVL_TestVersion(int version);

/* ---- Handler tables and handlers ------------------------------------------------------------------------------- */

OVANT_API const AVL_NodeFuncs *AVL_GetNodeFuncPtrRetNULL(void);
OVANT_API const AVL_NodeFuncs *AVL_GetNodeFuncPtrFreeMem(void);

OVANT_API void *AVL_Malloc_RetNull(const void *key, void *context);
OVANT_API void *AVL_Malloc_RetHandlePointer(const void *key, void *context);
OVANT_API void *AVL_Malloc_RetHandleDirekt(const void *key, void *context);
OVANT_API void *AVL_Realloc_RetGivenHandle(void *node, const void *key, void *context);
OVANT_API void *AVL_Realloc_RetHandlePointer(void *node, const void *key, void *context);
OVANT_API void *AVL_Realloc_RetHandleDirekt(void *node, const void *key, void *context);
OVANT_API void *AVL_Free_RetNULL(void *node, const void *key, void *context);
OVANT_API void *AVL_Free_FreeMem(void *node, const void *key, void *context);
OVANT_API void AVL_Kill_Ret(void *node, void *context);
OVANT_API void AVL_Kill_FreeMem(void *node, void *context);

/* ---- Path stacks and depth arithmetic -------------------------------------------------------------------------- */

OVANT_API AVL_PfadEntry *malloc_Stack_Deepth(signed char depth);
OVANT_API AVL_PfadEntry *malloc_Stack_Nodes(uint32_t nodes);
OVANT_API AVL_PfadEntry *realloc_Stack_Deepth(AVL_PfadEntry *stack, signed char depth);
OVANT_API AVL_PfadEntry *realloc_Stack_Nodes(AVL_PfadEntry *stack, uint32_t nodes);
OVANT_API void free_Stack(AVL_PfadEntry *stack);
OVANT_API signed char Deepth_Nodes(uint32_t nodes);
OVANT_API uint32_t Nodes_Deepth(signed char depth);
OVANT_API uint32_t Nodes_Max(unsigned char depth);

/* ---- Errors ---------------------------------------------------------------------------------------------------- */

OVANT_API int Gen_SysError(int function, int error);
OVANT_API char *Error_GetErrorText(int code);
OVANT_API char *Error_GetFuncText(int code);
OVANT_API void AVL_VirtualNull(void);

/* ---- Insertion ------------------------------------------------------------------------------------------------- */

OVANT_API void *AVL_Insert(AVL_Tree *tree, const void *key, void *context);
OVANT_API void *AVL_InsertStabil(AVL_Tree *tree, const void *key, void *context);
OVANT_API void *AVL_InsertUnique(AVL_Tree *tree, const void *key, void *context);
OVANT_API void *AVL_InsertSearchKey(AVL_Tree *tree, const void *key, void *context);
OVANT_API void *AVL_InsertKey(AVL_Tree *tree, const void *key, void *context);
OVANT_API void AVL_InsertStack(AVL_Tree *tree, AVL_PfadEntry *pfad, void *node);

/* ---- Removal at a position ------------------------------------------------------------------------------------- */

OVANT_API void AVL_DelPfad(AVL_Tree *tree, AVL_PfadEntry *pfad, const void *key, void *context);
OVANT_API void *AVL_GetPfad(AVL_Tree *tree, AVL_PfadEntry *pfad);
OVANT_API void *AVL_InsertGetKey(AVL_Tree *tree, const void *key, void *context);

/* ---- Removal at the ends --------------------------------------------------------------------------------------- */

OVANT_API void AVL_DelMin(AVL_Tree *tree, void *context);
OVANT_API void AVL_DelMax(AVL_Tree *tree, void *context);
OVANT_API void *AVL_GetMin(AVL_Tree *tree);
OVANT_API void *AVL_GetMax(AVL_Tree *tree);

/* ---- Key paths ------------------------------------------------------------------------------------------------- */

OVANT_API AVL_PfadEntry *AVL_MakeKey(AVL_Tree *tree, const void *key);
OVANT_API AVL_PfadEntry *AVL_MakeFirstKey(AVL_Tree *tree, const void *key);
OVANT_API AVL_PfadEntry *AVL_MakeLastKey(AVL_Tree *tree, const void *key);
OVANT_API AVL_PfadEntry *AVL_MakeMin(AVL_Tree *tree);
OVANT_API AVL_PfadEntry *AVL_MakeMax(AVL_Tree *tree);
OVANT_API AVL_PfadEntry *AVL_MakeRoot(AVL_Tree *tree);
OVANT_API AVL_PfadEntry *AVL_MakePred(AVL_Tree *tree, const void *key);
OVANT_API AVL_PfadEntry *AVL_MakeSucc(AVL_Tree *tree, const void *key);
OVANT_API AVL_PfadEntry *AVL_MakePredKey(AVL_Tree *tree, const void *key);
OVANT_API AVL_PfadEntry *AVL_MakeSuccKey(AVL_Tree *tree, const void *key);

/* ---- Walks ----------------------------------------------------------------------------------------------------- */

OVANT_API AVL_PfadEntry *AVL_WalkSuccInorder(AVL_Tree *tree, AVL_PfadEntry *position);
OVANT_API AVL_PfadEntry *AVL_WalkPredInorder(AVL_Tree *tree, AVL_PfadEntry *position);
OVANT_API AVL_PfadEntry *AVL_WalkSuccPreorder(AVL_Tree *tree, AVL_PfadEntry *position);
OVANT_API AVL_PfadEntry *AVL_WalkPredPreorder(AVL_Tree *tree, AVL_PfadEntry *position);
OVANT_API AVL_PfadEntry *AVL_WalkSuccPostorder(AVL_Tree *tree, AVL_PfadEntry *position);
OVANT_API AVL_PfadEntry *AVL_WalkPredPostorder(AVL_Tree *tree, AVL_PfadEntry *position);
OVANT_API AVL_PfadEntry *AVL_WalkLeft(AVL_Tree *tree, AVL_PfadEntry *position);
OVANT_API AVL_PfadEntry *AVL_WalkRight(AVL_Tree *tree, AVL_PfadEntry *position);
OVANT_API AVL_PfadEntry *AVL_WalkUp(AVL_Tree *tree, AVL_PfadEntry *position);

/* ---- Searches -------------------------------------------------------------------------------------------------- */

OVANT_API void *AVL_SearchKey(const AVL_Tree *tree, const void *key);
OVANT_API void *AVL_SearchPred(const AVL_Tree *tree, const void *key);
OVANT_API void *AVL_SearchPredKey(const AVL_Tree *tree, const void *key);
OVANT_API void *AVL_SearchSucc(const AVL_Tree *tree, const void *key);
OVANT_API void *AVL_SearchSuccKey(const AVL_Tree *tree, const void *key);
OVANT_API void *AVL_SearchGreater(const AVL_Tree *tree, const void *key);
OVANT_API void *AVL_SearchGreaterEqual(const AVL_Tree *tree, const void *key);
OVANT_API void *AVL_SearchLess(const AVL_Tree *tree, const void *key);
OVANT_API void *AVL_SearchLessEqual(const AVL_Tree *tree, const void *key);
OVANT_API void *AVL_SearchMin(const AVL_Tree *tree);
OVANT_API void *AVL_SearchMax(const AVL_Tree *tree);

/* ---- Range paths ----------------------------------------------------------------------------------------------- */

OVANT_API AVL_PfadEntry *AVL_MakeLess(AVL_Tree *tree, const void *key);
OVANT_API AVL_PfadEntry *AVL_MakeEqualLess(AVL_Tree *tree, const void *key);
OVANT_API AVL_PfadEntry *AVL_MakeBetweenEqualEqual(AVL_Tree *tree, const void *first, const void *second);
OVANT_API AVL_PfadEntry *AVL_MakeBetweenEqualLess(AVL_Tree *tree, const void *first, const void *second);
OVANT_API AVL_PfadEntry *AVL_MakeBetweenGreaterLess(AVL_Tree *tree, const void *first, const void *second);

/* ---- Joining --------------------------------------------------------------------------------------------------- */

OVANT_API void AVL_ConcatLess(AVL_Tree *tree, void *other);
OVANT_API void AVL_ConcatGreater(AVL_Tree *tree, void *other);

/* ---- Range extraction ------------------------------------------------------------------------------------------ */

OVANT_API void *AVL_GetLess(AVL_Tree *tree, const void *key);
OVANT_API void *AVL_GetEqualLess(AVL_Tree *tree, const void *key);
OVANT_API void *AVL_GetGreater(AVL_Tree *tree, const void *key);
OVANT_API void *AVL_GetEqualGreater(AVL_Tree *tree, const void *key);
OVANT_API void *AVL_GetBetweenEqualEqual(AVL_Tree *tree, const void *first, const void *second);
OVANT_API void *AVL_GetBetweenGreaterLess(AVL_Tree *tree, const void *first, const void *second);
OVANT_API void *AVL_GetBetweenKey(AVL_Tree *tree, const void *key);
OVANT_API void *AVL_GetOutsideEqualEqual(AVL_Tree *tree, const void *first, const void *second);
OVANT_API void *AVL_GetOutsideKey(AVL_Tree *tree, const void *key);
OVANT_API void *AVL_GetOutsideLessGreater(AVL_Tree *tree, const void *first, const void *second);

/* ---- Range deletion -------------------------------------------------------------------------------------------- */

OVANT_API void AVL_DelLess(AVL_Tree *tree, const void *key, void *context);
OVANT_API void AVL_DelEqualLess(AVL_Tree *tree, const void *key, void *context);
OVANT_API void AVL_DelGreater(AVL_Tree *tree, const void *key, void *context);
OVANT_API void AVL_DelEqualGreater(AVL_Tree *tree, const void *key, void *context);
OVANT_API void AVL_DelBetweenEqualEqual(AVL_Tree *tree, const void *first, const void *second, void *context);
OVANT_API void AVL_DelBetweenEqualLess(AVL_Tree *tree, const void *first, const void *second, void *context);
OVANT_API void AVL_DelBetweenGreaterLess(AVL_Tree *tree, const void *first, const void *second, void *context);
OVANT_API void AVL_DelBetweenKey(AVL_Tree *tree, const void *key, void *context);
OVANT_API void AVL_DelOutsideEqualEqual(AVL_Tree *tree, const void *first, const void *second, void *context);
OVANT_API void AVL_DelOutsideKey(AVL_Tree *tree, const void *key, void *context);
OVANT_API void AVL_DelOutsideLessGreater(AVL_Tree *tree, const void *first, const void *second, void *context);
OVANT_API void AVL_DelTree(AVL_Tree *tree, void *context);

/* ---- Comparators ----------------------------------------------------------------------------------------------- */

OVANT_API int AVL_CMP_SignedChar(const void *node_key, const void *key);
OVANT_API int AVL_CMP_UnsignedChar(const void *node_key, const void *key);
OVANT_API int AVL_CMP_SignedShort(const void *node_key, const void *key);
OVANT_API int AVL_CMP_UnsignedShort(const void *node_key, const void *key);
OVANT_API int AVL_CMP_SignedLong(const void *node_key, const void *key);
OVANT_API int AVL_CMP_Time(const void *node_key, const void *key);
OVANT_API int AVL_CMP_HandleDirekt(const void *node_key, const void *key);
OVANT_API int AVL_CMP_HandlePointer(const void *node_key, const void *key);
OVANT_API int AVL_CMP_Float(const void *node_key, const void *key);
OVANT_API int AVL_CMP_Double(const void *node_key, const void *key);
OVANT_API int AVL_CMP_String(const void *node_key, const void *key);
OVANT_API int AVL_CMP_StringRevers(const void *node_key, const void *key);
OVANT_API int AVL_CMP_String_Upper(const void *node_key, const void *key);
OVANT_API int AVL_CMP_PtrString(const void *node_key, const void *key);
OVANT_API int AVL_CMP_PtrTString(const void *node_key, const void *key);
OVANT_API int AVL_CMP_PtrUString(const void *node_key, const void *key);
OVANT_API int AVL_CMP_String_to_Norm(int value);

/* ---- Shape measures -------------------------------------------------------------------------------------------- */

OVANT_API uint32_t AVL_CountNode(AVL_Tree *tree);
OVANT_API signed char AVL_MaxDeepth(const AVL_Tree *tree);
OVANT_API signed char AVL_MinDeepth(AVL_Tree *tree);
OVANT_API int AVL_CheckBalance(AVL_Tree *tree);

/* ---- Tree listing ---------------------------------------------------------------------------------------------- */

OVANT_API char *AVL_GetString(const AVL_Tree *tree, const AVL_PfadEntry *position, char *destination);
OVANT_API void AVL_TreeWrite(AVL_Tree *tree, void *context, AVL_WalkFunc walker, AVL_FormatFunc formatter, FILE *stream,
                             int width, const void *start_key, const void *end_key);

#ifdef __cplusplus
}
#endif

#endif /* OVANT_H */
