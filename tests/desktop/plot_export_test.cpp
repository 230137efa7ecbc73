#include "desktop/plot_export.h"

#include <gmock/gmock.h>

#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QXmlStreamReader>
#include <filesystem>

#include "basis/failure.h"
#include "desktop/plot_page.h"
#include "plot_samples.h"
#include "support/expect_failure.h"
#include "support/ordinary_user.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

/// Sizes of the pages of a PDF in points.
std::vector<QSizeF> PagesOf(const QByteArray& pdf) {
    std::vector<QSizeF> pages;
    const QRegularExpression box("/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)\\]");
    for (auto found = box.globalMatch(QString::fromLatin1(pdf)); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        pages.emplace_back(match.captured(1).toDouble(), match.captured(2).toDouble());
    }
    return pages;
}

std::shared_ptr<PlotDocument> OneMap(double left, double top) {
    auto document = std::make_shared<PlotDocument>();
    document->Name = "Plot1";
    PlotMap map = MapAt(MapKind::Image, LevelGrid(1), left, top);
    HideAxes(map);
    document->Shapes.emplace_back(map);
    return document;
}

TEST(PlotExport, APdfIsOnePageAsLargeAsTheDrawing) {
    const auto sheet = CrownSheet();
    const QByteArray pdf = PlotAsPdf(*sheet);
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    EXPECT_TRUE(pdf.trimmed().endsWith("%%EOF"));
    const std::vector<QSizeF> pages = PagesOf(pdf);
    ASSERT_EQ(pages.size(), 1U);
    const QSizeF size = SavedSize(*sheet);
    EXPECT_NEAR(pages[0].width(), size.width(), 1);
    EXPECT_NEAR(pages[0].height(), size.height(), 1);
    // Four maps to a row, 18 units apart, 15 wide.
    EXPECT_NEAR(size.width(), (3 * 18 + 15) * kPointsPerUnit + 40, 40);
}

TEST(PlotExport, AnEmptyDocumentIsItsPage) {
    PlotDocument empty;
    const std::vector<QSizeF> pages = PagesOf(PlotAsPdf(empty));
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_NEAR(pages[0].width(), 612, 1);
    EXPECT_NEAR(pages[0].height(), 792, 1);
}

TEST(PlotExport, APdfLongerThanReadersTakeIsMadeSmaller) {
    const auto sheet = OneMap(0, 20);
    sheet->Shapes.emplace_back(MapAt(MapKind::Relief, LevelGrid(1), 1500, 20));
    const std::vector<QSizeF> pages = PagesOf(PlotAsPdf(*sheet));
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_NEAR(pages[0].width(), 14400, 1);
    EXPECT_LT(pages[0].height(), 200);
}

TEST(PlotExport, APictureHas150DotsAnInch) {
    const auto sheet = OneMap(10, 20);
    const QImage picture = QImage::fromData(PlotAsPng(*sheet), "PNG");
    ASSERT_FALSE(picture.isNull());
    const QSizeF size = SavedSize(*sheet);
    EXPECT_NEAR(picture.width(), size.width() * 150 / 72, 1);
    EXPECT_NEAR(picture.height(), size.height() * 150 / 72, 1);
    EXPECT_NEAR(picture.dotsPerMeterX(), 5906, 2);
    // 10 points of white around the map.
    EXPECT_EQ(picture.pixelColor(10, 10), QColor(Qt::white));
    EXPECT_NE(picture.pixelColor(30, 30), QColor(Qt::white));
    EXPECT_NE(picture.pixelColor(picture.width() - 30, picture.height() - 30), QColor(Qt::white));
}

TEST(PlotExport, APictureOfAHugeSheetKeepsAMeasure) {
    const auto sheet = OneMap(0, 20);
    sheet->Shapes.emplace_back(MapAt(MapKind::Relief, LevelGrid(1), 400, -300));
    const QImage picture = QImage::fromData(PlotAsPng(*sheet), "PNG");
    ASSERT_FALSE(picture.isNull());
    EXPECT_LT(static_cast<double>(picture.width()) * picture.height(), 30.1e6);
    EXPECT_GT(static_cast<double>(picture.width()) * picture.height(), 29e6);
    sheet->Shapes.emplace_back(MapAt(MapKind::Relief, LevelGrid(1), 100000, 0));
    const QImage strip = QImage::fromData(PlotAsPng(*sheet), "PNG");
    EXPECT_LE(strip.width(), 16000);
}

