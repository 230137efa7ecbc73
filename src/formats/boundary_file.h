#pragma once

#include <span>
#include <string>
#include <vector>

namespace crownlab {

class FileTable;
class ResultFile;

/// A point of an outline or a line on a map, in map units.
struct PlanePoint {
    double x = 0;
    double y = 0;
    friend bool operator==(const PlanePoint&, const PlanePoint&) = default;
};

/// What a boundary's head line says about blanking: 1 blanks inside, 0 outside; written as a text item ("0") or as a
/// number (" 0 ").
struct BoundaryFlag {
    enum class Form { Text, Number };
    int Sense = 0;
    Form As = Form::Number;
};

/// The points that a person digitised: as many as the file has lines, two numbers each. SubscriptOutOfRange for a
/// file without a line, InputPastEnd where a number is missing, and what reading a file throws.
std::vector<PlanePoint> ReadDigitisedPoints(const std::string& path);

/// Exactly `count` points; further lines are disregarded.
std::vector<PlanePoint> ReadDigitisedPoints(const std::string& path, int count);

/// The points of several areas, a line that is exactly "-1" between them; an area may have none. SubscriptOutOfRange
/// for a file without a line and for more than 1000 areas, InputPastEnd where a line has fewer than two numbers,
/// TypeMismatch, and what reading a file throws.
std::vector<std::vector<PlanePoint>> ReadDigitisedAreas(const std::string& path);

/// One closed ring as print records: a head line with the number of points and the flag, the points, and the first
/// point once more. `points` isn't empty.
void WriteRing(ResultFile& file, std::span<const PlanePoint> points, BoundaryFlag flag);

/// A line that isn't closed: a head line with the number of points and the flag, then the points.
void WriteOpenLine(ResultFile& file, std::span<const PlanePoint> points, BoundaryFlag flag);

/// A boundary file of one ring.
void WriteRingFile(FileTable& files, const std::string& path, std::span<const PlanePoint> points, BoundaryFlag flag);

}  // namespace crownlab
