#include "desktop/input_guard.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QWidget>

#include "desktop/form_window.h"

namespace crownlab {
namespace {

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::InputMethod:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::Drop:
        case QEvent::Close: return true;
        default: return false;
    }
}

/// The form window that `receiver` belongs to: a widget, menu, action or shortcut in it. A box over the window
/// is on its own.
const FormWindow* FormWindowOf(const QObject* receiver) {
    for (const QObject* object = receiver; object != nullptr; object = object->parent()) {
        if (dynamic_cast<const QDialog*>(object) != nullptr) return nullptr;
        if (const auto* window = dynamic_cast<const FormWindow*>(object)) return window;
    }
    return nullptr;
}

}  // namespace

InputGuard::InputGuard(QObject* parent) : QObject(parent) { qApp->installEventFilter(this); }

InputGuard::~InputGuard() {
    if (qApp != nullptr) qApp->removeEventFilter(this);
}

void InputGuard::Set(Open open, const QWidget* window) {
    open_ = open;
    window_ = window;
}

bool InputGuard::eventFilter(QObject* receiver, QEvent* event) {
    if (open_ == Open::All || !IsInput(event->type())) return false;
    const FormWindow* const window = FormWindowOf(receiver);
    if (window == nullptr || (open_ == Open::One && window == window_)) return false;
    event->ignore();
    return true;
}

}  // namespace crownlab
