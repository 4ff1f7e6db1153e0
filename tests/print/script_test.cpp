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
    QStringList lines(const std::function<void()> &drawing)
    {
        QStringList all = script([&] {
            SetPrintTarget(u"SCREEN"_s);
            SetScaleMode(1);
            SetCurrentX(100);
            SetCurrentY(200);
            drawing();
            PrintEndDoc();
        });
        EXPECT_EQ(all.takeFirst(), u"SCALEMODE = 1"_s);
        EXPECT_EQ(all.takeLast(), u"ENDDOC"_s);
        return all;
    }
    static double lineHeight() { return GetTextHeight(u"A"_s); }
    static QString at(double x, double y) { return scriptNumber(x) + u',' + scriptNumber(y); }
};

TEST_F(Script, HeaderNamesTimeAndProgram)
{
    QByteArray content;
    previewed([] { SetPrintTarget(u"SCREEN"_s); PrintEndDoc(); },
              [&](test::FakePreview &) { content = m_folder.read(u"PRINT.TMP"_s); });
    const QByteArray stars = "'" + QByteArray(62, '*') + "\r\n";
    EXPECT_EQ(content, stars + "'*      GENERATED: 11/22/2026 12:00:00\r\n'* SOURCE PROGRAM: Vorel Reminder\r\n" + stars + "ENDDOC\r\n");
    EXPECT_FALSE(QFile::exists(m_folder.path(u"PRINT.TMP"_s)));
}

TEST_F(Script, LinesOfEachOperation)
{
    float x = 10, y = 20;
    const struct { std::function<void()> step; QString line; } cases[] = {
        {[] { SetFontName(u" Arial "_s); }, u"FONTNAME = \"Arial\""_s},
        {[] { SetFontSize(7.5); }, u"FONTSIZE = 7.5"_s},
        {[] { SetFontBold(true); }, u"FONTBOLD = TRUE"_s},
        {[] { SetFontBold(false); }, u"FONTBOLD = FALSE"_s},
        {[] { SetForeColor(16777215); }, u"FORECOLOR = 16777215"_s},
        {[] { SetOrientation(2); }, u"ORIENTATION = 2"_s},
        {[] { SetScaleMode(6); }, u"SCALEMODE = 6"_s},
        {[] { SetScaleWidth(215.9); }, u"SCALEWIDTH = 215.9"_s},
        {[] { PrintLeft(u"a \"b\""_s); }, u"LPRINT 100,200, \"a \u00ffb\u00ff\""_s},
        {[] { PrintRight(u"7"_s); }, u"RPRINT 100,200, \"7\""_s},
        {[] { PrintCentre(u"one\r\ntwo"_s); }, u"CPRINT 100,200, \"one\""_s},
        {[] { PrintCentre(Value()); }, u"CPRINT 100,200, \"\""_s},
        {[] { PrintLine(0.5, 1, u"step"_s, 300, 0, u"0"_s); }, u"LINE (0.5,1)-STEP(300,0),0,"_s},
        {[] { PrintLine(1, 2, {}, 3, 4, Value(16777215), u"B"_s); }, u"LINE (1,2)-(3,4),16777215,B"_s},
        {[] { PrintLine(1, 2, {}, 3, 4); }, u"LINE (1,2)-(3,4),,"_s},
        {[&] { PrintPicture(u"c:\\a.jpg"_s, x, y); }, u"PAINTPICTURE [c:\\a.jpg](10)<20>"_s},
        {[&] { PrintPicture(u"c:\\a.jpg"_s, x, y, 30.0, 40.0); }, u"PAINTPICTURE [c:\\a.jpg](10)<20 30,40,"_s},
        {[] { PrintNewPage(); }, u"NEWPAGE"_s},
        {[] { PrintDateField(5, u"L"_s, Value(basic::DateTime::fromParts(2026, 3, 4)), false); }, u"LPRINT 5,200, \"Mar 04 2026\""_s},
        {[] { PrintCurrencyField(5, u"R"_s, -1234.5, false); }, u"RPRINT 5,200, \"($1,234.50)\""_s},
        {[] { PrintDollarField(5, u"L"_s, -1234.5, false); }, u"LPRINT 5,200, \"($1,234.50)\""_s}};
    for (const auto &one : cases) {
        if (!one.line.startsWith(u"PAINT"))
            EXPECT_EQ(lines(one.step), QStringList{one.line}) << qPrintable(one.line);
        else
            EXPECT_EQ(errorOf([&] { lines(one.step); }), 53);
    }
}

