#include "desktop/program_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/temp_folder.h"

namespace crownlab {
namespace {

TEST(ProgramFolder, IsTheBinarysIfTheSettingsLieThere) {
    const TempFolder folder;
    EXPECT_EQ(ProgramFolder(folder.Path(), folder / "config"), folder / "config/crownlab");
    std::filesystem::create_directory(folder / "Crownlab.ini");
    EXPECT_EQ(ProgramFolder(folder.Path(), folder / "config"), folder / "config/crownlab") << "a folder is no settings";
    std::filesystem::remove(folder / "Crownlab.ini");
    PutFile(folder / "Crownlab.ini", "/\r\nSurferV8\r\n");
    EXPECT_EQ(ProgramFolder(folder.Path(), folder / "config"), folder.Path());
}

TEST(ProgramFolder, MakesNoFile) {
    const TempFolder folder;
    ProgramFolder(folder.Path(), folder / "config");
    EXPECT_EQ(folder.EntryCount(), 0u);
}

}  // namespace
}  // namespace crownlab
