#include "viewer/sort_list.h"

#include <array>
#include <utility>

#include "basis/failure.h"

namespace crownlab {
namespace {

struct Range {
    std::ptrdiff_t First;
    std::ptrdiff_t Last;
};

/// Ranges that wait. The shorter part is sorted first, so each waiting range is at most half as long as the
/// one below it, and a list of n entries never needs more than log2(n) places.
struct Stack {
    std::array<Range, 32> Waiting{};
    std::size_t Count = 0;

    void Push(Range range) {
        if (Count == Waiting.size()) throw Failure(FailureKind::SubscriptOutOfRange, "stack of the sort");
        Waiting[Count++] = range;
    }
};

/// Ranges up to this length are sorted by insertion, which is quicker for a handful of entries.
constexpr std::ptrdiff_t kShortRange = 12;

void RequireRange(const std::vector<double>& list, std::ptrdiff_t first, std::ptrdiff_t last) {
    if (first < 0 || last >= static_cast<std::ptrdiff_t>(list.size())) {
        throw Failure(FailureKind::SubscriptOutOfRange, "list to sort");
    }
}

double MiddleOfThree(double a, double b, double c) {
    if (a > b) std::swap(a, b);
    if (c < a) return a;
    return c < b ? c : b;
}

template <typename Swap>
void InsertionSort(const double* keys, Range range, const Swap& swap) {
    for (std::ptrdiff_t i = range.First + 1; i <= range.Last; ++i) {
        for (std::ptrdiff_t j = i; j > range.First && keys[j] < keys[j - 1]; --j) swap(j, j - 1);
    }
}

/// Divides a range so that no key of the lower part is above one of the upper part. Both scans stop at keys
/// equal to the pivot, which keeps lists of many equal keys fast. Returns the upper part's first entry and
/// the lower part's last one.
template <typename Swap>
Range Partition(const double* keys, Range range, const Swap& swap) {
    const double pivot =
        MiddleOfThree(keys[range.First], keys[range.First + (range.Last - range.First) / 2], keys[range.Last]);
    std::ptrdiff_t i = range.First;
    std::ptrdiff_t j = range.Last;
    while (i <= j) {
        while (keys[i] < pivot) ++i;
        while (keys[j] > pivot) --j;
        if (i <= j) swap(i++, j--);
    }
    return {i, j};
}

template <typename Swap>
void Sort(const double* keys, Range range, const Swap& swap) {
    Stack stack;
    stack.Push(range);
    while (stack.Count > 0) {
        Range current = stack.Waiting[--stack.Count];
        while (current.Last - current.First >= kShortRange) {
            const Range cut = Partition(keys, current, swap);
            const Range lower{current.First, cut.Last};
            const Range upper{cut.First, current.Last};
            const bool lowerIsLonger = lower.Last - lower.First > upper.Last - upper.First;
            stack.Push(lowerIsLonger ? lower : upper);
            current = lowerIsLonger ? upper : lower;
        }
        InsertionSort(keys, current, swap);
    }
}

}  // namespace

void SortList(std::vector<double>& list, std::ptrdiff_t first, std::ptrdiff_t last) {
    if (last < first) return;
    RequireRange(list, first, last);
    double* const keys = list.data();
    Sort(keys, {first, last}, [keys](std::ptrdiff_t i, std::ptrdiff_t j) { std::swap(keys[i], keys[j]); });
}

void SortListPaired(std::vector<double>& keys, std::vector<double>& companion, std::ptrdiff_t first,
                    std::ptrdiff_t last) {
    if (last < first) return;
    RequireRange(keys, first, last);
    RequireRange(companion, first, last);
    double* const key = keys.data();
    double* const other = companion.data();
    Sort(key, {first, last}, [key, other](std::ptrdiff_t i, std::ptrdiff_t j) {
        std::swap(key[i], key[j]);
        std::swap(other[i], other[j]);
    });
}

}  // namespace crownlab
