// Work on several cores at once, whose results come in the order in which it was given out.
#pragma once

#include <deque>
#include <functional>
#include <future>
#include <utility>

namespace tessara::program {

template <class Result>
class OrderedJobs {
  public:
    // `take` gets one result after the other. With one job the work is done where its result is taken.
    OrderedJobs(unsigned jobs, std::function<void(const Result&)> take)
        : jobs_(jobs), take_(std::move(take)) {}

    // As many pieces of work are on their way as there are jobs.
    template <class Work>
    void Start(Work work) {
        running_.push_back(
            std::async(jobs_ > 1 ? std::launch::async : std::launch::deferred, std::move(work)));
        if (running_.size() >= jobs_) TakeFirst();
    }

    void Finish() {
        while (!running_.empty())
            TakeFirst();
    }

  private:
    void TakeFirst() {
        const Result result = running_.front().get();
        running_.pop_front();
        take_(result);
    }

    unsigned jobs_;
    std::function<void(const Result&)> take_;
    std::deque<std::future<Result>> running_;
};

}  // namespace tessara::program
