#include "desktop/side_window.h"

#include <QCloseEvent>

namespace crownlab {

SideWindow::SideWindow() { setAttribute(Qt::WA_DeleteOnClose); }

void SideWindow::closeEvent(QCloseEvent* event) {
    if (!MayClose()) {
        event->ignore();
        return;
    }
    event->accept();
    hide();
    if (OnClosed) OnClosed();
}

}  // namespace crownlab
