#include "mapengine/grid_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "basis/memory_limit.h"
#include "basis/number_text.h"
#include "basis/result_file.h"
#include "mapengine/engine_call.h"
#include "mapengine/progress.h"

namespace crownlab {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// The numbers of a text, one after the other.
class Numbers {
public:
    explicit Numbers(std::string_view text) : at_(text.data()), last_(text.data() + text.size()) {}

    /// The next number; an infinity where it is out of range. Words for what isn't a number are read too, as they
    /// stand for blanks. `what` names it where there is none.
    double Take(const char* what) {
        SkipSpace();
        double value = 0;
        const char* const start = last_ - at_ > 1 && *at_ == '+' && at_[1] != '-' ? at_ + 1 : at_;
        const auto read = std::from_chars(start, last_, value);
        if (read.ec == std::errc::invalid_argument || (read.ptr != last_ && !IsSpace(*read.ptr))) Fail(what);
        // Out of range: ScanNumber tells large from small.
        if (read.ec == std::errc::result_out_of_range) ScanNumber(start, last_, value);
        at_ = read.ptr;
        return value;
    }
    std::size_t BytesLeft() const { return static_cast<std::size_t>(last_ - at_); }

private:
    void SkipSpace() {
        while (at_ != last_ && IsSpace(*at_)) ++at_;
    }
    [[noreturn]] void Fail(const char* what) const {
        if (at_ == last_) FailCall("it ends before " + std::string(what));
        constexpr std::ptrdiff_t shown = 30;
        const char* const end = std::find_if(at_, at_ + std::min(shown, last_ - at_), IsSpace);
        FailCall("\"" + std::string(at_, end) + "\" stands where " + std::string(what) + " should be");
    }

    const char* at_;
    const char* last_;
};

int TakeCount(Numbers& numbers, const char* what) {
    const double count = numbers.Take(what);
    if (!(std::fabs(count) <= std::numeric_limits<int>::max()) || count != std::floor(count)) {
        FailCall(std::string(what) + " is " + GeneralText(count));
    }
    return static_cast<int>(count);
}

void RequireHeights(std::size_t bytes, const GridGeometry& shape) {
    // A digit and a blank each at least.
    const std::size_t most = (bytes + 1) / 2;
    if (most >= shape.Nodes()) return;
    FailCall("its counts ask for " + std::to_string(shape.Nodes()) + " heights, for which it is too short");
}

char* PutShortest(char* out, double value) { return std::to_chars(out, out + kNumberTextMax, value + 0.0).ptr; }

std::string Shortest(double value) {
    std::array<char, kNumberTextMax> text;
    return {text.data(), PutShortest(text.data(), value)};
}

double HeightOf(double z) { return IsBlank(z) ? kBlankHeight : z; }

/// Longest text of one node, in either form.
constexpr std::size_t kNodeBytes = std::size_t{3} * kNumberTextMax;

/// Writes the texts of all nodes in order. They are made on all cores, some megabytes at a time; `put` writes those of
/// nodes first to last - 1 and returns their end.
void WriteNodes(ResultFile& file, std::size_t nodes,
                const std::function<char*(char* out, std::size_t first, std::size_t last)>& put) {
    constexpr std::size_t piece = 2048;
    constexpr std::size_t piecesAtOnce = 128;
    std::vector<std::string> texts(piecesAtOnce);
    Progress untold;
    for (std::size_t start = 0; start < nodes; start += piece * piecesAtOnce) {
        const std::size_t count = std::min(nodes - start, piece * piecesAtOnce);
        ForEachBlock(static_cast<std::int64_t>(count), piece, untold, [&](std::int64_t first, std::int64_t last) {
            std::string& text = texts[static_cast<std::size_t>(first) / piece];
            text.resize(piece * kNodeBytes);
            const char* const end =
                put(text.data(), start + static_cast<std::size_t>(first), start + static_cast<std::size_t>(last));
            text.resize(static_cast<std::size_t>(end - text.data()));
        });
        for (std::size_t i = 0; i * piece < count; ++i) file.Write(texts[i]);
    }
}

char* PutText(char* out, std::string_view text) { return std::copy(text.begin(), text.end(), out); }

char* PutAsciiNodes(char* out, const Grid& grid, std::size_t first, std::size_t last) {
    constexpr std::size_t perLine = 10;
    const auto columns = static_cast<std::size_t>(grid.Shape.Columns);
    std::size_t column = first % columns;
    for (std::size_t node = first; node < last; ++node) {
        out = PutShortest(out, HeightOf(grid.Z[node]));
        const bool endsRow = ++column == columns;
        out = PutText(out, endsRow || column % perLine == 0 ? kLineEnd : " ");
        if (!endsRow) continue;
        out = PutText(out, kLineEnd);
        column = 0;
    }
    return out;
}

/// Text of a position and the blank behind it, ready to be copied to each node that has it.
struct PositionText {
    std::array<char, kNumberTextMax> Text;
    std::size_t Size;

