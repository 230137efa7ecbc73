#pragma once

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#ifdef _WIN32
#include <process.h>
#else
#include <unistd.h>
#endif

namespace crownlab {

/// A folder of one test, gone with the object. The current directory becomes that folder until then.
class TempFolder {
public:
    TempFolder() : before_(std::filesystem::current_path()) {
        static std::atomic<int> counter{0};
#ifdef _WIN32
        const int process = _getpid();
#else
        const int process = getpid();
#endif
        const std::string name = "crownlab-test-" + std::to_string(process) + "-" + std::to_string(++counter);
        path_ = std::filesystem::canonical(std::filesystem::temp_directory_path()) / name;
        std::filesystem::create_directories(path_);
        std::filesystem::current_path(path_);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code error;
        std::filesystem::current_path(before_, error);
        std::filesystem::remove_all(path_, error);
    }

    std::string Path() const { return path_.string(); }
    /// Path of a file or folder in it.
    std::string operator/(const std::string& name) const { return (path_ / name).string(); }
    /// Names in it, hidden and temporary ones too.
    std::size_t EntryCount() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path_), {}));
    }

private:
    std::filesystem::path before_;
    std::filesystem::path path_;
};

/// Writes bytes by the standard library's own means, not by what is tested.
inline void PutFile(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// All bytes of a file; empty if there is none.
inline std::string FileBytes(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

}  // namespace crownlab
