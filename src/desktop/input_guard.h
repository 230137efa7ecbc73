#pragma once

#include <QObject>

class QWidget;

namespace crownlab {

/// Keeps a person's input away from form windows while a box or a modal window waits for its answer. Windows
/// that belong to no form, the box itself and map windows, stay usable.
class InputGuard : public QObject {
public:
    explicit InputGuard(QObject* parent = nullptr);
    ~InputGuard() override;

    /// What may take input now: any window, no form window, or one alone.
    enum class Open { All, NoForm, One };
    /// `window` is the form window that is meant by Open::One.
    void Set(Open open, const QWidget* window = nullptr);
    Open State() const { return open_; }
    const QWidget* Window() const { return window_; }

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    Open open_ = Open::All;
    const QWidget* window_ = nullptr;
};

}  // namespace crownlab
