#include "desktop/form_window.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QKeyEvent>

#include "basis/failure.h"
#include "desktop/binder.h"
#include "desktop/desktop_desk.h"
#include "desktop/shown_text.h"
#include "forms/acts.h"

namespace crownlab {

FormWindow::FormWindow(Form& form, DesktopDesk& desk, const LayoutMaker& layout) : form_(&form), desk_(desk) {
    setObjectName(ShownText(form.Name));
    layout(form.Name, *this);
    copies_ = BindControls(*this, form);
    CopyRecords();
}

void FormWindow::CopyRecords() {
    if (form_ == nullptr) return;
    const QString caption = ShownText(form_->Caption);
    if (windowTitle() != caption) setWindowTitle(caption);
    for (const CopyRecord& copy : copies_) copy();
}

void FormWindow::Detach() {
    form_ = nullptr;
    hide();
}

void FormWindow::Act(const Control& control, const char* event, const std::function<void()>& act) {
    if (form_ == nullptr) return;
    desk_.ActsIn(*this);
    const bool moves = std::string_view(event) == "MouseMove";
    desk_.Act(form_->Name + "." + control.Name + "_" + event, act, moves ? Pointer::Keep : Pointer::Wait);
}

bool FormWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        AgeLists();
        // Lists don't change under a handler: its desk does this at its end.
        if (!desk_.IsRunning()) FreshenLists();
    }
    return QWidget::event(event);
}

void FormWindow::FreshenLists() {
    if (form_ == nullptr || !listsAreOld_) return;
    listsAreOld_ = false;
    ++listGeneration_;
    for (const ControlRef& control : form_->Controls()) {
        FileList* const* const files = std::get_if<FileList*>(&control);
        if (files == nullptr) continue;
        try {
            Refresh(**files);
        } catch (const Failure&) {
            // The folder is gone or closed to us. Nobody asked for it now: the old names stay until someone does.
        }
    }
    CopyRecords();
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (form_ != nullptr) desk_.CloseForm(*form_);
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        ClickNamed("acceptButton");
    } else if (event->key() == Qt::Key_Escape) {
        ClickNamed("cancelButton");
    } else {
        QWidget::keyPressEvent(event);
    }
}

void FormWindow::ClickNamed(const char* property) {
    auto* const button = findChild<QAbstractButton*>(this->property(property).toString());
    if (button != nullptr) button->click();
}

}  // namespace crownlab
