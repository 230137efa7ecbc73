// Boxes and modal windows: where a handler waits for the person.
#include <QAbstractButton>
#include <QApplication>
#include <QEventLoop>
#include <QMessageBox>
#include <QPushButton>
#include <QWindow>
#include <algorithm>

#include "application/application.h"
#include "basis/failure.h"
#include "desktop/desktop_desk.h"
#include "desktop/form_window.h"
#include "desktop/shown_text.h"

namespace crownlab {
namespace {

constexpr const char* kProgramName = "Crownlab";

QMessageBox::StandardButton QtButton(Button button) {
    switch (button) {
        case Button::Ok: return QMessageBox::Ok;
        case Button::Cancel: return QMessageBox::Cancel;
        case Button::Yes: return QMessageBox::Yes;
        case Button::No: return QMessageBox::No;
    }
    return QMessageBox::Ok;
}

/// What the box's own close button means: Cancel if it has one, else OK.
Button CloseMeans(const std::vector<Button>& buttons) {
    const bool cancels = std::find(buttons.begin(), buttons.end(), Button::Cancel) != buttons.end();
    return cancels ? Button::Cancel : buttons.front();
}

QString FailureText(const Failure& failure) {
    const QString next = EndsProgram(failure)
                             ? QStringLiteral("Crownlab ends.")
                             : QStringLiteral("The command was stopped where it stood; Crownlab goes on.");
    QString text = QStringLiteral("Failure: %1\nIn: %2\n")
                       .arg(ShownText(FailureName(failure.Kind())), ShownText(failure.Handler()));
    if (!failure.Object().empty()) text += QStringLiteral("Concerning: %1\n").arg(ShownText(failure.Object()));
    return text + "\n" + next;
}

}  // namespace

/// Stands for one wait: who may take input meanwhile, the normal pointer, and all as before at its end.
struct DesktopDesk::Waiting {
    Waiting(DesktopDesk& desk, QEventLoop& loop, InputGuard::Open open, const QWidget* window)
        : Desk(desk), Open(desk.guard_.State()), Window(desk.guard_.Window()), WaitPointer(desk.waitPointer_) {
        Desk.SetWaitPointer(false);
        Desk.guard_.Set(open, window);
        Desk.loops_.push_back(&loop);
    }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;
    ~Waiting() {
        Desk.loops_.pop_back();
        Desk.guard_.Set(Open, Window);
        Desk.SetWaitPointer(WaitPointer);
    }

    DesktopDesk& Desk;
    InputGuard::Open Open;
    const QWidget* Window;
    bool WaitPointer;
};

void DesktopDesk::WaitIn(QEventLoop& loop, InputGuard::Open open, const QWidget* window) {
    CopyAll();
    ++running_;
    {
        const Waiting waiting(*this, loop, open, window);
        if (!ending_) loop.exec();
    }
    --running_;
}

Button DesktopDesk::ShowBox(QMessageBox& box, const std::vector<Button>& buttons) {
    box.setTextFormat(Qt::PlainText);
    for (const Button button : buttons) box.addButton(QtButton(button));
    box.setDefaultButton(QtButton(buttons.front()));
    box.setEscapeButton(QtButton(CloseMeans(buttons)));
    QEventLoop loop;
    QObject::connect(&box, &QMessageBox::finished, &loop, &QEventLoop::quit);
    box.show();
    box.raise();
    box.activateWindow();
    WaitIn(loop, InputGuard::Open::NoForm, nullptr);
    const QAbstractButton* const pressed = box.clickedButton();
    for (const Button button : buttons) {
        if (pressed != nullptr && pressed == box.button(QtButton(button))) return button;
    }
    return CloseMeans(buttons);
}

void DesktopDesk::AddMapButton(QMessageBox& box, const DigitiseOffer& offer) {
    QPushButton* const button = box.addButton("Open map", QMessageBox::ActionRole);
    button->setObjectName("buttonOpenMap");
    button->setAutoDefault(false);
    // Cut off from the box, which would take it for an answer.
    QObject::disconnect(button, &QAbstractButton::clicked, nullptr, nullptr);
    QObject::connect(button, &QAbstractButton::clicked, &box,
                     [this, offer, over = &box] { maps_.OpenForPoints(offer, over); });
}

Button DesktopDesk::Ask(const MessageBox& box) {
    const QString title = ShownText(box.Title.empty() ? kProgramName : box.Title);
    const bool asks = box.Buttons.size() > 1;
    QMessageBox shown(asks ? QMessageBox::Question : QMessageBox::Information, title, ShownText(box.Text),
                      QMessageBox::NoButton, FrontWindow());
    const bool digitises = !box.Digitise.Grid.empty();
    if (digitises) AddMapButton(shown, box.Digitise);
    const Button answer = ShowBox(shown, box.Buttons);
    if (digitises) maps_.EndWait();
    if (ending_) throw ExitProgram{};
    return answer;
}

void DesktopDesk::ShowFailure(const Failure& failure) {
    QMessageBox shown(QMessageBox::Warning, kProgramName, ShownText(failure.what()), QMessageBox::NoButton,
                      FrontWindow());
    shown.setText(FailureText(failure));
    ShowBox(shown, {Button::Ok});
    if (EndsProgram(failure)) End(kStatusEndedByFailure);
}

void DesktopDesk::ShowModal(Form& form) {
    const QPointer<QWidget> front = FrontWindow();
    form.Shown = true;
    form.Modal = true;
    FormShown(form);
    // Window managers keep it above the window that asked for it.
    if (const QWidget* const above = front.data(); above != nullptr) {
        WindowOf(form)->windowHandle()->setTransientParent(above->windowHandle());
    }
    QEventLoop loop;
    modal_.emplace_back(&form, &loop);
    WaitIn(loop, InputGuard::Open::One, WindowOf(form));
    modal_.pop_back();
    // Most often it named a file that is written now.
    for (const auto& [other, window] : windows_) window->AgeLists();
    if (QWidget* const back = front.data(); back != nullptr && back->isVisible()) back->activateWindow();
    if (ending_) throw ExitProgram{};
}

}  // namespace crownlab
