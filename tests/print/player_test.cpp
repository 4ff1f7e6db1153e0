#include "platform/basic/error.h"
#include "print/output.h"
#include "print/printfixture.h"
#include "print/scriptfile.h"
#include "support/table.h"

#include <QRegularExpression>

namespace vorel {

using test::errorOf;
using test::FakePreview;
using namespace Qt::StringLiterals;

class PlayerTest : public test::PrintTest {
protected:
    std::unique_ptr<PrintJob> m_job;        // the latest
    static QStringList threePages()
    {
        return {u"' a comment"_s, u"ORIENTATION = 1"_s, u"SCALEMODE = 1"_s, u"FONTNAME = \"Arial\""_s, u"FONTSIZE = 10"_s,
                u"LPRINT 100,100, \"One\""_s, u"NEWPAGE"_s, u"LPRINT 100,100, \"Two\""_s, u"newpage "_s,
                u"LPRINT 100,100, \"Three\""_s, u"ENDDOC"_s};
    }
    void play(const QString &target, const std::function<void(FakePreview &)> &work = {})
    {
        previewed([&] {
            m_job = std::make_unique<PrintJob>();
            m_job->player().RunPrintScript(scriptPath(), {QString()}, target);
        }, work);
    }
    // The pages as they are read back from a file, without blank lines.
    QStringList read(const QStringList &lines)
    {
        writeScript(lines);
        QStringList texts = pages([&] { PrintJob().player().RunPrintScript(scriptPath(), {u"table"_s, u"second"_s}, u"SCREEN"_s); });
        static const QRegularExpression blankLines(u"\n+"_s);
        for (QString &text : texts)
            text.replace(blankLines, u"\n"_s);
        return texts;
    }
};

TEST_F(PlayerTest, TextLinesAreRead)
{
    const std::vector<QString> table{u"zero"_s, u"one"_s};
    test::forEachRow("player", "texts", [&table](const test::Row &row) {
        const TextLine parsed = parseTextLine(row["line"], table);
        EXPECT_EQ(parsed.x, row.real("x"));
        EXPECT_EQ(parsed.y, row.real("y"));
        EXPECT_EQ(parsed.text, row["text"]);
    });
    for (const QString &entry : {u"[2]"_s, u"[-1]"_s, u"[99999999999]"_s})
        EXPECT_EQ(errorOf([&] { parseTextLine(u"LPRINT 1,2, "_s + entry, table); }), 9) << qPrintable(entry);
}

TEST_F(PlayerTest, LinesAndPicturesAreRead)
{
    DrawnLine line = parseDrawnLine(u"LINE (1,2)-STEP(3,-4),255,bf"_s);
    EXPECT_EQ((QList<double>{line.x1, line.y1, line.x2, line.y2}), (QList<double>{1, 2, 3, -4}));
    EXPECT_TRUE(line.step);
    EXPECT_EQ(line.colour, 255);
    EXPECT_EQ(line.flag, u"BF"_s);
    line = parseDrawnLine(u"LINE (1,2)-(3,4),,"_s);
    EXPECT_FALSE(line.step || line.colour || !line.flag.isEmpty());
    for (const QString &broken : {u"LINE"_s, u"LINE (1"_s, u"LINE (1,2)-("_s, u"LINE )(,,,"_s, u"LINE (a,b)-(c,d),e,f"_s})
        EXPECT_EQ(parseDrawnLine(broken).x2, 0) << qPrintable(broken);
    for (const QString &form : {u"PAINTPICTURE [c:\\a.jpg](10)<20 30,40,"_s, u"PAINTPICTURE [c:\\a.jpg](10)<20>"_s}) {
        const PictureLine picture = parsePictureLine(form);
        EXPECT_EQ(picture.path, u"c:\\a.jpg"_s);
        EXPECT_EQ(picture.x + picture.y * 1000, 20010);
    }
    EXPECT_EQ(parseQuoted(u"FONTNAME = \"Arial"_s), u"Arial"_s);
    EXPECT_EQ(parseSetting(u"FONTSIZE"_s), 0);
    EXPECT_EQ(FirstWord(u"LPrint 1,2"_s) + FirstWord(u"enddoc"_s), u"LPRINTENDDOC"_s);
}

TEST_F(PlayerTest, DamagedScriptsShowWhatTheyHold)
{
    EXPECT_EQ(read({u"LPRINT 100,100, \"before\""_s, u"DANCE 3"_s, u"FONTSIZE = huge"_s, u"FONTNAME = "_s, u"SCALEMODE = 42"_s,
                    u"ORIENTATION = x"_s, u"FORECOLOR = -7"_s, u"DRAWMODE = 1E30"_s, u"DRAWSTYLE = -1"_s, u"LINE (,)-(,),,Q"_s,
                    u"LPRINT 1E30,-1E30, \"far\""_s, u"   "_s, u"FONTSIZE = 12"_s, u"DRAWMODE = 13"_s,
                    u"  LPRINT 100,2000, [1] "_s}),
              QStringList{u"before\nsecond\n"_s});
    // The index of the pages and the player agree on what a NEWPAGE line is: behind a no-break space it is a word of no meaning.
    EXPECT_EQ(read({u"LPRINT 100,100, \"one\""_s, u"\u00a0NEWPAGE"_s, u"LPRINT 100,1000, \"still one\""_s, u" \tnewPage "_s,
                    u"LPRINT 100,100, \"two\""_s}), (QStringList{u"one\nstill one\n"_s, u"two\n"_s}));
    m_folder.write(u"S.TMP"_s, "\xef\xbb\xbfNEWPAGE\r\n\xc2\xa0NEWPAGE\r\nNEWPAGE\xc2\xa0\r\nLPRINT 1,1, \"end\"");
    PrintScriptFile marked;
    ASSERT_TRUE(marked.open(scriptPath()));
    int turned = 0;
    marked.seekPage(0);
    while (const std::optional<QString> line = marked.nextLine())
        turned += FirstWord(*line) == u"NEWPAGE";
    EXPECT_EQ(marked.pages(), turned + 1);
    EXPECT_EQ(read({}), QStringList{QString()});
    EXPECT_EQ(read({u"ENDDOC"_s, u"LPRINT 1,1, \"behind the end\""_s}), QStringList{QString()});
    m_folder.write(u"S.TMP"_s, QByteArray("LPRINT 100,100, \"\xff\xfe\0ok\"\nNEWPAGE\n", 30));
    EXPECT_EQ(pages([&] { PrintJob().player().RunPrintScript(scriptPath(), {}, u"SCREEN"_s); }).size(), 1);
}

TEST_F(PlayerTest, MissingScriptEndsSilently)
{
    EXPECT_EQ(previewed([&] { PrintJob().player().RunPrintScript(m_folder.path(u"NONE.TMP"_s), {}, u"SCREEN"_s); }), 0);
    EXPECT_EQ(previewed([&] { PrintJob().player().RunPrintScript({}, {}, u"SCREEN"_s); }), 0);
    EXPECT_FALSE(m_job && m_job->player().preview());
}

TEST_F(PlayerTest, WrongTableEntryIsToldAndNothingStaysOpen)
{
    writeScript({u"LPRINT 1,1, [7]"_s});
    EXPECT_EQ(errorOf([&] { play(u"SCREEN"_s); }), 9);
    EXPECT_FALSE(m_job && m_job->player().preview());
    writeScript({u"LPRINT 1,1, \"printed\""_s, u"LPRINT 1,1, [7]"_s});
    EXPECT_EQ(errorOf([&] { play(u"PRINTER"_s); }), 9);
    EXPECT_EQ(m_jobs.sheetCounts(), QList<int>{});
    EXPECT_FALSE(m_job->device().isPrinting());
}

TEST_F(PlayerTest, PagesAreTurned)
{
    writeScript(threePages());
    play(u"SCREEN"_s, [this](FakePreview &screen) {
        const struct { int index; QString box; int page; } moves[] = {
            {2, {}, 1}, {2, {}, 2}, {2, {}, 2}, {1, {}, 1}, {0, {}, 0}, {1, {}, 0}, {3, {}, 2}, {4, u"0"_s, 0}, {4, u"2"_s, 1},
            {4, u"text"_s, 0}, {4, QString(), 0}, {4, u"99"_s, 2}, {4, u"1E99"_s, 2}, {7, {}, 2}};
        EXPECT_EQ(screen.label, u"Page 1 of 3"_s);
        for (const auto &move : moves) {
            m_job->player().MovePage(move.index, move.box);
            EXPECT_EQ(m_job->player().CurrentPage, move.page);
            EXPECT_EQ(screen.label, u"Page %1 of 3"_s.arg(move.page + 1));
            EXPECT_TRUE(screen.hasInk({100, 100, 600, 230}));
        }
    });
    EXPECT_FALSE(QFile::exists(scriptPath()));      // a ".TMP" goes with the preview
}

TEST_F(PlayerTest, BoundsOfThePrintedPages)
{
    const struct { int first, last; QList<int> sheets; } cases[] = {
        {1, 0, {3}}, {2, 2, {1}}, {1, 2, {2}}, {3, 99, {1}}, {3, 1, {1}}, {0, 0, {3}}, {9, 9, {}}};
    for (const auto &one : cases) {
        writeScript(threePages());
        m_jobs.documents.clear();
        play(u"SCREEN"_s, [&](FakePreview &) {
            m_job->player().FirstPrintPage = one.first;
            m_job->player().LastPrintPage = one.last;
            printPages(*m_job);
        });
        EXPECT_EQ(m_jobs.sheetCounts(), one.sheets) << one.first << " to " << one.last;
    }
    writeScript(threePages());
    play(u"PRINTER"_s);
    EXPECT_EQ(m_jobs.sheetCounts(), QList<int>{3});
    EXPECT_TRUE(QFile::exists(scriptPath()));
}

TEST_F(PlayerTest, BookletPrintsOddPagesThenEven)
{
    for (const bool even : {true, false}) {
        writeScript(threePages());
        m_jobs.documents.clear();
        m_prompts.expect(u"Take out your Odd Printouts and re-align them in your Printer so the Even pages can be printed!"_s,
                         even ? basic::Answer::Yes : basic::Answer::No);
        play(u"SCREEN"_s, [this](FakePreview &) { printBooklet(*m_job); });
        EXPECT_EQ(m_jobs.sheetCounts(), even ? (QList<int>{1, 1, 1}) : (QList<int>{1, 1}));
        EXPECT_EQ(m_job->player().LastPrintPage, even ? 2 : 3);
        EXPECT_EQ(m_prompts.shown().back().title, u"Booklet Printing"_s);
        EXPECT_EQ(m_prompts.shown().back().icon, basic::Icon::Critical);
    }
}

TEST_F(PlayerTest, WithoutPrinterThePagesAreSaved)
{
    useNoPrinter();
    EXPECT_TRUE(PrinterReady());
    writeScript(threePages());
    const QString path = m_folder.path(u"saved"_s);
    m_prompts.expect(u"There is no printer on this machine. Save the pages as PDF instead?"_s, basic::Answer::Yes);
    m_prompts.expectFile({}, path);
    play(u"SCREEN"_s, [this](FakePreview &) { printPages(*m_job); });
    EXPECT_EQ(test::readPdf(path + u".pdf"_s), (QStringList{u"One\n"_s, u"Two\n"_s, u"Three\n"_s}));
    writeScript(threePages());
    m_prompts.expect(u"There is no printer on this machine."_s, basic::Answer::Yes);
    m_prompts.expectFile({}, path);
    play(u"SCREEN"_s, [this](FakePreview &screen) {
        screen.player.FirstPrintPage = screen.player.LastPrintPage = 2;
        EXPECT_EQ(chosenPages(screen.job), u"page 2"_s);
        printPages(*m_job);
    });
    EXPECT_EQ(test::readPdf(path + u".pdf"_s), QStringList{u"Two\n"_s});
}

TEST_F(PlayerTest, PrinterWithoutAPageIsTold)
{
    class Broken : public printer::Hardware {
        QString name() const override { return u"Broken"_s; }
        printer::Paper paper() const override { return {}; }
        std::unique_ptr<printer::Job> start(const printer::JobSettings &) override { return nullptr; }
    };
    printer::setHardware([](const QString &) { return std::make_shared<Broken>(); });
    m_prompts.expect(u"There is an error communicating with the Printer"_s);
    EXPECT_FALSE(PrinterReady());
}

TEST_F(PlayerTest, MailPassReadsAlone)
{
    writeScript({u"SCALEMODE = 6"_s, u"FONTNAME = \"Courier New\""_s, u"FONTSIZE = 23"_s, u"FONTBOLD = TRUE"_s,
                 u"LPRINT 1,1, \"not drawn\""_s, u"NEWPAGE"_s, u"FONTSIZE = 24"_s, u"ENDDOC"_s});
    play(u"EMAIL"_s);
    EXPECT_EQ(m_jobs.documents.size(), 0u);
    EXPECT_EQ(m_job->device().FontSize(), 24);
    EXPECT_EQ(m_job->device().FontName(), u"Courier New"_s);
}

TEST_F(PlayerTest, ScreenAndPaperShowTheSame)
{
    writeScript({u"ORIENTATION = 1"_s, u"SCALEMODE = 1"_s, u"FONTNAME = \"Arial\""_s, u"FONTSIZE = 20"_s,
                 u"LPRINT 1000,1000, \"Left\""_s, u"CPRINT 5000,3000, \"Middle\""_s, u"RPRINT 9000,5000, \"Right\""_s,
                 u"LINE (1000,7000)-STEP(4000,2000),12,BF"_s});
    play(u"SCREEN"_s, [this](FakePreview &screen) {
        printPages(*m_job);
        const QImage paper = m_jobs.documents.back()->sheets.at(0);
        // Fields of a quarter inch: what is inked here is inked there, however large the page is shown.
        for (const double zoom : {1.0, 0.6, 1.7}) {
            m_job->player().zoomPreview(zoom);
            int differing = 0, inked = 0;
            for (int row = 0; row < 26; ++row) {
                for (int column = 0; column < 28; ++column) {
                    const QRectF field(column * 360, row * 360, 360, 360);
                    const bool onPaper = test::hasInk(paper, 1 / printer::twipsPerPixel, field);
                    inked += onPaper;
                    differing += onPaper && !screen.hasInk(field.adjusted(-30, -30, 30, 30));
                }
            }
            EXPECT_GT(inked, 40);
            EXPECT_EQ(differing, 0) << zoom;
        }
    });
}

TEST_F(PlayerTest, PicturesAreNotScaledOnTheScreen)
{
    QImage dark(100, 100, QImage::Format_RGB32);
    dark.fill(Qt::black);
    const QString file = m_folder.path(u"dark.png"_s);
    ASSERT_TRUE(dark.save(file));
    writeScript({u"SCALEMODE = 1"_s, u"PAINTPICTURE ["_s + file + u"](3000)<1500>"_s});
    play(u"SCREEN"_s, [this](FakePreview &screen) {
        const double scale = m_job->player().PreviewScale;
        EXPECT_GT(scale, 1.2);
        const auto isDark = [&](double x, double y) {
            const QPointF place = (QPointF(x, y) + QPointF(360, 360) * scale) / 15;
            return qGray(screen.image.pixel(static_cast<int>(place.x()), static_cast<int>(place.y()))) < 128;
        };
        EXPECT_TRUE(isDark(3030, 1530) && isDark(4470, 2970));
        EXPECT_FALSE(isDark(2970, 1530) || isDark(4530, 2970));
    });
    // A drawing takes time and memory without limit, whatever its file is called.
    m_folder.write(u"dark.png"_s, "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><rect width='9' height='9'/></svg>");
    writeScript({u"PAINTPICTURE ["_s + file + u"](3000)<1500>"_s});
    EXPECT_EQ(errorOf([&] { play(u"SCREEN"_s); }), 481);
    QFile::remove(file);
    writeScript({u"PAINTPICTURE ["_s + file + u"](3000)<1500>"_s});
    EXPECT_EQ(errorOf([&] { play(u"SCREEN"_s); }), 53);
}

TEST_F(PlayerTest, FontsOfSkippedPagesAreNotSet)
{
    writeScript({u"SCALEMODE = 1"_s, u"FONTSIZE = 30"_s, u"LPRINT 1,1, \"a\""_s, u"NEWPAGE"_s, u"FONTSIZE = 10"_s, u"NEWPAGE"_s,
                 u"LPRINT 1,1, \"c\""_s});
    play(u"SCREEN"_s, [this](FakePreview &screen) {
        const auto shownSize = [this, &screen] { return screen.Page().FontSize() / m_job->player().PreviewScale; };
        m_job->player().MovePage(3);
        EXPECT_NEAR(shownSize(), 30, 1e-6);
        m_job->player().zoomPreview(2);
        EXPECT_NEAR(shownSize(), 30, 1e-6);
        m_job->player().MovePage(1);
        m_job->player().MovePage(3);
        EXPECT_NEAR(shownSize(), 10, 1e-6);
    });
}

TEST_F(PlayerTest, LandscapeOverflowsTheWindow)
{
    writeScript({u"ORIENTATION = 2"_s, u"LPRINT 1,1, \"wide\""_s});
    play(u"SCREEN"_s, [this](FakePreview &screen) {
        EXPECT_NEAR(screen.Page().Height(), (800 * 15 - 40 * 15 - 400) * 1.8, 1);
        EXPECT_NEAR(screen.Page().Width() / screen.Page().Height(), 11 / 8.5, 0.001);
    });
    writeScript({u"ORIENTATION = 1"_s});
    play(u"SCREEN"_s, [this](FakePreview &screen) { EXPECT_NEAR(screen.Page().Width(), 1200 * 15 - 350, 1); });
}

}
