#include "reminders/recordscreen.h"
#include "platform/basic/dates.h"
#include "session/datetexts.h"

#include <QImage>
#include <QTimer>

namespace vorel {

using namespace Qt::StringLiterals;

class RecordView : public test::RecordScreen {
protected:
    void addEvent(const QString &subject, const QString &fields, const QString &values)
    {
        execute(u"INSERT INTO [EVENTS] ([DATE],[EVENT],[SUBJECT]%1) VALUES (#05/12/1947#,'Ann','%2'%3)"_s
                    .arg(fields.isEmpty() ? QString() : u","_s + fields, subject, values.isEmpty() ? QString() : u","_s + values));
    }
};

TEST_F(RecordView, LookingWritesNothing)
{
    addEvent(u"GENERAL"_s, u"[DATETO]"_s, u"'5/20/1947'"_s);
    addEvent(u"BIRTHDAY"_s, u"[DATETO],[EMAIL],[LastEmailDate]"_s, u"'5/20/1947',-1,'01/01/1900'"_s);
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[AMOUNT],[BillingDate]) VALUES (#11/22/2026#,'x',12.3456,#10/05/2026#)"_s);
    const QByteArray before = bytes();
    for (const QString &code : {u"E"_s, u"B"_s}) {
        openScreen(code, 1);
        EXPECT_FALSE(form->dtaData().isDirty()) << qPrintable(code);
        form->dtaData().MoveNext();
        EXPECT_FALSE(form->dtaData().isDirty()) << qPrintable(code);
        form->dtaData().MoveFirst();
        EXPECT_TRUE(form->Close());
        form.reset();
    }
    EXPECT_EQ(bytes(), before);
}

TEST_F(RecordView, BirthdayLastsOneDayAndOffersAGreeting)
{
    addEvent(u"BIRTHDAY"_s, u"[DATETO],[EMAIL],[EMAILID],[EmailAddress],[Card]"_s, u"'5/20/1947',-1,4,'ann@example.org',-1"_s);
    addEvent(u"GENERAL"_s, u"[DATETO],[EMAIL],[EMAILID],[EmailAddress],[Card]"_s, u"'5/20/1947',-1,4,'ann@example.org',-1"_s);
    addEvent(u"BIRTHDAY"_s, {}, {});
    const QStringList greeting{u"lblEmail1"_s, u"chkEmail"_s, u"lblCard"_s, u"chkCard"_s};
    const QStringList ticked{u"lblEmail2"_s, u"txtEmail"_s, u"cmdEmail"_s, u"lblCardBuy"_s, u"chkCardBuy"_s, u"lblCardSent"_s, u"chkCardSent"_s};
    struct Case { int id; bool offered, all; const char16_t *dateTo; bool dateToOpen; };
    const Case cases[] = {{1, true, true, u"", false}, {2, false, false, u"5/12/1947", true}, {3, true, false, u"", false}};
    for (const Case &c : cases) {
        openScreen(u"E"_s, c.id);
        for (const QString &name : greeting)
            EXPECT_EQ(isShown(name), c.offered) << c.id << ' ' << qPrintable(name);
        for (const QString &name : ticked)
            EXPECT_EQ(isShown(name), c.all) << c.id << ' ' << qPrintable(name);
        EXPECT_EQ(text(u"txtDateTo"_s), QString::fromUtf16(c.dateTo));
        EXPECT_EQ(at(u"txtDateTo"_s)->isEnabled(), c.dateToOpen);
    }
    // Ticking and unticking, on the third.
    click(u"chkEmail"_s);
    EXPECT_TRUE(isShown(u"txtEmail"_s) && isShown(u"lblEmail2"_s));
    click(u"chkEmail"_s);
    EXPECT_FALSE(isShown(u"txtEmail"_s));
    EXPECT_TRUE(isShown(u"lblEmail1"_s));
    click(u"chkCard"_s);
    EXPECT_TRUE(isShown(u"chkCardSent"_s));
    click(u"chkCard"_s);
    EXPECT_FALSE(isShown(u"chkCardBuy"_s));
}

TEST_F(RecordView, DoubleClickFetchesTheContactsAddress)
{
    state().path(DataFile::Contacts) = path();
    execute(u"CREATE TABLE [CONTACTS] ([ID] LONG, [EMAIL1ADDRESS] TEXT(75))"_s);
    execute(u"INSERT INTO [CONTACTS] ([ID],[EMAIL1ADDRESS]) VALUES (4,'new@example.org')"_s);
    addEvent(u"BIRTHDAY"_s, u"[EMAIL],[EMAILID],[EmailAddress]"_s, u"-1,4,'old@example.org'"_s);
    addEvent(u"BIRTHDAY"_s, u"[EMAIL],[EMAILID],[EmailAddress]"_s, u"-1,5,'old@example.org'"_s);
    openScreen(u"E"_s, 1);
    QTest::mouseDClick(at(u"txtEmail"_s), Qt::LeftButton);
    EXPECT_EQ(text(u"txtEmail"_s), u"new@example.org"_s);
    openScreen(u"E"_s, 2);
    QTest::mouseDClick(at(u"txtEmail"_s), Qt::LeftButton);
    EXPECT_EQ(text(u"txtEmail"_s), QString());
}

TEST_F(RecordView, PictureOfTheEventOrTheSections)
{
    QImage red(40, 20, QImage::Format_RGB32);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(m_folder.path(u"red.bmp"_s)));
    addEvent(u"GENERAL"_s, u"[FILENAME]"_s, u"'%1'"_s.arg(m_folder.path(u"red.bmp"_s)));
    addEvent(u"GENERAL"_s, u"[FILENAME]"_s, u"'%1'"_s.arg(m_folder.path(u"gone.bmp"_s)));
    m_folder.write(u"junk.jpg"_s, "no picture");
    addEvent(u"GENERAL"_s, u"[FILENAME]"_s, u"'%1'"_s.arg(m_folder.path(u"junk.jpg"_s)));
    openScreen(u"E"_s, 1);
    const auto middle = [&] {
        const QImage shown = at<QLabel>(u"picImage"_s)->pixmap().toImage();
        return shown.isNull() ? QColor() : shown.pixelColor(shown.rect().center());
    };
    EXPECT_EQ(middle(), QColor(Qt::red));
    for (int row = 2; row <= 3; ++row) {
        form->dtaData().MoveNext();
        EXPECT_TRUE(middle().isValid()) << row;
        EXPECT_NE(middle(), QColor(Qt::red)) << row;
    }
    user.expectFile(u"Event Picture"_s, m_folder.path(u"red.bmp"_s));
    QTimer::singleShot(0, form.get(), [&] {
        auto *chooser = form->findChild<QDialog *>(u"frmDataPath"_s);
        ASSERT_TRUE(chooser);
        chooser->findChild<QAbstractButton *>(u"cmdSearch"_s)->click();
        chooser->findChild<QAbstractButton *>(u"cmdApply"_s)->click();
    });
    click(u"cmdPicture"_s);
    EXPECT_EQ(middle(), QColor(Qt::red));
    EXPECT_TRUE(form->Close());
    EXPECT_EQ(rows(u"SELECT [FILENAME] FROM [EVENTS] WHERE [ID]=3"_s), QStringList{u"\\red.bmp"_s}) << "it moves with the folder";
}

