#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace crownlab {

/// Separator of folder names on this platform.
#ifdef _WIN32
inline constexpr char kPathSeparator = '\\';
#else
inline constexpr char kPathSeparator = '/';
#endif

/// True if the path exists and is a folder. Any error gives false.
bool IsFolder(const std::string& path);
/// True if the path exists and isn't a folder. Any error gives false.
bool IsFile(const std::string& path);

/// `folder`, one separator, `name`; the separator isn't doubled.
std::string JoinPath(std::string_view folder, std::string_view name);
/// `folder` with exactly one separator at its end.
std::string WithSeparator(std::string_view folder);

/// Absolute form of `path` without "." and ".." parts and without a separator at the end ("/" excepted).
std::string AbsolutePath(const std::string& path);

/// The process's current folder.
std::string CurrentFolder();
/// Changes it; PathNotFound if that isn't a folder.
void ChangeFolder(const std::string& path);

/// Makes a folder; PathNotFound if its parent is missing, PermissionDenied if it can't be made. A folder
/// that is there already is fine.
void MakeFolder(const std::string& path);

/// Deletes a file. One that isn't there is fine, and one that can't be deleted stays.
void RemoveFile(const std::string& path);

/// Names of the files (not folders) of `folder` that match `pattern`, by name without regard to case.
/// PathNotFound if the folder isn't there.
std::vector<std::string> ListFiles(const std::string& folder, std::string_view pattern);

/// Names of the folders inside `folder` in the same order; those that can't be read are left out.
std::vector<std::string> ListFolders(const std::string& folder);

/// The bytes of a file in one block.
class FileText {
public:
    FileText(std::unique_ptr<char[]> bytes, std::size_t size) : bytes_(std::move(bytes)), size_(size) {}
    std::string_view View() const { return {bytes_.get(), size_}; }

private:
    std::unique_ptr<char[]> bytes_;
    std::size_t size_;
};

/// The whole content of a file. FileNotFound, PathNotFound (its folder is missing), PermissionDenied,
/// OutOfMemory.
FileText ReadFileText(const std::string& path);

/// The same as a string, for short files.
std::string ReadWholeFile(const std::string& path);

/// Time at which a file was last changed, local, as "2026-11-21 13:05:00". FileNotFound if it isn't there.
std::string FileTimeText(const std::string& path);

}  // namespace crownlab
