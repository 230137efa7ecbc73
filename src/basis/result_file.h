#pragma once

#include <cstdio>
#include <set>
#include <string>
#include <string_view>

namespace crownlab {

class ResultFile;

/// The output files that are open in this process. "Close all files" of the settings routines closes
/// every one of them, those of suspended handlers too.
class FileTable {
public:
    FileTable() = default;
    FileTable(const FileTable&) = delete;
    FileTable& operator=(const FileTable&) = delete;
    ~FileTable() { CloseAll(); }

    /// Drops every unfinished output; the next write to one of them is InvalidCall.
    void CloseAll();

private:
    friend class ResultFile;
    std::set<ResultFile*> open_;
};

/// A text or binary output, written whole or not at all: bytes go to a temporary name in the same folder,
/// which takes the place of `path` at Commit. Destroyed before that, it leaves no trace. Line ends are
/// CR LF on every platform.
///
/// Throws PathNotFound (no such folder), PermissionDenied, DiskFull; InvalidCall once the file was dropped.
class ResultFile {
public:
    enum class Mode { Replace, Append };

    /// Mode::Append writes to the end of the file itself (created if missing), for outputs that collect.
    ResultFile(FileTable& table, std::string path, Mode mode = Mode::Replace);
    ResultFile(const ResultFile&) = delete;
    ResultFile& operator=(const ResultFile&) = delete;
    ~ResultFile();

    /// Bytes as they are.
    void Write(std::string_view bytes);
    /// A line of free text and its line end.
    void Line(std::string_view text = {});

    /// Comma-separated items of one record: text in double quotes, numbers in shortest form.
    template <typename... Items>
    void Record(const Items&... items) {
        bool first = true;
        ((first ? void() : Comma(), Item(items), first = false), ...);
        EndLine();
    }

    void Item(std::string_view text);
    void Item(const char* text) { Item(std::string_view(text)); }
    void Item(const std::string& text) { Item(std::string_view(text)); }
    void Item(double number);
    void Item(int number) { Item(static_cast<long long>(number)); }
    void Item(long number) { Item(static_cast<long long>(number)); }
    void Item(long long number);
    void Comma();
    void EndLine();

    /// A number as a print record has it: one leading blank or the minus sign, one blank behind.
    void PrintNumber(double number);

    /// Completes the file. Nothing may be written after it.
    void Commit();

    const std::string& Path() const { return path_; }

private:
    friend class FileTable;
    void Open();
    void Drop();
    void Reserve(std::size_t bytes);
    void Flush();
    [[noreturn]] void FailToWrite(int error);

    FileTable& table_;
    std::string path_;
    std::string target_;
    std::string written_;
    std::FILE* file_ = nullptr;
    std::string buffer_;
};

/// The text that PrintNumber writes.
std::string PrintNumberText(double number);

/// A print item with the blanks that take the next item of its line to the next 14-column zone. The item has to
/// start at the line's beginning or at a zone.
std::string InZone(std::string item);

/// Writes `content` as the whole file.
void WriteWholeFile(FileTable& table, const std::string& path, std::string_view content);

}  // namespace crownlab
