#include "mapengine/grid_binary.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include "basis/number_text.h"
#include "basis/result_file.h"
#include "mapengine/engine_call.h"

namespace crownlab {
namespace {

static_assert(std::endian::native == std::endian::little, "the files are little-endian, and read by plain copies");
static_assert(std::numeric_limits<double>::is_iec559 && std::numeric_limits<float>::is_iec559);

constexpr std::string_view kGridTag = "GRID";
constexpr std::string_view kDataTag = "DATA";
constexpr std::uint32_t kGridSectionBytes = 72;
/// Files of the second version differ in sections that aren't read here.
constexpr std::int32_t kLatestVersion = 2;

/// Takes values off the front of some bytes.
class Bytes {
public:
    explicit Bytes(std::string_view rest) : rest_(rest) {}

    template <typename T>
    T Take() {
        T value;
        std::memcpy(&value, TakeBytes(sizeof(T)).data(), sizeof(T));
        return value;
    }
    std::string_view TakeBytes(std::uint64_t count) {
        if (count > rest_.size()) FailCall("it ends before its heights");
        const std::string_view taken = rest_.substr(0, static_cast<std::size_t>(count));
        rest_.remove_prefix(taken.size());
        return taken;
    }
    std::string_view Rest() const { return rest_; }

private:
    std::string_view rest_;
};

void RequireHeights(std::uint64_t bytes, const GridGeometry& shape, std::size_t heightBytes) {
    if (bytes / heightBytes >= shape.Nodes()) return;
    FailCall("its counts ask for " + std::to_string(shape.Nodes()) + " heights, but it holds " +
             std::to_string(bytes / heightBytes));
}

/// Makes the grid of heights that lie packed at the start of `bytes`.
template <typename Height>
Grid GridOf(const GridGeometry& shape, std::string_view bytes, double blankValue) {
    RequireGeometry(shape);
    RequireHeights(bytes.size(), shape, sizeof(Height));
    Grid grid(shape);
    const char* from = bytes.data();
    for (double& z : grid.Z) {
        Height height;
        std::memcpy(&height, from, sizeof(Height));
        from += sizeof(Height);
        if (!IsBlank(height) && !(height >= blankValue)) z = height;
    }
    return grid;
}

/// Content of the next section with that tag, as far as the file goes; sections before it are skipped.
std::string_view FindSection(Bytes& bytes, std::string_view wanted) {
    while (true) {
        if (bytes.Rest().size() < 2 * sizeof(std::uint32_t)) FailCall("it has no " + std::string(wanted) + " section");
        const std::string_view tag = bytes.TakeBytes(wanted.size());
        const auto size = bytes.Take<std::uint32_t>();
        if (tag == wanted) return bytes.TakeBytes(std::min<std::uint64_t>(size, bytes.Rest().size()));
        bytes.TakeBytes(size);
    }
}

/// A limit `steps` spacings from `origin`.
double FarLimit(double origin, double spacing, double steps) { return origin + steps * spacing; }

/// The spacing between two limits; of those that differ in the last place only, one that leads from the lower limit to
/// the very upper one, if there is such a one.
double SpacingBetween(double low, double high, double steps) {
    const double spacing = (high - low) / steps;
    for (const double near : {spacing, std::nextafter(spacing, 0.0), std::nextafter(spacing, HUGE_VAL)}) {
        if (FarLimit(low, near, steps) == high) return near;
    }
    return spacing;
}

struct GridSection {
    GridGeometry Shape;
    double BlankValue = kBlankHeight;
};

GridSection ReadGridSection(std::string_view content) {
    if (content.size() < kGridSectionBytes) FailCall("its GRID section is too short");
    Bytes bytes(content);
    GridSection section;
    GridGeometry& shape = section.Shape;
    shape.Rows = bytes.Take<std::int32_t>();
    shape.Columns = bytes.Take<std::int32_t>();
    shape.XMin = bytes.Take<double>();
    shape.YMin = bytes.Take<double>();
    shape.XMax = FarLimit(shape.XMin, bytes.Take<double>(), shape.Columns - 1.0);
    shape.YMax = FarLimit(shape.YMin, bytes.Take<double>(), shape.Rows - 1.0);
    bytes.TakeBytes(2 * sizeof(double));  // z limits, which the heights tell better
    const auto rotation = bytes.Take<double>();
    section.BlankValue = bytes.Take<double>();
    if (rotation != 0) FailCall("it is turned by " + GeneralText(rotation) + " degrees");
    RequireGeometry(shape);
    return section;
}

template <typename T>
void Put(std::string& bytes, T value) {
    bytes.append(reinterpret_cast<const char*>(&value), sizeof(T));
}

void PutLimits(std::string& bytes, const Grid& grid) {
    const GridGeometry& shape = grid.Shape;
    const HeightRange range = Heights(grid);
    for (const double limit : {shape.XMin, shape.XMax, shape.YMin, shape.YMax, range.Low, range.High}) {
        Put(bytes, limit);
    }
}

void PutSectionHead(std::string& bytes, std::string_view tag, std::uint32_t size) {
    bytes += tag;
    Put(bytes, size);
}

/// Writes all heights, each as `form` gives it, in pieces.
template <typename Form>
void WriteHeights(ResultFile& file, const std::vector<double>& heights, const Form& form) {
    constexpr std::size_t piece = 16384;
    std::vector<decltype(form(0.0))> packed(piece);
    for (std::size_t first = 0; first < heights.size(); first += piece) {
        const std::size_t count = std::min(piece, heights.size() - first);
        const auto from = heights.begin() + static_cast<std::ptrdiff_t>(first);
        std::transform(from, from + static_cast<std::ptrdiff_t>(count), packed.begin(), form);
        file.Write({reinterpret_cast<const char*>(packed.data()), count * sizeof(packed.front())});
    }
}

/// A height in 32 bits. One that isn't blank stays so, though it may lie within half a place of the blank value.
float Height32(double z) {
    constexpr auto blank = static_cast<float>(kBlankHeight);
    static_assert(blank >= kBlankHeight);
    if (IsBlank(z)) return blank;
    if (z < -std::numeric_limits<float>::max()) FailCall("a height of " + GeneralText(z) + " doesn't fit 32 bits");
    return std::min(static_cast<float>(z), std::nextafter(blank, 0.0F)) + 0.0F;
}

/// Adding zero makes minus zero plain.
double Height64(double z) { return IsBlank(z) ? kBlankHeight : z + 0.0; }

}  // namespace

Grid ReadBinary32(std::string_view bytes) {
    Bytes rest(bytes);
    rest.TakeBytes(4);
    GridGeometry shape;
    shape.Columns = rest.Take<std::int16_t>();
    shape.Rows = rest.Take<std::int16_t>();
    shape.XMin = rest.Take<double>();
    shape.XMax = rest.Take<double>();
    shape.YMin = rest.Take<double>();
    shape.YMax = rest.Take<double>();
    rest.TakeBytes(2 * sizeof(double));  // z limits, which the heights tell better
    return GridOf<float>(shape, rest.Rest(), kBlankHeight);
}

Grid ReadBinary64(std::string_view bytes) {
    Bytes rest(bytes);
    Bytes head(FindSection(rest, "DSRB"));
    const auto version = head.Take<std::int32_t>();
    if (version < 1 || version > kLatestVersion) FailCall("its version " + std::to_string(version) + " isn't known");
    const GridSection section = ReadGridSection(FindSection(rest, kGridTag));
    return GridOf<double>(section.Shape, FindSection(rest, kDataTag), section.BlankValue);
}

void WriteBinary32(ResultFile& file, const Grid& grid) {
    constexpr int most = std::numeric_limits<std::int16_t>::max();
    const GridGeometry& shape = grid.Shape;
    if (shape.Columns > most || shape.Rows > most) {
        FailCall(std::to_string(shape.Columns) + " columns and " + std::to_string(shape.Rows) +
                 " rows don't fit a format of 16 bits");
    }
    std::string head = "DSBB";
    Put(head, static_cast<std::int16_t>(shape.Columns));
    Put(head, static_cast<std::int16_t>(shape.Rows));
    PutLimits(head, grid);
    file.Write(head);
    WriteHeights(file, grid.Z, Height32);
}

void WriteBinary64(ResultFile& file, const Grid& grid) {
    constexpr std::uint64_t most = std::numeric_limits<std::uint32_t>::max() / sizeof(double);
    const GridGeometry& shape = grid.Shape;
    if (shape.Nodes() > most) {
        FailCall(std::to_string(shape.Nodes()) + " nodes don't fit a format whose sections count 32 bits");
    }
    std::string head;
    PutSectionHead(head, "DSRB", sizeof(std::int32_t));
    Put(head, std::int32_t{1});
    PutSectionHead(head, kGridTag, kGridSectionBytes);
    Put(head, static_cast<std::int32_t>(shape.Rows));
    Put(head, static_cast<std::int32_t>(shape.Columns));
    const HeightRange range = Heights(grid);
    for (const double value : {shape.XMin, shape.YMin, SpacingBetween(shape.XMin, shape.XMax, shape.Columns - 1),
                               SpacingBetween(shape.YMin, shape.YMax, shape.Rows - 1), range.Low, range.High,
                               0.0 /* rotation */, kBlankHeight}) {
        Put(head, value);
    }
    PutSectionHead(head, kDataTag, static_cast<std::uint32_t>(shape.Nodes() * sizeof(double)));
    file.Write(head);
    WriteHeights(file, grid.Z, Height64);
}

}  // namespace crownlab
