#include "mapengine/worksheet.h"

#include <gmock/gmock.h>

#include "mapengine/engine_fixture.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;

Worksheet ReadBytes(const std::string& bytes) {
    PutFile("t.txt", bytes);
    return ReadWorksheet("t.txt");
}

class Worksheets : public EngineTest {
protected:
    std::string EightCell(const std::string& label) {
        return TextOf(Eight().Object("ActiveDocument").Call("Cells", {label}), "a cell");
    }
    std::string SixCell(double handle, int row, int column) {
        return TextOf(Six().Call("GetWksCell", {handle, row, column}), "a cell");
    }
};

TEST_F(Worksheets, TextIsTakenApartAtTabsElseAtCommas) {
    EXPECT_THAT(ReadBytes("a\tb,c\r\n\r\nd\n").Rows,
                ElementsAre(ElementsAre("a", "b,c"), ElementsAre(), ElementsAre("d")));
    EXPECT_THAT(ReadBytes("a, b c,\"d,\"\"e\"\"\"\r\n1").Rows,
                ElementsAre(ElementsAre("a", " b c", "d,\"e\""), ElementsAre("1")));
    EXPECT_THAT(ReadBytes("").Rows, ElementsAre());
    EXPECT_THAT(ReadBytes("\xEF\xBB\xBF"
                          "1,,3\r\n")
                    .Rows,
                ElementsAre(ElementsAre("1", "", "3")));
}

TEST_F(Worksheets, ASeparatorAtTheEndLeavesAnEmptyField) {
    EXPECT_THAT(ReadBytes("a,\n,\n\"\"\n").Rows,
                ElementsAre(ElementsAre("a", ""), ElementsAre("", ""), ElementsAre("")));
}

TEST_F(Worksheets, ATextThatWouldFillTheMemoryIsRefused) {
    PutFile("commas.txt", std::string(1'000'000, ','));
    setenv("CROWNLAB_MEMORY", "20000000", 1);
    EXPECT_TRUE(FailsWith(
        FailureKind::OutOfMemory, [] { ReadWorksheet("commas.txt"); }, "commas.txt"));
    unsetenv("CROWNLAB_MEMORY");
}

TEST_F(Worksheets, AnOpenQuoteEndsWithItsLine) {
    EXPECT_THAT(ReadBytes("\"a,b\r\nc\r\n").Rows, ElementsAre(ElementsAre("a,b"), ElementsAre("c")));
}

TEST_F(Worksheets, WhatIsWrittenReadsBackTheSame) {
    for (const char separator : {'\t', ','}) {
        const Worksheet sheet{.Path = "w.txt",
                              .Rows = {{"a", "", "b c", "d,e", "\"f\"", "g\"h"}, {}, {""}, {"a,b", ""}, {"1.5"}},
                              .Separator = separator};
        FileTable files;
        WriteWholeFile(files, "w.txt", WorksheetText(sheet));
        EXPECT_EQ(ReadWorksheet("w.txt").Rows, sheet.Rows) << FileBytes("w.txt");
    }
}

TEST_F(Worksheets, TheSeparatorOfTheFileIsKept) {
    EXPECT_EQ(WorksheetText(ReadBytes("1,2\n3,4\n")), "1,2\r\n3,4\r\n");
    EXPECT_EQ(WorksheetText(ReadBytes("1\t2\n3\t4,5\n")), "1\t2\r\n3\t4,5\r\n");
}

TEST_F(Worksheets, LabelsNameColumnAndRow) {
    const auto place = [](const char* label) {
        const std::optional<CellPlace> found = ParseCellLabel(label);
        return found ? std::make_pair(found->Row, found->Column) : std::make_pair(-1, -1);
    };
    EXPECT_EQ(place("A1"), std::make_pair(1, 1));
    EXPECT_EQ(place("B166"), std::make_pair(166, 2));
    EXPECT_EQ(place("b166"), std::make_pair(166, 2));
    EXPECT_EQ(place("Z9"), std::make_pair(9, 26));
    EXPECT_EQ(place("AA10"), std::make_pair(10, 27));
    EXPECT_EQ(place("aZ10"), std::make_pair(10, 52));
    for (const char* const label :
         {"", "B", "166", "B0", "B01", "B-1", "1B", "B1C", " B1", "B1 ", "B1.5", "B9999999999", "ZZZZZZZZZZZZZZ1",
          // An umlaut, in bytes of which the last can't be taken for more of the same.
          "\303\2041"}) {
        EXPECT_EQ(place(label), std::make_pair(-1, -1)) << label;
    }
}

