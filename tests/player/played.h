#pragma once

#include <string>
#include <utility>
#include <vector>

#include "player/player.h"
#include "support/temp_folder.h"

namespace crownlab {

/// What a script left: exit status and the lines it printed.
struct Played {
    int Status = -1;
    std::vector<std::string> Lines;
    std::vector<std::string> Complaints;
};

/// Plays a script in the current folder.
inline Played Play(const std::string& script, PlayerOptions options = {}) {
    Played played;
    Player player(
        std::move(options), [&](const std::string& line) { played.Lines.push_back(line); },
        [&](const std::string& line) { played.Complaints.push_back(line); });
    played.Status = player.Run(script);
    return played;
}

}  // namespace crownlab
