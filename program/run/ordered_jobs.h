// Runs pieces of work on several threads and returns the results in the order of the pieces.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace tessara::program {

template <class Result>
class OrderedJobs {
  public:
    // `take` receives the results in order. With one job, Start runs the work itself.
    OrderedJobs(unsigned jobs, std::function<void(const Result&)> take) : take_(std::move(take)) {
        if (jobs > 1) mostRunning_ = std::size_t{jobs} * PIECES_PER_JOB;
        for (unsigned i = 0; jobs > 1 && i < jobs; ++i)
            threads_.emplace_back([this] { Work(); });
    }
    OrderedJobs(const OrderedJobs&) = delete;
    OrderedJobs& operator=(const OrderedJobs&) = delete;

    // Drops work that has not started.
    ~OrderedJobs() {
        {
            const std::lock_guard lock(mutex_);
            isOver_ = true;
            waiting_.clear();
        }
        isThere_.notify_all();
        for (std::thread& thread : threads_)
            thread.join();
    }

    template <class Piece>
    void Start(Piece piece) {
        if (threads_.empty()) return take_(piece());
        std::packaged_task<Result()> task(std::move(piece));
        running_.push_back(task.get_future());
        {
            const std::lock_guard lock(mutex_);
            waiting_.push_back(std::move(task));
        }
        isThere_.notify_one();
        if (running_.size() >= mostRunning_) TakeFirst();
    }

    void Finish() {
        while (!running_.empty())
            TakeFirst();
    }

  private:
    // Keeps the threads busy while `take` runs.
    static constexpr unsigned PIECES_PER_JOB = 3;

    void TakeFirst() {
        const Result result = running_.front().get();
        running_.pop_front();
        take_(result);
    }

    void Work() {
        while (true) {
            std::packaged_task<Result()> task;
            {
                std::unique_lock lock(mutex_);
                isThere_.wait(lock, [this] { return isOver_ || !waiting_.empty(); });
                if (waiting_.empty()) return;
                task = std::move(waiting_.front());
                waiting_.pop_front();
            }
            task();
        }
    }

    std::function<void(const Result&)> take_;
    std::size_t mostRunning_ = 1;
    std::vector<std::thread> threads_;
    std::deque<std::future<Result>> running_;
    std::deque<std::packaged_task<Result()>> waiting_;
    std::mutex mutex_;
    std::condition_variable isThere_;
    bool isOver_ = false;
};

}  // namespace tessara::program
