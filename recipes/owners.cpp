// Trees that own their records.  A tree with a disposer ends what is erased, what is left when it ends itself, and what
// loses where two trees become one; what is extracted is the caller's again.  Here one tree deletes, and one gives its
// records back to a pool, which it carries a pointer to.  An insertion that is refused owns nothing.
#include <ovant.hpp>

#include <compare>
#include <iostream>
#include <memory>
#include <vector>

struct Job {
    explicit Job(int n) : number(n) { alive++; }
    ~Job() { alive--; }
    static inline int alive = 0;

    int number;
    ovant::link link;
};
using Jobs = ovant::set<&Job::link, &Job::number, std::compare_three_way, std::default_delete<Job>>;

bool add(Jobs &jobs, std::unique_ptr<Job> job) {
    const bool added = jobs.insert(*job).second;
    if (added)
        (void)job.release(); // the tree's from here on
    return added;
}

struct to_pool {
    std::vector<Job *> *pool;
    void operator()(Job *job) const { pool->push_back(job); }
};
using Lent = ovant::multiset<&Job::link, &Job::number, std::compare_three_way, to_pool>;

int main() {
    {
        Jobs jobs, copy;
        for (int number = 0; number < 20; number++)
            add(jobs, std::make_unique<Job>(number));
        std::cout << "job 7 again: " << (add(jobs, std::make_unique<Job>(7)) ? "added" : "refused") << '\n';
        jobs.erase(3);
        jobs.erase(jobs.find(9));
        jobs.erase(jobs.front().number); // the key goes with its record
        jobs.erase(ovant::before(14), ovant::after(18));
        std::cout << Job::alive << " jobs\n";

        const std::unique_ptr<Job> mine(jobs.extract(5)); // out of the tree, and alive
        copy.clone_from(jobs, [](const Job &job) { return new Job(job.number); });
        std::cout << Job::alive << " with copies\n";

        copy.erase(ovant::start, ovant::before(10));
        jobs.erase(ovant::after(10), ovant::finish);
        jobs.unite(std::move(copy)); // job 10 of the copies loses
        std::cout << Job::alive << " after all became one\n";
        Jobs done, wanted;
        done.assign_sorted(std::vector{new Job(7), new Job(8), new Job(11)});
        wanted.assign_sorted(std::vector{new Job(1), new Job(7), new Job(11), new Job(21)});
        jobs.subtract(done);
        std::cout << Job::alive << " with 3 done and 4 wanted, less what was done\n";
        jobs.intersect(wanted); // leaves job 1
        done.assign_sorted(std::vector<Job *>());
        wanted = std::move(jobs);
        std::cout << Job::alive << ": jobs " << wanted.front().number << " and " << mine->number << '\n';
    }
    Job jobs[] = {Job(1), Job(2), Job(2), Job(3)};
    std::vector<Job *> pool;
    Lent lent(std::compare_three_way(), to_pool{&pool});
    for (Job &job : jobs)
        lent.insert(job);
    lent.erase(2);
    std::cout << pool.size() << " back in the pool";
    lent.clear();
    std::cout << ", " << pool.size() << " at the end\n";
}

/* prints
job 7 again: refused
12 jobs
23 with copies
12 after all became one
16 with 3 done and 4 wanted, less what was done
2: jobs 1 and 5
2 back in the pool, 4 at the end
*/
