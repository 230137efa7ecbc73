// The script language with all it can reach: windows, handlers and the files that a script makes by itself.

#include <algorithm>
#include <string>
#include <vector>

#include "fuzz_folder.h"
#include "player/script.h"

namespace {

/// Nothing may leave the folder: no statement that changes it, no word that names another.
bool Harmless(const std::vector<std::string>& words) {
    if (words.front() == "folder" || words.front() == "program") return false;
    return std::all_of(words.begin(), words.end(), [](const std::string& word) {
        return word.find('/') == std::string::npos && word.find("..") == std::string::npos;
    });
}

std::string HarmlessLines(const std::string& script) {
    std::string kept;
    for (std::size_t start = 0; start < script.size();) {
        const std::size_t end = std::min(script.find_first_of("\r\n", start), script.size());
        const std::string line = script.substr(start, end - start);
        start = end + 1;
        try {
            const std::vector<std::string> words = crownlab::SplitWords(line);
            if (words.empty() || Harmless(words)) kept += line + "\n";
        } catch (const crownlab::ScriptError&) {
            kept += line + "\n";
        }
    }
    return kept;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace crownlab;
    FreshFolder();
    PlayQuietly(HarmlessLines(std::string(reinterpret_cast<const char*>(data), size)));
    return 0;
}
