#include "platform/basic/error.h"
#include "platform/basic/locale.h"
#include "platform/printer/printer.h"
#include "support/testfolder.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <gtest/gtest.h>

namespace vorel::printer {

using namespace Qt::StringLiterals;

namespace {

constexpr Paper sheet{1440 * 8.5, 1440 * 11, 360, 360, 360, 360};

// A page with a picture to draw on: a pixel to 15 twips.
class Drawn {
public:
    Drawn() : image(816, 1056, QImage::Format_RGB32), page(sheet)
    {
        image.fill(Qt::white);
        painter.begin(&image);
        page.drawOn(&painter, 1 / twipsPerPixel);
        page.setFontName(u"Arial"_s);
    }
    // Where there is ink, in twips from the drawable corner.
    QRectF ink()
    {
        painter.end();
        QRect found;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (qGray(image.pixel(x, y)) < 160)
                    found |= QRect(x, y, 1, 1);
            }
        }
        return QRectF(found.x() * 15 - 360, found.y() * 15 - 360, found.width() * 15, found.height() * 15);
    }

    QImage image;
    QPainter painter;
    Page page;
};

}

TEST(Page, UnitsOfAllSevenScales)
{
    Page page(sheet);
    const double width = 1440 * 8 - 0, height = 1440 * 10.5;
    const struct { int mode; double x, y; } cases[] = {
        {1, 1, 1}, {2, 20, 20}, {3, 15, 15}, {4, 120, 240}, {5, 1440, 1440}, {6, 1440 / 25.4, 1440 / 25.4}, {7, 1440 / 2.54, 1440 / 2.54}};
    page.setCurrentX(2880);
    page.setCurrentY(1440);
    const double textTwips = page.TextWidth(u"Wide"_s);
    for (const auto &one : cases) {
        page.setScaleMode(one.mode);
        EXPECT_EQ(page.ScaleMode(), one.mode);
        EXPECT_NEAR(page.ScaleWidth(), width / one.x, 1e-6) << one.mode;
        EXPECT_NEAR(page.ScaleHeight(), height / one.y, 1e-6) << one.mode;
        EXPECT_NEAR(page.CurrentX(), 2880 / one.x, 1e-6) << one.mode;
        EXPECT_NEAR(page.CurrentY(), 1440 / one.y, 1e-6) << one.mode;
        EXPECT_NEAR(page.TextWidth(u"Wide"_s), textTwips / one.x, 1e-6) << one.mode;
    }
    page.setScaleMode(9);
    EXPECT_EQ(page.ScaleMode(), 7);
    page.setScaleWidth(100);
    EXPECT_EQ(page.ScaleMode(), 0);
    EXPECT_NEAR(page.ScaleWidth(), 100, 1e-9);
    page.setScaleWidth(0);
    EXPECT_NEAR(page.ScaleWidth(), 100, 1e-9);
    page.setScaleMode(1);
    page.setOrientation(Landscape);
    EXPECT_NEAR(page.ScaleWidth(), height, 1e-9);
    EXPECT_NEAR(page.Height(), sheet.width, 1e-9);
    page.setOrientation(3);
    EXPECT_EQ(page.Orientation(), Landscape);
}

TEST(Page, TextGrowsWithItsSizeAlone)
{
    Page page(sheet);
    page.setFontName(u"Arial"_s);
    for (const QString &text : {u"Invoice 12"_s, u"fine flour"_s, u"\u05d0\u05d1\u05d2 \u4e2d\u6587"_s, QString(10000, u'x')}) {
        page.setFontSize(10);
        const double width = page.TextWidth(text), height = page.TextHeight(text);
        EXPECT_GT(width, 100) << qPrintable(text.left(20));
        page.setFontSize(25);
        EXPECT_NEAR(page.TextWidth(text), width * 2.5, 1e-6 * width);
        EXPECT_NEAR(page.TextHeight(text), height * 2.5, 1e-6 * height);
    }
    page.setFontSize(10);
    EXPECT_GT(page.TextHeight(u"A"_s), 200);
    EXPECT_LT(page.TextHeight(u"A"_s), 300);
    const double plain = page.TextWidth(u"Bold"_s);
    page.setFontBold(true);
    EXPECT_GT(page.TextWidth(u"Bold"_s), plain);
    EXPECT_EQ(page.TextWidth({}), 0);
    for (const double wrong : {-5.0, 0.0, std::nan("")}) {
        page.setFontSize(wrong);
        EXPECT_GE(page.FontSize(), 1);
    }
}

