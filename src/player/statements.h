#pragma once

#include "forms/form.h"
#include "player/player.h"

namespace crownlab {

/// A statement of the language: its word, how many words may follow, and what runs it.
struct Player::StatementEntry {
    std::string_view Name;
    int Least;
    int Most;  ///< -1 for no limit
    std::string_view Usage;
    void (Player::*Do)(const Words& words);
};

/// What "FORM.CONTROL" names.
struct Player::Target {
    std::shared_ptr<Form> Window;
    const ControlRef* Control = nullptr;
    std::string ControlName;
};

}  // namespace crownlab
