#pragma once

#include <QWidget>
#include <string>

class QLabel;
class QStackedLayout;
class SoSeparator;

namespace crownlab {

class VrmlCanvas;

/// Shows a VRML file: the left button turns the model, the middle or right one shifts it, the wheel brings it
/// nearer. Where OpenGL can't be had, or a file isn't VRML, a sentence stands in its place.
class VrmlWidget : public QWidget {
public:
    explicit VrmlWidget(QWidget* parent = nullptr);

    /// Reads and shows `file`, "" for none. True if it was read, whether it can be drawn or not.
    bool LoadScene(const std::string& file);
    /// Shows a scene made in memory, of which the widget takes a reference of its own. `keepsView` leaves the camera
    /// where it stands. False, with a sentence in its place, where there is no OpenGL.
    bool ShowModel(SoSeparator& model, bool keepsView);
    /// Shows all of the model.
    void Fit();
    /// Brings the camera nearer (`factor` below 1) or farther.
    void Approach(double factor);

    /// The sentence in place of the model, empty while one is drawn.
    QString Sentence() const;
    /// Whether OpenGL of the old kind, which the scene library draws with, is to be had.
    static bool CanDraw();

private:
    bool PrepareCanvas();
    void Say(const QString& sentence);

    QStackedLayout* pages_;
    QLabel* sentence_;
    /// Made with the first file: windows without a model keep the plain way of painting.
    VrmlCanvas* canvas_ = nullptr;
};

}  // namespace crownlab
