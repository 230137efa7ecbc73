#include "basis/result_file.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#ifdef _WIN32
#include <io.h>
#include <process.h>
#define CROWNLAB_PROCESS _getpid()
#else
#include <unistd.h>
#define CROWNLAB_PROCESS getpid()
#endif

#include "basis/failure.h"
#include "basis/number_text.h"
#include "basis/paths.h"

namespace crownlab {
namespace fs = std::filesystem;
namespace {

constexpr std::size_t kBufferSize = 1u << 18;
constexpr std::string_view kLineEnd = "\r\n";

/// A name in the folder of `target` that nothing else uses.
std::string TemporaryName(const std::string& target) {
    static std::atomic<unsigned> counter{0};
    const fs::path path(target);
    const std::string name = ".crownlab-" + std::to_string(CROWNLAB_PROCESS) + "-" + std::to_string(++counter) + ".tmp";
    return (path.parent_path() / name).string();
}

/// The file that a write to `path` reaches in the end: a link's goal, which may be missing, else the path itself.
std::string ThroughLinks(const std::string& path) {
    constexpr int mostLinks = 40;  // as many as the system itself follows
    fs::path goal = path;
    std::error_code error;
    for (int i = 0; i < mostLinks && fs::is_symlink(goal, error); ++i) {
        goal = goal.parent_path() / fs::read_symlink(goal, error);
        if (error) return path;
    }
    return goal.string();
}

bool MayReplace(const std::string& path) {
#ifdef _WIN32
    return _access(path.c_str(), 2) == 0;
#else
    return access(path.c_str(), W_OK) == 0;
#endif
}

}  // namespace

void FileTable::CloseAll() {
    while (!open_.empty()) (*open_.begin())->Drop();
}

ResultFile::ResultFile(FileTable& table, std::string path, Mode mode)
    : table_(table), path_(std::move(path)), target_(ThroughLinks(path_)) {
    if (IsFolder(target_)) throw Failure(FailureKind::PermissionDenied, path_);
    const bool exists = IsFile(target_);
    if (exists && !MayReplace(target_)) throw Failure(FailureKind::PermissionDenied, path_);
    std::error_code error;
    const bool regular = !exists || fs::is_regular_file(target_, error);
    written_ = mode == Mode::Replace && regular ? TemporaryName(target_) : target_;
    buffer_.reserve(kBufferSize);
    file_ = std::fopen(written_.c_str(), mode == Mode::Append ? "ab" : "wb");
    if (file_ == nullptr) FailToWrite(errno);
    if (exists && written_ != target_) fs::permissions(written_, fs::status(target_, error).permissions(), error);
    table_.open_.insert(this);
}

ResultFile::~ResultFile() { Drop(); }

void ResultFile::Drop() {
    table_.open_.erase(this);
    if (file_ == nullptr) return;
    std::fclose(file_);
    file_ = nullptr;
    std::error_code error;
    if (written_ != target_) fs::remove(written_, error);
}

void ResultFile::FailToWrite(int error) {
    Drop();
    if (error == ENOSPC || error == EDQUOT || error == EFBIG) throw Failure(FailureKind::DiskFull, path_);
    if (error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG) throw Failure(FailureKind::PathNotFound, path_);
    if (error == EIO) throw Failure(FailureKind::DiskFull, path_);
    throw Failure(FailureKind::PermissionDenied, path_);
}

void ResultFile::Flush() {
    if (file_ == nullptr) throw Failure(FailureKind::InvalidCall, path_ + " was closed");
    errno = 0;
    if (std::fwrite(buffer_.data(), 1, buffer_.size(), file_) != buffer_.size()) FailToWrite(errno);
    buffer_.clear();
}

void ResultFile::Reserve(std::size_t bytes) {
    if (file_ == nullptr) throw Failure(FailureKind::InvalidCall, path_ + " was closed");
    if (buffer_.size() + bytes > kBufferSize) Flush();
}

void ResultFile::Write(std::string_view bytes) {
    Reserve(bytes.size());
    buffer_ += bytes;
}

void ResultFile::Line(std::string_view text) {
    Write(text);
    EndLine();
}

void ResultFile::EndLine() { Write(kLineEnd); }

void ResultFile::Comma() { Write(","); }

void ResultFile::Item(std::string_view text) {
    Write("\"");
    Write(text);
    Write("\"");
}

void ResultFile::Item(double number) {
    std::array<char, kNumberTextMax> text;
    Write({text.data(), static_cast<std::size_t>(AppendRecordText(text.data(), number) - text.data())});
}

void ResultFile::Item(long long number) {
    std::array<char, kNumberTextMax> text;
    Write({text.data(), static_cast<std::size_t>(AppendRecordText(text.data(), number) - text.data())});
}

std::string PrintNumberText(double number) {
    std::string text = RecordText(number);
    if (text.front() != '-') text.insert(text.begin(), ' ');
    return text + ' ';
}

std::string InZone(std::string item) {
    constexpr std::size_t width = 14;
    item.append((width - item.size() % width) % width, ' ');
    return item;
}

void ResultFile::PrintNumber(double number) {
    std::array<char, kNumberTextMax + 2> text;
    text.front() = ' ';
    char* end = AppendRecordText(text.data() + 1, number);
    *end++ = ' ';
    const char* const start = text.data() + (text[1] == '-' ? 1 : 0);
    Write({start, static_cast<std::size_t>(end - start)});
}

void ResultFile::Commit() {
    Flush();
    errno = 0;
    if (std::fflush(file_) != 0) FailToWrite(errno);
    std::FILE* const file = std::exchange(file_, nullptr);
    table_.open_.erase(this);
    std::error_code error;
    if (std::fclose(file) != 0) {
        if (written_ != target_) fs::remove(written_, error);
        throw Failure(FailureKind::DiskFull, path_);
    }
    if (written_ == target_) return;
    fs::rename(written_, target_, error);
    if (error) {
        fs::remove(written_, error);
        throw Failure(FailureKind::PermissionDenied, path_);
    }
}

void WriteWholeFile(FileTable& table, const std::string& path, std::string_view content) {
    ResultFile file(table, path);
    file.Write(content);
    file.Commit();
}

}  // namespace crownlab
