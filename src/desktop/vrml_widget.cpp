#include "desktop/vrml_widget.h"

#include <QFileInfo>
#include <QLabel>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QStackedLayout>

#include "desktop/shown_text.h"
#include "desktop/vrml_canvas.h"

namespace crownlab {

VrmlWidget::VrmlWidget(QWidget* parent)
    : QWidget(parent), pages_(new QStackedLayout(this)), sentence_(new QLabel(this)) {
    sentence_->setAlignment(Qt::AlignCenter);
    sentence_->setTextFormat(Qt::PlainText);
    sentence_->setWordWrap(true);
    sentence_->setFrameShape(QFrame::StyledPanel);
    pages_->addWidget(sentence_);
    Say("No model is shown yet.");
}

bool VrmlWidget::CanDraw() {
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    if (!context.create() || !context.makeCurrent(&surface)) return false;
    const QSurfaceFormat format = context.format();
    context.doneCurrent();
    return !context.isOpenGLES() && format.profile() != QSurfaceFormat::CoreProfile;
}

bool VrmlWidget::LoadScene(const std::string& file) {
    if (file.empty()) {
        Say("No model is shown yet.");
        return false;
    }
    const bool canDraw = PrepareCanvas();
    VrmlScene unseen;
    const std::string problem = (canDraw ? canvas_->Scene() : unseen).Read(file);
    const QString name = QFileInfo(ShownText(file)).fileName();
    if (!problem.empty()) {
        Say(QStringLiteral("%1 isn't shown: it %2.").arg(name, ShownText(problem)));
        return false;
    }
    if (canDraw) {
        pages_->setCurrentWidget(canvas_);
        canvas_->update();
    } else {
        Say(QStringLiteral("%1 was written, but can't be shown: there is no OpenGL here.").arg(name));
    }
    return true;
}

bool VrmlWidget::ShowModel(SoSeparator& model, bool keepsView) {
    if (!PrepareCanvas()) {
        Say("The surface can't be shown: there is no OpenGL here.");
        return false;
    }
    if (keepsView) {
        canvas_->Scene().Replace(model);
    } else {
        canvas_->Scene().Show(model);
        canvas_->Fit();
    }
    pages_->setCurrentWidget(canvas_);
    canvas_->update();
    return true;
}

bool VrmlWidget::PrepareCanvas() {
    if (!CanDraw()) return false;
    if (canvas_ == nullptr) {
        // The window is made anew to be painted by OpenGL: it has to know its place to come back there.
        window()->setGeometry(window()->geometry());
        canvas_ = new VrmlCanvas(this);
        pages_->addWidget(canvas_);
    }
    return true;
}

void VrmlWidget::Fit() {
    if (canvas_ != nullptr) canvas_->Fit();
}

void VrmlWidget::Approach(double factor) {
    if (canvas_ == nullptr) return;
    canvas_->Scene().Approach(factor);
    canvas_->update();
}

QString VrmlWidget::Sentence() const { return pages_->currentWidget() == sentence_ ? sentence_->text() : QString(); }

void VrmlWidget::Say(const QString& sentence) {
    sentence_->setText(sentence);
    pages_->setCurrentWidget(sentence_);
}

}  // namespace crownlab
