// Removing while walking, and ending a large tree bit by bit.  erase gives the next position, with its path: a walk
// that removes as it goes makes no comparison.  pop and push do the same at a position in hand, which goes on by
// itself.  A tree that is too large to be cleared at once goes in steps, and is a tree all the while.
#include <ovant.hpp>

#include <iostream>
#include <vector>

struct Job {
    int level;
    char owner;
    ovant::link link;
};
using Jobs = ovant::multiset<&Job::link, &Job::level>;

void print(const Jobs &jobs) {
    for (const Job &job : jobs)
        std::cout << ' ' << job.level << job.owner;
    std::cout << '\n';
}

int main() {
    std::vector<Job> all = {{3, 'e', {}}, {1, 'b', {}}, {3, 'b', {}}, {2, 'e', {}},
                            {3, 'b', {}}, {3, 'e', {}}, {4, 'f', {}}};
    Jobs jobs, others;
    for (Job &job : all)
        jobs.insert(job);

    for (auto at = jobs.begin(); at != jobs.end();)
        if (at->owner == 'b')
            at = jobs.erase(at);
        else
            ++at;
    std::cout << "without b:";
    print(jobs);

    auto from = jobs.lower_bound(3), to = others.end();
    while (from != jobs.end())
        others.push(to, *jobs.pop(from)); // in order, so that each insertion is next to the last one
    std::cout << "moved:";
    print(others);

    const auto end = [](const Job *job) { std::cout << " ends " << job->level << job->owner; };
    for (bool left = true; left; std::cout << '\n') {
        std::cout << "a step:";
        left = others.dispose_some(2, end);
    }
}

/* prints
without b: 2e 3e 3e 4f
moved: 3e 3e 4f
a step: ends 3e ends 3e
a step: ends 4f
*/
