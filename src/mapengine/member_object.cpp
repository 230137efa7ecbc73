#include "mapengine/member_object.h"

#include <limits>

#include "basis/number_text.h"

namespace crownlab {

double FiniteValue(const Value& value) {
    const double number = NumberOf(value, "the value");
    if (!std::isfinite(number)) FailCall("the value is not a finite number");
    return number;
}

double PositiveValue(const Value& value) {
    const double number = FiniteValue(value);
    if (number <= 0) FailCall(GeneralText(number) + " is not above 0");
    return number;
}

int WholeValue(const Value& value) {
    const double number = FiniteValue(value);
    if (number != std::floor(number) || std::fabs(number) > std::numeric_limits<int>::max()) {
        FailCall(GeneralText(number) + " is not a whole number of 32 bits");
    }
    return static_cast<int>(number);
}

bool FlagValue(const Value& value) {
    if (const bool* const flag = std::get_if<bool>(&value)) return *flag;
    if (const double* const number = std::get_if<double>(&value)) return *number != 0;
    FailCall("the value is neither True nor False");
}

}  // namespace crownlab
