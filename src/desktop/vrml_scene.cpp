#include "desktop/vrml_scene.h"

#include <Inventor/SbBox3f.h>
#include <Inventor/SbViewportRegion.h>
#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/SoSceneManager.h>
#include <Inventor/VRMLnodes/SoVRMLBackground.h>
#include <Inventor/VRMLnodes/SoVRMLElevationGrid.h>
#include <Inventor/VRMLnodes/SoVRMLViewpoint.h>
#include <Inventor/actions/SoGLRenderAction.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/elements/SoGLCacheContextElement.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoSeparator.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace crownlab {
namespace {

constexpr QColor kSky(255, 255, 255);
const SbVec3f kFromTheEye(0, 0, -1);
/// Over the left shoulder: a surface without other light shows its form better so.
const SbVec3f kFromTheShoulder(0.5f, -0.45f, -1);

/// The first complaint of the reader in hand; Coin calls back without a place for a user's data of one read.
std::string firstReadError;

void TakeReadError(const SoError* error, void*) {
    if (firstReadError.empty()) firstReadError = error->getDebugString().getString();
}

template <typename Node>
Node* FindFirst(SoNode* root) {
    SoSearchAction search;
    search.setType(Node::getClassTypeId());
    search.setInterest(SoSearchAction::FIRST);
    search.setSearchingAll(true);
    search.apply(root);
    return search.getPath() != nullptr ? static_cast<Node*>(search.getPath()->getTail()) : nullptr;
}

/// False for a lattice that tells more nodes than it has heights: the library would draw beyond its end.
bool HasAllHeights(const SoNode* root) {
    if (root->isOfType(SoVRMLElevationGrid::getClassTypeId())) {
        const auto* const lattice = static_cast<const SoVRMLElevationGrid*>(root);
        const std::int64_t columns = lattice->xDimension.getValue();
        const std::int64_t rows = lattice->zDimension.getValue();
        return columns >= 0 && rows >= 0 && columns * rows <= lattice->height.getNum();
    }
    const SoChildList* const children = root->getChildren();
    for (int i = 0; children != nullptr && i < children->getLength(); ++i) {
        if (!HasAllHeights((*children)[i])) return false;
    }
    return true;
}

}  // namespace

void SetUpCoin() {
    static const bool done = [] {
        SoDB::init();
        SoReadError::setHandlerCallback(TakeReadError, nullptr);
        return true;
    }();
    (void)done;
}

void ReleaseModel(SoSeparator& model) { model.unref(); }

struct VrmlScene::Coin {
    SoSeparator* Root = new SoSeparator;
    SoPerspectiveCamera* Camera = new SoPerspectiveCamera;
    SoDirectionalLight* Headlight = new SoDirectionalLight;
    SoSeparator* Model = nullptr;
    SbBox3f Box;  ///< extents of the model
    SoSceneManager Manager;
    QColor Sky = kSky;
    SbVec3f Light = kFromTheEye;  ///< where the light shines to, as the camera is turned
    bool HasViewpoint = false;

    Coin() {
        Root->ref();
        Root->addChild(Camera);
        Root->addChild(Headlight);
        Manager.setSceneGraph(Root);
    }
    Coin(const Coin&) = delete;
    Coin& operator=(const Coin&) = delete;
    ~Coin() {
        Manager.setSceneGraph(nullptr);
        Root->unref();
    }

    void SetModel(SoSeparator* model) {
        if (Model != nullptr) Root->removeChild(Model);
        Model = model;
        if (Model != nullptr) Root->addChild(Model);
    }

    void TakeBox() {
        SoGetBoundingBoxAction size{SbViewportRegion()};
        size.apply(Model);
        Box = size.getBoundingBox();
    }

    void LookFromViewpoint() {
        const SoVRMLViewpoint* const viewpoint = FindFirst<SoVRMLViewpoint>(Model);
        HasViewpoint = viewpoint != nullptr;
        if (!HasViewpoint) {
            Camera->orientation = SbRotation::identity();
            return;
        }
        Camera->position = viewpoint->position.getValue();
        Camera->orientation = viewpoint->orientation.getValue();
        Camera->heightAngle = viewpoint->fieldOfView.getValue();
        Camera->focalDistance = std::max(1e-3f, viewpoint->position.getValue().length());
    }

    void TakeSky() {
        Sky = kSky;
        const SoVRMLBackground* const background = FindFirst<SoVRMLBackground>(Model);
        if (background == nullptr || background->skyColor.getNum() == 0) return;
        const SbColor sky = background->skyColor[0];
        Sky =
            QColor::fromRgbF(std::clamp(sky[0], 0.f, 1.f), std::clamp(sky[1], 0.f, 1.f), std::clamp(sky[2], 0.f, 1.f));
    }

    SbVec3f Direction(const SbVec3f& inCamera) const {
        SbVec3f direction;
        Camera->orientation.getValue().multVec(inCamera, direction);
        return direction;
    }

    SbVec3f Focus() const {
        return Camera->position.getValue() + Direction(SbVec3f(0, 0, -1)) * Camera->focalDistance.getValue();
    }

