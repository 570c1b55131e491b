// One record in two trees: counts the words of standard input, found by their letters and listed by their number.
#include "ovant.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <deque>
#include <exception>
#include <iostream>
#include <iterator>
#include <new>
#include <string>
#include <string_view>

using Letters = std::string_view;

struct Word {
    Letters letters;
    std::size_t count;
    AVL_Link by_letters, by_count; // a header for each tree
};

// Answers where the key lies, seen from the node.
static int compare_letters(const void *node_key, const void *key) {
    const int order = static_cast<const Letters *>(key)->compare(*static_cast<const Letters *>(node_key));
    return (order > 0) - (order < 0);
}

// The other way round: larger counts lie on the left, so that they come first.
static int compare_counts(const void *node_key, const void *key) {
    const auto node = *static_cast<const std::size_t *>(node_key), count = *static_cast<const std::size_t *>(key);
    return (count < node) - (count > node);
}

// Makes a node, once it is known that there is none with the key yet.  No exception passes through the library.
static void *make_word(const void *key, void *words) try {
    return &static_cast<std::deque<Word> *>(words)->emplace_back(Word{*static_cast<const Letters *>(key), 0, {}, {}});
} catch (const std::bad_alloc &) {
    return nullptr; // then nothing is inserted
}

// A tree that ends where its scope ends.
struct Tree {
    AVL_Tree *const tree;

    explicit Tree(AVL_Tree *made) : tree(made) {
        if (!made)
            throw std::bad_alloc();
    }
    Tree(const Tree &) = delete;
    ~Tree() { AVL_Destruktor(tree); }
    operator AVL_Tree *() const { return tree; }
};

static int count_words() {
    const std::string text(std::istreambuf_iterator<char>(std::cin), {});
    std::deque<Word> words;

    AVL_NodeFuncs making = *AVL_GetNodeFuncPtrRetNULL();
    making.Malloc = make_word;
    const Tree dictionary(
        AVL_Konstruktor(offsetof(Word, by_letters), &making, offsetof(Word, letters), compare_letters, nullptr));
    const Tree ranking(AVL_Konstruktor(offsetof(Word, by_count), AVL_GetNodeFuncPtrRetNULL(), offsetof(Word, count),
                                       compare_counts, nullptr));

    const char *const blanks = " \t\r\n";
    for (std::size_t at = 0, end = 0; (at = text.find_first_not_of(blanks, end)) != text.npos;) {
        end = std::min(text.find_first_of(blanks, at), text.size());
        const Letters letters(&text[at], end - at);
        auto *const word = static_cast<Word *>(AVL_InsertSearchKey(dictionary, &letters, &words)); // found or made
        if (!word)
            throw std::bad_alloc();
        ++word->count;
    }
    // The stable insertion keeps words of the same count in the order of their letters.
    for (auto at = AVL_WalkSuccInorder(dictionary, nullptr); at->Node; at = AVL_WalkSuccInorder(dictionary, at))
        AVL_InsertStabil(ranking, &static_cast<Word *>(at->Node)->count, at->Node);
    for (auto at = AVL_WalkSuccInorder(ranking, nullptr); at->Node; at = AVL_WalkSuccInorder(ranking, at)) {
        const Word &word = *static_cast<Word *>(at->Node);
        std::cout << word.count << ' ' << word.letters << '\n';
    }
    return std::cout.flush() ? 0 : 1;
}

static int out_of_memory() {
    std::cerr << "counting: out of memory\n";
    return 1;
}

int main() try {
    std::set_terminate([] { // where memory stays away there may be none for an exception
        std::current_exception() ? std::abort() : std::_Exit(out_of_memory());
    });
    return count_words();
} catch (const std::bad_alloc &) {
    return out_of_memory();
}
