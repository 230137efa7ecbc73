#include "basis/paths.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <memory>
#include <system_error>

#include "basis/failure.h"
#include "basis/memory_limit.h"
#include "basis/text.h"

namespace crownlab {
namespace fs = std::filesystem;
namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

bool EndsWithSeparator(std::string_view folder) { return !folder.empty() && folder.back() == kPathSeparator; }

[[noreturn]] void FailToOpen(const std::string& path, int error) {
    if (error == EACCES || error == EPERM || IsFolder(path)) throw Failure(FailureKind::PermissionDenied, path);
    const fs::path parent = fs::path(path).parent_path();
    if (!parent.empty() && !IsFolder(parent.string())) throw Failure(FailureKind::PathNotFound, path);
    throw Failure(FailureKind::FileNotFound, path);
}

/// First block for a file without a size of its own.
constexpr std::size_t kPipePiece = 1u << 16;

/// A block that nothing is written to yet, so that its pages are touched once only.
std::unique_ptr<char[]> TakeBlock(std::size_t size, const std::string& path) {
    RequireMemory(size, path);
    std::unique_ptr<char[]> block(new char[size]);
    HintLargePages(block.get(), size);
    return block;
}

template <typename Wanted>
std::vector<std::string> ListEntries(const std::string& folder, Wanted wanted) {
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    if (error) throw Failure(FailureKind::PathNotFound, folder);
    std::vector<std::string> names;
    for (const fs::directory_iterator end; entry != end; entry.increment(error)) {
        if (error) break;
        if (wanted(*entry)) names.push_back(entry->path().filename().string());
    }
    std::sort(names.begin(), names.end(), [](const auto& a, const auto& b) { return LessNoCase(a, b); });
    return names;
}

}  // namespace

bool IsFolder(const std::string& path) {
    std::error_code error;
    return fs::is_directory(path, error) && !error;
}

bool IsFile(const std::string& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return !error && fs::exists(status) && !fs::is_directory(status);
}

std::string JoinPath(std::string_view folder, std::string_view name) {
    return WithSeparator(folder) + std::string(name);
}

std::string WithSeparator(std::string_view folder) {
    std::string path(folder);
    if (!EndsWithSeparator(path)) path += kPathSeparator;
    return path;
}

std::string AbsolutePath(const std::string& path) {
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error).lexically_normal();
    if (error) throw Failure(FailureKind::PathNotFound, path);
    std::string text = absolute.string();
#ifndef _WIN32
    // Two separators in front mean the root as well, and would be kept.
    const std::size_t name = std::min(text.find_first_not_of(kPathSeparator), text.size());
    if (name > 1) text.erase(0, name - 1);
#endif
    while (text.size() > 1 && EndsWithSeparator(text) && fs::path(text) != fs::path(text).root_path()) text.pop_back();
    return text;
}

std::string CurrentFolder() {
    std::error_code error;
    const fs::path folder = fs::current_path(error);
    if (error) throw Failure(FailureKind::PathNotFound, "the current folder");
    return folder.string();
}

void ChangeFolder(const std::string& path) {
    std::error_code error;
    fs::current_path(path, error);
    if (error) throw Failure(FailureKind::PathNotFound, path);
}

void MakeFolder(const std::string& path) {
    if (IsFolder(path)) return;
    std::error_code error;
    fs::create_directory(path, error);
    if (!error && IsFolder(path)) return;
    const fs::path parent = fs::path(path).parent_path();
    const bool parentMissing = !parent.empty() && !IsFolder(parent.string());
    throw Failure(parentMissing ? FailureKind::PathNotFound : FailureKind::PermissionDenied, path);
}

void RemoveFile(const std::string& path) {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
}

std::vector<std::string> ListFiles(const std::string& folder, std::string_view pattern) {
    return ListEntries(folder, [pattern](const fs::directory_entry& entry) {
        std::error_code error;
        return !entry.is_directory(error) && MatchesPattern(entry.path().filename().string(), pattern);
    });
}

std::vector<std::string> ListFolders(const std::string& folder) {
    return ListEntries(folder, [](const fs::directory_entry& entry) {
        std::error_code error;
        return entry.is_directory(error) && !error;
    });
}

FileText ReadFileText(const std::string& path) {
    if (IsFolder(path)) throw Failure(FailureKind::PermissionDenied, path);
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
    if (!file) FailToOpen(path, errno);
    std::error_code error;
    const bool sized = fs::is_regular_file(path, error);
    std::size_t capacity = sized ? static_cast<std::size_t>(fs::file_size(path, error)) + 1 : kPipePiece;
    if (error) throw Failure(FailureKind::FileNotFound, path);
    std::unique_ptr<char[]> bytes = TakeBlock(capacity, path);
    std::size_t size = 0;
    // The block is one byte larger than the file; one that fills it is a pipe, or a file that grows.
    while (const std::size_t got = std::fread(bytes.get() + size, 1, capacity - size, file.get())) {
        size += got;
        if (size < capacity) continue;
        std::unique_ptr<char[]> larger = TakeBlock(2 * capacity, path);
        std::memcpy(larger.get(), bytes.get(), size);
        bytes = std::move(larger);
        capacity *= 2;
    }
    if (std::ferror(file.get()) != 0) throw Failure(FailureKind::PermissionDenied, path);
    return {std::move(bytes), size};
}

std::string ReadWholeFile(const std::string& path) { return std::string(ReadFileText(path).View()); }

std::string FileTimeText(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) throw Failure(FailureKind::FileNotFound, path);
    const std::time_t changed = status.st_mtime;
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &changed);
#else
    localtime_r(&changed, &local);
#endif
    std::array<char, 32> text;
    const std::size_t size = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local);
    return {text.data(), size};
}

}  // namespace crownlab
