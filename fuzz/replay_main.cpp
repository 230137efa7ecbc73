// Stands in for libFuzzer: runs a target once over each file that is named, or that lies in a named folder.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {
namespace fs = std::filesystem;

std::vector<fs::path> InputsOf(const fs::path& path) {
    if (!fs::is_directory(path)) return {path};
    std::vector<fs::path> inputs;
    for (const fs::directory_entry& entry : fs::directory_iterator(path)) inputs.push_back(entry.path());
    std::sort(inputs.begin(), inputs.end());
    return inputs;
}

void Replay(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    const std::string bytes = text.str();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int count, char** arguments) {
    int runs = 0;
    for (int i = 1; i < count; ++i) {
        // The targets work in a folder of their own.
        for (const fs::path& input : InputsOf(fs::absolute(arguments[i]))) {
            std::printf("%s\n", input.filename().string().c_str());
            std::fflush(stdout);
            Replay(input);
            ++runs;
        }
    }
    if (runs == 0) std::puts("no inputs");
    return runs > 0 ? 0 : 1;
}
