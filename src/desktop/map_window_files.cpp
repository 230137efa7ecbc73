// Files of the map window: grids, points, pictures, and what is asked before points are lost.
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>

#include "basis/failure.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "desktop/map_points_panel.h"
#include "desktop/map_window.h"
#include "desktop/shown_text.h"

namespace crownlab {
namespace {

constexpr int kNoteTime = 6000;  // milliseconds

/// A box that goes away by itself when it was answered, and blocks this window alone.
QMessageBox* MakeBox(QWidget* over, QMessageBox::Icon icon, const QString& text) {
    auto* const box = new QMessageBox(icon, "Map", text, QMessageBox::NoButton, over);
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    return box;
}

/// The same for a file dialog, which then hands the chosen file on.
template <typename Act>
void AskForFile(QWidget* over, QFileDialog::AcceptMode mode, const QString& title, const QString& start,
                const QString& filter, Act act) {
    const QFileInfo at(start);
    auto* const dialog = new QFileDialog(over, title, at.absolutePath(), filter);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(mode);
    dialog->setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    if (mode == QFileDialog::AcceptSave) dialog->selectFile(at.fileName());
    QObject::connect(dialog, &QFileDialog::fileSelected, over, act);
    dialog->open();
}

QString ReasonText(const Failure& failure) {
    switch (failure.Kind()) {
        case FailureKind::PermissionDenied: return "it can't be written there";
        case FailureKind::PathNotFound: return "there is no such folder";
        case FailureKind::DiskFull: return "the disk is full";
        case FailureKind::FileNotFound: return "there is no such file";
        default: return ShownText(failure.what());
    }
}

QString GridOf(const QMimeData& data) {
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile() && url.toLocalFile().endsWith(".grd", Qt::CaseInsensitive)) return url.toLocalFile();
    }
    return {};
}

}  // namespace

void MapWindow::Tell(const QString& sentence) {
    QMessageBox* const box = MakeBox(this, QMessageBox::Warning, sentence);
    box->setStandardButtons(QMessageBox::Ok);
    box->open();
}

void MapWindow::StartWait(const DigitiseOffer& offer) {
    const QFileInfo file(ShownText(offer.PointFile));
    proposed_ = offer.PointFile;
    pointsPanel_->SetTarget(file.absolutePath(), file.fileName());
    pointsPanel_->SetNotice(
        QString("A tool waits for points: set them, save them as %1, then press OK in its box.").arg(file.fileName()));
    if (surface_) ShowView(view_);
    UseTool(MapTool::Digitise);
    ListPoints();
}

void MapWindow::EndWait() { pointsPanel_->SetNotice({}); }

std::string MapWindow::TargetPath() const {
    const QString name = pointsPanel_->FileName();
    if (QFileInfo(name).isAbsolute()) return RecordText(name);
    return JoinPath(RecordText(pointsPanel_->Folder()), RecordText(name));
}

void MapWindow::SavePoints() {
    if (points_.Count() == 0) return;
    if (pointsPanel_->FileName().isEmpty()) return Tell("The points need a file name.");
    const std::string path = TargetPath();
    if (path == proposed_ || !IsFile(path)) {
        WritePoints(path);
        return;
    }
    QMessageBox* const box =
        MakeBox(this, QMessageBox::Question, QString("%1 is there already. Replace it?").arg(pointsPanel_->FileName()));
    box->addButton(QMessageBox::Cancel);
    QPushButton* const replace = box->addButton("Replace", QMessageBox::AcceptRole);
    box->setDefaultButton(replace);
    connect(replace, &QPushButton::clicked, this, [this, path] { WritePoints(path); });
    box->open();
}

bool MapWindow::WritePoints(const std::string& path) {
    try {
        WriteWholeFile(files_, path, DigitisedText(points_.Areas()));
    } catch (const Failure& failure) {
        Tell(QString("The points weren't saved in %1: %2.\n\nThey are still on the map.")
                 .arg(ShownText(path), ReasonText(failure)));
        return false;
    }
    proposed_ = path;
    points_.MarkSaved();
    ListPoints();
    const auto count = points_.Count();
    statusBar()->showMessage(
        QString("%1 %2 saved in %3").arg(count).arg(count == 1 ? "point" : "points", ShownText(path)), kNoteTime);
    return true;
}

void MapWindow::WhenPointsAreSafe(const std::function<void()>& then) {
    if (points_.IsSaved()) return then();
    if (question_ != nullptr) return question_->raise();
    question_ = MakeBox(this, QMessageBox::Question, "There are points that aren't saved.");
    question_->setInformativeText(QString("Save them in %1?").arg(pointsPanel_->FileName()));
    question_->setStandardButtons(QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    question_->setDefaultButton(QMessageBox::Save);
    connect(question_, &QMessageBox::buttonClicked, this,
            [this, then, box = question_.data()](QAbstractButton* pressed) {
                const QMessageBox::StandardButton answer = box->standardButton(pressed);
                if (answer == QMessageBox::Cancel) return;
                if (answer == QMessageBox::Save && !WritePoints(TargetPath())) return;
                if (answer == QMessageBox::Discard) points_.MarkSaved();
                then();
            });
    question_->open();
}

bool MapWindow::MayClose() {
    if (points_.IsSaved()) return true;
    // Once the question's own event is over.
    WhenPointsAreSafe([this] { QTimer::singleShot(0, this, SLOT(close())); });
    return false;
}

void MapWindow::OpenOrTell(const QString& path) {
    WhenPointsAreSafe([this, path] {
        const QString problem = OpenGrid(RecordText(path));
        if (!problem.isEmpty()) Tell(problem);
    });
}

void MapWindow::OpenPoints(const QString& path) {
    WhenPointsAreSafe([this, path] {
        try {
            points_.Reset(ReadPointFile(RecordText(path)));
        } catch (const Failure& failure) {
            return Tell(QString("%1 wasn't read: %2.").arg(path, ReasonText(failure)));
        }
        const QFileInfo file(path);
        proposed_ = RecordText(path);
        pointsPanel_->SetTarget(file.absolutePath(), file.fileName());
        PointsMoved();
    });
}

void MapWindow::AskForGrid() {
    AskForFile(this, QFileDialog::AcceptOpen, "Open grid", ShownText(gridPath_), "Grids (*.grd *.GRD);;All files (*)",
               [this](const QString& path) { OpenOrTell(path); });
}

void MapWindow::AskForPoints() {
    AskForFile(this, QFileDialog::AcceptOpen, "Open points", ShownText(gridPath_), "Points (*.dat);;All files (*)",
               [this](const QString& path) { OpenPoints(path); });
}

void MapWindow::AskForPicture() {
    const QFileInfo grid(ShownText(gridPath_));
    AskForFile(this, QFileDialog::AcceptSave, "Save picture",
               grid.absolutePath() + "/" + grid.completeBaseName() + ".png", "Pictures (*.png)",
               [this](const QString& path) { SavePicture(path); });
}

void MapWindow::SavePicture(const QString& path) {
    const QPixmap picture = pages_->currentWidget()->grab();
    if (!picture.save(path, "PNG")) Tell(QString("The picture wasn't saved in %1.").arg(path));
}

void MapWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!GridOf(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MapWindow::dropEvent(QDropEvent* event) {
    const QString grid = GridOf(*event->mimeData());
    if (grid.isEmpty()) return;
    event->acceptProposedAction();
    OpenOrTell(grid);
}

}  // namespace crownlab