// Whatever the format and the region, a day and its series stay the days that they are.
TEST_F(RecordView, DisplayFormatAgainstTheRegionKeepsTheDay)
{
    for (const char *region : {"en_US", "en_AU", "de_DE"}) {
        setRegion(QString::fromLatin1(region));
        for (const QString &format : {u"dd/mm/yyyy"_s, u"mm/dd/yyyy"_s, u"dd.mm.yy"_s, u"ddd d mmm yyyy"_s, u"yyyy"_s}) {
            SCOPED_TRACE(region + (' ' + format.toStdString()));
            state().settings.gDateDisplay = format;
            execute(u"DELETE * FROM [BILLS]"_s);
            execute(u"INSERT INTO [BILLS] ([ID],[DATE],[BILL],[BillingDate],[PeriodDays]) VALUES (1,#12/04/2027#,'x',#12/04/2027#,9)"_s);
            execute(u"DELETE * FROM [EVENTS]"_s);
            execute(u"INSERT INTO [EVENTS] ([ID],[DATE],[EVENT],[DATETO]) VALUES (1,#12/04/2027#,'x','%1')"_s
                        .arg(storedDateText(basic::DateSerial(2027, 12, 4))));
            openScreen(u"B"_s, 1);
            EXPECT_EQ(text(u"lblDay"_s), u"Sat"_s);
            type(u"txtAmount"_s, u"1"_s);
            click(u"cmdUpdate"_s);
            EXPECT_EQ(rows(u"SELECT [DATE],[BillingDate] FROM [BILLS] ORDER BY [DATE]"_s),
                      (QStringList{u"2027-12-04|2027-12-04"_s, u"2027-12-13|Null"_s, u"2027-12-22|Null"_s, u"2027-12-31|Null"_s}));
            if (format != u"yyyy"_s) {
                type(u"txtDate"_s, displayDate(basic::DateSerial(2027, 12, 5)));
                click(u"cmdUpdate"_s);
                EXPECT_EQ(text(u"lblDay"_s), u"Sun"_s);
                EXPECT_EQ(rows(u"SELECT [DATE] FROM [BILLS] ORDER BY [DATE]"_s),
                          (QStringList{u"2027-12-05"_s, u"2027-12-14"_s, u"2027-12-23"_s}));
            }
            openScreen(u"E"_s, 1);
            type(u"txtEvent"_s, u"y"_s);
            click(u"cmdUpdate"_s);
            EXPECT_TRUE(form->Close());
            EXPECT_EQ(rows(u"SELECT [DATE],[DATETO] FROM [EVENTS]"_s),
                      QStringList{u"2027-12-04|"_s + storedDateText(basic::DateSerial(2027, 12, 4))});
        }
    }
}

}
