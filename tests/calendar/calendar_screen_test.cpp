#include "calendar/frmCalendar.h"
#include "calendar/frmCalendarDay.h"
#include "calendar/frmCalendarSmallMonth.h"
#include "calendar/monthpage.h"
#include "calendar/monthpicture.h"
#include "session/ini.h"
#include "session/webpage.h"
#include "store/mainfile.h"
#include "support/screens.h"

#include <QComboBox>
#include <QFileInfo>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTextEdit>
#include <QXmlStreamReader>

namespace vorel {

using namespace Qt::StringLiterals;

class CalendarScreen : public test::MainFileTest {
protected:
    CalendarScreen() { state().gIniFile = m_folder.path(u"vorelreminder.ini"_s); }
    void appointment(const QString &date, const QString &text, const QString &time = u"09:00 Am"_s)
    {
        execute(u"INSERT INTO APPOINTMENTS ([DATE],[APPTIME],[APPOINTMENT]) VALUES (#%1#,'%2','%3')"_s.arg(date, time, text));
    }
    frmCalendar &show()
    {
        m_screen = std::make_unique<frmCalendar>(CalendarCalls{
            [this](const RecordCall &call, QWidget *) {
                m_calls << u"%1 %2 %3"_s.arg(call.section).arg(call.id).arg(call.day ? test::shown(basic::Value(*call.day)) : u"-"_s);
            },
            [this](int year, int month, const CalendarPaper &paper) {
                m_calls << u"print %1-%2 %3%4%5%6%7"_s.arg(year).arg(month).arg(paper.blocks.reminders.appointments)
                               .arg(paper.blocks.reminders.bills).arg(paper.blocks.reminders.events).arg(paper.blocks.toDo).arg(paper.yearStrip);
            }});
        m_screen->show();
        QCoreApplication::processEvents();
        return *m_screen;
    }
    template <class W = QWidget> W *at(const QString &name) const { return test::control<W>(*m_screen, name); }
    CalendarDay *cell(int day) const
    {
        const basic::DateTime shown = m_screen->shownDate();
        return at<CalendarDay>(u"LBL_Date(%1)"_s.arg(monthCells(shown.year(), shown.month(), state().settings.gWeekStartDay).cellOf(day) + 1));
    }
    QString date() const { return test::shown(basic::Value(m_screen->shownDate())); }
    void key(Qt::Key code, Qt::KeyboardModifiers with = {}) { QTest::keyClick(m_screen->focusWidget(), code, with); }
    QStringList takeCalls() { return std::exchange(m_calls, {}); }

