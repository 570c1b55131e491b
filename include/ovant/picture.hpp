// Trees as pictures, SVG and DOT, for people to look at.  ovant.hpp does not include it.
//
//     std::ofstream out("day.svg");
//     ovant::draw_svg(out, day, [](std::ostream &to, const Event &e) { to << e.time; },
//                     [](const Event &e) { return e.time < 1200; });
#pragma once

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace ovant {

// What is drawn of a tree: each record a box at its place in order and at its depth, + or - beside it where a side is
// higher.  A wide tree folds away: where it would take more columns than are wanted, subtrees far down become triangles
// that tell how many records they hold, but for those that hold marked and unmarked records both.
class picture {
public:
    // print(out, record) writes what stands in a box; marked(record) says which get the other colour.
    template <class Tree, class Print, class Marked>
    picture(const Tree &tree, Print print, Marked marked, std::size_t columns = 40) {
        Reader reader{spots_};
        tree.draw(reader, [&](Reader &, const auto &record) {
            std::ostringstream label;
            print(label, record);
            spots_.push_back({reader.depth, 0, static_cast<bool>(marked(record)), label.str()});
        });
        std::reverse(spots_.begin(), spots_.end());
        find_subtrees();
        fold(columns);
        place();
    }
    template <class Tree, class Print>
    picture(const Tree &tree, Print print) : picture(tree, print, [](const auto &) { return false; }) {}

    int width() const { return width_; }
    int height() const { return height_; }

    // A document of its own, and the same as a part of another one.
    void svg(std::ostream &out) const {
        out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << width_ << "\" height=\"" << height_
            << "\" viewBox=\"0 0 " << width_ << ' ' << height_ << "\">\n"
            << "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
        svg_at(out, 0, 0);
        out << "</svg>\n";
    }
    void svg_at(std::ostream &out, int x, int y) const {
        out << "<g transform=\"translate(" << x << ',' << y
            << ")\" font-family=\"sans-serif\" font-size=\"12\" text-anchor=\"middle\" stroke=\"#495057\">\n";
        for (const Spot &s : spots_)
            if (!s.hidden && s.depth)
                out << "<path d=\"M" << spots_[s.parent].x << ' ' << y_of(spots_[s.parent]) << 'L' << s.x << ' '
                    << y_of(s) << "\"/>\n";
        for (const Spot &s : spots_)
            if (!s.hidden)
                s.folded ? put_triangle(out, s) : put_box(out, s);
        out << "</g>\n";
    }

    void dot(std::ostream &out) const {
        out << "digraph tree {\n  graph [ordering=out]\n  node [style=filled, fontname=\"sans-serif\"]\n";
        for (std::size_t i = 0; i < spots_.size(); ++i) {
            const Spot &s = spots_[i];
            if (s.hidden)
                continue;
            out << "  n" << i << " [fillcolor=\"" << fill(s) << "\", label=\"";
            if (s.folded)
                out << size(s) << "\", shape=triangle]\n";
            else
                out << escaped(s.label, dot_escapes) << sign(s) << "\", shape=box]\n";
        }
        for (std::size_t i = 0; i < spots_.size(); ++i)
            if (!spots_[i].hidden && !spots_[i].folded) {
                put_edge(out, i, spots_[i].first, i);
                put_edge(out, i, i + 1, spots_[i].last);
            }
        out << "}\n";
    }

private:
    static constexpr int row = 48, box = 22, letter = 7, margin = 12;

    struct Spot {
        int depth, balance;
        bool marked;
        std::string label;
        std::size_t first = 0, last = 0, parent = 0; // its subtree is [first, last)
        bool folded = false, hidden = false;
        int x = 0;
    };

    // Takes a tree drawn as text: as many pieces come before a record as there are levels above it, and its balance
    // behind it.
    struct Reader {
        std::vector<Spot> &spots;
        int depth = 0;

        Reader &operator<<(std::string_view text) {
            ++depth;
            if (text.ends_with('\n')) {
                spots.back().balance = text == " +\n" ? 1 : text == " -\n" ? -1 : 0;
                depth = 0;
            }
            return *this;
        }
    };

    // A tree's shape is the depths of its records in order: a subtree ends where one is not deeper than its root, and
    // the deeper one of those two neighbours is the parent.
    void find_subtrees() {
        std::vector<std::size_t> open; // a chain of ever deeper spots
        for (std::size_t i = 0; i <= spots_.size(); ++i) {
            for (; !open.empty() && (i == spots_.size() || spots_[open.back()].depth > spots_[i].depth);
                 open.pop_back()) {
                Spot &s = spots_[open.back()];
                s.last = i;
                const bool right = i < spots_.size() && spots_[i].depth == s.depth - 1;
                s.parent = right || s.first == 0 ? i : s.first - 1;
            }
            if (i < spots_.size()) {
                spots_[i].first = open.empty() ? 0 : open.back() + 1;
                open.push_back(i);
            }
        }
    }

    // Subtrees from a level on, the lowest one with which the columns suffice.
    void fold(std::size_t columns) {
        int level = 1;
        for (const Spot &s : spots_)
            level = std::max(level, s.depth + 1);
        for (; fold_from(level) > columns && level > 1; --level) {
        }
    }
    std::size_t fold_from(int level) {
        std::size_t shown = 0;
        for (Spot &s : spots_) {
            const auto from = spots_.begin() + static_cast<std::ptrdiff_t>(s.first);
            const auto to = spots_.begin() + static_cast<std::ptrdiff_t>(s.last);
            s.folded = s.depth >= level && size(s) > 2 &&
                       std::all_of(from, to, [&](const Spot &other) { return other.marked == s.marked; });
            s.hidden = false;
        }
        for (Spot &s : spots_)
            if (s.folded && !s.hidden)
                for (std::size_t i = s.first; i < s.last; ++i)
                    spots_[i].hidden = spots_[i].hidden || spots_[i].depth > s.depth;
        for (const Spot &s : spots_)
            shown += !s.hidden;
        return shown;
    }

    // Neighbours in order never stand on one level, so that a box may take two columns.
    void place() {
        int widest = 2 * margin, column = 0;
        for (const Spot &s : spots_)
            if (!s.hidden)
                widest = std::max(widest, width_of(s));
        const int step = (widest + margin) / 2;
        for (Spot &s : spots_) {
            if (s.hidden)
                continue;
            s.x = margin + widest / 2 + step * column++;
            height_ = std::max(height_, y_of(s) + (s.folded ? row - margin : box) + margin);
        }
        width_ = 2 * margin + widest + step * std::max(0, column - 1);
    }

    static std::size_t size(const Spot &s) { return s.last - s.first; }
    static int y_of(const Spot &s) { return margin + box / 2 + row * s.depth; }
    static int width_of(const Spot &s) {
        const auto letters = std::count_if(s.label.begin(), s.label.end(), [](char c) { return (c & 0xC0) != 0x80; });
        return std::max(box, letter * static_cast<int>(letters) + margin);
    }
    static const char *fill(const Spot &s) { return s.marked ? "#ffc078" : "#e7f5ff"; }
    static const char *sign(const Spot &s) { return s.balance > 0 ? " +" : s.balance < 0 ? " -" : ""; }

    static void put_box(std::ostream &out, const Spot &s) {
        const int w = width_of(s), y = y_of(s);
        out << "<rect x=\"" << s.x - w / 2 << "\" y=\"" << y - box / 2 << "\" width=\"" << w << "\" height=\"" << box
            << "\" rx=\"6\" fill=\"" << fill(s) << "\"/>" << text(s.x, y + 4) << escaped(s.label, svg_escapes)
            << "</text>";
        if (s.balance)
            out << text(s.x + w / 2 + 6, y - 4) << sign(s) << "</text>";
        out << '\n';
    }
    void put_triangle(std::ostream &out, const Spot &s) const {
        const int y = y_of(s) - box / 2;
        out << "<path d=\"M" << s.x << ' ' << y << "l17 " << row - margin << "h-34z\" fill=\"" << fill(s)
            << "\"><title>" << escaped(spots_[s.first].label, svg_escapes) << " ... "
            << escaped(spots_[s.last - 1].label, svg_escapes) << "</title></path>" << text(s.x, y + 30) << size(s)
            << "</text>\n";
    }
    static std::string text(int x, int y) {
        return "<text stroke=\"none\" fill=\"#212529\" x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y) +
               "\">";
    }
    // To the root of the subtree that lies in [first, last), or to nothing, so that left stays left.
    void put_edge(std::ostream &out, std::size_t from, std::size_t first, std::size_t last) const {
        for (std::size_t i = first; i < last; ++i)
            if (spots_[i].depth == spots_[from].depth + 1) {
                out << "  n" << from << " -> n" << i << '\n';
                return;
            }
        if (size(spots_[from]) > 1)
            out << "  e" << from << " [style=invis, label=\"\"]\n  n" << from << " -> e" << from << " [style=invis]\n";
    }

    struct Escape {
        char letter;
        const char *text;
    };
    static constexpr Escape svg_escapes[] = {{'<', "&lt;"}, {'>', "&gt;"}, {'&', "&amp;"}};
    static constexpr Escape dot_escapes[] = {{'"', "\\\""}, {'\\', "\\\\"}};
    template <std::size_t N> static std::string escaped(const std::string &label, const Escape (&escapes)[N]) {
        std::string result;
        for (const char c : label) {
            const auto *const e =
                std::find_if(escapes, escapes + N, [c](const Escape &escape) { return escape.letter == c; });
            if (e != escapes + N)
                result += e->text;
            else
                result += static_cast<unsigned char>(c) < ' ' ? ' ' : c; // a control character is none for XML
        }
        return result;
    }

    std::vector<Spot> spots_; // in order
    int width_ = 0, height_ = 2 * margin;
};

// As the constructors of picture: draw_svg(out, tree, print) or draw_svg(out, tree, print, marked[, columns]).
template <class Tree, class... How> void draw_svg(std::ostream &out, const Tree &tree, How... how) {
    picture(tree, how...).svg(out);
}
template <class Tree, class... How> void draw_dot(std::ostream &out, const Tree &tree, How... how) {
    picture(tree, how...).dot(out);
}

} // namespace ovant
