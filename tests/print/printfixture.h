#pragma once

#include "frame/startup.h"
#include "platform/printer/printer.h"
#include "print/player.h"
#include "print/script.h"
#include "store/mainfile.h"

#include <QImage>
#include <QPainter>

namespace vorel::test {

// A printer that keeps what its jobs are given: a picture of each sheet, at 96 dots to the inch.
struct FakeJobs {
    struct Document {
        QString printer;
        int copies = 0;
        bool ended = false;
        std::vector<QImage> sheets;
    };
    std::vector<std::shared_ptr<Document>> documents;
    bool isGone = false;                    // the printer has been switched off
    QList<int> sheetCounts() const;         // of the documents that were ended
};

// Whether a picture has ink in the field, in twips of the page, with so many pixels to a twip.
bool hasInk(const QImage &image, double scale, const QRectF &twips);

// A preview without a window, 1,200 x 800 pixels: what the user does is scripted beforehand.
class FakePreview : public PreviewScreen {
public:
    explicit FakePreview(PrintJob &job);
    ~FakePreview() override;
    printer::Page &Page() override { return m_page; }
    double ScreenWidth() const override { return 1200 * printer::twipsPerPixel; }
    double ScreenHeight() const override { return 800 * printer::twipsPerPixel; }
    double ControlHeight() const override { return 40 * printer::twipsPerPixel; }
    void PageSized() override;
    void ClearPage() override;
    void setPageLabel(const QString &text) override { label = text; }
    void ShowPage() override { ++pagesShown; }
    void ShowModal() override;

    // The ink between two places of the page, in twips of the printer.
    bool hasInk(const QRectF &twips) const { return test::hasInk(image, player.PreviewScale / 15, twips); }
    PrintJob &job;
    PrintPlayer &player;
    QString label;
    int pagesShown = 0;
    QImage image;

    static std::function<void(FakePreview &)> whileOpen;
    static int opened;

private:
    printer::Page m_page;
    QPainter m_painter;
};

// A program folder with a main file, the fake printer (Letter) and the fake preview.
class PrintTest : public MainFileTest {
protected:
    PrintTest();
    ~PrintTest() override;

    void useNoPrinter() { printer::setHardware({}); }
    // What the user does in the next preview; a report that opens none fails.
    int previewed(const std::function<void()> &report, const std::function<void(FakePreview &)> &work = {});
    // The script as it was in the preview: its lines without the header.
    QStringList script(const std::function<void()> &report);
    // The report as PDF, read back page by page, blanks within a line made one.
    QStringList pages(const std::function<void()> &report);
    void writeScript(const QStringList &lines) { m_folder.write(u"S.TMP"_s, lines.join(u"\r\n"_s).toUtf8()); }
    QString scriptPath() const { return m_folder.path(u"S.TMP"_s); }

    FakeJobs m_jobs;
};

// A word of a PDF with its box on the sheet, in twips.
struct Word { int page = 0; QString text; QRectF box; };
std::vector<Word> wordsOf(const QString &pdf);

QStringList readPdf(const QString &path);       // the text of each page

}
