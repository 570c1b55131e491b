/* A tree as a graph in DOT, for tools that draw graphs: graph WORD...
 *
 * A position of a walk is the top of the path to its node, so the parent is the entry below it, and the side on which
 * the node hangs is that entry's Dir. */
#include "ovant.h"

#include <stddef.h>
#include <stdio.h>

typedef struct Word {
    AVL_Link link;
    const char *text;
} Word;

static void print_quoted(const char *text) {
    putchar('"');
    for (; *text; ++text) {
        if (*text == '"' || *text == '\\')
            putchar('\\');
        putchar(*text);
    }
    putchar('"');
}

int main(int count, char **texts) {
    static Word words[100]; /* cleared, links and all */
    AVL_PfadEntry *at;
    AVL_Tree *tree;
    int i;

    if (count > 101) {
        fputs("graph: more than 100 words\n", stderr);
        return 2;
    }
    tree = AVL_Konstruktor(offsetof(Word, link), AVL_GetNodeFuncPtrRetNULL(), offsetof(Word, text), AVL_CMP_PtrString,
                           NULL);
    if (!tree) {
        fputs("graph: out of memory\n", stderr);
        return 1;
    }
    for (i = 1; i < count; ++i) {
        words[i - 1].text = texts[i];
        AVL_InsertUnique(tree, &texts[i], &words[i - 1]); /* a word that comes again stays outside */
    }

    puts("digraph tree {");
    for (at = AVL_WalkSuccPreorder(tree, NULL); at && at->Node; at = AVL_WalkSuccPreorder(tree, at)) {
        const Word *word = at->Node;
        printf("  ");
        if (at > tree->Stack) { /* not the root */
            print_quoted(((const Word *)at[-1].Node)->text);
            printf(" -> ");
        }
        print_quoted(word->text);
        puts(at > tree->Stack && at[-1].Dir == DIR_LEFT ? " [label=left]" : "");
    }
    puts("}");
    AVL_Destruktor(tree);
    return 0;
}
