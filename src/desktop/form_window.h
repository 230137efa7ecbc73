#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "forms/form.h"

namespace crownlab {

class DesktopDesk;

/// Copies one record to its widget if it changed since the last copy.
using CopyRecord = std::function<void()>;

/// The window of a form. Its layout comes from the form's .ui file, all else from the control records.
///
/// A form that is unloaded leaves its window at once; the window itself stays, hidden and without a form,
/// until no handler runs any more, since the widget that called the handler is part of it.
class FormWindow : public QWidget {
public:
    /// Lays the widgets of a form out in its window.
    using LayoutMaker = std::function<void(const std::string& form, QWidget& window)>;
    FormWindow(Form& form, DesktopDesk& desk, const LayoutMaker& layout);

    /// The form, nullptr once it was unloaded.
    Form* Attached() const { return form_; }
    DesktopDesk& Desk() const { return desk_; }

    /// Shows what the records hold now.
    void CopyRecords();
    /// The form goes; nothing that happens to the window has an effect from here on.
    void Detach();

    /// What a person did to `control`: runs `act` as the act `event`, if the form is still there.
    void Act(const Control& control, const char* event, const std::function<void()>& act);
    /// Folder and file lists may no longer be true: the window comes to the front, or files were written.
    void AgeLists() { listsAreOld_ = true; }
    /// Reads old lists anew.
    void FreshenLists();
    /// Rises when folder and file lists are to be read anew.
    int ListGeneration() const { return listGeneration_; }

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void ClickNamed(const char* property);

    Form* form_;
    DesktopDesk& desk_;
    std::vector<CopyRecord> copies_;
    int listGeneration_ = 0;
    bool listsAreOld_ = false;
};

}  // namespace crownlab
