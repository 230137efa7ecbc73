#include "desktop/binder.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <map>
#include <stdexcept>
#include <type_traits>

#include "desktop/bind_kinds.h"
#include "desktop/entry_list.h"
#include "desktop/picture_view.h"
#include "desktop/shown_text.h"
#include "desktop/vrml_widget.h"
#include "forms/acts.h"

namespace crownlab {
namespace {

template <typename Record, typename Widget>
Widget* FindOfKind(const QWidget& window, const Record& record, CopyRecord (*)(FormWindow&, Record&, Widget&)) {
    return dynamic_cast<Widget*>(window.findChild<QWidget*>(WidgetName(record.Name)));
}

/// The widget of that name if it is of the kind that shows the record, else nullptr. Which kind that is say
/// the parameters of `Bind`.
template <typename Record>
auto* FindWidget(const QWidget& window, const Record& record) {
    return FindOfKind<Record>(window, record, &Bind);
}

/// Menus are made from their records; an off-screen picture has no place on the window.
bool HasWidget(const ControlRef& control) {
    if (std::holds_alternative<MenuItem*>(control)) return false;
    PictureBox* const* const box = std::get_if<PictureBox*>(&control);
    return box == nullptr || !(*box)->OffScreen;
}

/// The name by which a key is told to a handler.
std::string KeyName(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Escape) return "Escape";
    return RecordText(QKeySequence(event.key()).toString(QKeySequence::PortableText));
}

/// Tells the handlers of one control which keys are pressed on its widget.
class KeyWatch : public QObject {
public:
    KeyWatch(FormWindow& window, const Control& control, QObject& parent)
        : QObject(&parent), window_(window), control_(control) {}

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const std::string key = KeyName(static_cast<const QKeyEvent&>(*event));
        window_.Act(control_, "KeyDown", [this, key] { PressKey(control_, key); });
        return false;
    }

private:
    FormWindow& window_;
    const Control& control_;
};

void WatchKeys(FormWindow& window, const Form& form, const Control& control) {
    if (!form.HasHandler(control.Name + "_KeyDown")) return;
    if (auto* const widget = window.findChild<QWidget*>(WidgetName(control.Name))) {
        widget->installEventFilter(new KeyWatch(window, control, *widget));
    }
}

/// Options of one parent exclude one another, however the layout nests them.
void GroupOptions(FormWindow& window, const Form& form) {
    std::map<const Control*, QButtonGroup*> groups;
    for (const ControlRef& control : form.Controls()) {
        OptionButton* const* const option = std::get_if<OptionButton*>(&control);
        if (option == nullptr) continue;
        QButtonGroup*& group = groups[(*option)->Container];
        if (group == nullptr) group = new QButtonGroup(&window);
        group->addButton(FindWidget(window, **option));
    }
}

CopyRecord BindOne(FormWindow& window, const ControlRef& control) {
    return std::visit(
        [&window](auto* record) -> CopyRecord {
            using Record = std::remove_pointer_t<decltype(record)>;
            if constexpr (std::is_same_v<Record, MenuItem>) {
                return {};
            } else {
                auto* const widget = FindWidget(window, *record);
                if (widget == nullptr)
                    throw std::logic_error("no widget fits " + record->Owner->Name + "." + record->Name);
                return Bind(window, *record, *widget);
            }
        },
        control);
}

void AddControlFaults(const Form& form, const QWidget& window, std::vector<std::string>& faults);
void AddWidgetFaults(const Form& form, const QWidget& window, std::vector<std::string>& faults);

}  // namespace

QString WidgetName(const std::string& control) {
    QString name = ShownText(control);
    name.replace('(', '_');
    name.remove(')');
    return name;
}

std::vector<CopyRecord> BindControls(FormWindow& window, Form& form) {
    std::vector<CopyRecord> copies;
    for (const ControlRef& control : form.Controls()) {
        if (!HasWidget(control)) continue;
        copies.push_back(BindOne(window, control));
        WatchKeys(window, form, Base(control));
    }
    GroupOptions(window, form);
    if (CopyRecord menus = BindMenus(window, form)) copies.push_back(std::move(menus));
    return copies;
}

std::vector<std::string> LayoutFaults(const Form& form, const QWidget& window) {
    std::vector<std::string> faults;
    AddControlFaults(form, window, faults);
    AddWidgetFaults(form, window, faults);
    return faults;
}

namespace {

/// The frame or tab page in which a widget lies, by name; empty if it lies on the window itself.
QString ContainerName(const Form& form, const QWidget& window, const QWidget& widget) {
    for (const QWidget* w = widget.parentWidget(); w != nullptr && w != &window; w = w->parentWidget()) {
        for (const ControlRef& control : form.Controls()) {
            const bool contains = std::holds_alternative<Frame*>(control) ||
                                  std::holds_alternative<TabPage*>(control) ||
                                  std::holds_alternative<TabControl*>(control);
            if (contains && w->objectName() == WidgetName(Base(control).Name)) return w->objectName();
        }
    }
    return {};
}

/// Text that a widget got from its layout although its record has it.
QString OwnText(const QWidget& widget) {
    if (const auto* label = dynamic_cast<const QLabel*>(&widget)) return label->text();
    if (const auto* button = dynamic_cast<const QAbstractButton*>(&widget)) return button->text();
    if (const auto* edit = dynamic_cast<const QLineEdit*>(&widget)) return edit->text();
    if (const auto* group = dynamic_cast<const QGroupBox*>(&widget)) return group->title();
    if (const auto* combo = dynamic_cast<const QComboBox*>(&widget))
        return combo->count() > 0 ? combo->itemText(0) : QString();
    return {};
}

void AddControlFaults(const Form& form, const QWidget& window, std::vector<std::string>& faults) {
    for (const ControlRef& control : form.Controls()) {
        if (!HasWidget(control)) continue;
        const Control& record = Base(control);
        const QWidget* const widget = std::visit(
            [&window](auto* r) -> const QWidget* {
                if constexpr (std::is_same_v<decltype(r), MenuItem*>) {
                    return nullptr;
                } else {
                    return FindWidget(window, *r);
                }
            },
            control);
        if (widget == nullptr) {
            faults.push_back(record.Name + " has no widget of its kind");
            continue;
        }
        const QString wanted = record.Container != nullptr ? WidgetName(record.Container->Name) : QString();
        if (ContainerName(form, window, *widget) != wanted) faults.push_back(record.Name + " lies in another frame");
        if (!OwnText(*widget).isEmpty()) faults.push_back(record.Name + " has a text of its own in the layout");
    }
}

/// Qt names the parts that it builds widgets of "qt_"; the parts of a tab bar have names of their own.
bool IsPartOfQt(const QWidget& widget) {
    return widget.objectName().startsWith("qt_") || dynamic_cast<const QTabBar*>(widget.parentWidget()) != nullptr;
}

void AddWidgetFaults(const Form& form, const QWidget& window, std::vector<std::string>& faults) {
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        if (name.isEmpty() || name.startsWith("layout") || IsPartOfQt(*widget)) continue;
        bool known = false;
        for (const ControlRef& control : form.Controls()) known = known || WidgetName(Base(control).Name) == name;
        if (!known) faults.push_back(RecordText(name) + " is no control of the form");
    }
}

}  // namespace
}  // namespace crownlab
