// A position as a picture, and a tree lying on its side, line by line.
#include "frame/depth.hpp"
#include "frame/nodes.hpp"
#include "ovant/engine/measure.hpp"

#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace ovant::c;

namespace {

constexpr std::size_t segment = 3;            // characters for each level above a node
constexpr char mark_format[] = "+%2.1d+";     // filled with the balance
constexpr std::size_t longest_mark = 6;       // "+-128+"
constexpr std::size_t formatter_buffer = 268; // what a formatter may count on
constexpr int default_field = 124;

// A host's walker may come to a node before, between and after its subtrees: twice more for each of the nodes that
// Repeats remembers, which are fewer than half of this in a listing of any length.
constexpr int most_repeats = 256;

constexpr std::size_t picture_buffer = 268;
static_assert(picture_buffer > segment * tree_depth + longest_mark, "holds the picture of the deepest node there is");

char *append(char *end, const char (&text)[segment + 1]) {
    std::memcpy(end, text, segment);
    return end + segment;
}

} // namespace

char *AVL_GetString(const AVL_Tree *tree, const AVL_PfadEntry *position, char *destination) {
    if (!tree->Root || !position->Node)
        return nullptr;
    char mark[longest_mark + 1];
    const auto mark_size =
        static_cast<std::size_t>(std::snprintf(mark, sizeof mark, mark_format, Nodes(tree).balance(position->Node)));
    const auto depth = static_cast<std::size_t>(position - tree->Stack);
    if (!destination)
        destination = static_cast<char *>(std::malloc(segment * depth + mark_size + 1));
    if (!destination)
        return nullptr;

    // The first column is blank; a bar says that the path turned at that level.
    char *end = destination;
    if (depth > 0)
        end = append(end, "   ");
    int before = tree->Stack->Dir;
    for (const Entry *e = tree->Stack + 1; e < position; ++e) {
        if (e->Dir != DIR_LEFT && e->Dir != DIR_RIGHT)
            continue;
        end = append(end, e->Dir == before ? "   " : "|  ");
        before = e->Dir;
    }
    std::memcpy(end, mark, mark_size + 1);
    return destination;
}

void AVL_TreeWrite(AVL_Tree *tree, void *context, AVL_WalkFunc walker, AVL_FormatFunc formatter, FILE *stream,
                   int width, const void *start_key, const void *end_key) {
    char picture[picture_buffer];
    char buffer[formatter_buffer];
    const int field = width > 8 ? width - 8 : default_field; // the line number takes 8 columns

    Repeats repeats;
    int repeated = 0;
    unsigned long line = 0;
    for (Entry *position = start_key ? AVL_MakePred(tree, start_key) : walker(tree, nullptr);
         position && position->Node; position = walker(tree, position), ++line) {
        repeated += repeats(position->Node) ? 1 : 0;
        if (repeated > most_repeats)
            break;
        const char *const node = static_cast<const char *>(position->Node);
        if (end_key && tree->Cmp(node + tree->KeyOff, end_key) > DIR_HERE)
            break;
        AVL_GetString(tree, position, picture);
        const char *const text = formatter(buffer, position->Node, context);
        if (text)
            std::fprintf(stream, "%8.8lu%-*.123s%.80s\n", line, field, picture, text);
    }
}
