#pragma once

#include <QListWidget>
#include <functional>

namespace crownlab {

/// A list of names in which a click and an arrow key choose, a double click and Enter take the entry.
/// `OnChosen` comes for a click on the chosen entry too.
class EntryList : public QListWidget {
public:
    explicit EntryList(QWidget* parent = nullptr);

    std::function<void(int row)> OnChosen;
    std::function<void(int row)> OnTaken;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int RowAt(const QMouseEvent& event) const;

    int pressedRow_ = -1;
};

}  // namespace crownlab
