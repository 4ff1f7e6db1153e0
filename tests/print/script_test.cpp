#include "platform/basic/error.h"
#include "print/printfixture.h"
#include "print/report.h"

namespace vorel {

using basic::Value;
using test::errorOf;
using namespace Qt::StringLiterals;

class Script : public test::PrintTest {
protected:
    // What a report writes, with a scale of twips and the pen at 100, 200.
    QStringList lines(const std::function<void(PrintJob &)> &drawing)
    {
        QStringList all = script([&] {
            PrintJob job;
            job.SetPrintTarget(u"SCREEN"_s);
            job.SetScaleMode(1);
            job.SetCurrentX(100);
            job.SetCurrentY(200);
            drawing(job);
            m_lineHeight = job.GetTextHeight(u"A"_s);
            job.PrintEndDoc();
            EXPECT_EQ(job.GetCurrentX() + job.GetCurrentY(), 0);
        });
        EXPECT_EQ(all.takeFirst(), u"SCALEMODE = 1"_s);
        EXPECT_EQ(all.takeLast(), u"ENDDOC"_s);
        return all;
    }
    static double lineHeight(const PrintJob &job) { return job.GetTextHeight(u"A"_s); }
    double m_lineHeight = 0;
    static QString at(double x, double y) { return scriptNumber(x) + u',' + scriptNumber(y); }
};

TEST_F(Script, HeaderNamesTimeAndProgram)
{
    QByteArray content;
    previewed([] { PrintJob job; job.SetPrintTarget(u"SCREEN"_s); job.PrintEndDoc(); },
              [&](test::FakePreview &) { content = m_folder.read(u"PRINT.TMP"_s); });
    const QByteArray stars = "'" + QByteArray(62, '*') + "\r\n";
    EXPECT_EQ(content, stars + "'*      GENERATED: 11/22/2026 12:00:00\r\n'* SOURCE PROGRAM: Vorel Reminder\r\n" + stars + "ENDDOC\r\n");
    EXPECT_FALSE(QFile::exists(m_folder.path(u"PRINT.TMP"_s)));
}

TEST_F(Script, LinesOfEachOperation)
{
    const double x = 10, y = 20;
    const QString picture = m_folder.path(u"a.png"_s);
    QImage drawn(4, 3, QImage::Format_RGB32);
    drawn.fill(Qt::black);
    ASSERT_TRUE(drawn.save(picture));
    const struct { std::function<void(PrintJob &)> step; QString line; } cases[] = {
        {[](PrintJob &job) { job.SetFontName(u" Arial "_s); }, u"FONTNAME = \"Arial\""_s},
        {[](PrintJob &job) { job.SetFontSize(7.5); }, u"FONTSIZE = 7.5"_s},
        {[](PrintJob &job) { job.SetFontBold(true); }, u"FONTBOLD = TRUE"_s},
        {[](PrintJob &job) { job.SetFontBold(false); }, u"FONTBOLD = FALSE"_s},
        {[](PrintJob &job) { job.SetForeColor(16777215); }, u"FORECOLOR = 16777215"_s},
        {[](PrintJob &job) { job.SetOrientation(2); }, u"ORIENTATION = 2"_s},
        {[](PrintJob &job) { job.SetScaleMode(6); }, u"SCALEMODE = 6"_s},
        {[](PrintJob &job) { job.SetScaleWidth(215.9); }, u"SCALEWIDTH = 215.9"_s},
        {[](PrintJob &job) { job.PrintLeft(u"a \"b\""_s); }, u"LPRINT 100,200, \"a \u00ffb\u00ff\""_s},
        {[](PrintJob &job) { job.PrintRight(u"7"_s); }, u"RPRINT 100,200, \"7\""_s},
        {[](PrintJob &job) { job.PrintCentre(u"one\r\ntwo"_s); }, u"CPRINT 100,200, \"one\""_s},
        {[](PrintJob &job) { job.PrintCentre(Value()); }, u"CPRINT 100,200, \"\""_s},
        {[](PrintJob &job) { job.PrintLine(0.5, 1, u"step"_s, 300, 0, u"0"_s); }, u"LINE (0.5,1)-STEP(300,0),0,"_s},
        {[](PrintJob &job) { job.PrintLine(1, 2, {}, 3, 4, Value(16777215), u"B"_s); }, u"LINE (1,2)-(3,4),16777215,B"_s},
        {[](PrintJob &job) { job.PrintLine(1, 2, {}, 3, 4); }, u"LINE (1,2)-(3,4),,"_s},
        {[&](PrintJob &job) { job.PrintPicture(picture, x, y); }, u"PAINTPICTURE [%1](10)<20>"_s.arg(picture)},
        {[&](PrintJob &job) { job.PrintPicture(picture, x, y, 30.0, 40.0); }, u"PAINTPICTURE [%1](10)<20 30,40,"_s.arg(picture)},
        {[](PrintJob &job) { job.PrintNewPage(); }, u"NEWPAGE"_s},
        {[](PrintJob &job) { job.PrintDateField(5, u"L"_s, Value(basic::DateTime::fromParts(2026, 3, 4)), false); }, u"LPRINT 5,200, \"Mar 04 2026\""_s},
        {[](PrintJob &job) { job.PrintCurrencyField(5, u"R"_s, -1234.5, false); }, u"RPRINT 5,200, \"($1,234.50)\""_s},
        {[](PrintJob &job) { job.PrintDollarField(5, u"L"_s, -1234.5, false); }, u"LPRINT 5,200, \"($1,234.50)\""_s}};
    for (const auto &one : cases)
        EXPECT_EQ(lines(one.step), QStringList{one.line}) << qPrintable(one.line);
}

TEST_F(Script, PenAfterEachOperation)
{
    lines([](PrintJob &job) {
        const double th = lineHeight(job);
        job.PrintLeft(u"wide"_s);
        EXPECT_NEAR(job.GetCurrentX(), 100 + job.GetTextWidth(u"wide"_s), 0.01);
        EXPECT_NEAR(job.GetCurrentY(), 200, 0.01);
        job.PrintLeft(u"\r\n"_s);
        EXPECT_NEAR(job.GetCurrentX(), 0, 0.01);
        EXPECT_NEAR(job.GetCurrentY(), 200 + th, 0.01);
        job.PrintCentre(u"half"_s);
        EXPECT_NEAR(job.GetCurrentX(), job.GetTextWidth(u"half"_s) / 2, 0.01);
        job.PrintCentre(u"line\r\n"_s);
        EXPECT_NEAR(job.GetCurrentY(), 200 + 2 * th, 0.01);
        job.PrintLine(10, 20, u"STEP"_s, 5, 6);
        EXPECT_NEAR(job.GetCurrentX() + job.GetCurrentY(), 15 + 26, 0.01);
        job.PrintLine(10, 20, {}, 5, 6);
        EXPECT_NEAR(job.GetCurrentX() + job.GetCurrentY(), 11, 0.01);
        job.PrintField(44, u"?"_s, u"nothing"_s, false);
        EXPECT_NEAR(job.GetCurrentX(), 44, 0.01);
    });
}

TEST_F(Script, LineEndsPartTheText)
{
    for (const QString &text : {u"ab\r\ncd"_s, u"ab\ncd"_s, u"ab\rcd"_s, u"ab\r\ncd\r\n"_s}) {
        const QStringList written = lines([&](PrintJob &job) { job.PrintLeft(text); });
        EXPECT_EQ(written, (QStringList{u"LPRINT 100,200, \"ab\""_s, u"LPRINT "_s + at(0, 200 + m_lineHeight) + u", \"cd\""_s}));
    }
    EXPECT_EQ(lines([](PrintJob &job) { job.PrintLeft(u"\r\n"_s); job.PrintLeft(Value()); }), QStringList());
}

TEST_F(Script, FullPageBreaksAfterTextAlone)
{
    EXPECT_EQ(lines([](PrintJob &job) {
        job.SetCurrentY(job.GetScaleHeight() - lineHeight(job) - 1);
        job.PrintLine(0, 20, {}, 5, job.GetScaleHeight() + 100);
        EXPECT_EQ(job.GetPageNumber(), 1);
        job.SetCurrentX(700);
        job.SetCurrentY(job.GetScaleHeight() - lineHeight(job) / 2);
        job.PrintLeft(Value());
        EXPECT_EQ(job.GetPageNumber(), 2);
        EXPECT_NEAR(job.GetCurrentX(), 700, 0.01);
        EXPECT_EQ(job.GetCurrentY(), 0);
    }).last(), u"NEWPAGE"_s);
}

TEST_F(Script, WrappingAtBlanks)
{
    const struct { QString text; int width; QStringList lines; } cases[] = {
        {u"the quick brown fox"_s, 10, {u"the quick"_s, u"brown fox"_s}},
        {u"one\r\n\r\n  \r\ntwo"_s, 20, {u"one"_s, u"two"_s}},
        {u"short"_s, 10, {u"short"_s}},
        {u"exactlyten"_s, 10, {u"exactlyten"_s}},
        {u"go unbreakablewordhere and on"_s, 10, {u"go"_s, u"unbreakablewordhere and on"_s}},
        {QString(10000, u'x'), 130, {QString(10000, u'x')}},
        {u" lead"_s, 3, {u"lead"_s}},
        {{}, 10, {}},
        {u"any"_s, 0, {u"any"_s}}};
    for (const auto &one : cases)
        EXPECT_EQ(wrapLines(one.text, one.width), one.lines) << qPrintable(one.text.left(30));
    EXPECT_EQ(lines([](PrintJob &job) { job.PrintWrapped(u"L"_s, 50, 4, u"ab cd\nef"_s); }).size(), 3);
}

TEST_F(Script, MissingFontSizeIsThePrinters)
{
    lines([](PrintJob &job) {
        job.SetFontSize(13.0);
        for (const Value &size : {Value(u""_s), Value(0.0), Value(u"big"_s)})
            EXPECT_EQ(job.SetFontSize(size), 13.0);
        EXPECT_EQ(job.SetFontSize(Value(u"9.5pt"_s)), 9.5);
        EXPECT_EQ(job.device().FontSize(), 9.5);
    });
}

TEST_F(Script, FolderThatCannotBeWrittenIsTold)
{
    m_folder.write(u"PRINT.TMP/keep"_s, "x");          // a folder has its name
    PrintJob job;
    try {
        job.SetFontBold(true);
        ADD_FAILURE();
    } catch (const basic::Error &error) {
        EXPECT_EQ(error.number(), 75);
        EXPECT_TRUE(error.text().contains(u"PRINT.TMP"_s) && error.text().contains(m_folder.path()));
    }
    EXPECT_FALSE(job.isRecording());
    QDir(m_folder.path(u"PRINT.TMP"_s)).removeRecursively();
    EXPECT_EQ(lines([](PrintJob &next) { next.PrintLeft(u"again"_s); }).size(), 1);
}

// Passwords and journal are printed too: what is printed is readable by its owner alone, and removed with the preview.
TEST_F(Script, PagesAreForTheOwnerAndDoNotStay)
{
    const QString path = m_folder.path(u"PRINT.TMP"_s);
    m_folder.write(u"PRINT.TMP"_s, "of a program that was killed");
    m_folder.write(u"PRINT2.TMP"_s, "of its second job");
    m_folder.write(u"PRINTER.TXT"_s, "of the user");
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
    const auto others = [&path] { return QFile::permissions(path) & (QFile::ReadOther | QFile::WriteOther | QFile::ReadGroup | QFile::WriteGroup); };
    {
        PrintJob failing;
        failing.PrintLeft(u"half a report"_s);
        EXPECT_EQ(others(), 0);
    }
    EXPECT_FALSE(QFile::exists(path)) << "a report that failed";
    previewed([] { PrintJob job; job.SetPrintTarget(u"SCREEN"_s); job.PrintEndDoc(); },
              [&](test::FakePreview &) {
                  EXPECT_TRUE(QFile::exists(path));
                  EXPECT_EQ(others(), 0);
                  removePrintScripts();
                  EXPECT_TRUE(QFile::exists(path)) << "it is on show";
              });
    EXPECT_FALSE(QFile::exists(path));
    m_folder.write(u"PRINT.TMP"_s, "again");
    removePrintScripts();
    EXPECT_EQ(QDir(m_folder.path()).entryList({u"PRINT*"_s}), QStringList{u"PRINTER.TXT"_s});
}

TEST_F(Script, TwoJobsDoNotDisturbEachOther)
{
    PrintJob first;
    first.SetPrintTarget(u"SCREEN"_s);
    first.SetPreviewCaption(u"First"_s);
    first.SetFontSize(24.0);
    first.PrintLeft(u"one"_s);
    first.PrintNewPage();
    first.PrintLeft(u"two"_s);
    int opened = 0;
    test::FakePreview::whileOpen = [&](test::FakePreview &outer) {
        EXPECT_EQ(++opened, 1);
        EXPECT_EQ(outer.label, u"Page 1 of 2"_s);
        PrintJob second;
        second.SetPrintTarget(u"SCREEN"_s);
        second.SetOrientation(2);
        second.SetFontSize(8.0);
        second.PrintLeft(u"other"_s);
        test::FakePreview::whileOpen = [&](test::FakePreview &inner) {
            EXPECT_EQ(++opened, 2);
            EXPECT_EQ(inner.label, u"Page 1 of 1"_s);
            EXPECT_EQ(inner.job.PreviewCaption, QString());
        };
        second.PrintEndDoc();
        outer.player.MovePage(2);
        EXPECT_EQ(outer.label, u"Page 2 of 2"_s);
        EXPECT_EQ(outer.player.TotalPages, 2);
        EXPECT_EQ(first.device().FontSize(), 24);
        EXPECT_EQ(first.device().Orientation(), 1);
        EXPECT_TRUE(m_folder.read(u"PRINT.TMP"_s).contains("\"two\""));
    };
    first.PrintEndDoc();
    EXPECT_EQ(opened, 2);
    EXPECT_EQ(QDir(m_folder.path()).entryList({u"PRINT*.TMP"_s}), QStringList());
}

TEST_F(Script, ReportDefaultsAreReturned)
{
    {
        PrintJob job;
        const ReportStyle style = ReportStart(job, {});
        EXPECT_EQ(style.fontName, u"Arial"_s);
        EXPECT_EQ(style.fontSize, 10);
        EXPECT_EQ(style.scaleMode, 6);
        EXPECT_EQ(style.orientation, 1);
        EXPECT_EQ(job.GetPrintTarget(), u"SCREEN"_s);
        job.SetPrintTarget({});
        EXPECT_EQ(job.GetPrintTarget(), u"PRINTER"_s);
        showHourglass(false);
    }
    EXPECT_EQ(script([] {
        PrintJob next;
        ReportStart(next, {u"Arial"_s, 8, 1, 2});
        next.PrintEndDoc();
    }), (QStringList{u"FONTNAME = \"Arial\""_s, u"FONTSIZE = 8"_s, u"ORIENTATION = 2"_s, u"SCALEMODE = 1"_s, u"ENDDOC"_s}));
}

}