TEST_F(Script, PenAfterEachOperation)
{
    lines([] {
        const double th = lineHeight();
        PrintLeft(u"wide"_s);
        EXPECT_NEAR(GetCurrentX(), 100 + GetTextWidth(u"wide"_s), 0.01);
        EXPECT_NEAR(GetCurrentY(), 200, 0.01);
        PrintLeft(u"\r\n"_s);
        EXPECT_NEAR(GetCurrentX(), 0, 0.01);
        EXPECT_NEAR(GetCurrentY(), 200 + th, 0.01);
        PrintCentre(u"half"_s);
        EXPECT_NEAR(GetCurrentX(), GetTextWidth(u"half"_s) / 2, 0.01);
        PrintCentre(u"line\r\n"_s);
        EXPECT_NEAR(GetCurrentY(), 200 + 2 * th, 0.01);
        PrintLine(10, 20, u"STEP"_s, 5, 6);
        EXPECT_NEAR(GetCurrentX() + GetCurrentY(), 15 + 26, 0.01);
        PrintLine(10, 20, {}, 5, 6);
        EXPECT_NEAR(GetCurrentX() + GetCurrentY(), 11, 0.01);
        PrintField(44, u"?"_s, u"nothing"_s, false);
        EXPECT_NEAR(GetCurrentX(), 44, 0.01);
    });
    EXPECT_EQ(GetCurrentX() + GetCurrentY(), 0);
}

TEST_F(Script, LineEndsPartTheText)
{
    for (const QString &text : {u"ab\r\ncd"_s, u"ab\ncd"_s, u"ab\rcd"_s, u"ab\r\ncd\r\n"_s}) {
        EXPECT_EQ(lines([&] { PrintLeft(text); }),
                  (QStringList{u"LPRINT 100,200, \"ab\""_s, u"LPRINT "_s + at(0, 200 + lineHeight()) + u", \"cd\""_s}));
    }
    EXPECT_EQ(lines([] { PrintLeft(u"\r\n"_s); PrintLeft(Value()); }), QStringList());
}

TEST_F(Script, FullPageBreaksAfterTextAlone)
{
    EXPECT_EQ(lines([] {
        SetCurrentY(GetScaleHeight() - lineHeight() - 1);
        PrintLine(0, 20, {}, 5, GetScaleHeight() + 100);
        EXPECT_EQ(GetPageNumber(), 1);
        SetCurrentX(700);
        SetCurrentY(GetScaleHeight() - lineHeight() / 2);
        PrintLeft(Value());
        EXPECT_EQ(GetPageNumber(), 2);
        EXPECT_NEAR(GetCurrentX(), 700, 0.01);
        EXPECT_EQ(GetCurrentY(), 0);
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
    EXPECT_EQ(lines([] { PrintWrapped(u"L"_s, 50, 4, u"ab cd\nef"_s); }).size(), 3);
}

TEST_F(Script, MissingFontSizeIsThePrinters)
{
    lines([] {
        SetFontSize(13.0);
        for (Value size : {Value(u""_s), Value(0.0), Value(u"big"_s)}) {
            SetFontSize(size);
            EXPECT_EQ(size, Value(13.0));
        }
        Value text(u"9.5pt"_s);
        SetFontSize(text);
        EXPECT_EQ(printer::thePrinter().FontSize(), 9.5);
    });
}

TEST_F(Script, FolderThatCannotBeWrittenIsTold)
{
    m_folder.write(u"PRINT.TMP/keep"_s, "x");          // a folder stands in its place
    try {
        SetFontBold(true);
        ADD_FAILURE();
    } catch (const basic::Error &error) {
        EXPECT_EQ(error.number(), 75);
        EXPECT_TRUE(error.text().contains(u"PRINT.TMP"_s) && error.text().contains(m_folder.path()));
    }
    EXPECT_EQ(scriptState().ScriptFile, 0);
    QDir(m_folder.path(u"PRINT.TMP"_s)).removeRecursively();
    EXPECT_EQ(lines([] { PrintLeft(u"again"_s); }).size(), 1);
}

TEST_F(Script, FailedReportLeavesNothingToTheNext)
{
    SetPrintTarget(u"SCREEN"_s);
    PrintLeft(u"half a report"_s);
    const QStringList lines = script([] {
        ReportStart(u"Arial"_s, 8, 1, 2);
        PrintEndDoc();
    });
    EXPECT_EQ(lines, (QStringList{u"FONTNAME = \"Arial\""_s, u"FONTSIZE = 8"_s, u"ORIENTATION = 2"_s, u"SCALEMODE = 1"_s, u"ENDDOC"_s}));
}

TEST_F(Script, ReportDefaultsAreWrittenBack)
{
    QString font;
    double size = 0;
    int scale = 0, orientation = 0;
    ReportStart(font, size, scale, orientation);
    EXPECT_EQ(font, u"Arial"_s);
    EXPECT_EQ(size, 10);
    EXPECT_EQ(scale, 6);
    EXPECT_EQ(orientation, 1);
    EXPECT_EQ(GetPrintTarget(), u"SCREEN"_s);
    SetPrintTarget({});
    EXPECT_EQ(GetPrintTarget(), u"PRINTER"_s);
    showHourglass(false);
}

}
