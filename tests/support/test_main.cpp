#include <gmock/gmock.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <locale>
#include <stdexcept>

namespace {

/// Takes over the locale of the environment, as a program with a user interface does, so that a call which
/// heeds it shows. False if a decimal comma was asked for and the locale has none.
bool TakeLocaleOfEnvironment() {
    const bool cSide = std::setlocale(LC_ALL, "") != nullptr;
    try {
        std::locale::global(std::locale(""));
    } catch (const std::runtime_error&) {
        // The environment names a locale that isn't installed: the plain one stays.
    }
    if (std::getenv("CROWNLAB_DECIMAL_COMMA") == nullptr) return true;
    return cSide && *std::localeconv()->decimal_point == ',';
}

}  // namespace

int main(int count, char** arguments) {
    if (!TakeLocaleOfEnvironment()) {
        std::fputs("The German locale de_DE.UTF-8 is missing: run tools/setup test.\n", stderr);
        return 1;
    }
    ::testing::InitGoogleMock(&count, arguments);
    return RUN_ALL_TESTS();
}
