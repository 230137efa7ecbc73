#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "desktop/call_progress.h"
#include "desktop/form_window.h"
#include "desktop/input_guard.h"
#include "desktop/map_windows.h"
#include "forms/desk.h"
#include "surfer/automation.h"

class QEventLoop;
class QMessageBox;

namespace crownlab {

class Application;

/// Whether an act shows the wait pointer.
enum class Pointer { Wait, Keep };

/// Exit status of the program after a failure that ended it.
inline constexpr int kStatusEndedByFailure = 3;

/// The desk of the desktop program: windows, boxes and events of Qt.
class DesktopDesk : public Desk, public EngineHost {
public:
    /// `layout` lays windows out by the name of their form; `finish` ends the program's event loop with an exit status.
    DesktopDesk(FormWindow::LayoutMaker layout, std::function<void(int status)> finish);
    ~DesktopDesk() override;

    /// Starts the application and serves events until the program ends; returns the exit status.
    int Run(Application& application);
    /// Loads and shows the main window.
    void Start(Application& application);

    /// The program whose windows the keys reach.
    void SetKeyTarget(AutomationServer& target) { keyTarget_ = &target; }

    /// Runs one act of the person, shows its failure if it has one, and copies all records to the screen.
    /// No exception leaves it: it is called out of Qt's event loop.
    void Act(const std::string& where, const std::function<void()>& act, Pointer pointer = Pointer::Wait);
    /// Runs `act` as soon as a person's act could run: at the next yield or when no handler runs any more.
    void ActLater(FormWindow& window, std::function<void()> act);
    /// What the close box of the form's window does.
    void CloseForm(Form& form);

    /// The map windows.
    MapWindows& Maps() { return maps_; }
    /// Takes a window beside the forms in: the program lives as long as it is open.
    void Adopt(SideWindow& window);
    /// `follow` is called whenever records are copied to the screen, for windows that show what isn't in records.
    void SetFollower(std::function<void()> follow) { follower_ = std::move(follow); }

    /// A person acts in this window.
    void ActsIn(FormWindow& window) { acting_ = &window; }
    /// A handler runs or waits.
    bool IsRunning() const { return running_ > 0; }
    /// The program is to end: mnuExit, or a failure that ends it.
    bool IsEnding() const { return ending_; }
    int ExitStatus() const { return status_; }

    /// The window of a form that was shown, nullptr if there is none.
    FormWindow* WindowOf(const Form& form) const;

    Button Ask(const MessageBox& box) override;
    void Yield() override;
    void Redraw() override;
    void ShowModal(Form& form) override;
    void FormShown(Form& form) override;
    void FormUnloaded(Form& form) override;
    bool ActivateWindow(const std::string& processIdOrTitle) override;
    void SendKeys(const std::string& keys) override;
    std::string ClipboardText() override;
    void OpenFile(const std::string& path) override;
    void ShowFailure(const Failure& failure) override;

    void CallRuns(std::string_view member, double share) override;
    void CallEnded() override;
    void SetClipboardText(const std::string& text) override;

private:
    struct Waiting;

    Button ShowBox(QMessageBox& box, const std::vector<Button>& buttons);
    void AddMapButton(QMessageBox& box, const DigitiseOffer& offer);
    void WaitIn(QEventLoop& loop, InputGuard::Open open, const QWidget* window);
    void CopyAll();
    void SetWaitPointer(bool on);
    void RunLater();
    void EndIfNothingIsLeft();
    bool CloseSideWindows();
    void End(int status);
    QWidget* FrontWindow() const;
    FormWindow* ActingWindow() const;

    std::map<const Form*, std::unique_ptr<FormWindow>> windows_;
    std::vector<std::unique_ptr<FormWindow>> retired_;
    std::vector<std::pair<QPointer<FormWindow>, std::function<void()>>> later_;
    std::vector<QEventLoop*> loops_;
    /// The modal form and its loop, innermost last.
    std::vector<std::pair<const Form*, QEventLoop*>> modal_;
    InputGuard guard_;
    std::vector<QPointer<SideWindow>> sideWindows_;
    QTimer afterClosing_;  ///< looks what is left once a window beside the forms is out of its closing event
    MapWindows maps_{[this](SideWindow& window) { Adopt(window); }};
    QPointer<FormWindow> acting_;  ///< the form in which a person acted last
    CallProgress progress_;
    std::function<void()> follower_;
    QElapsedTimer sinceRedraw_;
    FormWindow::LayoutMaker layout_;
    std::function<void(int)> finish_;
    int running_ = 0;
    AutomationServer* keyTarget_ = nullptr;
    bool drawing_ = false;
    bool waitPointer_ = false;
    bool ending_ = false;
    bool started_ = false;
    int status_ = 0;
};

}  // namespace crownlab
