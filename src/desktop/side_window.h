#pragma once

#include <QMainWindow>
#include <functional>

namespace crownlab {

/// A window beside the forms: a map, or a plot document. It belongs to no form, so it takes input while a box or
/// frmSaveFile waits, and the program lives as long as one is open. Closed, it deletes itself.
class SideWindow : public QMainWindow {
public:
    SideWindow();

    /// Called when it has been closed, before it is deleted. The desk sets this.
    std::function<void()> OnClosed;

protected:
    /// False refuses to close; the window has asked the person what to do and closes itself later, if that is wanted.
    virtual bool MayClose() { return true; }
    void closeEvent(QCloseEvent* event) final;
};

}  // namespace crownlab
