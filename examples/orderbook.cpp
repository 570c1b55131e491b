// An order book, where a share is bought and sold: the best price comes first and, at one price, who came first.
// The orders of the day that it plays are made up, and the same each time.
#include "ovant.hpp"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <new>
#include <random>
#include <vector>

// A record of ours.  The link is all that a tree needs of it: the tree makes no copy and takes no memory.
struct Order {
    int number;
    bool buys;
    int price; // in cents
    int open;  // shares that it still wants
    ovant::link link;
};

// The type of a tree says where the link is, what the records are ordered by, and how.  In a multiset equals stand in
// order of arrival: the orders of one price are a queue.
template <class Better> using Side = ovant::multiset<&Order::link, &Order::price, Better>;
using Bids = Side<std::greater<>>; // who wants to buy: the highest price is first
using Asks = Side<std::less<>>;    // who wants to sell: the lowest price is first

struct Total {
    const char *what;
    int orders = 0;
    long shares = 0;

    void add(int n) {
        ++orders;
        shares += n;
    }
};

// A new order takes what the other side offers at its price or a better one.  What it does not get, it waits for.
template <class Own, class Other> void place(Order &order, Own &own, Other &other, Total &trades) {
    while (order.open > 0 && !other.empty()) {
        Order &best = other.front(); // the first in the queue at the best price
        if (own.key_comp()(best.price, order.price))
            break;
        const int shares = std::min(order.open, best.open);
        order.open -= shares;
        best.open -= shares;
        trades.add(shares);
        if (best.open == 0)
            other.pop_front();
    }
    if (order.open > 0)
        own.insert(order); // behind all others of its price
}

// An order at hand leaves, wherever in its queue it stands.
template <class Own> void cancel(Order &order, Own &own, Total &cancelled) {
    own.erase(order);
    cancelled.add(order.open);
    order.open = 0;
}

// All orders beyond a price leave as a tree of their own: one cut, however many they are.
template <class Own> void send_back(int limit, Own &own, Total &sent_back) {
    const Own beyond = own.split(ovant::after(limit));
    beyond.for_each([&](const Order &order) { sent_back.add(order.open); });
}

// The five best prices of a side, and who is in the queue there.
template <class Own> void print(const char *what, const Own &own) {
    int lines = 0;
    for (auto at = own.begin(); at != own.end() && lines < 5; ++lines) {
        const auto queue = own.equal_range(at->price);
        std::printf("%-4s %7.2f:", what, at->price / 100.0);
        int waiting = 0;
        for (const Order &order : queue)
            if (++waiting <= 3)
                std::printf("  #%-4d %d", order.number, order.open);
        if (waiting > 3)
            std::printf("  and %d more", waiting - 3);
        std::printf("\n");
        at = queue.end();
    }
}

int main() try {
    std::mt19937 random(1602);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    std::vector<Order> orders(2000); // a record must stay where it is while it is in a tree
    Bids bids;
    Asks asks;
    Total placed{"placed"}, trades{"trades"}, cancelled{"cancelled"}, sent_back{"sent back"}, waiting{"waiting"};
    int middle = 10000;
    for (Order &order : orders) {
        middle += (below(3) - 1) * (placed.orders % 8 == 0);
        const bool buys = below(2) == 0;
        const int distance = below(50) - 5; // some pay more than they must
        order = {placed.orders, buys, buys ? middle - distance : middle + distance, 100 * (1 + below(9)), {}};
        placed.add(order.open);
        order.buys ? place(order, bids, asks, trades) : place(order, asks, bids, trades);

        Order &other = orders[random() % orders.size()]; // somebody thinks better of it
        if (other.open > 0)
            other.buys ? cancel(other, bids, cancelled) : cancel(other, asks, cancelled);
    }
    std::printf("The best prices, and who waits there for how many shares:\n");
    print("buy", bids);
    print("sell", asks);
    send_back(middle - 20, bids, sent_back);
    send_back(middle + 20, asks, sent_back);
    std::printf("Orders more than 0.20 away from %.2f are sent back, which leaves %.2f to %.2f.\n", middle / 100.0,
                bids.back().price / 100.0, asks.back().price / 100.0);
    const auto count = [&](const Order &order) { waiting.add(order.open); };
    bids.for_each(count);
    asks.for_each(count);
    for (const Total &total : {placed, trades, cancelled, sent_back, waiting})
        std::printf("%-10s %7d for %9ld shares\n", total.what, total.orders, total.shares);
} catch (const std::bad_alloc &) {
    return std::fprintf(stderr, "orderbook: out of memory\n"), 1;
}
