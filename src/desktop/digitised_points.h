#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "formats/boundary_file.h"

namespace crownlab {

/// Points in the order in which they were digitised, area by area.
using DigitisedAreas = std::vector<std::vector<PlanePoint>>;

/// A point file: a line `x,y` for each point, with as many digits as it takes to read the same number back, and a line
/// `-1` between areas; CR LF. Areas without points are left out.
std::string DigitisedText(const DigitisedAreas& areas);

/// Reads such a file; numbers may stand apart by commas, blanks or tabs, and empty lines are passed over. TypeMismatch
/// for a line that isn't a point, and what reading a file throws. There is one area at least, empty for an empty file.
DigitisedAreas ReadPointFile(const std::string& path);

/// Where a point stands among the others.
struct PointPlace {
    std::size_t Area = 0;
    std::size_t Index = 0;
    friend bool operator==(const PointPlace&, const PointPlace&) = default;
};

/// The points of a map while a person works on them: each change can be undone, and it is known whether they are saved.
class DigitisedPoints {
public:
    /// One area at least; new points go to the last.
    const DigitisedAreas& Areas() const { return areas_; }
    std::size_t Count() const;
    bool Holds(PointPlace place) const;
    const PlanePoint& At(PointPlace place) const { return areas_[place.Area][place.Index]; }

    PointPlace Add(const PlanePoint& point);
    /// Whether a move is a change of its own or goes on with the last one, as the steps of one drag do.
    enum class Drag { Begins, GoesOn };
    void Move(PointPlace place, const PlanePoint& to, Drag drag);
    /// Takes a point out. An area that was emptied by it goes too, unless it is the only one.
    void Remove(PointPlace place);
    /// The points that follow belong to an area of their own. Nothing happens if the last area is empty.
    void StartNextArea();
    /// Other points in place of all, as one change.
    void Replace(DigitisedAreas areas);
    /// Begins anew, without anything to be undone; nothing is unsaved.
    void Reset(DigitisedAreas areas = {{}});

    bool CanUndo() const { return !before_.empty(); }
    bool CanRedo() const { return !after_.empty(); }
    void Undo();
    void Redo();

    /// The points stand in a file as they are now.
    void MarkSaved() { saved_ = DigitisedText(areas_); }
    /// True if nothing would be lost.
    bool IsSaved() const { return Count() == 0 || DigitisedText(areas_) == saved_; }

private:
    void Keep();

    DigitisedAreas areas_{{}};
    std::vector<DigitisedAreas> before_;
    std::vector<DigitisedAreas> after_;
    std::string saved_;
};

}  // namespace crownlab
