#pragma once

#include <optional>
#include <string>

#include "surfer/automation.h"

namespace crownlab {

/// What the boxes of the smoothing tool hold. Names take their texts as they stand.
struct FilterTexts {
    std::string Size;
    std::string Weight;
    std::string CentreWeight;
};

/// A filter of the mapping program: its code there, and what it adds to file names.
struct SmoothingFilter {
    int Code = 0;
    std::string Suffix;
};

/// The pre-defined filter of that entry of the list. Nothing if there is no such entry.
std::optional<SmoothingFilter> PreDefinedFilter(const std::string& entry, const FilterTexts& texts);

/// The filter whose weights the person defines.
SmoothingFilter DefinedFilter(const FilterTexts& texts);

/// n by n weights of 1 with `centre` in the middle. `n` is odd. SubscriptOutOfRange for n below 1, OutOfMemory.
NumberMatrix FilterWeights(double n, double centre);

}  // namespace crownlab