TEST_F(Worksheets, CellsAreReadByLabelUnderVersionEight) {
    PutFile("report.txt", "x\t1\r\ny\t-2.5\r\n");
    const LateBound sheet = Eight().Object("Documents").CallForObject("Open", {"report.txt"});
    EXPECT_EQ(sheet.GetText("Name"), "report.txt");
    EXPECT_EQ(TextOf(sheet.Call("Cells", {"B2"}), "a cell"), "-2.5");
    EXPECT_EQ(EightCell("b2"), "-2.5") << "the opened worksheet is the active document";
    EXPECT_EQ(EightCell("C2"), "") << "outside of the text";
    EXPECT_EQ(EightCell("B166"), "");
    EXPECT_TRUE(Fails([&] { EightCell("166"); }, "Cells: Cell \"166\" is not a label"));
    EXPECT_TRUE(Fails([&] { sheet.Call("Cells", {2, 2}); }, "Cells takes 1 arguments at most"));
    EXPECT_TRUE(Fails([&] { sheet.Call("Cells", {2}); }, "Cells: Cell is not a text"));
    EXPECT_TRUE(Fails([&] { sheet.Object("Shapes"); }, "the worksheet has no member Shapes"));
    Eight().Object("ActiveWindow").Call("Close");
    EXPECT_TRUE(Fails([&] { sheet.Call("Cells", {"A1"}); }, "the worksheet report.txt has been closed"));
    EXPECT_EQ(Eight().Object("ActiveDocument").GetText("Name"), "Plot1");
}

TEST_F(Worksheets, CellsAreReadByHandleUnderVersionSix) {
    PutFile("one.dat", "1\t2\t3\r\n4\t5\r\n");
    PutFile("two.dat", "10,20\r\n");
    const double one = NumberOf(Six().Call("FileOpen", {"one.dat", 1}), "a handle");
    const double two = NumberOf(Six().Call("FileOpen", {"two.dat", 1}), "a handle");
    EXPECT_NE(one, two);
    EXPECT_EQ(SixCell(one, 2, 2), "5");
    EXPECT_EQ(SixCell(two, 1, 2), "20");
    for (const auto& [row, column] : {std::pair(2, 3), std::pair(3, 1), std::pair(0, 1), std::pair(1, 0),
                                      std::pair(-1, -1), std::pair(2147483647, 1)}) {
        EXPECT_EQ(SixCell(one, row, column), "") << row << " " << column;
    }
    EXPECT_TRUE(Fails([&] { Six().Call("GetWksCell", {two + 1, 1, 1}); }, "is no open worksheet"));
    EXPECT_TRUE(Fails([&] { Six().Call("GetWksCell", {one, 1}); }, "GetWksCell: Column is missing"));
    EXPECT_TRUE(Fails([&] { Six().Call("GetWksCell", {one, 1.5, 1}); }, "Row is not a whole number"));
    Six().Call("FileClose");
    EXPECT_TRUE(Fails([&] { SixCell(two, 1, 1); }, "is no open worksheet"));
    EXPECT_EQ(SixCell(one, 1, 1), "1");
}

