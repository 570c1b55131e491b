// The pictures of docs/architecture.md, drawn of trees at work: draw FOLDER.
#include "ovant.hpp"
#include "ovant/picture.hpp"

#include <cstring>
#include <deque>
#include <fstream>
#include <iostream>

namespace {

struct Record {
    int key;
    ovant::link link;
};
using Tree = ovant::set<&Record::link, &Record::key>;
using Nodes = ovant::engine::Links<ovant::typed::at_member<Record, &Record::link>>;

std::deque<Record> records;

Record *record(int key) { return &records.emplace_back(Record{key, {}}); }
Tree grown(int first, int last, int step) {
    Tree tree;
    for (int key = first; key <= last; key += step)
        tree.insert(*record(key));
    return tree;
}
// A node over two subtrees, whatever their heights.
Record *over(Record *left, int key, int balance, Record *right) {
    Record *const root = record(key);
    ovant::engine::write_links(Nodes(), root, {left, right, balance});
    return root;
}
Record *leaf(int key) { return over(nullptr, key, 0, nullptr); }

// States side by side, each with what has happened.
class Strip {
public:
    template <class Marked> void add(const char *title, const Tree &tree, Marked marked) {
        const auto print = [](std::ostream &out, const Record &r) { out << r.key; };
        states_.push_back({title, ovant::picture(tree, print, marked)});
    }
    // The same of a root that is no sound tree yet.
    template <class Marked> void add_root(const char *title, Record *root, Marked marked) {
        Tree tree;
        tree.adopt(root);
        add(title, tree, marked);
        static_cast<void>(tree.release());
    }
    bool write(const std::string &path) const {
        int width = 0, height = 0;
        for (const State &s : states_) {
            width += width_of(s);
            height = std::max(height, s.drawn.height() + title_height);
        }
        std::ofstream out(path);
        out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << width << "\" height=\"" << height
            << "\" viewBox=\"0 0 " << width << ' ' << height << "\">\n"
            << "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
        int x = 0;
        for (const State &s : states_) {
            out << "<text font-family=\"sans-serif\" font-size=\"13\" text-anchor=\"middle\" x=\""
                << x + width_of(s) / 2 << "\" y=\"20\">" << s.title << "</text>\n";
            s.drawn.svg_at(out, x + (width_of(s) - s.drawn.width()) / 2, title_height);
            x += width_of(s);
        }
        out << "</svg>\n";
        out.close();
        return static_cast<bool>(out);
    }

private:
    static constexpr int title_height = 28;
    struct State {
        std::string title;
        ovant::picture drawn;
    };
    static int width_of(const State &s) { return std::max(s.drawn.width(), static_cast<int>(s.title.size()) * 7 + 24); }

    std::vector<State> states_;
};

// A range leaves: two paths to its bounds, and each side is gathered along them.
bool cut(const std::string &folder) {
    Strip strip;
    Tree tree = grown(5, 150, 5);
    const auto inside = [](const Record &r) { return 40 <= r.key && r.key < 95; };
    strip.add("a tree, and what lies in [40, 95)", tree, inside);
    const Tree range = tree.extract(ovant::before(40), ovant::before(95));
    strip.add("what stays", tree, inside);
    strip.add("what was cut out", range, inside);
    return strip.write(folder + "/cut.svg");
}

// One node over subtrees of the heights 0 and 3 sinks, and the levels come back.
bool repair(const std::string &folder) {
    Strip strip;
    const auto sinks = [](const Record &r) { return r.key == 0; };
    using ovant::engine::Side, ovant::engine::turn;
    ovant::engine::Node root =
        over(nullptr, 0, 3, over(over(leaf(1), 2, 0, leaf(3)), 4, 0, over(leaf(5), 6, 0, leaf(7))));
    const auto show = [&](const char *title) { strip.add_root(title, static_cast<Record *>(root), sinks); };
    show("0 leans by three");
    root = turn(Nodes(), Side::right, root).root;
    show("a turn: it leans by two");
    Nodes().hang(Side::left, root, turn(Nodes(), Side::right, Nodes().child(Side::left, root)).root);
    show("another turn: sound");
    return strip.write(folder + "/repair.svg");
}

// A low tree joined to a high one hangs where its height fits.
bool join(const std::string &folder) {
    Strip strip;
    Tree low = grown(10, 40, 10), high = grown(50, 230, 10);
    const auto was_low = [](const Record &r) { return r.key <= 40; };
    strip.add("a low tree", low, was_low);
    strip.add("a high one behind it", high, was_low);
    low.append(std::move(high));
    strip.add("joined", low, was_low);
    return strip.write(folder + "/join.svg");
}

} // namespace

int main(int count, char **words) {
    if (count != 2) {
        std::cerr << "usage: draw FOLDER\n";
        return 2;
    }
    if (cut(words[1]) && repair(words[1]) && join(words[1]))
        return 0;
    std::cerr << "draw: cannot write below " << words[1] << '\n';
    return 1;
}
