#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace crownlab {

/// Gives up the super-user's rights as long as it lives, so that permissions count even where tests run as
/// root. For an ordinary user it changes nothing. `folder` becomes writable for the other user.
class OrdinaryUser {
public:
    explicit OrdinaryUser([[maybe_unused]] const std::string& folder) {
#ifndef _WIN32
        if (geteuid() != 0) return;
        std::filesystem::permissions(folder, std::filesystem::perms::all);
        dropped_ = setresgid(kNobody, kNobody, 0) == 0 && setresuid(kNobody, kNobody, 0) == 0;
#endif
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() {
#ifndef _WIN32
        if (dropped_ && (setresuid(0, 0, 0) != 0 || setresgid(0, 0, 0) != 0)) std::abort();
#endif
    }

    /// False where rights couldn't be given up: a test of permissions would show nothing then.
    bool Holds() const {
#ifdef _WIN32
        return false;
#else
        return geteuid() != 0;
#endif
    }

private:
#ifndef _WIN32
    static constexpr unsigned kNobody = 65534;
    bool dropped_ = false;
#endif
};

}  // namespace crownlab
