#pragma once

#include <cstdint>
#include <cstring>
#include <string>

namespace crownlab {

/// Little-endian bytes of a value, put together by hand.
template <typename T>
std::string Bytes(T value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof(value));
    std::string bytes;
    for (std::size_t i = 0; i < sizeof(T); ++i) bytes += static_cast<char>(bits >> (8 * i) & 0xFF);
    return bytes;
}

inline std::string Numbers(std::initializer_list<double> values) {
    std::string bytes;
    for (const double value : values) bytes += Bytes(value);
    return bytes;
}

inline std::string Numbers32(std::initializer_list<float> values) {
    std::string bytes;
    for (const float value : values) bytes += Bytes(value);
    return bytes;
}

/// A tagged section as the 64-bit grid format has it.
inline std::string Section(const std::string& tag, const std::string& content) {
    return tag + Bytes(static_cast<std::uint32_t>(content.size())) + content;
}

/// The whole 64-bit file of a grid section's numbers and the heights.
struct Binary64File {
    std::int32_t Version = 1;
    std::int32_t Rows = 2;
    std::int32_t Columns = 3;
    double X = 1;
    double Y = 10;
    double SpacingX = 0.5;
    double SpacingY = 2;
    double Rotation = 0;
    double BlankValue = 1.70141e38;
    std::string Heights = Numbers({1, 2, 3, 4, 5, 6});

    std::string Head() const { return Section("DSRB", Bytes(Version)); }
    std::string GridSection() const {
        return Section("GRID",
                       Bytes(Rows) + Bytes(Columns) + Numbers({X, Y, SpacingX, SpacingY, 1, 6, Rotation, BlankValue}));
    }
    std::string Whole() const { return Head() + GridSection() + Section("DATA", Heights); }
};

/// The same for the 32-bit format.
struct Binary32File {
    std::int16_t Columns = 3;
    std::int16_t Rows = 2;
    double XMin = 1, XMax = 2, YMin = 10, YMax = 12;
    std::string Heights = Numbers32({1, 2, 3, 4, 5, 6});

    std::string Whole() const {
        return "DSBB" + Bytes(Columns) + Bytes(Rows) + Numbers({XMin, XMax, YMin, YMax, 1, 6}) + Heights;
    }
};

}  // namespace crownlab
