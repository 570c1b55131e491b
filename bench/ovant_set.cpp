// Ovant as a C++ host uses it: headers only, compiled into the host.
#include "pass.hpp"
#include "set_like.hpp"

#include <ovant.hpp>

using namespace bench;

namespace {

struct Record {
    ovant::link link;
    Key key = 0;
};

template <class Container> struct OvantKind {
    using Node = Record;
    using Set = Container;

    static Record &value(Record &node) { return node; }
    static Key key(const Record &node) { return node.key; }
};

// What the set does better than by single steps.
template <class Container> class OvantSet : public SetLike<OvantKind<Container>> {
    using SetLike<OvantKind<Container>>::set_;

public:
    void append(Record &node) {
        if (set_.empty())
            last_ = set_.end();
        set_.push(last_, node);
    }
    void build(const std::vector<Record *> &nodes) { set_.assign_sorted(nodes); }
    std::uint64_t for_each() const {
        std::uint64_t sum = 0;
        set_.for_each([&](const Record &node) { sum += node.key; });
        return sum;
    }
    bool erase(Key key) { return set_.erase(key); }
    void pop_first() { keep(set_.pop_front()); }
    void drain() {
        for (auto at = set_.begin(); at != set_.end();)
            keep(set_.pop(at));
    }
    void erase_range(Key first, Key last) { set_.erase(ovant::before(first), ovant::after(last)); }
    void cut(Key first, Key last, OvantSet &other) {
        other.set_.append(set_.extract(ovant::before(first), ovant::after(last)));
    }
    void join(OvantSet &other) { set_.append(std::move(other.set_)); }

private:
    typename Container::iterator last_;
};

} // namespace

int main(int argc, char **argv) {
    Pass pass(argc, argv);
    pass.run<OvantSet<ovant::set<&Record::link, &Record::key>>>("ovant.hpp");
    pass.run_equal<OvantSet<ovant::multiset<&Record::link, &Record::key>>>("ovant.hpp");
}
