#include <array>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <string>
#include <string_view>

#include "basis/failure.h"
#include "basis/paths.h"
#include "player/player.h"

namespace {

constexpr const char* kUsage = "usage: crownlab-play [--trace] [--keep-going] SCRIPT [NAME=VALUE ...]\n";

/// Takes the command line apart; false if it is wrong.
bool ParseArguments(int count, char** arguments, crownlab::PlayerOptions& options, std::string& script) {
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        if (script.empty() && argument == "--trace") {
            options.Trace = true;
        } else if (script.empty() && argument == "--keep-going") {
            options.KeepGoing = true;
        } else if (script.empty()) {
            if (argument.size() > 1 && argument.front() == '-') return false;
            script = argument;
        } else {
            const std::size_t sign = argument.find('=');
            if (sign == std::string::npos || sign == 0) return false;
            options.Values[argument.substr(0, sign)] = argument.substr(sign + 1);
        }
    }
    return !script.empty();
}

std::string ReadScript(const std::string& name) {
    if (name != "-") return crownlab::ReadWholeFile(name);
    std::string text;
    std::array<char, 65536> piece;
    while (const std::size_t got = std::fread(piece.data(), 1, piece.size(), stdin)) text.append(piece.data(), got);
    return text;
}

void PrintLine(std::FILE* stream, const std::string& line) {
    std::fwrite(line.data(), 1, line.size(), stream);
    std::fputc('\n', stream);
    std::fflush(stream);
}

}  // namespace

int main(int count, char** arguments) {
    std::setlocale(LC_ALL, "C");
#ifdef SIGXFSZ
    // A file that reaches the limit of its size is a full disk to the handler that writes it, not the end.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    crownlab::PlayerOptions options;
    std::string script;
    if (!ParseArguments(count, arguments, options, script)) {
        std::fputs(kUsage, stderr);
        return crownlab::kStatusScript;
    }
    std::string text;
    try {
        text = ReadScript(script);
    } catch (const crownlab::Failure& failure) {
        PrintLine(stderr, failure.what());
        return crownlab::kStatusScript;
    }
    crownlab::Player player(
        std::move(options), [](const std::string& line) { PrintLine(stdout, line); },
        [&script](const std::string& line) { PrintLine(stderr, script + ": " + line); });
    return player.Run(text);
}