TEST(Page, DrawsWhereItMeasures)
{
    Drawn text;
    text.page.setFontSize(36);
    text.page.setCurrentX(1440);
    text.page.setCurrentY(2880);
    text.page.Print(u"Hxfi"_s);
    const double width = text.page.TextWidth(u"Hxfi"_s), height = text.page.TextHeight(u"H"_s);
    const QRectF ink = text.ink();
    EXPECT_NEAR(ink.left(), 1440, 90);
    EXPECT_NEAR(ink.right(), 1440 + width, 90);
    EXPECT_GT(ink.top(), 2880);
    EXPECT_LT(ink.bottom(), 2880 + height);

    Drawn box;
    box.page.setScaleMode(Inches);
    box.page.Line(1, 2, 3, 5, QBColor(12), LineShape::FilledBox);
    EXPECT_EQ(box.page.CurrentX(), 3);
    EXPECT_EQ(box.image.pixelColor((1440 * 2 + 360) / 15, (1440 * 3 + 360) / 15), QColor(255, 0, 0));
    const QRectF boxInk = box.ink();
    EXPECT_NEAR(boxInk.left(), 1440, 30);
    EXPECT_NEAR(boxInk.bottom(), 5 * 1440, 30);

    Drawn picture;
    QImage dark(40, 20, QImage::Format_RGB32);
    dark.fill(Qt::black);
    picture.page.PaintPicture(dark, 1500, 3000);
    EXPECT_EQ(picture.ink(), QRectF(1500, 3000, 600, 300));

    Drawn nothing;
    nothing.page.DrawMode = 11;
    nothing.page.Circle(3000, 3000, 500);
    nothing.page.DrawMode = 13;
    nothing.page.Circle(1e300, -1e300, 1e300);
    nothing.page.setCurrentX(std::nan(""));
    nothing.page.Print(u"lost"_s);
    nothing.page.DrawStyle = 5;
    nothing.page.Line(1000, 1000, 2000, 2000);
    EXPECT_LT(nothing.ink().width(), 1500);
}

TEST(Printer, PaperFollowsTheRegionWhereThereIsNoPrinter)
{
    const basic::Regional before = basic::regional();
    const struct { QString region; double width, height; } cases[] = {{u"en_US"_s, 12240, 15840}, {u"de_DE"_s, 11906, 16838}};
    for (const auto &one : cases) {
        basic::setRegional(basic::regionalFor(one.region));
        setHardware({});
        EXPECT_EQ(Printer().Width(), one.width);
        EXPECT_EQ(Printer().Height(), one.height);
        EXPECT_GT(Printer().ScaleWidth(), 0);
        EXPECT_FALSE(Printer().hasHardware());
        try {
            Printer().Print(u"x"_s);
            ADD_FAILURE() << "printed without a printer";
        } catch (const basic::Error &error) {
            EXPECT_EQ(error.number(), 482);
        }
    }
    basic::setRegional(before);
    setHardware({});
}

TEST(Printer, PagesBecomeAFileOrNothing)
{
    const test::TestFolder folder;
    const QString path = folder.path(u"out.pdf"_s);
    Printer printer(nullptr);
    {
        const Printer::Redirection toFile(printer, [&](const JobSettings &settings) { return startPdf(path, settings); });
        printer.Print(u"Abandoned"_s);
        printer.KillDoc();
        EXPECT_FALSE(QFile::exists(path));
        printer.Print(u"First"_s);
        printer.NewPage();
        printer.NewPage();          // an empty sheet between
        printer.setOrientation(Landscape);
        printer.Print(u"Third \u05e9\u05dc\u05d5\u05dd"_s);
        printer.NewPage();          // and none behind the last
        printer.EndDoc();
        printer.EndDoc();           // nothing was drawn: no second document
    }
    QProcess reader;
    reader.start(u"pdftotext"_s, {path, u"-"_s});
    ASSERT_TRUE(reader.waitForFinished());
    const QString text = QString::fromUtf8(reader.readAllStandardOutput());
    EXPECT_EQ(text.count(u'\f'), 3);
    EXPECT_TRUE(text.section(u'\f', 0, 0).contains(u"First"_s));
    EXPECT_EQ(text.section(u'\f', 1, 1).trimmed(), QString());
    EXPECT_TRUE(text.section(u'\f', 2, 2).contains(u"Third"_s));

    const Printer::Redirection toNowhere(printer, [&](const JobSettings &settings) {
        return startPdf(folder.path(u"none/out.pdf"_s), settings);
    });
    try {
        printer.Print(u"x"_s);
        ADD_FAILURE();
    } catch (const basic::Error &error) {
        EXPECT_EQ(error.number(), 75);
        EXPECT_TRUE(error.text().contains(u"none/out.pdf"_s));
    }
    EXPECT_FALSE(printer.isPrinting());
}

}
