#include "desktop_session.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QMouseEvent>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>
#include <cmath>
#include <stdexcept>

#include "basis/number_text.h"
#include "desktop/form_layouts.h"

namespace crownlab {

DesktopSession::DesktopSession(const std::optional<std::string>& settings)
    : Desk(SetUpLayout, [this](int status) { Ended = status; }), App(Desk, Folder.Path(), Objects) {
    Desk.SetKeyTarget(Engine);
    if (settings) {
        std::string text = *settings;
        if (const std::size_t at = text.find("DIR"); at != std::string::npos) text.replace(at, 3, Folder.Path());
        PutFile(Folder / "Crownlab.ini", text);
    }
    Desk.Start(App);
}

FormWindow& DesktopSession::Open(const std::string& form) {
    Desk.Act(form + ".Form_Load", [this, &form] { App.Windows().Show(form); });
    FormWindow& window = Window(form);
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    return window;
}

FormWindow& DesktopSession::Window(const std::string& form) {
    const std::shared_ptr<Form> loaded = App.Windows().Find(form);
    FormWindow* const window = loaded ? Desk.WindowOf(*loaded) : nullptr;
    if (window == nullptr) throw std::logic_error(form + " isn't open");
    return *window;
}

bool DesktopSession::IsOpen(const std::string& form) {
    const std::shared_ptr<Form> loaded = App.Windows().Find(form);
    const FormWindow* const window = loaded ? Desk.WindowOf(*loaded) : nullptr;
    return window != nullptr && window->isVisible();
}

void DesktopSession::Click(const std::string& form, const char* name) { ClickOn(Find<QWidget>(form, name)); }

void DesktopSession::Choose(const char* menuItem) {
    auto* const action = Window("frmStartup").findChild<QAction*>(menuItem);
    if (action == nullptr) throw std::logic_error(std::string("no menu item ") + menuItem);
    action->trigger();
}

void DesktopSession::Type(const std::string& form, const char* name, const QString& text) {
    auto& box = Find<QLineEdit>(form, name);
    box.setFocus();
    box.selectAll();
    QTest::keyClicks(&box, text);
}

BoxAnswers::BoxAnswers(std::function<void(QMessageBox&)> answer) : answer_(std::move(answer)), timer_(new QTimer) {
    QObject::connect(timer_, &QTimer::timeout, [this] { Look(); });
    timer_->start(5);
}

BoxAnswers::~BoxAnswers() { delete timer_; }

void BoxAnswers::Look() {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        auto* const box = dynamic_cast<QMessageBox*>(widget);
        if (box == nullptr || !box->isVisible() || box == last_) continue;
        last_ = box;
        Boxes.push_back({box->windowTitle(), box->text()});
        answer_(*box);
        return;
    }
}

void ClickOn(QWidget& widget) {
    // Behind its text a check box or option doesn't feel the mouse.
    const bool boxed = dynamic_cast<QCheckBox*>(&widget) != nullptr || dynamic_cast<QRadioButton*>(&widget) != nullptr;
    constexpr int intoTheBox = 8;
    for (QWidget* page = &widget; page->parentWidget() != nullptr; page = page->parentWidget()) {
        auto* const tabs = dynamic_cast<QTabWidget*>(page->parentWidget()->parentWidget());
        if (tabs != nullptr) tabs->setCurrentWidget(page);
    }
    QTest::mouseClick(&widget, Qt::LeftButton, {},
                      boxed ? QPoint(intoTheBox, widget.height() / 2) : widget.rect().center());
}

void MoveOver(QWidget& widget, QPointF to) {
    // Not by the pointer of the screen, which comes too late to wait for.
    QMouseEvent move(QEvent::MouseMove, to, widget.mapToGlobal(to), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &move);
}

void Queue(QObject& context, std::function<void()> act) {
    class Queued : public QObject {
    public:
        Queued(QObject& parent, std::function<void()> run) : QObject(&parent), run_(std::move(run)) {
            QCoreApplication::postEvent(this, new QEvent(QEvent::User));
        }
        bool event(QEvent* event) override {
            if (event->type() == QEvent::User) run_();
            return true;
        }

    private:
        std::function<void()> run_;
    };
    new Queued(context, std::move(act));
}

void PressIn(QMessageBox& box, QMessageBox::StandardButton button) {
    QTest::mouseClick(box.button(button), Qt::LeftButton);
}

std::string HillFile(int columns, int rows) {
    std::string text;
    for (int row = 1; row <= rows; ++row) {
        for (int column = 1; column <= columns; ++column) {
            const double x = (column - (columns + 1) / 2.0) / columns;
            const double y = (row - (rows + 1) / 2.0) / rows;
            const double z = std::round(1000 * std::exp(-6 * (x * x + y * y)) * (1 + 0.2 * std::sin(12 * x)));
            text += GeneralText(column) + "," + GeneralText(row) + "," + GeneralText(z / 100) + "\r\n";
        }
    }
    return text;
}

}  // namespace crownlab
