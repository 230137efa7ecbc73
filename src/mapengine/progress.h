#pragma once

#include <atomic>
#include <cstdint>
#include <functional>

namespace crownlab {

/// How much of a call's work is done. Workers tell it, the thread that waits reads it.
class Progress {
public:
    void SetShare(double share) { share_.store(share, std::memory_order_relaxed); }
    double Share() const { return share_.load(std::memory_order_relaxed); }

private:
    std::atomic<double> share_{0};
};

/// Runs `work(first, last)` over [0, count) in blocks of at most `block`, on all cores. Blocks come in any order and
/// on any thread, so `work` may only write what belongs to its own block: then the result is the same for every
/// number of threads. Tells `progress` the share done. The first exception of a block is passed on when all threads
/// have stopped.
void ForEachBlock(std::int64_t count, std::int64_t block, Progress& progress,
                  const std::function<void(std::int64_t first, std::int64_t last)>& work);

/// Threads that ForEachBlock uses: the machine's, or fewer if the environment's CROWNLAB_THREADS says so.
int WorkerThreads();

}  // namespace crownlab
