#pragma once

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "player/player.h"

namespace crownlab {

/// The one folder in which a target works, current and empty, with so little memory allowed that a grid of
/// absurd size is refused at once instead of filling the machine.
class FuzzFolder {
public:
    FuzzFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "crownlab-fuzz-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) std::abort();
        path_ = name;
        std::filesystem::current_path(path_);
        setenv("CROWNLAB_MEMORY", "600000000", 1);
    }
    FuzzFolder(const FuzzFolder&) = delete;
    FuzzFolder& operator=(const FuzzFolder&) = delete;
    ~FuzzFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }

    /// Leaves nothing of the run before.
    void Clear() const {
        for (const auto& entry : std::filesystem::directory_iterator(path_)) std::filesystem::remove_all(entry.path());
    }

private:
    std::filesystem::path path_;
};

/// The folder, emptied.
inline const FuzzFolder& FreshFolder() {
    static const FuzzFolder folder;
    folder.Clear();
    return folder;
}

inline void PutInput(const std::string& name, const std::uint8_t* data, std::size_t size) {
    std::ofstream(name, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
}

/// Plays a script; failures of handlers are what is expected, so it goes on after them.
inline int PlayQuietly(std::string_view script) {
    const auto ignore = [](const std::string&) {};
    return Player({.Trace = false, .KeepGoing = true, .Values = {}}, ignore, ignore).Run(script);
}

}  // namespace crownlab
