#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "basis/paths.h"
#include "convert/frm_conversion.h"
#include "forms/acts.h"
#include "shell/frm_startup.h"
#include "shell/shell_state.h"
#include "support/temp_folder.h"
#include "support/test_desk.h"
#include "surfer/session.h"

namespace crownlab {

/// A mapping program that does nothing and answers what is asked of it: numbers for lengths, itself for objects.
/// What it is asked can be read in the trace.
class SilentProgram : public AutomationObject, public std::enable_shared_from_this<SilentProgram> {
public:
    Value Invoke(std::string_view member, const Arguments&) override {
        if (member == "Name") return std::string("Plot1");
        if (member == "Path") return std::string("data");
        if (member == "XLength") return 12.0;
        if (member == "YLength") return 8.0;
        if (member == "Top") return 18.0;
        if (member == "xMapPerPU") return 2.5;
        return shared_from_this();
    }
    void Assign(std::string_view, const Value&) override {}
};

class SilentServer : public AutomationServer {
public:
    ObjectRef Running(std::string_view) override { return program_; }
    ObjectRef Create(std::string_view) override { return program_; }
    bool ActivateWindow(const std::string&) override { return false; }
    void SendKeys(const std::string&) override {}

private:
    std::shared_ptr<SilentProgram> program_ = std::make_shared<SilentProgram>();
};

/// The window without a screen, over a folder of its own, before a program that only listens.
class ConversionWindow : public ::testing::Test {
protected:
    ConversionWindow() {
        PutFile(Folder / "Crownlab.ini", Folder.Path() + "\r\nSurferV8\r\n");
        Session_.Objects = &Objects;
        Shell.ProgramFolder = Folder.Path();
        Shell.Surfer = &Session_;
        Shell.Files = &Services_.Files;
        Services_.Windows.AddMaker("frmStartup",
                                   [this] { return std::make_shared<FrmStartup>(Services_.Ties, Shell); });
        Services_.Windows.AddMaker("frmConversion",
                                   [this] { return std::make_shared<FrmConversion>(Services_.Ties, Shell); });
        Services_.Windows.Load("frmStartup");
        Services_.Windows.Show("frmConversion");
        Objects.SetTrace([this](const std::string& line) { Trace.push_back(InFolder(line)); });
    }

    FrmConversion& Form() { return static_cast<FrmConversion&>(*Services_.Windows.Load("frmConversion")); }
    void UseVersionSix() { Press(Services_.Windows.Get<MenuItem>("frmStartup", "mnuSurf6")); }
    /// Writes a file and chooses it in the list.
    void Choose(const std::string& name, const std::string& bytes) {
        PutFile(Folder / name, bytes);
        SelectEntry(Form().File1, name);
    }
    void SelectTypes(const std::string& from, const std::string& to) {
        SelectEntry(Form().cmbFromFileType, from);
        SelectEntry(Form().cmbToFileType, to);
    }
    /// The text and title of the only box so far.
    std::string OnlyBox() {
        if (Services_.Screen.Boxes.size() != 1) return std::to_string(Services_.Screen.Boxes.size()) + " boxes";
        return Services_.Screen.Boxes[0].Title + ": " + Services_.Screen.Boxes[0].Text;
    }
    /// The trace's lines that hold `words`.
    std::vector<std::string> TraceOf(const std::string& words) const {
        std::vector<std::string> lines;
        for (const std::string& line : Trace) {
            if (line.find(words) != std::string::npos) lines.push_back(line);
        }
        return lines;
    }

    TempFolder Folder;
    TestServices Services_;
    Session Session_;
    ShellState Shell;
    SilentServer Server;
    ActiveObjects Objects{Server};
    std::vector<std::string> Trace;  ///< the test's own folder left out of its paths

private:
    std::string InFolder(std::string line) const {
        const std::string folder = WithSeparator(Folder.Path());
        for (std::size_t at = line.find(folder); at != std::string::npos; at = line.find(folder)) {
            line.erase(at, folder.size());
        }
        return line;
    }
};

}  // namespace crownlab
