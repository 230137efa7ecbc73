#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "forms/desk.h"
#include "surfer/automation.h"

namespace crownlab {

class FileTable;

/// Where the player's output lines go.
using LineSink = std::function<void(const std::string& line)>;

/// Points that a person digitises: saved one "x,y" a line.
struct DigitisedPoints {
    std::string File;  ///< empty for none
    std::vector<std::string> Points;
};

struct QueuedAnswer {
    Button Pressed = Button::Ok;
    DigitisedPoints Digitised;
};

/// The desk of a program without a screen: boxes are answered from a queue and printed, yields run what
/// the script has waiting for them.
class PlayerDesk : public Desk, public EngineHost {
public:
    PlayerDesk(LineSink print, FileTable& files) : print_(std::move(print)), files_(files) {}

    void QueueAnswer(QueuedAnswer answer) { answers_.push_back(std::move(answer)); }
    /// Runs `act` while the next handler yields for the n-th time.
    void QueueAtYield(int n, std::function<void()> act) { waiting_.push_back({n, std::move(act)}); }
    /// Runs one act of the person; false if a handler ended in a failure.
    bool Act(const std::string& where, const std::function<void()>& act);
    /// The program whose windows the keys reach.
    void SetKeyTarget(AutomationServer& target) { keyTarget_ = &target; }
    /// How a modal window is waited for: runs statements until the window has been unloaded.
    void SetModalLoop(std::function<void(Form&)> loop) { modalLoop_ = std::move(loop); }

    int Failures() const { return failures_; }
    const Failure& LastFailure() const { return lastFailure_; }

    Button Ask(const MessageBox& box) override;
    void Yield() override;
    void Redraw() override {}
    void ShowModal(Form& form) override;
    void FormShown(Form&) override {}
    void FormUnloaded(Form&) override {}
    bool ActivateWindow(const std::string& processIdOrTitle) override;
    void SendKeys(const std::string& keys) override;
    std::string ClipboardText() override { return clipboard_; }
    void OpenFile(const std::string&) override {}
    void ShowFailure(const Failure& failure) override;

    void CallRuns(std::string_view, double) override {}
    void CallEnded() override {}
    void SetClipboardText(const std::string& text) override { clipboard_ = text; }

    /// Saves points as a person does from the digitising program.
    void Digitise(const DigitisedPoints& points);

private:
    struct AtYield {
        int Number;
        std::function<void()> Act;
    };

    LineSink print_;
    FileTable& files_;
    std::deque<QueuedAnswer> answers_;
    std::vector<AtYield> waiting_;
    std::vector<AtYield> current_;
    int yields_ = 0;
    bool insideYield_ = false;
    int failures_ = 0;
    Failure lastFailure_{FailureKind::InvalidCall, ""};
    std::function<void(Form&)> modalLoop_;
    AutomationServer* keyTarget_ = nullptr;
    std::string clipboard_;
};

}  // namespace crownlab
