#include "frame/framefixture.h"
#include "frame/periods.h"

using namespace Qt::StringLiterals;

// What the queries of a period find in a real file.
namespace vorel {

class PeriodRowsTest : public test::FrameTest {
protected:
    PeriodRowsTest()
    {
        const QString path = folder.path(u"VOREL.MDB"_s);
        dao::DBEngine::CreateDatabase(path, {}).Close();
        m_db = dao::DBEngine::OpenDatabase(path);
        m_db.Execute(u"CREATE TABLE [EVENTS] ([ID] LONG, [DATE] DATETIME, [SUBJECT] TEXT(50), [EVENT] TEXT(255), [RECURRING] BIT)"_s);
        m_db.Execute(u"CREATE TABLE [BILLS] ([ID] LONG, [DATE] DATETIME, [BILL] TEXT(100), [AMOUNT] CURRENCY)"_s);
    }
    ~PeriodRowsTest() override { m_db.Close(); }

    void addEvent(const QString &date, const QString &subject, const QString &event, bool recurring = false)
    {
        m_db.Execute(u"INSERT INTO [EVENTS] ([ID],[DATE],[SUBJECT],[EVENT],[RECURRING]) VALUES (%1,#%2#,'%3','%4',%5);"_s
                         .arg(++m_id).arg(date, subject, event).arg(recurring ? -1 : 0));
    }
    QStringList column(const QString &sql, const QString &field)
    {
        QStringList values;
        for (auto rows = m_db.OpenRecordset(sql, dao::dbOpenSnapshot); !rows.EOF_(); rows.MoveNext())
            values << rows.Get(field).text();
        return values;
    }
    QStringList events() { return column(state().gSqlEvents, u"EVENT"_s); }

    dao::Database m_db;
    int m_id = 0;
};

TEST_F(PeriodRowsTest, leapDayBirthdayRollsOverInAPeriodOnly)
{
    addEvent(u"02/29/1980"_s, u"BIRTHDAY"_s, u"Leap"_s);
    clock.set({2005, 3, 1});
    SetThisMonth();
    EXPECT_EQ(events(), QStringList{u"Leap"_s});
    SetLastMonth();
    EXPECT_EQ(events(), QStringList());
    SetDayPeriod(u"Today"_s);
    EXPECT_EQ(events(), QStringList());
    clock.set({2004, 2, 29});
    SetDayPeriod(u"Today"_s);
    EXPECT_EQ(events(), QStringList{u"Leap"_s});
    SetThisMonth();
    EXPECT_EQ(events(), QStringList{u"Leap"_s});
}

TEST_F(PeriodRowsTest, weekOverNewYearMissesJanuaryBirthdays)
{
    addEvent(u"12/28/1947"_s, u"BIRTHDAY"_s, u"December"_s);
    addEvent(u"01/01/1950"_s, u"BIRTHDAY"_s, u"January"_s);
    clock.set({2004, 12, 31});
    SetThisWeek();
    EXPECT_EQ(events(), QStringList{u"December"_s});
    SetThisMonth();
    EXPECT_EQ(events(), QStringList{u"December"_s});
    SetNextMonth();
    EXPECT_EQ(events(), QStringList{u"January"_s});
}

TEST_F(PeriodRowsTest, futureAndHolidayRowsTellDaysFromPeriods)
{
    addEvent(u"06/15/2030"_s, u"BIRTHDAY"_s, u"Future"_s);
    addEvent(u"06/15/1999"_s, u"HOLIDAY"_s, u"Holiday"_s);
    addEvent(u"06/15/1999"_s, u"OTHER"_s, u"Yearly"_s, true);
    addEvent(u"06/15/1999"_s, u"OTHER"_s, u"Once"_s);
    clock.set({2005, 6, 15});
    SetDayPeriod(u"Today"_s);
    EXPECT_EQ(events(), (QStringList{u"Holiday"_s, u"Yearly"_s, u"Future"_s}));
    SetThisMonth();
    EXPECT_EQ(events(), QStringList{u"Yearly"_s});
    SetAllRecords();
    EXPECT_EQ(events(), (QStringList{u"Holiday"_s, u"Once"_s, u"Yearly"_s, u"Future"_s}));
}

TEST_F(PeriodRowsTest, billsOfTheFirstAndLastDayBelong)
{
    for (const QString &date : {u"05/31/2005"_s, u"06/01/2005"_s, u"06/30/2005"_s, u"07/01/2005"_s})
        m_db.Execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[AMOUNT]) VALUES (#%1#,'%1',1);"_s.arg(date));
    clock.set({2005, 6, 15});
    SetThisMonth();
    EXPECT_EQ(column(state().gSqlBills, u"BILL"_s), (QStringList{u"06/01/2005"_s, u"06/30/2005"_s}));
}

}
