#include "desktop/plot_export.h"

#include <QBuffer>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>

#include "basis/failure.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "basis/text.h"
#include "desktop/plot_page.h"
#include "desktop/plot_painter.h"
#include "desktop/shown_text.h"
#include "mapengine/plot_document.h"

namespace crownlab {
namespace {

constexpr double kPointsPerInch = 72;
constexpr double kMargin = 10;  // points of white around a saved drawing
constexpr double kPaperDots = 300;
/// Pictures in an SVG are letters of text: finer ones make files that programs open slowly.
constexpr double kSvgDots = 150;
constexpr double kPictureDots = 150;
constexpr double kMostDots = 30e6;
constexpr double kLongestSide = 16000;
/// Readers of PDF take pages of up to 200 inches.
constexpr double kLongestPage = 14400;

QRectF SavedPart(const PlotDocument& document) {
    const QRectF drawing = ExtentOf(document);
    return drawing.isNull() ? PageRectangle() : drawing.marginsAdded({kMargin, kMargin, kMargin, kMargin});
}

/// Draws the saved part with `scale` units of the painter a point, from the painter's origin.
void DrawSavedPart(QPainter& painter, const PlotDocument& document, double scale, double dotsPerInch) {
    const QRectF part = SavedPart(document);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    painter.translate(-part.topLeft());
    DrawPlot(painter, document, part, BodyForPaper(dotsPerInch));
}

void Begin(QPainter& painter, QPaintDevice& device, const char* form) {
    if (!painter.begin(&device)) throw Failure(FailureKind::InvalidCall, std::string("the plot as ") + form);
}

double PictureScale(const QSizeF& size) {
    return std::min({kPictureDots / kPointsPerInch, std::sqrt(kMostDots / (size.width() * size.height())),
                     kLongestSide / std::max(size.width(), size.height())});
}

std::string Ending(const std::string& path) {
    const std::size_t dot = path.find_last_of('.');
    return dot == std::string::npos ? std::string() : path.substr(dot + 1);
}

QByteArray PlotAs(const std::string& ending, const PlotDocument& document, const std::string& path) {
    if (EqualNoCase(ending, "pdf")) return PlotAsPdf(document);
    if (EqualNoCase(ending, "svg")) return PlotAsSvg(document);
    if (EqualNoCase(ending, "png")) return PlotAsPng(document);
    throw Failure(FailureKind::InvalidCall, path + ": a plot is saved as pdf, svg or png");
}

}  // namespace

QSizeF SavedSize(const PlotDocument& document) { return SavedPart(document).size(); }

QByteArray PlotAsPdf(const PlotDocument& document) {
    const QSizeF size = SavedSize(document);
    const double smaller = std::min(1.0, kLongestPage / std::max(size.width(), size.height()));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    constexpr int unitsPerInch = 1200;
    writer.setResolution(unitsPerInch);
    writer.setTitle(ShownText(document.Name));
    writer.setPageLayout(
        QPageLayout(QPageSize(size * smaller, QPageSize::Point, ShownText(document.Name), QPageSize::ExactMatch),
                    QPageLayout::Portrait, QMarginsF()));
    QPainter painter;
    Begin(painter, writer, "PDF");
    DrawSavedPart(painter, document, smaller * unitsPerInch / kPointsPerInch, kPaperDots);
    painter.end();
    return buffer.data();
}

QByteArray PlotAsSvg(const PlotDocument& document) {
    const QSizeF size = SavedSize(document);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(static_cast<int>(kPointsPerInch));
    generator.setSize(QSize(static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))));
    generator.setViewBox(QRectF(QPointF(0, 0), size));
    generator.setTitle(ShownText(document.Name));
    QPainter painter;
    Begin(painter, generator, "SVG");
    DrawSavedPart(painter, document, 1, kSvgDots);
    painter.end();
    return buffer.data();
}

QByteArray PlotAsPng(const PlotDocument& document) {
    const QSizeF size = SavedSize(document);
    const double scale = PictureScale(size);
    QImage image((size * scale).toSize().expandedTo({1, 1}), QImage::Format_RGB32);
    if (image.isNull()) throw Failure(FailureKind::OutOfMemory, "the plot as PNG");
    image.fill(Qt::white);
    constexpr double inchesPerMetre = 100 / 2.54;
    const int dotsPerMetre = static_cast<int>(std::lround(scale * kPointsPerInch * inchesPerMetre));
    QPainter painter;
    Begin(painter, image, "PNG");
    DrawSavedPart(painter, document, scale, scale * kPointsPerInch);
    painter.end();
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG")) throw Failure(FailureKind::OutOfMemory, "the plot as PNG");
    return buffer.data();
}

void SavePlot(const PlotDocument& document, const std::string& path) {
    const QByteArray bytes = PlotAs(Ending(path), document, path);
    // No handler's "close all files" can reach this file: it is closed before anything else runs.
    FileTable files;
    WriteWholeFile(files, path, std::string_view(bytes.data(), static_cast<std::size_t>(bytes.size())));
}

bool PrintPlot(const PlotDocument& document, QPrinter& printer) {
    const QSizeF size = SavedSize(document);
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    const QRectF paper = printer.pageLayout().paintRectPixels(printer.resolution());
    const double actual = printer.resolution() / kPointsPerInch;
    const double scale = std::min({actual, paper.width() / size.width(), paper.height() / size.height()});
    const QSizeF rest = QSizeF(paper.size()) - size * scale;
    painter.translate(rest.width() / 2, rest.height() / 2);
    DrawSavedPart(painter, document, scale, kPaperDots * scale / actual);
    return painter.end();
}

}  // namespace crownlab