    explicit PositionText(double position) {
        char* const end = AppendGeneralText(Text.data(), position);
        *end = ' ';
        Size = static_cast<std::size_t>(end + 1 - Text.data());
    }
    std::string_view View() const { return {Text.data(), Size}; }
};

std::vector<PositionText> ColumnTexts(const GridGeometry& shape) {
    RequireMemory(static_cast<std::uint64_t>(shape.Columns) * sizeof(PositionText), "the positions of a grid");
    std::vector<PositionText> texts;
    texts.reserve(static_cast<std::size_t>(shape.Columns));
    for (int column = 0; column < shape.Columns; ++column) texts.emplace_back(shape.X(column));
    return texts;
}

char* PutTextNodes(char* out, const Grid& grid, const std::vector<PositionText>& columns, std::size_t first,
                   std::size_t last) {
    std::size_t row = first / columns.size();
    std::size_t column = first % columns.size();
    PositionText y(grid.Shape.Y(static_cast<int>(row)));
    for (std::size_t node = first; node < last; ++node) {
        out = PutText(out, columns[column].View());
        out = PutText(out, y.View());
        out = AppendGeneralText(out, HeightOf(grid.Z[node]));
        out = PutText(out, kLineEnd);
        if (++column < columns.size()) continue;
        column = 0;
        if (node + 1 < last) y = PositionText(grid.Shape.Y(static_cast<int>(++row)));
    }
    return out;
}

}  // namespace

Grid ReadAsciiGrid(std::string_view text) {
    Numbers numbers(text.substr(4));
    GridGeometry shape;
    shape.Columns = TakeCount(numbers, "the number of columns");
    shape.Rows = TakeCount(numbers, "the number of rows");
    shape.XMin = numbers.Take("the x minimum");
    shape.XMax = numbers.Take("the x maximum");
    shape.YMin = numbers.Take("the y minimum");
    shape.YMax = numbers.Take("the y maximum");
    numbers.Take("the z minimum");
    numbers.Take("the z maximum");
    RequireGeometry(shape);
    RequireHeights(numbers.BytesLeft(), shape);
    Grid grid(shape);
    for (double& z : grid.Z) z = HeightOf(numbers.Take("a height"));
    return grid;
}

void WriteAsciiGrid(ResultFile& file, const Grid& grid) {
    const GridGeometry& shape = grid.Shape;
    const HeightRange range = Heights(grid);
    file.Line("DSAA");
    file.Line(std::to_string(shape.Columns) + " " + std::to_string(shape.Rows));
    file.Line(Shortest(shape.XMin) + " " + Shortest(shape.XMax));
    file.Line(Shortest(shape.YMin) + " " + Shortest(shape.YMax));
    file.Line(Shortest(range.Low) + " " + Shortest(range.High));
    WriteNodes(file, shape.Nodes(),
               [&](char* out, std::size_t first, std::size_t last) { return PutAsciiNodes(out, grid, first, last); });
}

void WriteNodeText(ResultFile& file, const Grid& grid) {
    const std::vector<PositionText> columns = ColumnTexts(grid.Shape);
    WriteNodes(file, grid.Shape.Nodes(), [&](char* out, std::size_t first, std::size_t last) {
        return PutTextNodes(out, grid, columns, first, last);
    });
}

}  // namespace crownlab
