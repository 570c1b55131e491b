// A link that nobody else sees.  A tree needs the link's name where its type is written, and nowhere else: a friend
// writes it.  The link may as well stand in a base of the record, as the key may, and the record may be of any kind:
// polymorphic, over-aligned, final.
#include <ovant.hpp>

#include <functional>
#include <iostream>
#include <string>

class Hidden {
    ovant::link link_;
    friend class Scene;
};

class Shape : public Hidden {
public:
    explicit Shape(int z) : depth(z) {}
    virtual ~Shape() = default;
    virtual std::string name() const = 0;
    const int depth;
};

struct alignas(64) Circle final : Shape {
    using Shape::Shape;
    std::string name() const override { return "circle"; }
    ovant::link among_circles;
};
using Circles = ovant::set<&Circle::among_circles, &Circle::depth>; // the key in a base
struct Square final : Shape {
    using Shape::Shape;
    std::string name() const override { return "square"; }
};

// From the back to the front, and first come first drawn where two lie equally deep.
class Scene {
public:
    void add(Shape &shape) { shapes_.insert(shape); }
    void hide(Shape &shape) {
        if (shapes_.holds(shape))
            shapes_.erase(shape);
    }
    void draw() const {
        for (const Shape &shape : shapes_)
            std::cout << shape.name() << " at " << shape.depth << '\n';
    }

private:
    ovant::multiset<&Shape::link_, &Shape::depth, std::greater<>> shapes_; // the link in a base
};

int main() {
    Circle near(1), far(9);
    Square middle(5), beside(5);
    Shape *const shapes[] = {&near, &middle, &beside, &far};
    Scene scene;
    for (Shape *shape : shapes)
        scene.add(*shape);
    scene.hide(middle);
    scene.hide(middle); // is not there any more
    scene.draw();

    Circles circles;
    circles.insert(far);
    circles.insert(near);
    std::cout << "the nearest circle is at " << circles.front().depth << '\n';
}

/* prints
circle at 9
square at 5
circle at 1
the nearest circle is at 1
*/