TEST(PlotExport, SvgIsXmlWithTheTextsAndLines) {
    const auto sheet = CrownSheet();
    const QByteArray svg = PlotAsSvg(*sheet);
    QXmlStreamReader reader(svg);
    QString words;
    int lines = 0;
    int pictures = 0;
    QString box;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::Characters) words += reader.text();
        if (!reader.isStartElement()) continue;
        if (reader.name() == QLatin1String("svg")) box = reader.attributes().value("viewBox").toString();
        lines += reader.name() == QLatin1String("polyline") || reader.name() == QLatin1String("path") ? 1 : 0;
        pictures += reader.name() == QLatin1String("image") ? 1 : 0;
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    for (const char* const label : {"m1.grd", "m4.grd", "m8.grd"}) EXPECT_TRUE(words.contains(label)) << label;
    EXPECT_GT(lines, 50);
    EXPECT_GE(pictures, 7) << "a picture for each map that has more than lines";
    const QStringList sides = box.split(' ');
    ASSERT_EQ(sides.size(), 4);
    EXPECT_NEAR(sides[2].toDouble(), SavedSize(*sheet).width(), 0.01);
}

/// What an independent reader makes of a PDF, 72 pixels an inch.
QImage Rendered(const TempFolder& folder, const PlotDocument& document) {
    SavePlot(document, folder / "sheet.pdf");
    QProcess reader;
    reader.setProcessChannelMode(QProcess::MergedChannels);
    reader.start("gdal_translate",
                 {"-q", "-of", "PNG", "--config", "GDAL_PDF_DPI", "72", QString::fromStdString(folder / "sheet.pdf"),
                  QString::fromStdString(folder / "sheet.png")});
    constexpr int longest = 60000;  // milliseconds
    EXPECT_TRUE(reader.waitForFinished(longest)) << reader.errorString().toStdString();
    EXPECT_EQ(reader.exitCode(), 0) << reader.readAll().toStdString();
    return QImage(QString::fromStdString(folder / "sheet.png")).convertToFormat(QImage::Format_RGB32);
}

QColor ColourNear(const QImage& picture, const QRectF& part, double x, double y) {
    const QPointF at = OnDrawing(x, y) - part.topLeft();
    return picture.pixelColor(at.toPoint());
}

/// Two levels side by side, two pages apart.
std::shared_ptr<PlotDocument> TwoLevels() {
    auto document = OneMap(10, 20);
    auto& low = std::get<PlotMap>(document->Shapes[0]);
    low.Heights = {.Low = 1, .High = 2};
    PlotMap high = MapAt(MapKind::Image, LevelGrid(2), 50, -10);
    high.Heights = {.Low = 1, .High = 2};
    HideAxes(high);
    document->Shapes.emplace_back(high);
    return document;
}

void ExpectTwoLevels(const QImage& picture) {
    ASSERT_FALSE(picture.isNull());
    // The maps' corners, with 10 points of white around.
    const QRectF part(OnDrawing(10, 20) - QPointF(10, 10), OnDrawing(65, -20) + QPointF(10, 10));
    EXPECT_NEAR(picture.width(), part.width(), 2);
    EXPECT_NEAR(picture.height(), part.height(), 2);
    const QColor low(68, 1, 84);
    const QColor high(253, 231, 37);
    const QColor paper(Qt::white);
    const auto near = [&](double x, double y, const QColor& expected) {
        const QColor found = ColourNear(picture, part, x, y);
        EXPECT_NEAR(found.red(), expected.red(), 4) << x << " " << y;
        EXPECT_NEAR(found.green(), expected.green(), 4) << x << " " << y;
        EXPECT_NEAR(found.blue(), expected.blue(), 4) << x << " " << y;
    };
    near(10.2, 19.8, low);
    near(24.8, 10.2, low);
    near(25.2, 15, paper);
    near(12, 9.8, paper);
    near(50.2, -10.2, high);
    near(64.8, -19.8, high);
    near(49.8, -15, paper);
    near(60, -9.8, paper);
}

