#include "desktop/entry_list.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace crownlab {

EntryList::EntryList(QWidget* parent) : QListWidget(parent) {
    setSelectionMode(QAbstractItemView::SingleSelection);
    setUniformItemSizes(true);
}

int EntryList::RowAt(const QMouseEvent& event) const { return indexAt(event.position().toPoint()).row(); }

void EntryList::mousePressEvent(QMouseEvent* event) {
    pressedRow_ = event->button() == Qt::LeftButton ? RowAt(*event) : -1;
    QListWidget::mousePressEvent(event);
}

void EntryList::mouseReleaseEvent(QMouseEvent* event) {
    QListWidget::mouseReleaseEvent(event);
    const bool pressed = pressedRow_ >= 0;
    pressedRow_ = -1;
    // A drag ends on the entry that the list then shows as its own.
    if (pressed && currentRow() >= 0 && OnChosen) OnChosen(currentRow());
}

void EntryList::mouseDoubleClickEvent(QMouseEvent* event) {
    QListWidget::mouseDoubleClickEvent(event);
    pressedRow_ = -1;
    const int row = RowAt(*event);
    if (event->button() == Qt::LeftButton && row >= 0 && OnTaken) OnTaken(row);
}

void EntryList::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && currentRow() >= 0 && OnTaken) {
        event->accept();
        OnTaken(currentRow());
        return;
    }
    const int before = currentRow();
    QListWidget::keyPressEvent(event);
    if (currentRow() >= 0 && currentRow() != before && OnChosen) OnChosen(currentRow());
}

}  // namespace crownlab
