// Sessions that expire: one record in two trees at once, found by its name in the one and by its time in the other.
// The visitors of the hour that it plays are made up, and the same each time.
#include "ovant.hpp"

#include <cstdio>
#include <iterator>
#include <memory>
#include <new>
#include <random>
#include <string>

// A record of ours, with a link for each tree that it stands in.  A tree makes no copy of it and takes no memory.
struct Session {
    std::string name;
    int expires; // in minutes of the day
    ovant::link by_name, by_time;
};

// The type of a tree says where the link is, what the records are ordered by, and how.  The last argument here says
// what becomes of a record that leaves: this tree owns the sessions, and deletes them.
using Names = ovant::set<&Session::by_name, &Session::name, std::compare_three_way, std::default_delete<Session>>;
// This one owns nothing.  Several sessions may expire at one time: a multiset, where equals stand in order of arrival.
using Times = ovant::multiset<&Session::by_time, &Session::expires>;

class Sessions {
public:
    // Somebody is here: the session is found, or begun, and lasts another ten minutes.
    void visit(const char *name, int now) {
        const auto [position, is_new] = names_.find_or_insert(name, [&] { return new Session{name, 0, {}, {}}; });
        Session &session = *position;
        if (!is_new)
            times_.erase(session); // before its key changes: a tree does not look at its records again
        session.expires = now + 10;
        times_.insert(session);
        begun_ += is_new;
    }

    // Everything that has expired leaves the times by one cut, however much it is.  Each of these sessions is then
    // handed over to be taken out of the names, which ends it.
    void expire(int now) {
        print_expired(now);
        times_.erase(ovant::start, ovant::after(now), [this](Session *session) {
            names_.erase(*session);
            ++ended_;
        });
    }

    void print_all() const {
        std::printf("%d begun, %d expired, these are left\nby name:", begun_, ended_);
        for (const Session &session : names_)
            print(session);
        std::printf("\nby time:");
        for (const Session &session : times_)
            print(session);
        std::printf("\n");
    }

private:
    static void print(const Session &session) {
        std::printf("  %s %02d:%02d", session.name.c_str(), session.expires / 60, session.expires % 60);
    }
    void print_expired(int now) const {
        std::printf("%02d:%02d  expired:", now / 60, now % 60);
        const auto expired = times_.between(ovant::start, ovant::after(now));
        for (const Session &session : expired)
            print(session);
        std::printf(expired.empty() ? "  nobody\n" : "\n");
    }

    Names names_;
    Times times_; // ends before the names, whose sessions it holds
    int begun_ = 0, ended_ = 0;
};

int main() try {
    const char *const visitors[] = {"ada", "alan", "barbara", "donald", "edsger", "emmy", "grace", "kurt", "sophie"};
    std::mt19937 random(1985);
    Sessions sessions;
    const int opens = 9 * 60;
    for (int now = opens; now <= opens + 60; ++now) {
        if (random() % 2 == 0)
            sessions.visit(visitors[random() % std::size(visitors)], now);
        if (now % 10 == 0)
            sessions.expire(now);
    }
    sessions.print_all();
} catch (const std::bad_alloc &) {
    return std::fprintf(stderr, "expiry: out of memory\n"), 1;
}
