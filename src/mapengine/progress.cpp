#include "mapengine/progress.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace crownlab {
namespace {

/// The blocks of one loop, taken one after the other by its threads.
class Blocks {
public:
    Blocks(std::int64_t count, std::int64_t block, Progress& progress,
           const std::function<void(std::int64_t, std::int64_t)>& work)
        : count_(count), block_(std::max<std::int64_t>(block, 1)), progress_(progress), work_(work) {}

    void Run() {
        try {
            while (!stopped_.load(std::memory_order_relaxed)) {
                const std::int64_t first = next_.fetch_add(block_);
                if (first >= count_) return;
                const std::int64_t last = std::min(first + block_, count_);
                work_(first, last);
                const std::int64_t done = done_.fetch_add(last - first) + last - first;
                progress_.SetShare(static_cast<double>(done) / static_cast<double>(count_));
            }
        } catch (...) {
            const std::lock_guard lock(mutex_);
            if (!error_) error_ = std::current_exception();
            stopped_ = true;
        }
    }

    std::int64_t Number() const { return (count_ + block_ - 1) / block_; }
    void Rethrow() const {
        if (error_) std::rethrow_exception(error_);
    }

private:
    std::int64_t count_;
    std::int64_t block_;
    Progress& progress_;
    const std::function<void(std::int64_t, std::int64_t)>& work_;
    std::atomic<std::int64_t> next_{0};
    std::atomic<std::int64_t> done_{0};
    std::atomic<bool> stopped_{false};
    std::mutex mutex_;
    std::exception_ptr error_;
};

}  // namespace

int WorkerThreads() {
    constexpr int most = 64;
    const int cores = std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, most);
    const char* const wanted = std::getenv("CROWNLAB_THREADS");
    const int number = wanted == nullptr ? 0 : std::atoi(wanted);
    return number > 0 ? std::min(number, most) : cores;
}

void ForEachBlock(std::int64_t count, std::int64_t block, Progress& progress,
                  const std::function<void(std::int64_t, std::int64_t)>& work) {
    if (count <= 0) return;
    Blocks blocks(count, block, progress, work);
    const std::int64_t threads = std::min<std::int64_t>(WorkerThreads(), blocks.Number());
    {
        std::vector<std::jthread> others;
        for (std::int64_t i = 1; i < threads; ++i) others.emplace_back([&blocks] { blocks.Run(); });
        blocks.Run();
    }
    blocks.Rethrow();
}

}  // namespace crownlab
