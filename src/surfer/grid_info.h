#pragma once

#include <string>

namespace crownlab {

struct Services;
struct Session;

/// Lowest and highest z of one grid's own nodes, blank ones left out; both 0 where all are blank.
struct HeightLimits {
    double Low = 0;
    double High = 0;
};

/// Learns the shape of a grid by having it converted to text, and fills `session.Info`. Its z limits (9, 10) hold the
/// extremes over all grids read in this run; those of this grid alone are handed back. The text,
/// `gridFile` less four characters and "temp.dat", is deleted at the end.
///
/// Attaches first, into `session.SurferApp`. A grid that lies wholly beyond 1,000,000 keeps that bound as its limit.
/// Overflow for more than 32,767 rows, DivisionByZero for a text without a second y, InvalidCall for a name shorter
/// than four characters, and what the conversion and reading its text throw.
HeightLimits ReadGridInfo(Session& session, Services& app, const std::string& gridFile);

}  // namespace crownlab
