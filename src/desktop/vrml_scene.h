#pragma once

#include <QColor>
#include <QSize>
#include <memory>
#include <string>

// The scene library's own: its nodes count their references, so none is deleted from outside.
class SoSeparator;  // NOLINT(cppcoreguidelines-virtual-class-destructor)

namespace crownlab {

/// Sets the scene library up, once in the process. Needed before any of its nodes is made.
void SetUpCoin();

/// Gives up a reference to a scene made in memory; with the last one it goes.
void ReleaseModel(SoSeparator& model);

/// A VRML file, or a scene made in memory, with a camera that looks at it. Needs no OpenGL until it is drawn.
class VrmlScene {
public:
    VrmlScene();
    ~VrmlScene();
    VrmlScene(const VrmlScene&) = delete;
    VrmlScene& operator=(const VrmlScene&) = delete;

    /// Reads a file in place of the scene so far. Returns what is wrong with it, empty if it was read; the
    /// scene is empty if not. The camera starts at the file's first viewpoint, or so that all is seen.
    std::string Read(const std::string& file);
    /// Takes a scene made in memory in place of the one so far, and looks at it as at a file's.
    void Show(SoSeparator& model);
    /// The same without moving the camera.
    void Replace(SoSeparator& model);

    /// Moves the camera so that all is seen, in the direction in which it looks. `view` is the size of the view.
    void Fit(QSize view);
    /// Turns the model under the mouse; a move by the height or width of the view is half a turn.
    void Turn(double acrossShare, double downShare);
    /// Shifts the model by a share of the view's shorter side.
    void Shift(double acrossShare, double downShare);
    /// Brings the camera nearer (`factor` below 1) or farther.
    void Approach(double factor);

    /// Draws into the current OpenGL context; `view` in device pixels, `context` numbers the OpenGL context.
    void Draw(QSize view, unsigned context);
    /// A number for Draw, one for each OpenGL context.
    static unsigned NewContext();

    QColor Background() const;

private:
    void LookAtModel();

    struct Coin;
    std::unique_ptr<Coin> coin_;
};

}  // namespace crownlab
