// Runs one play script in a fresh copy of its folder and compares what comes out, byte for byte.
//
//   play-case [--accept] PLAYER CASE WORK
//
// CASE holds
//   test.play         the script, run with the copy as current directory
//   expected.out      standard output
//   expected.err      standard error; missing: nothing is expected there
//   expected.status   exit status; missing: 0
//   arguments         further words of the command line, one a line; those that start with -- come first
//   environment       NAME=VALUE, one a line
// and whatever files the script works on. The script finds the path of the copy as $HERE, and where that path
// stands in what comes out, the expected files have $HERE. A file NAME.here becomes NAME in the copy, with the path of
// the copy for each $HERE in it: outputs can name where they come from. --accept writes the three expected files from
// what came out: look at them before they are kept.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#ifndef _WIN32
#include <sys/wait.h>
#endif

namespace {
namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

std::vector<std::string> ReadLines(const fs::path& path) {
    std::istringstream text(ReadFile(path));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
        if (!line.empty()) lines.push_back(line);
    }
    return lines;
}

std::string Quoted(const std::string& word) {
#ifdef _WIN32
    return "\"" + word + "\"";
#else
    std::string quoted = "'";
    for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
#endif
}

void SetEnvironment(const std::string& line) {
    const std::size_t sign = line.find('=');
    if (sign == std::string::npos) return;
#ifdef _WIN32
    _putenv_s(line.substr(0, sign).c_str(), line.substr(sign + 1).c_str());
#else
    setenv(line.substr(0, sign).c_str(), line.substr(sign + 1).c_str(), 1);
#endif
}

std::string CommandLine(const std::string& player, const fs::path& folder) {
    std::string options;
    std::string values;
    for (const std::string& word : ReadLines(folder / "arguments")) {
        (word.rfind("--", 0) == 0 ? options : values) += " " + Quoted(word);
    }
    return Quoted(player) + options + " test.play " + Quoted("HERE=" + folder.string()) + values;
}

/// Exit status of the player, -1 if it was ended by a signal or couldn't be started.
int RunPlayer(const std::string& player, const fs::path& folder, const fs::path& out, const fs::path& err) {
    for (const std::string& line : ReadLines(folder / "environment")) SetEnvironment(line);
    fs::current_path(folder);
    const std::string command =
        CommandLine(player, folder) + " > " + Quoted(out.string()) + " 2> " + Quoted(err.string());
    const int status = std::system(command.c_str());
#ifdef _WIN32
    return status;
#else
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
}

/// The text of `path` with the case's own folder named $HERE.
std::string ReadOutput(const fs::path& path, const std::string& folder) {
    std::string text = ReadFile(path);
    for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at)) {
        text.replace(at, folder.size(), "$HERE");
    }
    return text;
}

std::string LineAt(const std::string& text, std::size_t start) {
    if (start >= text.size()) return "(end)";
    return text.substr(start, text.find('\n', start) - start);
}

/// True if equal; else prints the first line that differs.
bool Same(const std::string& what, const std::string& expected, const std::string& found) {
    if (expected == found) return true;
    const auto at = std::mismatch(expected.begin(), expected.end(), found.begin(), found.end()).first;
    const auto before = static_cast<std::size_t>(at - expected.begin());
    const std::size_t lineFeed = before == 0 ? std::string::npos : expected.rfind('\n', before - 1);
    const std::size_t start = lineFeed == std::string::npos ? 0 : lineFeed + 1;
    const auto line = std::count(expected.begin(), expected.begin() + static_cast<std::ptrdiff_t>(start), '\n') + 1;
    std::printf("%s differs first in line %d, byte %zu of it:\n  expected: %s\n  found:    %s\n", what.c_str(),
                static_cast<int>(line), before - start + 1, LineAt(expected, start).c_str(),
                LineAt(found, start).c_str());
    return false;
}

int ExpectedStatus(const fs::path& folder) {
    const std::vector<std::string> lines = ReadLines(folder / "expected.status");
    return lines.empty() ? 0 : std::atoi(lines.front().c_str());
}

void Accept(const fs::path& folder, const std::string& out, const std::string& err, int status) {
    std::ofstream(folder / "expected.out", std::ios::binary) << out;
    if (!err.empty()) std::ofstream(folder / "expected.err", std::ios::binary) << err;
    if (status != 0) std::ofstream(folder / "expected.status", std::ios::binary) << status << '\n';
}

/// Names the case's own folder in the files that are to know it.
void FillInFolder(const fs::path& folder) {
    std::vector<fs::path> templates;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() == ".here") templates.push_back(entry.path());
    }
    constexpr std::string_view name = "$HERE";
    for (const fs::path& path : templates) {
        std::string text = ReadFile(path);
        for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name, at)) {
            text.replace(at, name.size(), folder.string());
            at += folder.string().size();
        }
        std::ofstream(fs::path(path).replace_extension(), std::ios::binary) << text;
        fs::remove(path);
    }
}

int RunCase(const std::string& player, const fs::path& source, const fs::path& work, bool accept) {
    fs::remove_all(work);
    fs::create_directories(work.parent_path());
    fs::copy(source, work, fs::copy_options::recursive);
    for (const char* const expected : {"expected.out", "expected.err", "expected.status"}) fs::remove(work / expected);
    FillInFolder(work);
    // Beside the copy, so that the script's own listings don't show them.
    const fs::path out = work.string() + ".out";
    const fs::path err = work.string() + ".err";
    const int status = RunPlayer(player, work, out, err);
    const std::string outText = ReadOutput(out, work.string());
    const std::string errText = ReadOutput(err, work.string());
    if (accept) {
        Accept(source, outText, errText, status);
        return 0;
    }
    bool good = true;
    if (!fs::exists(source / "expected.out")) {
        std::printf("%s has no expected.out\n", source.string().c_str());
        good = false;
    }
    good = Same("standard output", ReadFile(source / "expected.out"), outText) && good;
    good = Same("standard error", ReadFile(source / "expected.err"), errText) && good;
    if (status != ExpectedStatus(source)) {
        std::printf("exit status %d, expected %d\n", status, ExpectedStatus(source));
        good = false;
    }
    return good ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
    std::vector<std::string> words(arguments + 1, arguments + count);
    const bool accept = !words.empty() && words.front() == "--accept";
    if (accept) words.erase(words.begin());
    if (words.size() != 3) {
        std::puts("usage: play-case [--accept] PLAYER CASE WORK");
        return 2;
    }
    return RunCase(fs::absolute(words[0]).string(), fs::absolute(words[1]), fs::absolute(words[2]), accept);
}
