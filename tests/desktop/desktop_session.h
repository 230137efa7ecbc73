#pragma once

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QTest>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "application/application.h"
#include "desktop/desktop_desk.h"
#include "desktop/form_window.h"
#include "mapengine/map_engine.h"
#include "support/temp_folder.h"

namespace crownlab {

/// The desktop program over a folder of its own, as a person has it before him. Lists start in that folder.
class DesktopSession {
public:
    /// `settings` is the content of Crownlab.ini; none gives no file.
    explicit DesktopSession(const std::optional<std::string>& settings = "DIR\r\nSurferV8\r\n");

    TempFolder Folder;
    /// Exit status once the program has ended.
    std::optional<int> Ended;
    DesktopDesk Desk;
    MapEngine Engine{Desk};
    ActiveObjects Objects{Engine};
    Application App;

    /// Opens a window as its menu item does.
    FormWindow& Open(const std::string& form);
    /// The window of a loaded form; a failed expectation if it isn't shown.
    FormWindow& Window(const std::string& form);
    bool IsOpen(const std::string& form);

    /// The record of a control.
    template <typename Record>
    Record& Get(const std::string& form, const std::string& control) {
        return App.Windows().Get<Record>(form, control);
    }
    /// The widget of a control; `name` with the index as the layout has it.
    template <typename Widget>
    Widget& Find(const std::string& form, const char* name) {
        Widget* const widget = dynamic_cast<Widget*>(Window(form).findChild<QWidget*>(name));
        if (widget == nullptr) throw std::logic_error(form + " has no such widget " + name);
        return *widget;
    }

    /// A click of the mouse in the middle of the widget.
    void Click(const std::string& form, const char* name);
    /// Chooses an item of the main window's menus.
    void Choose(const char* menuItem);
    /// Types into a text box in place of what it holds.
    void Type(const std::string& form, const char* name, const QString& text);
};

/// Answers the next message boxes, one after the other, while a handler waits for them.
class BoxAnswers {
public:
    /// What was seen of a box.
    struct Seen {
        QString Title;
        QString Text;
    };

    /// `answer` acts on each box that shows.
    explicit BoxAnswers(std::function<void(QMessageBox& box)> answer);
    ~BoxAnswers();
    std::vector<Seen> Boxes;

private:
    void Look();

    std::function<void(QMessageBox&)> answer_;
    class QTimer* timer_;
    QPointer<QMessageBox> last_;
};

/// A click of the mouse where a widget feels it, its page of a tab turned up before.
void ClickOn(QWidget& widget);

/// The mouse moves over a widget to a place in its own coordinates.
void MoveOver(QWidget& widget, QPointF to);

/// Runs `act` as a person's act that waits to be served, at the next yield or in the loop of a box. Nothing runs
/// if `context` is gone by then.
void Queue(QObject& context, std::function<void()> act);

/// Presses a button of a box.
void PressIn(QMessageBox& box, QMessageBox::StandardButton button);

/// A hill of `columns` by `rows` points, one unit apart, as a CSV surface file.
std::string HillFile(int columns, int rows);

}  // namespace crownlab
