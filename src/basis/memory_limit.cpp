#include "basis/memory_limit.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif
#ifdef __linux__
#include <sys/mman.h>
#endif

#include "basis/failure.h"

namespace crownlab {
namespace {

/// Requests below this size aren't worth asking the system what is in use.
constexpr std::uint64_t kSmallRequest = 16u << 20;

std::uint64_t MachineMemory() {
#ifdef _WIN32
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof(status);
    GlobalMemoryStatusEx(&status);
    return status.ullTotalPhys;
#else
    return static_cast<std::uint64_t>(sysconf(_SC_PHYS_PAGES)) * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
#endif
}

/// Resident bytes of this process, 0 where the system doesn't tell.
std::uint64_t MemoryInUse() {
#ifdef __linux__
    std::FILE* const file = std::fopen("/proc/self/statm", "r");
    if (file == nullptr) return 0;
    char text[64] = {};
    const std::size_t size = std::fread(text, 1, sizeof(text) - 1, file);
    std::fclose(file);
    text[size] = '\0';
    char* behindTotal = nullptr;
    std::strtoull(text, &behindTotal, 10);
    return std::strtoull(behindTotal, nullptr, 10) * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
#else
    return 0;
#endif
}

}  // namespace

std::uint64_t MemoryBound() {
    if (const char* const text = std::getenv("CROWNLAB_MEMORY")) {
        const std::uint64_t bytes = std::strtoull(text, nullptr, 10);
        if (bytes > 0) return bytes;
    }
    return MachineMemory() / 5 * 4;
}

void HintLargePages(void* block, std::size_t bytes) {
#ifdef __linux__
    constexpr std::size_t worthIt = 8u << 20;
    if (bytes < worthIt) return;
    const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto start = reinterpret_cast<std::uintptr_t>(block);
    const std::uintptr_t first = (start + page - 1) / page * page;
    const std::uintptr_t last = (start + bytes) / page * page;
    // Only a hint: whether it is taken doesn't matter.
    if (last > first)
        static_cast<void>(madvise(static_cast<char*>(block) + (first - start), last - first, MADV_HUGEPAGE));
#else
    (void)block;
    (void)bytes;
#endif
}

void RequireMemory(std::uint64_t bytes, std::string_view what) {
    const std::uint64_t bound = MemoryBound();
    const std::uint64_t used = bytes < kSmallRequest ? 0 : MemoryInUse();
    if (bytes > bound || used > bound - bytes) throw Failure(FailureKind::OutOfMemory, std::string(what));
}

}  // namespace crownlab