    /// How far from the middle of the model the camera has to stand so that each corner of its box lies inside
    /// the view, whose edges rise by `slope` across and down for one unit ahead.
    float DistanceToSeeAll(const SbVec2f& slope) const {
        constexpr float margin = 1.05f;
        const SbRotation toCamera = Camera->orientation.getValue().inverse();
        float distance = 0;
        for (int corner = 0; corner < 8; ++corner) {
            SbVec3f at;
            for (int axis = 0; axis < 3; ++axis)
                at[axis] = ((corner >> axis) & 1) != 0 ? Box.getMax()[axis] : Box.getMin()[axis];
            toCamera.multVec(at - Box.getCenter(), at);
            const float beside = std::max(std::abs(at[0]) / slope[0], std::abs(at[1]) / slope[1]);
            distance = std::max(distance, at[2] + margin * beside);
        }
        return std::max(distance, 1e-3f);
    }

    /// Nothing of the model is cut off at the near or far end.
    void TakeDepths() const {
        const float radius = (Box.getMax() - Box.getMin()).length() / 2;
        const float middle = (Box.getCenter() - Camera->position.getValue()).dot(Direction(SbVec3f(0, 0, -1)));
        Camera->farDistance = std::max(middle + 1.01f * radius, 1e-3f);
        // A depth buffer of 24 bits tells depths apart down to this share of the farthest.
        Camera->nearDistance = std::max(middle - 1.01f * radius, Camera->farDistance.getValue() / 5000);
    }

    /// Stands the camera `distance` before `focus`, as it is turned.
    void Stand(const SbVec3f& focus, float distance) const {
        Camera->focalDistance = distance;
        Camera->position = focus - Direction(SbVec3f(0, 0, -1)) * distance;
    }
};

VrmlScene::VrmlScene() {
    SetUpCoin();
    coin_ = std::make_unique<Coin>();
}

VrmlScene::~VrmlScene() = default;

std::string VrmlScene::Read(const std::string& file) {
    coin_->SetModel(nullptr);
    coin_->Light = kFromTheEye;
    coin_->Box.makeEmpty();
    firstReadError.clear();
    SoInput input;
    if (!input.openFile(file.c_str(), TRUE)) return "can't be opened";
    SoSeparator* const model = SoDB::readAll(&input);
    if (model == nullptr) return firstReadError.empty() ? "holds no scene" : firstReadError;
    coin_->SetModel(model);
    if (!HasAllHeights(model)) {
        coin_->SetModel(nullptr);
        return "holds fewer heights than it tells";
    }
    LookAtModel();
    return {};
}

void VrmlScene::Show(SoSeparator& model) {
    coin_->SetModel(&model);
    coin_->Light = kFromTheShoulder;
    LookAtModel();
}

void VrmlScene::Replace(SoSeparator& model) {
    coin_->SetModel(&model);
    coin_->TakeBox();
}

void VrmlScene::LookAtModel() {
    coin_->TakeBox();
    coin_->LookFromViewpoint();
    coin_->TakeSky();
    if (!coin_->HasViewpoint) Fit(QSize(1, 1));
}

void VrmlScene::Fit(QSize view) {
    if (coin_->Box.isEmpty() || view.isEmpty()) return;
    // The height angle of the camera spans the shorter side of the view.
    const float across = std::tan(coin_->Camera->heightAngle.getValue() / 2);
    const float shorter = static_cast<float>(std::min(view.width(), view.height()));
    const SbVec2f slope(across * static_cast<float>(view.width()) / shorter,
                        across * static_cast<float>(view.height()) / shorter);
    coin_->Stand(coin_->Box.getCenter(), coin_->DistanceToSeeAll(slope));
}

void VrmlScene::Turn(double acrossShare, double downShare) {
    const SbVec3f focus = coin_->Focus();
    const float distance = coin_->Camera->focalDistance.getValue();
    const SbRotation across(SbVec3f(0, 1, 0), static_cast<float>(-acrossShare * std::numbers::pi));
    const SbRotation down(SbVec3f(1, 0, 0), static_cast<float>(-downShare * std::numbers::pi));
    coin_->Camera->orientation = down * across * coin_->Camera->orientation.getValue();
    coin_->Stand(focus, distance);
}

void VrmlScene::Shift(double acrossShare, double downShare) {
    // At the distance of the focus the shorter side of the view is this long.
    const float side =
        2 * coin_->Camera->focalDistance.getValue() * std::tan(coin_->Camera->heightAngle.getValue() / 2);
    const SbVec3f inCamera(static_cast<float>(-acrossShare) * side, static_cast<float>(downShare) * side, 0);
    coin_->Camera->position = coin_->Camera->position.getValue() + coin_->Direction(inCamera);
}

void VrmlScene::Approach(double factor) {
    coin_->Stand(coin_->Focus(), coin_->Camera->focalDistance.getValue() * static_cast<float>(factor));
}

void VrmlScene::Draw(QSize view, unsigned context) {
    if (!coin_->Box.isEmpty()) coin_->TakeDepths();
    coin_->Headlight->direction = coin_->Direction(coin_->Light);
    SoSceneManager& manager = coin_->Manager;
    manager.getGLRenderAction()->setCacheContext(context);
    const SbVec2s size(static_cast<short>(view.width()), static_cast<short>(view.height()));
    manager.setWindowSize(size);
    manager.setViewportRegion(SbViewportRegion(size));
    const QColor sky = Background();
    manager.setBackgroundColor(SbColor(sky.redF(), sky.greenF(), sky.blueF()));
    manager.render(TRUE, TRUE);
}

unsigned VrmlScene::NewContext() {
    SetUpCoin();
    return SoGLCacheContextElement::getUniqueCacheContext();
}

QColor VrmlScene::Background() const { return coin_->Sky; }

}  // namespace crownlab