TEST(PlotExport, EveryFormShowsTheMapsWhereTheyStand) {
    const TempFolder folder;
    ExpectTwoLevels(Rendered(folder, *TwoLevels()));
    const QSize size = SavedSize(*TwoLevels()).toSize();
    QImage drawn(size, QImage::Format_RGB32);
    drawn.fill(Qt::white);
    QPainter painter(&drawn);
    QSvgRenderer svg(PlotAsSvg(*TwoLevels()));
    EXPECT_TRUE(svg.isValid());
    svg.render(&painter);
    painter.end();
    ExpectTwoLevels(drawn);
    ExpectTwoLevels(QImage::fromData(PlotAsPng(*TwoLevels())).scaled(size));
}

TEST(PlotExport, ASheetInEveryForm) {
    const TempFolder folder;
    const auto sheet = CrownSheet();
    KeepPicture(Rendered(folder, *sheet), "plot-sheet-from-pdf");
    KeepPicture(QImage::fromData(PlotAsPng(*sheet)), "plot-sheet-as-png");
    QImage drawn(SavedSize(*sheet).toSize(), QImage::Format_RGB32);
    drawn.fill(Qt::white);
    QPainter painter(&drawn);
    QSvgRenderer svg(PlotAsSvg(*sheet));
    svg.render(&painter);
    painter.end();
    KeepPicture(drawn, "plot-sheet-from-svg");
}

TEST(PlotExport, TheEndingSaysTheForm) {
    TempFolder folder;
    const auto sheet = OneMap(10, 20);
    SavePlot(*sheet, folder / "a.PDF");
    SavePlot(*sheet, folder / "a.svg");
    SavePlot(*sheet, folder / "a.Png");
    EXPECT_TRUE(FileBytes(folder / "a.PDF").starts_with("%PDF"));
    EXPECT_TRUE(FileBytes(folder / "a.svg").starts_with("<?xml"));
    EXPECT_TRUE(FileBytes(folder / "a.Png").starts_with("\x89PNG"));
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [&] { SavePlot(*sheet, folder / "a.bmp"); }));
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [&] { SavePlot(*sheet, folder / "a"); }));
}

TEST(PlotExport, AFailureLeavesTheOldFileAsItWas) {
    const TempFolder folder;
    const auto sheet = OneMap(10, 20);
    EXPECT_TRUE(FailsWith(FailureKind::PathNotFound, [&] { SavePlot(*sheet, folder / "gone/a.pdf"); }));
    std::filesystem::create_directory(folder / "locked");
    PutFile(folder / "locked/a.pdf", "old");
    std::filesystem::permissions(folder / "locked", std::filesystem::perms(0555));
    {
        const OrdinaryUser user(folder.Path());
        ASSERT_TRUE(user.Holds());
        EXPECT_TRUE(FailsWith(FailureKind::PermissionDenied, [&] { SavePlot(*sheet, folder / "locked/a.pdf"); }));
    }
    EXPECT_EQ(FileBytes(folder / "locked/a.pdf"), "old");
    std::filesystem::permissions(folder / "locked", std::filesystem::perms::all);
}

TEST(PlotPrint, FitsTheSheetOnAPage) {
    TempFolder folder;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(folder / "print.pdf"));
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageOrientation(QPageLayout::Landscape);
    ASSERT_TRUE(PrintPlot(*CrownSheet(), printer));
    const std::string pdf = FileBytes(folder / "print.pdf");
    const std::vector<QSizeF> pages = PagesOf(QByteArray::fromStdString(pdf));
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_NEAR(pages[0].width(), 842, 1);
    EXPECT_NEAR(pages[0].height(), 595, 1);
}

TEST(PlotPrint, SaysWhenThePrinterCannotBeHad) {
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName("/nowhere/at/all/print.pdf");
    EXPECT_FALSE(PrintPlot(*OneMap(1, 20), printer));
}

}  // namespace
}  // namespace crownlab
