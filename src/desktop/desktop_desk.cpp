#include "desktop/desktop_desk.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QEventLoop>
#include <QScreen>
#include <QUrl>
#include <algorithm>
#include <utility>

#include "application/application.h"
#include "basis/failure.h"
#include "desktop/shown_text.h"

namespace crownlab {
namespace {

/// Redraw points that follow one another faster than a screen shows them are passed over.
constexpr qint64 kRedrawPause = 40;  // milliseconds
/// A yield serves what waits, at least this many rounds of it (painting is one) and no longer than this after them.
constexpr int kRounds = 5;
constexpr qint64 kYieldTime = 20;  // milliseconds

void ServeEvents(QEventLoop::ProcessEventsFlags which) {
    QElapsedTimer time;
    time.start();
    for (int round = 0; round < kRounds || time.elapsed() < kYieldTime; ++round) {
        if (!QAbstractEventDispatcher::instance()->processEvents(which)) return;
    }
}

}  // namespace

DesktopDesk::DesktopDesk(FormWindow::LayoutMaker layout, std::function<void(int)> finish)
    : layout_(std::move(layout)), finish_(std::move(finish)) {
    afterClosing_.setSingleShot(true);
    QObject::connect(&afterClosing_, &QTimer::timeout, [this] { EndIfNothingIsLeft(); });
}

DesktopDesk::~DesktopDesk() {
    for (const QPointer<SideWindow>& window : sideWindows_) {
        if (window == nullptr) continue;
        window->OnClosed = nullptr;
        delete window;
    }
}

int DesktopDesk::Run(Application& application) {
    Start(application);
    if (!ending_) QApplication::exec();
    return status_;
}

void DesktopDesk::Start(Application& application) {
    Act("frmStartup.Form_Load", [&application] { application.Start(); });
    started_ = true;
    EndIfNothingIsLeft();
}

void DesktopDesk::Act(const std::string& where, const std::function<void()>& act, Pointer pointer) {
    if (ending_ || drawing_) return;
    const bool pointerBefore = waitPointer_;
    if (pointer == Pointer::Wait) SetWaitPointer(true);
    ++running_;
    try {
        Dispatch(*this, where, act);
    } catch (const ExitProgram&) {
        End(0);
    }
    CopyAll();
    --running_;
    SetWaitPointer(pointerBefore);
    if (running_ > 0) return;
    // Deleted by the event loop, when the widget that called this handler has returned too.
    for (std::unique_ptr<FormWindow>& window : retired_) window.release()->deleteLater();
    retired_.clear();
    for (const auto& [form, window] : windows_) window->FreshenLists();
    RunLater();
    EndIfNothingIsLeft();
}

void DesktopDesk::ActLater(FormWindow& window, std::function<void()> act) {
    later_.emplace_back(&window, std::move(act));
}

void DesktopDesk::RunLater() {
    const auto due = std::exchange(later_, {});
    for (const auto& [guarded, act] : due) {
        const FormWindow* const window = guarded.data();
        if (window != nullptr && window->Attached() != nullptr) act();
    }
}

void DesktopDesk::CloseForm(Form& form) {
    Act(form.Name + ".Form_Unload", [this, &form] {
        // The main window lives as long as the process; its close box hides it.
        if (form.Name == "frmStartup") {
            form.Shown = false;
            if (FormWindow* const window = WindowOf(form)) window->hide();
        } else {
            form.App.Windows->Unload(form.Name);
        }
    });
}

FormWindow* DesktopDesk::WindowOf(const Form& form) const {
    const auto found = windows_.find(&form);
    return found == windows_.end() ? nullptr : found->second.get();
}

QWidget* DesktopDesk::FrontWindow() const {
    if (!modal_.empty()) return WindowOf(*modal_.back().first);
    // A box belongs over a form: a map or plot, and a dialog of theirs, may be closed while it waits.
    for (QWidget* active = QApplication::activeWindow(); active != nullptr; active = active->parentWidget()) {
        if (dynamic_cast<FormWindow*>(active) != nullptr) return QApplication::activeWindow();
    }
    if (FormWindow* const acting = ActingWindow()) return acting;
    for (const auto& [form, window] : windows_) {
        if (window->isVisible()) return window.get();
    }
    return nullptr;
}

FormWindow* DesktopDesk::ActingWindow() const {
    return acting_ != nullptr && acting_->isVisible() ? acting_.data() : nullptr;
}

void DesktopDesk::CopyAll() {
    for (const auto& [form, window] : windows_) {
        if (window->isVisible()) window->CopyRecords();
    }
    if (follower_) follower_();
}

void DesktopDesk::SetWaitPointer(bool on) {
    if (on == waitPointer_) return;
    waitPointer_ = on;
    if (on) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

void DesktopDesk::End(int status) {
    ending_ = true;
    status_ = status;
    for (QEventLoop* const loop : loops_) loop->quit();
}

void DesktopDesk::Adopt(SideWindow& window) {
    std::erase_if(sideWindows_, [](const QPointer<SideWindow>& known) { return known == nullptr; });
    sideWindows_.emplace_back(&window);
    window.OnClosed = [this] { afterClosing_.start(0); };
}

/// Closes what stands beside the forms. False if one of them asks the person first what to do with unsaved work.
bool DesktopDesk::CloseSideWindows() {
    bool all = true;
    for (const QPointer<SideWindow>& window : sideWindows_) {
        if (window != nullptr && window->isVisible() && !window->close()) all = false;
    }
    return all;
}

void DesktopDesk::EndIfNothingIsLeft() {
    if (running_ > 0) return;
    const auto isVisible = [](const QWidget* window) { return window != nullptr && window->isVisible(); };
    const bool anyVisible =
        std::any_of(windows_.begin(), windows_.end(),
                    [&](const auto& entry) { return isVisible(entry.second.get()); }) ||
        std::any_of(sideWindows_.begin(), sideWindows_.end(), [&](const auto& window) { return isVisible(window); });
    if (!ending_ && (!started_ || anyVisible)) return;
    ending_ = true;
    if (!CloseSideWindows()) {
        // The forms go; the program ends when the last of the others has been closed.
        for (const auto& [form, window] : windows_) window->hide();
        return;
    }
    finish_(status_);
}

void DesktopDesk::Yield() {
    CopyAll();
    ServeEvents(QEventLoop::AllEvents);
    RunLater();
    sinceRedraw_.start();
    // The program ends at once: the handlers that wait here are left, and drop what they have half written.
    if (ending_) throw ExitProgram{};
}

void DesktopDesk::Redraw() {
    if (sinceRedraw_.isValid() && sinceRedraw_.elapsed() < kRedrawPause) return;
    CopyAll();
    // A held scroll bar moves by a timer: that is a person's act too, and waits.
    drawing_ = true;
    ServeEvents(QEventLoop::ExcludeUserInputEvents);
    drawing_ = false;
    sinceRedraw_.start();
}

void DesktopDesk::FormShown(Form& form) {
    std::unique_ptr<FormWindow>& window = windows_[&form];
    if (!window) {
        window = std::make_unique<FormWindow>(form, *this, layout_);
        window->resize(window->size().boundedTo(window->screen()->availableSize()));
    }
    window->CopyRecords();
    if (window->isMinimized()) {
        window->showNormal();
    } else {
        window->show();
    }
    window->raise();
    window->activateWindow();
}

void DesktopDesk::FormUnloaded(Form& form) {
    const auto found = windows_.find(&form);
    if (found != windows_.end()) {
        found->second->Detach();
        retired_.push_back(std::move(found->second));
        windows_.erase(found);
    }
    for (const auto& [modalForm, loop] : modal_) {
        if (modalForm == &form) loop->quit();
    }
}

bool DesktopDesk::ActivateWindow(const std::string& processIdOrTitle) {
    return keyTarget_ != nullptr && keyTarget_->ActivateWindow(processIdOrTitle);
}

void DesktopDesk::SendKeys(const std::string& keys) {
    if (keyTarget_ != nullptr) keyTarget_->SendKeys(keys);
}

void DesktopDesk::CallRuns(std::string_view member, double share) {
    FormWindow* const acting = ActingWindow();
    progress_.Show(member, share, acting != nullptr ? acting : FrontWindow());
    Redraw();
}

void DesktopDesk::CallEnded() { progress_.End(); }

void DesktopDesk::SetClipboardText(const std::string& text) { QApplication::clipboard()->setText(ShownText(text)); }

std::string DesktopDesk::ClipboardText() { return RecordText(QApplication::clipboard()->text()); }

void DesktopDesk::OpenFile(const std::string& path) { QDesktopServices::openUrl(QUrl::fromLocalFile(ShownText(path))); }

}  // namespace crownlab
