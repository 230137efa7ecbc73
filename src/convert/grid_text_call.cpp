#include "convert/grid_text_call.h"

#include "surfer/session.h"

namespace crownlab {
namespace {

// The same form of file has another number in each version, and so has the same turn of a grid.
constexpr int kTextSix = 3;
constexpr int kTextEight = 4;
constexpr int kMirrorSix = 4;
constexpr int kMirrorEight = 5;

}  // namespace

void MirrorToText(const Session& session, const LateBound& program, const std::string& grid, const std::string& text) {
    const Argument none{Absent{}};
    if (session.IsSix()) {
        program.Call("GridTransform", {grid, kMirrorSix, none, none, none, none, none, text, kTextSix});
    }
    if (session.IsEight()) {
        program.Call("GridTransform",
                     {{"InGrid", grid}, {"Operation", kMirrorEight}, {"OutGrid", text}, {"OutFmt", kTextEight}});
    }
}

void GridToText(const Session& session, const LateBound& program, const std::string& grid, const std::string& text) {
    if (session.IsSix()) program.Call("GridConvert", {grid, text, kTextSix});
    if (session.IsEight()) program.Call("GridConvert", {grid, text, kTextEight});
}

}  // namespace crownlab
