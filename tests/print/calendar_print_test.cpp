#include "print/monthcalendar.h"

#include "print/output.h"
#include "print/printfixture.h"
#include "print/yearcalendar.h"
#include "session/ini.h"

#include <QRegularExpression>

namespace vorel {

using namespace Qt::StringLiterals;

class PrintedCalendar : public test::PrintTest {
protected:
    PrintedCalendar() { state().gIniFile = m_folder.path(u"vorelreminder.ini"_s); }
    void fill()
    {
        dao::Database database = open();
        dao::Transaction all(database);
        for (int i = 0; i < 60; ++i)
            database.Execute(u"INSERT INTO APPOINTMENTS ([DATE],[APPTIME],[APPOINTMENT]) VALUES (#11/28/2026#,'09:00 Am','turn%1 %2')"_s
                                 .arg(i).arg(u"words that fill a line of the block "_s.repeated(i % 4)));
        database.Execute(u"INSERT INTO EVENTS ([DATE],[DATETO],[SUBJECT],[EVENT]) VALUES (#11/10/1950#,'12/12/1950','BIRTHDAY','Mum')"_s);
        database.Execute(u"INSERT INTO BILLS ([DATE],[BILL],[AMOUNT]) VALUES (#11/30/2026#,'RENT',1450)"_s);
        database.Execute(u"INSERT INTO TODO ([TODO],[PRIORITY],[ACTIONED]) VALUES ('Sweep','High',False)"_s);
        all.Commit();
    }
};

// Every word stays clear of every rule, on both papers, with all blocks and a picture; nothing of a long day is lost.
TEST_F(PrintedCalendar, NoTextLiesOverARuleAndNothingIsLost)
{
    fill();
    QImage picture(400, 300, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    picture.save(m_folder.path(u"nov.png"_s));
    PutIniValue(iniSettings, u"NovPicFile"_s, m_folder.path(u"nov.png"_s));
    useNoPrinter();
    for (const QString &region : {u"de_DE"_s, u"en_US"_s}) {
        setRegion(region);
        const QString pdf = m_folder.path(u"month.pdf"_s);
        std::vector<std::vector<QRectF>> rules(1);
        EXPECT_EQ(previewed([] { PrintMonthCalendar(11, 2026, {{{}, true}, true}); }, [&](test::FakePreview &screen) { savePdf(screen.job, pdf); }), 1);
        for (const QString &line : script([] { PrintMonthCalendar(11, 2026, {{{}, true}, true}); })) {
            static const QRegularExpression rule(u"^LINE \\(([\\d.]+),([\\d.]+)\\)-STEP\\(([\\d.]+),([\\d.]+)\\),\\d*,$"_s);
            const QRegularExpressionMatch match = rule.match(line.trimmed());
            const auto number = [&](int part) { return match.captured(part).toDouble(); };
            if (match.hasMatch())
                rules.back().emplace_back(number(1), number(2), number(3), number(4));
            else if (line.startsWith(u"NEWPAGE"_s))
                rules.emplace_back();
        }
        EXPECT_GT(rules.front().size(), 14U);
        QString all;
        const printer::Paper paper = printer::localePaper();
        for (const test::Word &word : test::wordsOf(pdf)) {
            all += word.text + u' ';
            ASSERT_LE(static_cast<std::size_t>(word.page), rules.size());
            const QRectF ink = word.box.translated(-paper.left, -paper.top).adjusted(0, word.box.height() * 0.2, 0, -word.box.height() * 0.2);
            EXPECT_LE(word.box.right(), paper.width - paper.right + 1) << qPrintable(word.text);
            for (const QRectF &rule : rules[static_cast<std::size_t>(word.page) - 1])
                EXPECT_FALSE(ink.intersects(rule.adjusted(0, 0, 1, 1)))
                    << qPrintable(region + u' ' + word.text) << " page " << word.page << " at " << rule.x() << ' ' << rule.y();
        }
        for (int i = 0; i < 60; ++i)
            EXPECT_TRUE(all.contains(u"turn%1 "_s.arg(i))) << i;
        for (const QString &title : {u"THIS MONTHS APPOINTMENTS"_s, u"THIS MONTHS EVENTS"_s, u"THIS MONTHS BILLS"_s, u"TO DO LIST"_s, u"2026"_s})
            EXPECT_TRUE(all.contains(title)) << qPrintable(title);
        EXPECT_TRUE(all.contains(region == u"de_DE" ? u"10 Nov - 12 Dez"_s : u"Nov 10 - Dec 12"_s)) << qPrintable(all.right(300));
        EXPECT_TRUE(all.contains(region == u"de_DE" ? u"So"_s : u"Sun"_s));
    }
}

TEST_F(PrintedCalendar, BlocksFollowTheirOptions)
{
    fill();
    struct Case { CalendarPaper paper; QStringList titles; };
    const QStringList all{u"THIS MONTHS APPOINTMENTS"_s, u"THIS MONTHS EVENTS"_s, u"THIS MONTHS BILLS"_s, u"TO DO LIST"_s};
    const Case cases[] = {{{{{true, false, false, {}}, false}, false}, {all[0]}},
                          {{{{false, true, false, {}}, true}, false}, {all[2], all[3]}},
                          {{{{false, false, true, {}}, false}, true}, {all[1]}},
                          {{{{false, false, false, {}}, false}, false}, {}}};
    for (const Case &c : cases) {
        const QString text = pages([&] { PrintMonthCalendar(11, 2026, c.paper); }).join(u' ');
        for (const QString &title : all)
            EXPECT_EQ(text.contains(title), c.titles.contains(title)) << qPrintable(title);
        EXPECT_EQ(text.contains(u"September"_s), c.paper.yearStrip);
    }
}

// The heads and days stand in their columns, all months of the present year on the one page.
TEST_F(PrintedCalendar, PlacesOfTheMonthAndTheYear)
{
    PutIniValue(iniSettings, u"NovPicFile"_s, m_folder.path(u"gone.png"_s));       // a picture that has gone is left out
    const QStringList lines = script([] { PrintMonthCalendar(8, 2026, {}); });
    const auto countOf = [&](const QString &pattern) { return lines.filter(QRegularExpression(pattern)).size(); };
    EXPECT_EQ(countOf(u"^NEWPAGE"_s), 0);
    EXPECT_EQ(countOf(u"^PAINTPICTURE"_s), 0);
    const QString heads[] = {u"Sun"_s, u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s, u"Sat"_s};
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(countOf(u"^CPRINT %1,[\\d.]+, \"%2\""_s.arg(200 + 800 * i + 400).arg(heads[i])), 1) << i;
    for (const int x : {200, 1000, 1800, 2600, 3400, 4200, 5000, 5800})
        EXPECT_EQ(countOf(u"^LINE \\(%1,[\\d.]+\\)-STEP\\(0,"_s.arg(x)), 1) << x;
    EXPECT_EQ(countOf(u"^LPRINT 5040,[\\d.]+, \"(1|8|15|22|29)\""_s), 5) << "August 2026 starts on a Saturday";
    EXPECT_EQ(countOf(u"^LPRINT 2\\d\\d,[\\d.]+, \"(30|31)\""_s), 1);
    for (const int x : {5480, 7240, 9000})
        EXPECT_EQ(countOf(u"^LINE \\(%1,[\\d.]+\\)-STEP\\(1540,340\\),\\d+,BF"_s.arg(x)), 4) << x;
    EXPECT_EQ(countOf(u"\"31\""_s), 8);              // seven months of the year and August's own
}

}