TEST_F(Worksheets, WhatCannotBeOpenedSaysWhy) {
    EXPECT_TRUE(Fails([&] { Six().Call("FileOpen", {"none.dat", 1}); }, "FileOpen: there is no file none.dat"));
    EXPECT_TRUE(Fails([&] { Eight().Object("Documents").Call("Open", {"none.dat"}); }, "none.dat"));
    EXPECT_TRUE(Fails([&] { Eight().Object("Documents").Call("Open", {""}); }, "Open: FileName is empty"));
    EXPECT_TRUE(Fails([&] { Eight().Object("Documents").Call("Open"); }, "Open: FileName is missing"));
    EXPECT_TRUE(Fails([&] { Six().Call("FileOpen", {"none.dat", 2}); }, "FileType 2 is no kind of document"));
    EXPECT_EQ(Engine.Session().Documents().size(), 1U);
}

TEST_F(Worksheets, TheReportOfAVolumeIsSavedReadAndClosed) {
    Worksheet volume;
    volume.SetCell(5, 2, "0.25");
    volume.SetCell(4, 7, "30");
    Six().Call("FileNew");
    Engine.Session().OpenWorksheet(volume);
    EXPECT_EQ(NameOf(Engine.Session().Documents().back()), "Sheet1");
    Six().Call("FileSaveAs", {"volume.dat"});
    EXPECT_EQ(FileBytes("volume.dat"), "\r\n\r\n\r\n\t\t\t\t\t\t30\r\n\t0.25\r\n");
    const double handle = NumberOf(Six().Call("FileOpen", {"volume.dat", 1}), "a handle");
    EXPECT_EQ(SixCell(handle, 4, 7), "30");
    EXPECT_EQ(SixCell(handle, 5, 2), "0.25");
    EXPECT_EQ(SixCell(handle, 4, 4), "");
    Six().Call("FileClose");
    Six().Call("FileClose");
    EXPECT_EQ(Engine.Session().Documents().size(), 1U);
}

TEST_F(Worksheets, SavingReplacesAnOlderFileAndNamesTheSheet) {
    PutFile("volume.dat", "old and longer than what comes\r\n");
    Engine.Session().OpenWorksheet({.Path = {}, .Rows = {{"1"}}});
    Six().Call("FileSaveAs", {"volume.dat"});
    EXPECT_EQ(FileBytes("volume.dat"), "1\r\n");
    EXPECT_EQ(Eight().Object("ActiveDocument").GetText("Name"), "volume.dat");
}

TEST_F(Worksheets, SavingToAMissingFolderFails) {
    Engine.Session().OpenWorksheet({.Path = {}, .Rows = {{"1"}}});
    const std::string path = "Occlusal vector/volume.dat";
    EXPECT_TRUE(Fails([&] { Six().Call("FileSaveAs", {path}); },
                      "FileSaveAs: there is no folder for the file Occlusal vector/volume.dat"));
    EXPECT_TRUE(Fails([&] { Six().Call("FileSaveAs", {""}); }, "FileName is empty"));
    EXPECT_TRUE(Fails([&] { Six().Call("FileSaveAs"); }, "FileName is missing"));
    EXPECT_EQ(Folder.EntryCount(), 0U);
}

TEST_F(Worksheets, ResidualsAreSavedToTheirDataFileWithCommas) {
    PutFile("zero.dat", "0,0,0\r\n");
    Engine.Session().OpenWorksheet(
        {.Path = "zero.dat", .Rows = {{"0", "0", "0", "-1.5"}, {"1", "2", "0", "1.70141E+38"}}, .Separator = ','});
    EXPECT_EQ(FileBytes("zero.dat"), "0,0,0\r\n") << "nothing is written before it is saved";
    Eight().Object("ActiveDocument").Call("Save");
    Eight().Object("ActiveDocument").Call("Close");
    EXPECT_EQ(FileBytes("zero.dat"), "0,0,0,-1.5\r\n1,2,0,1.70141E+38\r\n");
    EXPECT_EQ(Eight().Object("ActiveDocument").GetText("Name"), "Plot1");
}

TEST_F(Worksheets, ASheetWithoutAFileIsNotSaved) {
    Engine.Session().OpenWorksheet({.Path = {}, .Rows = {{"1"}}});
    EXPECT_TRUE(Fails([&] { Eight().Object("ActiveDocument").Call("Save"); }, "Sheet1 has no file"));
}

}  // namespace
}  // namespace crownlab
