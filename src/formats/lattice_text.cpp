#include "formats/lattice_text.h"

#include <cstdint>
#include <limits>

#include "basis/failure.h"
#include "basis/field_reader.h"
#include "basis/memory_limit.h"
#include "basis/paths.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

CloudPoint ReadNode(FieldReader& reader) {
    const double x = reader.ReadNumber();
    const double y = reader.ReadNumber();
    return {x, y, reader.ReadNumber()};
}

/// Reads the nodes row after row. Columns stand on the same x in each row, mostly, and rows on one y.
void ReadNodes(FieldReader& reader, Lattice& lattice) {
    std::vector<FieldReader::LastField> x(static_cast<std::size_t>(lattice.Cols));
    FieldReader::LastField y;
    for (int j = 0; j < lattice.Rows; ++j) {
        for (FieldReader::LastField& column : x) {
            const double nodeX = reader.ReadNumber(column);
            const double nodeY = reader.ReadNumber(y);
            lattice.Nodes.push_back({nodeX, nodeY, reader.ReadNumber()});
        }
    }
}

/// Nodes of the first row: those up to the first change of y.
std::uint64_t CountFirstRow(const FileText& text, const std::string& path) {
    FieldReader reader(text.View(), path);
    const double y = ReadNode(reader).y;
    std::uint64_t count = 1;
    while (ReadNode(reader).y == y) ++count;
    return count;
}

}  // namespace

Lattice ReadLattice(const std::string& path) {
    const FileText text = ReadFileText(path);
    const std::uint64_t columns = CountFirstRow(text, path);
    if (columns > std::numeric_limits<std::int32_t>::max()) throw Failure(FailureKind::Overflow, "number of columns");
    const auto lines = static_cast<double>(CountLines(text.View()));
    Lattice lattice;
    lattice.Cols = static_cast<int>(columns);
    lattice.Rows = ToInt16(lines / static_cast<double>(columns), "number of rows");
    const std::uint64_t count = columns * static_cast<std::uint64_t>(lattice.Rows);
    RequireMemory(count * sizeof(CloudPoint), path);
    lattice.Nodes.reserve(count);
    HintLargePages(lattice.Nodes.data(), count * sizeof(CloudPoint));
    FieldReader reader(text.View(), path);
    ReadNodes(reader, lattice);
    return lattice;
}

}  // namespace crownlab