    std::unique_ptr<frmCalendar> m_screen;
    QStringList m_calls;
};

TEST_F(CalendarScreen, KeysAndControlsGoToTheirDay)
{
    frmCalendar &screen = show();
    struct Case { const char *name; std::function<void()> user; const char16_t *date; };
    const Case cases[] = {
        {"left", [&] { key(Qt::Key_Left); }, u"2027-01-30"},
        {"down", [&] { key(Qt::Key_Down); }, u"2027-02-07"},
        {"page down", [&] { key(Qt::Key_PageDown); }, u"2027-02-28"},
        {"a year back", [&] { key(Qt::Key_PageUp, Qt::ControlModifier); }, u"2026-01-31"},
        {"home", [&] { key(Qt::Key_Home); }, u"2027-01-01"},
        {"end", [&] { key(Qt::Key_Home); key(Qt::Key_End); }, u"2027-01-31"},
        {"today", [&] { key(Qt::Key_T); }, u"2026-11-22"},
        {"today by Home", [&] { key(Qt::Key_Home, Qt::ControlModifier); }, u"2026-11-22"},
        {"month list", [&] { at<QComboBox>(u"cboMonth"_s)->setCurrentIndex(5); }, u"2027-06-30"},
        {"year list", [&] { at<QComboBox>(u"cboYear"_s)->setCurrentText(u"1850"_s); }, u"1850-01-31"},
        {"month bar", [&] { at<QScrollBar>(u"scrollMonth"_s)->setValue(2); }, u"2027-02-28"},
        {"year bar", [&] { at<QScrollBar>(u"scrollYear"_s)->setValue(9999); }, u"9999-01-31"},
        {"year after", [&] { test::click(screen, u"cmdAddYear"_s); }, u"2028-01-31"},
        {"next month", [&] { test::click(screen, u"cmdNext"_s); }, u"2027-02-28"},
        {"the last month", [&] { at<QComboBox>(u"cboYear"_s)->setCurrentText(u"9999"_s); at<QComboBox>(u"cboMonth"_s)->setCurrentIndex(11); }, u"9999-12-31"},
        {"a cell", [&] { QTest::mouseClick(cell(7), Qt::LeftButton); }, u"2027-01-07"},
        {"typed", [&] { at<QLineEdit>(u"txtDate"_s)->setText(u"3/5/1999"_s); test::click(screen, u"cmdFind"_s); }, u"1999-03-05"},
    };
    for (const Case &c : cases) {
        screen.showDay(basic::DateTime::fromParts(2027, 1, 31));
        c.user();
        EXPECT_EQ(date(), QString::fromUtf16(c.date)) << c.name;
        EXPECT_EQ(screen.windowTitle(), monthTitle(screen.shownDate().year(), screen.shownDate().month()));
        EXPECT_EQ(at<QComboBox>(u"cboYear"_s)->currentText().toInt(), screen.shownDate().year()) << c.name;
        EXPECT_EQ(at<QScrollBar>(u"scrollMonth"_s)->value(), screen.shownDate().month()) << c.name;
        EXPECT_TRUE(cell(screen.shownDate().day())->isChecked()) << c.name;
    }
    EXPECT_EQ(at<QLineEdit>(u"txtDate"_s)->text(), u"03-05-1999"_s);
    for (const QString &wrong : {u"29 Feb 2027"_s, u"soon"_s, QString()}) {
        m_prompts.expect(u"Invalid Date"_s);
        at<QLineEdit>(u"txtDate"_s)->setText(wrong);
        at(u"txtDate"_s)->setFocus();
        key(Qt::Key_Return);
        EXPECT_TRUE(m_prompts.isDone()) << qPrintable(wrong);
        EXPECT_EQ(date(), u"1999-03-05"_s);
    }
    screen.DefaultDate(u"no date"_s);
    EXPECT_EQ(date(), u"2026-11-22"_s);
}

TEST_F(CalendarScreen, DayTellsItsRowsAndOpensThem)
{
    appointment(u"11/23/2026"_s, u"<b>Dentist & Co</b>"_s);
    for (int i = 0; i < 60; ++i)
        appointment(u"11/24/2026"_s, u"Turn %1"_s.arg(i));
    execute(u"INSERT INTO BILLS ([DATE],[BILL],[AMOUNT],[PAID]) VALUES (#11/25/2026#,'RENT',450,True)"_s);
    frmCalendar &screen = show();
    EXPECT_EQ(cell(22)->accessibleName(), u"Sunday 22 November 2026, today, selected"_s);
    EXPECT_EQ(cell(24)->accessibleName(), u"Tuesday 24 November 2026, 60 appointments"_s);
    EXPECT_EQ(cell(24)->entries().size(), 60U);
    EXPECT_LT(cell(24)->shownEntries(), 60);
    EXPECT_TRUE(cell(24)->toolTip().contains(u"and 36 more"_s));
    EXPECT_TRUE(cell(23)->toolTip().contains(u"&lt;b&gt;Dentist &amp; Co"_s)) << qPrintable(cell(23)->toolTip());
    EXPECT_TRUE(at<QTextEdit>(u"rtbInfo"_s)->toPlainText().contains(u"<b>Dentist & Co</b>"_s));

    const auto doubleClick = [&](int day) {
        QTest::mouseClick(cell(day), Qt::LeftButton);
        QTest::mouseDClick(cell(day), Qt::LeftButton, {}, QPoint(cell(day)->width() / 2, cell(day)->height() - 2));
    };
    doubleClick(23);
    EXPECT_EQ(takeCalls().join(u'|'), u"A 1 -"_s);
    screen.showDay(basic::DateTime::fromParts(2026, 11, 25));
    key(Qt::Key_Return);
    EXPECT_EQ(takeCalls().join(u'|'), u"B 1 -"_s);
    m_prompts.expect(u"Create a New Blank Record?"_s, basic::Answer::No);
    doubleClick(26);
    EXPECT_TRUE(takeCalls().isEmpty());
    m_prompts.expect(u"Create a New Blank Record?"_s, basic::Answer::Yes);
    doubleClick(26);
    EXPECT_EQ(takeCalls().join(u'|'), u"A 0 2026-11-26"_s);
    doubleClick(24);                                // many: a choice
    auto *menu = at<QMenu>(u"mnuDayRows"_s);
    ASSERT_TRUE(menu);
    for (QAction *action : menu->actions())
        if (action->text() == u"New &event")
            action->trigger();
    menu->close();
    EXPECT_EQ(takeCalls().join(u'|'), u"E 0 2026-11-24"_s);

    appointment(u"11/26/2026"_s, u"Later"_s);       // written by another screen: the month follows
    screen.reload();
    QTest::qWait(20);
    EXPECT_EQ(cell(26)->entries().size(), 1U);
    if (!at(u"panSide"_s)->isVisible())
        test::click(screen, u"cmdDetails"_s);       // a small screen shows one half at a time
    test::click(screen, u"chkAppointments"_s);
    QTest::qWait(20);
    EXPECT_TRUE(cell(24)->entries().empty());
    test::click(screen, u"cmdPrint"_s);
    EXPECT_EQ(takeCalls().join(u'|'), u"print 2026-11 01101"_s);
}

TEST_F(CalendarScreen, FileThatIsAwayIsReportedOnceAndReadLater)
{
    appointment(u"11/23/2026"_s, u"Dentist"_s);
    ASSERT_TRUE(QFile::rename(path(), path() + u".away"_s));
    m_prompts.expect(u"Could not find file"_s);
    show();
    EXPECT_TRUE(m_prompts.isDone());
    EXPECT_TRUE(cell(23)->entries().empty());
    ASSERT_TRUE(QFile::rename(path() + u".away"_s, path()));
    key(Qt::Key_Left);
    EXPECT_EQ(cell(23)->entries().size(), 1U);
    EXPECT_EQ(at<QComboBox>(u"cboCategory"_s)->currentText(), u"ALL"_s);
}

TEST_F(CalendarScreen, YearMarksItsDays)
{
    appointment(u"03/05/2026"_s, u"Dentist"_s);
    frmCalendar &screen = show();
    test::click(screen, u"cmdMonth"_s);
    ASSERT_TRUE(screen.isYearShown());
    EXPECT_EQ(at(u"cmdMonth"_s)->toolTip(), u" - Click to Hide Year Calendar "_s);
    auto *march = at<SmallMonth>(u"picMonth(3)"_s);
    QTest::mouseClick(march, Qt::LeftButton, {}, march->dayPlace(5).center());
    EXPECT_EQ(date(), u"2026-03-05"_s);
    EXPECT_EQ(march->accessibleDescription(), u"Thursday 5 March 2026, 1 appointment"_s);
    QTest::keyClick(march, Qt::Key_Up);
    EXPECT_EQ(date(), u"2026-02-26"_s);
    QTest::mouseDClick(march, Qt::LeftButton, {}, march->dayPlace(31).center());
    EXPECT_FALSE(screen.isYearShown());
    EXPECT_EQ(date(), u"2026-03-31"_s);
}

TEST_F(CalendarScreen, PictureOfTheMonth)
{
    EXPECT_EQ(monthPicture(11), QString());
    PutIniValue(iniSettings, u"CalPicFile"_s, u"all.png"_s);
    EXPECT_EQ(monthPicture(11), u"all.png"_s);
    PutIniValue(iniSettings, u"NovPicFile"_s, u"new.png"_s);
    PutIniValue(u"Cal Pic"_s, u"NovPicFile"_s, u"old.png"_s);
    EXPECT_EQ(monthPicture(11), u"old.png"_s);
    keepMonthPicture(11, u"gone.png"_s);
    EXPECT_EQ(monthPicture(11), u"gone.png"_s);
    show();
    EXPECT_EQ(at<QLabel>(u"lblPictureFile"_s)->text(), u"gone.png"_s) << "stays chosen: its disk may come back";
    EXPECT_TRUE(at(u"picImage"_s)->accessibleDescription().contains(u"was not found"_s));
    const QImage hint = at(u"picImage"_s)->grab().toImage();
    QImage blank(hint.size(), hint.format());
    blank.fill(hint.pixelColor(0, 0));
    EXPECT_NE(hint, blank) << "the box says what is missing";
    dao::Database database = open();
    EXPECT_FALSE(monthPageText(database, 2026, 11, {}, monthPicture(11)).contains(u"<img"_s));
    for (const auto &[picture, page] : {std::pair{QSize(1600, 900), QSize(220, 124)}, {QSize(600, 900), QSize(123, 185)},
                                        {QSize(22, 10), QSize(220, 100)}, {QSize(0, 10), QSize()}})
        EXPECT_EQ(pagePictureSize(picture), page);
}

TEST_F(CalendarScreen, PagesAreWellFormedAndComplete)
{
    appointment(u"11/05/2026"_s, u"Plumber <second visit> & \"tea\""_s, u"08:00 Am"_s);
    execute(u"INSERT INTO EVENTS ([DATE],[SUBJECT],[EVENT]) VALUES (#11/10/1950#,'BIRTHDAY','Mum')"_s);
    for (int i = 0; i < 60; ++i)
        appointment(u"11/28/2026"_s, u"Turn %1 x"_s.arg(i));
    QImage(40, 30, QImage::Format_RGB32).save(m_folder.path(u"a b's.png"_s));
    dao::Database database = open();
    const QString list = monthPageText(database, 2026, 11, {}, m_folder.path(u"a b's.png"_s)), blank = blankPageText(2026, 11, {});
    for (const QString &page : {list, blank}) {
        EXPECT_TRUE(page.startsWith(u"<!DOCTYPE html>\n<html lang='en'>"_s));
        QString text = page.mid(page.indexOf(u"<body>"_s));
        text = text.left(text.indexOf(u"</html>"_s));
        static const QRegularExpression image(u"<img ([^>]*)>"_s);
        QXmlStreamReader reader(text.replace(image, u"<img \\1/>"_s));
        int cells = 0;
        while (!reader.atEnd())
            cells += reader.readNext() == QXmlStreamReader::StartElement && reader.name() == u"td";
        EXPECT_FALSE(reader.hasError()) << qPrintable(reader.errorString());
        EXPECT_GE(cells, 49);
        EXPECT_EQ(page.count(u"<td width='14%'>"_s), 7);
        EXPECT_LT(page.indexOf(u">Sun<"_s), page.indexOf(u">Sat<"_s));
        EXPECT_TRUE(page.contains(u"November 2026</th>"_s));
    }
    EXPECT_TRUE(list.contains(u"src='a%20b%27s.png' width='220' height='165' align='right'"_s)) << qPrintable(list.mid(list.indexOf(u"<img"_s), 90));
    EXPECT_TRUE(list.contains(u"Plumber &lt;second visit&gt; &amp; &quot;tea&quot;"_s));
    EXPECT_TRUE(list.contains(u"THIS MONTHS APPOINTMENTS"_s) && list.contains(u"<th>Day</th><th>Time</th><th>Appointment</th>"_s));
    EXPECT_TRUE(list.contains(u"THIS MONTHS EVENTS"_s) && list.contains(u"<td class='narrow'>Tue 10</td><td class='narrow'>BIRTHDAY</td><td>Mum (1950)</td>"_s));
    EXPECT_EQ(list.count(u"<td class='narrow'>Sat 28</td>"_s), 60);
    EXPECT_FALSE(blank.contains(u"THIS MONTHS"_s));
}

TEST_F(CalendarScreen, PageThatCannotBeWrittenIsReported)
{
    ASSERT_TRUE(QDir().mkdir(m_folder.path(u"CALENDAR.HTML"_s)));      // a folder in its place: not even the superuser writes it
    EXPECT_EQ(test::errorOf([] { ShowBlankCalendar(2026, 11); }), 75);
    show();
    m_prompts.expect(u"CALENDAR.HTML"_s);
    test::click(*m_screen, u"cmdBlank"_s);
    EXPECT_TRUE(m_prompts.isDone());
}

}
