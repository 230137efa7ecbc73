#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "basis/result_file.h"
#include "forms/desk.h"
#include "forms/window_table.h"
#include "shell/frm_save_file.h"
#include "shell/shell_state.h"
#include "viewer/frm_csv_view.h"
#include "viewer/render.h"

namespace crownlab {

/// A desk that counts yields, presses OK in every box and keeps what was told.
class TestDesk : public Desk {
public:
    int Yields = 0;
    /// What the person does at the yield of that number, from 1.
    std::function<void(int)> AtYield;
    std::vector<std::string> Told;
    int Failures = 0;

    Button Ask(const MessageBox& box) override {
        Told.push_back(box.Title + "|" + box.Text);
        return box.Buttons.front();
    }
    void Yield() override {
        ++Yields;
        if (AtYield) AtYield(Yields);
    }
    void Redraw() override {}
    void ShowModal(Form& form) override { form.App.Windows->Unload(form.Name); }
    void FormShown(Form&) override {}
    void FormUnloaded(Form&) override {}
    bool ActivateWindow(const std::string&) override { return false; }
    void SendKeys(const std::string&) override {}
    std::string ClipboardText() override { return {}; }
    void OpenFile(const std::string&) override {}
    void ShowFailure(const Failure&) override { ++Failures; }
};

/// The viewer window on its own, loaded.
class TestViewer {
public:
    TestViewer() {
        services_ = {.Windows = &windows_, .Screen = &Screen, .Files = &files_};
        shell_.Files = &files_;
        windows_.AddMaker("frmCSVView", [this] { return std::make_shared<FrmCSVView>(services_, shell_); });
        windows_.AddMaker("frmSaveFile", [this] { return std::make_shared<FrmSaveFile>(services_, shell_); });
        form_ = std::static_pointer_cast<FrmCSVView>(windows_.Load("frmCSVView"));
    }
    TestViewer(const TestViewer&) = delete;
    TestViewer& operator=(const TestViewer&) = delete;

    TestDesk Screen;
    FrmCSVView& Form() { return *form_; }
    WindowTable& Windows() { return windows_; }

    /// Puts a surface into the window as reading it would; the files of later runs go to `folder`.
    void TakeSurface(const SurfaceGrid& grid, const std::string& folder, double stepX = 0.25) {
        ViewerState& state = form_->State;
        state.Names.Dir = folder + "/";
        state.Names.BaseName = "surface";
        state.Names.Stem = state.Names.Dir + "surface";
        state.CellGrid = grid;
        state.NumX = grid.NumX;
        state.NumY = grid.NumY;
        state.StepX = state.StepY = stepX;
        const ValueRange range = RangeOf(grid);
        state.Data = {.ZMin = range.Min, .ZMax = range.Max > range.Min ? range.Max : range.Min + 1};
        cmdICopy_Click(*form_);
    }

private:
    FileTable files_;
    ShellState shell_;
    Services services_;
    WindowTable windows_{services_};
    std::shared_ptr<FrmCSVView> form_;
};

}  // namespace crownlab
