/* A phone book: the smallest program that uses Ovant.
 *
 * A tree of this library holds your own records.  It needs two things of them: a place for its link header, and the
 * key that they are ordered by.  You tell it once where these lie, and how keys compare. */
#include "ovant.h"

#include <stddef.h>
#include <stdio.h>
#include <string.h>

typedef struct Person {
    AVL_Link link; /* belongs to the tree, anywhere in the record; zero when the record goes into a tree */
    char name[16]; /* our key */
    const char *number;
} Person;

/* Where does the key stand, seen from a node of the tree?  -1 left of it (before), +1 right of it, 0 it is this one. */
static int compare_names(const void *node_name, const void *name) {
    const int order = strcmp(name, node_name);
    return (order > 0) - (order < 0);
}

int main(void) {
    static Person people[] = {
        {.name = "Noether", .number = "2323"},  {.name = "Gauss", .number = "1777"},
        {.name = "Turing", .number = "1912"},   {.name = "Euler", .number = "1707"},
        {.name = "Lovelace", .number = "1815"}, {.name = "Hopper", .number = "1906"},
    };
    const size_t count = sizeof people / sizeof people[0];
    AVL_PfadEntry *at;
    Person *person;
    size_t i;

    /* The table of handlers says who makes and releases records.  With this one you do: the tree only links them. */
    AVL_Tree *book = AVL_Konstruktor(offsetof(Person, link), AVL_GetNodeFuncPtrRetNULL(), offsetof(Person, name),
                                     compare_names, NULL);
    if (!book) {
        fputs("phonebook: out of memory\n", stderr);
        return 1;
    }

    /* Insert: the key to look for, and the record to link in if it is new.  0 says that the name is taken. */
    for (i = 0; i < count; ++i)
        AVL_InsertUnique(book, people[i].name, &people[i]);
    if (!AVL_InsertUnique(book, "Gauss", &people[1]))
        puts("Gauss is in the book already");

    /* Find: by the exact key, or the nearest at or after some key. */
    person = AVL_SearchKey(book, "Turing");
    if (person)
        printf("Turing has %s\n", person->number);
    person = AVL_SearchGreaterEqual(book, "H");
    if (person)
        printf("the first name from H on is %s\n", person->name);

    /* Walk: a position goes in, the next one comes out, until it stands on no node. */
    puts("all of them:");
    for (at = AVL_WalkSuccInorder(book, NULL); at->Node; at = AVL_WalkSuccInorder(book, at)) {
        person = at->Node;
        printf("  %-10s %s\n", person->name, person->number);
    }

    /* Remove: make a path to the record and take out what stands there.  No path, no record: the result is 0. */
    person = AVL_GetPfad(book, AVL_MakeKey(book, "Euler"));
    if (person)
        printf("%s is out, %u are left\n", person->name, (unsigned)AVL_CountNode(book));

    /* End of the tree; the records were never its own. */
    AVL_Destruktor(book);
    return 0;
}
