// Labels, buttons, text and check boxes, options, frames, lines.
#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QFrame>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

#include "desktop/bind_kinds.h"
#include "desktop/rotation_icon.h"
#include "desktop/shown_state.h"
#include "desktop/shown_text.h"
#include "forms/acts.h"

namespace crownlab {
namespace {

/// Makes a label press its control when it is clicked, or by the space bar.
class ClickWatch : public QObject {
public:
    ClickWatch(FormWindow& window, const Label& label, QLabel& widget)
        : QObject(&widget), window_(window), label_(label), widget_(widget) {}

    bool eventFilter(QObject*, QEvent* event) override {
        if (!IsPress(*event)) return false;
        window_.Act(label_, "Click", [this] { Press(label_); });
        return true;
    }

private:
    bool IsPress(const QEvent& event) const {
        if (event.type() == QEvent::KeyPress) return static_cast<const QKeyEvent&>(event).key() == Qt::Key_Space;
        if (event.type() != QEvent::MouseButtonRelease) return false;
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        return mouse.button() == Qt::LeftButton && widget_.rect().contains(mouse.position().toPoint());
    }

    FormWindow& window_;
    const Label& label_;
    QLabel& widget_;
};

void MakeClickable(FormWindow& window, const Label& label, QLabel& widget) {
    widget.installEventFilter(new ClickWatch(window, label, widget));
    widget.setCursor(Qt::PointingHandCursor);
    widget.setFocusPolicy(Qt::TabFocus);
    widget.setStyleSheet("QLabel:focus { text-decoration: underline; }");
}

void SetColour(QLabel& widget, std::uint32_t packed) {
    QPalette palette = widget.palette();
    if (packed == kButtonTextColour) {
        palette = QPalette();
    } else {
        palette.setColor(QPalette::WindowText, QColor(packed & 0xFF, (packed >> 8) & 0xFF, (packed >> 16) & 0xFF));
    }
    widget.setPalette(palette);
}

void ShowChecked(QAbstractButton& widget, bool checked) {
    if (widget.isChecked() == checked) return;
    const QSignalBlocker blocker(widget);
    QButtonGroup* const group = widget.group();
    // A group never lets go of its last checked button by itself, but options may all be clear.
    if (group != nullptr) group->setExclusive(false);
    widget.setChecked(checked);
    if (group != nullptr) group->setExclusive(true);
}

/// Takes the text without moving the cursor of someone who types.
void ShowTyped(QLineEdit& widget, const QString& text) {
    if (widget.text() == text) return;
    const int cursor = widget.cursorPosition();
    const QSignalBlocker blocker(widget);
    widget.setText(text);
    widget.setCursorPosition(widget.hasFocus() ? cursor : 0);
}

}  // namespace

CopyRecord Bind(FormWindow& window, Label& label, QLabel& widget) {
    // Captions show paths and numbers as they are: no mark-up, no access keys.
    widget.setTextFormat(Qt::PlainText);
    if (label.Owner->HasHandler(label.Name + "_Click")) MakeClickable(window, label, widget);
    const auto shown = MakeState<std::string, std::uint32_t, bool, bool>();
    return [shown, &label, &widget] {
        if (!shown->Differs(label.Caption, label.ForeColour, label.Enabled, label.Visible)) return;
        widget.setText(ShownText(label.Caption));
        SetColour(widget, label.ForeColour);
        widget.setEnabled(label.Enabled);
        widget.setVisible(label.Visible);
    };
}

CopyRecord Bind(FormWindow& window, CommandButton& button, QAbstractButton& widget) {
    if (auto* const push = dynamic_cast<QPushButton*>(&widget)) push->setAutoDefault(true);
    if (const QVariant turn = widget.property("turn"); turn.isValid()) {
        widget.setIcon(RotationIcon(turn.toInt(), widget.palette().color(QPalette::ButtonText)));
        widget.setAccessibleName(widget.toolTip());
    }
    QObject::connect(&widget, &QAbstractButton::clicked, &window,
                     [&window, &button] { window.Act(button, "Click", [&button] { Press(button); }); });
    const auto shown = MakeState<std::string, bool, bool>();
    return [shown, &button, &widget] {
        if (!shown->Differs(button.Caption, button.Enabled, button.Visible)) return;
        widget.setText(ShownText(button.Caption));
        widget.setEnabled(button.Enabled);
        widget.setVisible(button.Visible);
    };
}

CopyRecord Bind(FormWindow& window, TextBox& box, QLineEdit& widget) {
    const auto shown = MakeState<std::string, bool, bool>();
    QObject::connect(&widget, &QLineEdit::textEdited, &window, [shown, &window, &box](const QString& text) {
        shown->Forget();
        window.Act(box, "Change", [&box, text] { SetText(box, RecordText(text)); });
    });
    return [shown, &box, &widget] {
        if (!shown->Differs(box.Text, box.Enabled, box.Visible)) return;
        ShowTyped(widget, ShownText(box.Text));
        widget.setEnabled(box.Enabled);
        widget.setVisible(box.Visible);
    };
}

CopyRecord Bind(FormWindow& window, CheckBox& box, QCheckBox& widget) {
    const auto shown = MakeState<std::string, bool, bool, bool>();
    QObject::connect(&widget, &QAbstractButton::clicked, &window, [shown, &window, &box](bool checked) {
        shown->Forget();
        window.Act(box, "Click", [&box, checked] { SetChecked(box, checked); });
    });
    return [shown, &box, &widget] {
        if (!shown->Differs(box.Caption, box.Checked, box.Enabled, box.Visible)) return;
        widget.setText(ShownText(box.Caption));
        ShowChecked(widget, box.Checked);
        widget.setEnabled(box.Enabled);
        widget.setVisible(box.Visible);
    };
}

CopyRecord Bind(FormWindow& window, OptionButton& option, QRadioButton& widget) {
    const auto shown = MakeState<std::string, bool, bool, bool>();
    // Another option of the group changes this one too, so each toggle is noted.
    QObject::connect(&widget, &QAbstractButton::toggled, &window, [shown] { shown->Forget(); });
    QObject::connect(&widget, &QAbstractButton::clicked, &window,
                     [&window, &option] { window.Act(option, "Click", [&option] { SelectOption(option); }); });
    return [shown, &option, &widget] {
        if (!shown->Differs(option.Caption, option.Selected, option.Enabled, option.Visible)) return;
        widget.setText(ShownText(option.Caption));
        ShowChecked(widget, option.Selected);
        widget.setEnabled(option.Enabled);
        widget.setVisible(option.Visible);
    };
}

CopyRecord Bind(FormWindow&, Frame& frame, QGroupBox& widget) {
    const auto shown = MakeState<std::string, bool, bool>();
    return [shown, &frame, &widget] {
        if (!shown->Differs(frame.Caption, frame.Enabled, frame.Visible)) return;
        widget.setTitle(ShownText(frame.Caption));
        widget.setEnabled(frame.Enabled);
        widget.setVisible(frame.Visible);
    };
}

CopyRecord Bind(FormWindow&, Line& line, QFrame& widget) {
    const auto shown = MakeState<bool>();
    return [shown, &line, &widget] {
        if (shown->Differs(line.Visible)) widget.setVisible(line.Visible);
    };
}

}  // namespace crownlab
