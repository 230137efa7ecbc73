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
    : layout_(std::move(layout)), finish_(std::move(finish)) {}

DesktopDesk::~DesktopDesk() = default;

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
    // A box needs a parent that stays: no window beside the forms, which may be closed while the box waits.
    for (QWidget* active = QApplication::activeWindow(); active != nullptr; active = active->parentWidget()) {
        if (dynamic_cast<FormWindow*>(active) != nullptr) return QApplication::activeWindow();
    }
    for (const auto& [form, window] : windows_) {
        if (window->isVisible()) return window.get();
    }
    return nullptr;
}

void DesktopDesk::CopyAll() {
    for (const auto& [form, window] : windows_) {
        if (window->isVisible()) window->CopyRecords();
    }
    for (const DeskCompanion& companion : companions_) companion.Follow();
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

void DesktopDesk::EndIfNothingIsLeft() {
    if (running_ > 0) return;
    const bool anyVisible =
        std::any_of(windows_.begin(), windows_.end(), [](const auto& entry) { return entry.second->isVisible(); }) ||
        std::any_of(companions_.begin(), companions_.end(), [](const auto& companion) { return companion.IsOpen(); });
    if (ending_ || (started_ && !anyVisible)) {
        ending_ = true;
        finish_(status_);
    }
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

void DesktopDesk::CallRuns(std::string_view, double) { Redraw(); }

void DesktopDesk::CallEnded() {}

void DesktopDesk::SetClipboardText(const std::string& text) { QApplication::clipboard()->setText(ShownText(text)); }

std::string DesktopDesk::ClipboardText() { return RecordText(QApplication::clipboard()->text()); }

void DesktopDesk::OpenFile(const std::string& path) { QDesktopServices::openUrl(QUrl::fromLocalFile(ShownText(path))); }

}  // namespace crownlab
