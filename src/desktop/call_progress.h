#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <string_view>

class QWidget;

namespace crownlab {

class ProgressLine;

/// Shows how far a call of the mapping program is: a line over the lower edge of a window, as soon as the call has
/// lasted for half a second. It lies over what the window shows, so that nothing moves.
class CallProgress {
public:
    CallProgress() = default;
    CallProgress(const CallProgress&) = delete;
    CallProgress& operator=(const CallProgress&) = delete;
    ~CallProgress();

    /// The call goes on, `share` (0 to 1) done. `front` may be null; the line stays on the window on which it came.
    void Show(std::string_view member, double share, QWidget* front);
    /// It has ended.
    void End();

private:
    QElapsedTimer since_;
    QPointer<ProgressLine> line_;
};

}  // namespace crownlab
