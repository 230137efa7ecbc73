#pragma once

#include <cstddef>
#include <vector>

namespace crownlab {

/// Sorts the entries `first` to `last` (from 0, both included) of `list` ascending, in place. Nothing
/// happens if `last` is before `first`; SubscriptOutOfRange if the range leaves the list.
///
/// Quicksort without recursion (C. A. R. Hoare, "Quicksort", 1962; the longer part waits on a stack of 32
/// entries while the shorter is sorted, which is enough for any list that memory holds). Entries of equal
/// value come in no promised order.
void SortList(std::vector<double>& list, std::ptrdiff_t first, std::ptrdiff_t last);

/// As SortList for `keys`, and every entry of `companion` goes where its key goes.
void SortListPaired(std::vector<double>& keys, std::vector<double>& companion, std::ptrdiff_t first,
                    std::ptrdiff_t last);

}  // namespace crownlab
