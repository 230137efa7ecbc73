#include "desktop/call_progress.h"

#include <QEvent>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "desktop/shown_text.h"

namespace crownlab {

/// The line itself: a text over a bar, as wide as its window.
class ProgressLine : public QWidget {
public:
    explicit ProgressLine(QWidget* window) : QWidget(window) {
        setObjectName("progressLine");
        setAttribute(Qt::WA_TransparentForMouseEvents);
        window->installEventFilter(this);
        Place();
        show();
        raise();
    }

    void Set(const QString& text, double share) {
        if (text == text_) return;
        text_ = text;
        share_ = share;
        setAccessibleName(text);
        update();
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Resize) Place();
        return false;
    }

    void paintEvent(QPaintEvent*) override {
        constexpr double barHeight = 3;
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Window));
        painter.fillRect(QRectF(0, 0, width(), 1), palette().color(QPalette::Mid));
        painter.fillRect(QRectF(0, height() - barHeight, width() * share_, barHeight),
                         palette().color(QPalette::Highlight));
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(rect().adjusted(8, 0, -8, -2), Qt::AlignVCenter | Qt::AlignLeft, text_);
    }

private:
    void Place() {
        const QWidget* const window = parentWidget();
        const int high = fontMetrics().height() + 10;
        setGeometry(0, window->height() - high, window->width(), high);
    }

    QString text_;
    double share_ = 0;
};

namespace {

/// Calls that end before nobody has to wait for.
constexpr qint64 kUntilShown = 500;  // milliseconds

}  // namespace

CallProgress::~CallProgress() { End(); }

void CallProgress::Show(std::string_view member, double share, QWidget* front) {
    if (!since_.isValid()) since_.start();
    if (since_.elapsed() < kUntilShown) return;
    if (line_ == nullptr && front != nullptr) line_ = new ProgressLine(front);
    if (line_ == nullptr) return;
    const int percent = static_cast<int>(std::floor(100 * std::clamp(share, 0.0, 1.0)));
    line_->Set(QString("Surfer: %1 %2 %").arg(ShownText(member)).arg(percent), percent / 100.0);
}

void CallProgress::End() {
    since_.invalidate();
    delete line_;
}

}  // namespace crownlab
