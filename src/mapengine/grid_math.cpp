#include "mapengine/grid_math.h"

#include <muParser.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "basis/number_text.h"
#include "basis/text.h"
#include "mapengine/engine_call.h"

namespace crownlab {
namespace {

struct NamedFunction {
    std::string_view Name;
    double (*Of)(double);
};

constexpr std::array<NamedFunction, 11> kFunctions{{
    {"abs", [](double x) { return std::fabs(x); }},
    {"acos", [](double x) { return std::acos(x); }},
    {"asin", [](double x) { return std::asin(x); }},
    {"atan", [](double x) { return std::atan(x); }},
    {"cos", [](double x) { return std::cos(x); }},
    {"exp", [](double x) { return std::exp(x); }},
    {"ln", [](double x) { return std::log(x); }},
    {"log10", [](double x) { return std::log10(x); }},
    {"sin", [](double x) { return std::sin(x); }},
    {"sqrt", [](double x) { return std::sqrt(x); }},
    {"tan", [](double x) { return std::tan(x); }},
}};

/// The outermost of some values by `isBetter`. One that isn't a number makes the result none, wherever it stands.
template <typename IsBetter>
double Outermost(const double* values, int count, IsBetter isBetter) {
    double best = values[0];
    for (int i = 0; i < count; ++i) {
        if (std::isnan(values[i])) return values[i];
        if (isBetter(values[i], best)) best = values[i];
    }
    return best;
}

double Lowest(const double* values, int count) {
    return Outermost(values, count, [](double a, double b) { return a < b; });
}

double Highest(const double* values, int count) {
    return Outermost(values, count, [](double a, double b) { return a > b; });
}

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Evaluates one formula, node by node. One thread uses it.
class Evaluator {
public:
    explicit Evaluator(const GridFormula& formula) {
        // Only what the formulas are said to have; regrouping of constants would change last digits.
        parser_.ClearFun();
        parser_.ClearConst();
        parser_.EnableOptimizer(false);
        for (const NamedFunction& function : kFunctions) parser_.DefineFun(std::string(function.Name), function.Of);
        parser_.DefineFun("min", Lowest);
        parser_.DefineFun("max", Highest);
        parser_.DefineVar("a", &a_);
        parser_.DefineVar("b", &b_);
        parser_.SetExpr(formula.Text);
    }
    Evaluator(const Evaluator&) = delete;
    Evaluator& operator=(const Evaluator&) = delete;

    double Of(double a, double b) {
        a_ = a;
        b_ = b;
        return parser_.Eval();
    }
    /// Number of values that the formula has, known after the first evaluation.
    int Values() const { return parser_.GetNumResults(); }

private:
    mu::Parser parser_;
    double a_ = 1;
    double b_ = 1;
};

[[noreturn]] void FailFormula(std::string_view function, const std::string& why) {
    FailCall("the formula " + QuotedText(function) + " can't be understood: " + why);
}

constexpr std::string_view kBlanks = " \t";

/// Where the formula starts behind "C=" or "C =".
std::size_t BehindEqualsSign(std::string_view function) {
    const std::size_t name = function.find_first_not_of(kBlanks);
    if (name != std::string_view::npos && (function[name] == 'C' || function[name] == 'c')) {
        const std::size_t sign = function.find_first_not_of(kBlanks, name + 1);
        if (sign != std::string_view::npos && function[sign] == '=') return sign + 1;
    }
    FailFormula(function, "it doesn't start with C=");
}

/// Walks over the formula word by word, as far as it takes to know which grids occur and that nothing stands in it
/// which the parser would take in a sense of its own.
class FormulaWords {
public:
    explicit FormulaWords(std::string_view function) : function_(function), at_(BehindEqualsSign(function)) {
        // Blanks in front, so that places that the parser speaks of are places in the whole text.
        formula_.Text.assign(at_, ' ');
    }

    GridFormula Read() {
        while (at_ < function_.size()) {
            const char c = function_[at_];
            if (IsLetter(c)) {
                TakeName();
            } else if (IsDigit(c) || c == '.') {
                TakeNumber();
            } else if (std::string_view(" \t()+-*/^,").find(c) != std::string_view::npos) {
                Take(1);
            } else {
                FailFormula(function_, "there is no operator " + QuotedText({&c, 1}));
            }
        }
        return formula_;
    }

private:
    void Take(std::size_t count) {
        formula_.Text += LowerCase(function_.substr(at_, count));
        at_ += count;
    }
    void TakeName() {
        std::size_t end = at_;
        while (end < function_.size() && (IsLetter(function_[end]) || IsDigit(function_[end]))) ++end;
        const std::string_view word = function_.substr(at_, end - at_);
        const std::string name = LowerCase(word);
        formula_.HasA = formula_.HasA || name == "a";
        formula_.HasB = formula_.HasB || name == "b";
        if (name == "a" || name == "b") return Take(word.size());
        if (!IsFunction(name)) FailFormula(function_, QuotedText(word) + " is neither A, B nor a function");
        // The parser wants a function's bracket right behind the name: blanks between them go before it.
        const std::size_t next = std::min(function_.find_first_not_of(kBlanks, end), function_.size());
        const bool hasBracket = next < function_.size() && function_[next] == '(';
        if (hasBracket) formula_.Text.append(next - end, ' ');
        Take(word.size());
        if (hasBracket) at_ = next;
    }
    void TakeNumber() {
        const char* const first = function_.data() + at_;
        double value = 0;
        const char* const end = ScanNumber(first, function_.data() + function_.size(), value);
        if (end == first) FailFormula(function_, "a point is not a number");
        if (std::isinf(value)) FailFormula(function_, QuotedText({first, end}) + " is too large a number");
        Take(static_cast<std::size_t>(end - first));
    }
    static bool IsFunction(std::string_view name) {
        const auto isIt = [name](const NamedFunction& function) { return function.Name == name; };
        return name == "min" || name == "max" || std::any_of(kFunctions.begin(), kFunctions.end(), isIt);
    }

    std::string_view function_;
    std::size_t at_;
    GridFormula formula_;
};

}  // namespace

GridFormula ParseGridFormula(std::string_view function) {
    GridFormula formula = FormulaWords(function).Read();
    try {
        Evaluator evaluator(formula);
        evaluator.Of(1, 1);
        if (evaluator.Values() != 1) FailFormula(function, "a comma stands outside a function");
    } catch (const mu::Parser::exception_type& error) {
        FailFormula(function, error.GetMsg());
    }
    return formula;
}

void ApplyGridFormula(const GridFormula& formula, Grid& a, const Grid* b, Progress& progress) {
    constexpr std::int64_t nodesAtOnce = 16384;
    const double* const heightsB = formula.HasB ? b->Z.data() : nullptr;
    ForEachBlock(static_cast<std::int64_t>(a.Z.size()), nodesAtOnce, progress,
                 [&](std::int64_t first, std::int64_t last) {
                     Evaluator evaluator(formula);
                     for (auto i = static_cast<std::size_t>(first); i < static_cast<std::size_t>(last); ++i) {
                         const double heightB = heightsB != nullptr ? heightsB[i] : 0;
                         const bool blank = (formula.HasA && IsBlank(a.Z[i])) || IsBlank(heightB);
                         const double value = blank ? kBlankHeight : evaluator.Of(a.Z[i], heightB);
                         a.Z[i] = IsBlank(value) ? kBlankHeight : value;
                     }
                 });
}

}  // namespace crownlab
