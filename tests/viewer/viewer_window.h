#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "basis/result_file.h"
#include "forms/desk.h"
#include "forms/window_table.h"
#include "shell/frm_save_file.h"
#include "shell/shell_state.h"
#include "surfer/session.h"
#include "viewer/frm_csv_view.h"

namespace crownlab {

/// A desk that writes down what it is asked, presses the first button of every box and runs what a test has
/// waiting for a yield.
class NotingDesk : public Desk {
public:
    std::vector<std::string> Boxes;
    std::vector<std::string> Opened;
    int Yields = 0;
    int Redraws = 0;
    /// Runs at the yield of that number (from 1); once only, so that acts that yield themselves come to an end.
    void AtYield(int number, std::function<void()> act) { waiting_.emplace_back(number, std::move(act)); }
    /// What a person does in a modal window.
    std::function<void(Form&)> InModal;

    Button Ask(const MessageBox& box) override {
        Boxes.push_back(box.Text);
        return box.Buttons.front();
    }
    void Yield() override {
        ++Yields;
        for (auto& [number, act] : waiting_) {
            if (number == Yields && act) std::exchange(act, nullptr)();
        }
    }
    void Redraw() override { ++Redraws; }
    void ShowModal(Form& form) override {
        if (InModal) InModal(form);
    }
    void FormShown(Form&) override {}
    void FormUnloaded(Form&) override {}
    bool ActivateWindow(const std::string&) override { return false; }
    void SendKeys(const std::string&) override {}
    std::string ClipboardText() override { return {}; }
    void OpenFile(const std::string& path) override { Opened.push_back(path); }
    void ShowFailure(const Failure&) override {}

private:
    std::vector<std::pair<int, std::function<void()>>> waiting_;
};

/// The viewer window without a screen, over the current directory.
struct ViewerWindow {
    NotingDesk Screen;
    FileTable Files;
    Session Surfer;
    ShellState Shell;
    Services App;
    WindowTable Windows{App};

    ViewerWindow() {
        Shell.Surfer = &Surfer;
        Shell.Files = &Files;
        App = {.Windows = &Windows, .Screen = &Screen, .Files = &Files};
        Windows.AddMaker("frmCSVView", [this] { return std::make_shared<FrmCSVView>(App, Shell); });
        Windows.AddMaker("frmSaveFile", [this] { return std::make_shared<FrmSaveFile>(App, Shell); });
        Windows.Show("frmCSVView");
    }

    FrmCSVView& Form() { return static_cast<FrmCSVView&>(*Windows.Load("frmCSVView")); }
    /// Types the name of a file of the current directory.
    void Choose(const std::string& file) { Form().Text1.Text = file; }
};

}  // namespace crownlab
