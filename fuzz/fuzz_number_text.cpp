// Numbers: a text that is read, written and read again stays what it was; so does any bit pattern within the 15
// digits that are written.

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "basis/failure.h"
#include "basis/number_text.h"

namespace {

void RoundTrip(double value) {
    const std::string text = crownlab::RecordText(value);
    if (text.size() > crownlab::kNumberTextMax) std::abort();
    const double again = crownlab::TextBoxNumber(text);
    if (std::fabs(again - value) > std::fabs(value) * 5.3e-15 + 5e-324) std::abort();
    if (crownlab::RecordText(again) != text) std::abort();
    if (crownlab::TextBoxNumber(crownlab::GeneralText(value)) != again) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    try {
        const crownlab::NumberPrefix number = crownlab::ParseNumberPrefix(text);
        if (number.Length > size || !std::isfinite(number.Value)) std::abort();
        RoundTrip(number.Value);
    } catch (const crownlab::Failure& failure) {
        if (failure.Kind() != crownlab::FailureKind::Overflow) std::abort();
    }
    double value = 0;
    std::memcpy(&value, data, size < sizeof(value) ? size : sizeof(value));
    // The largest numbers round up beyond the range at 15 digits.
    if (std::isfinite(value) && std::fabs(value) < 1.79e308) RoundTrip(value);
    return 0;
}
