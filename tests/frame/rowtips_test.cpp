#include "frame/framefixture.h"
#include "frame/rowtips.h"

using namespace Qt::StringLiterals;

namespace vorel {

class RowTipsTest : public test::FrameTest {
protected:
    RowTipsTest()
    {
        state().settings.gDateDisplay = u"dd/mm/yyyy"_s;
        const QString path = folder.path(u"TIPS.MDB"_s);
        dao::DBEngine::CreateDatabase(path, {}).Close();
        m_db = dao::DBEngine::OpenDatabase(path);
    }
    ~RowTipsTest() override { m_db.Close(); }

    QString tip(const QString &code, qint32 id) { return SetToolTip(m_db, code, id); }

    dao::Database m_db;
};

TEST_F(RowTipsTest, fieldsWithTheirLabelsAndFormats)
{
    m_db.Execute(u"CREATE TABLE [APPOINTMENTS] ([ID] LONG, [DATE] DATETIME, [APPTIME] TEXT(50), [APPOINTMENT] TEXT(50))"_s);
    m_db.Execute(u"INSERT INTO [APPOINTMENTS] VALUES (1,#11/22/2026#,'09:00 Am','Dentist')"_s);
    m_db.Execute(u"INSERT INTO [APPOINTMENTS] VALUES (2,#01/01/1900#,' ','Some day')"_s);
    EXPECT_EQ(tip(u"A"_s, 1), u" DATE: Sunday 22/11/2026\n TIME: 09:00 am\n APPOINTMENT: Dentist"_s);
    EXPECT_EQ(tip(u"A"_s, 2), u" APPOINTMENT: Some day"_s);
    m_db.Execute(u"CREATE TABLE [BILLS] ([ID] LONG, [BILL] TEXT(50), [AMOUNT] CURRENCY)"_s);   // an old file's fewer fields
    m_db.Execute(u"INSERT INTO [BILLS] VALUES (1,'Gas',12.5)"_s);
    m_db.Execute(u"INSERT INTO [BILLS] VALUES (2,'Water',0)"_s);
    EXPECT_EQ(tip(u"B"_s, 1), u" BILL: Gas\n AMOUNT: 12.50"_s);
    EXPECT_EQ(tip(u"B"_s, 2), u" BILL: Water"_s);
    for (const auto &[code, id] : {std::pair{u"B"_s, 3}, {u"B"_s, 0}, {u"E"_s, 1}, {u"nonsense"_s, 1}, {QString(), 1}})
        EXPECT_EQ(tip(code, id), QString()) << code << id;
}

TEST_F(RowTipsTest, contactsOfAllFiveLists)
{
    m_db.Execute(u"CREATE TABLE [CONTACTS] ([ID] LONG, [SORTNAME] TEXT(50), [HomeAddressStreet] TEXT(50), "
                 "[HomeAddressCity] TEXT(50), [HomeAddressPostalCode] TEXT(50), [MobileTelephoneNumber] TEXT(50), "
                 "[Birthday] TEXT(50), [Webpage] TEXT(50))"_s);
    const auto add = [this](int id, const QString &birthday) {
        m_db.Execute(u"INSERT INTO [CONTACTS] VALUES (%1,'MILLER, Ann','1 High St','York',Null,'040','%2',' ')"_s
                         .arg(id).arg(birthday));
    };
    add(1, u"04/03/1947"_s);
    const QString most = u"MILLER, Ann\n1 High St\nYork\nMOBILE: 040"_s;
    for (const QString &code : {u"P"_s, u"T"_s, u"D"_s, u"X"_s, u"C"_s})
        EXPECT_EQ(tip(code, 1), most + u"\nBIRTHDAY: 04/03/1947"_s) << code;
    int id = 1;
    for (const QString &none : {u"01/01/1900"_s, u"01/01/4501"_s, u"1/1/4501"_s, u" "_s}) {
        add(++id, none);
        EXPECT_EQ(tip(u"P"_s, id), most) << none;
    }
    add(++id, u"in spring"_s);
    EXPECT_TRUE(tip(u"P"_s, id).endsWith(u"BIRTHDAY: in spring"_s));
}

TEST_F(RowTipsTest, wholeRecordBesideTheGrid)
{
    clock.set(QDate(2026, 11, 22), QTime(12, 0));
    m_db.Execute(u"CREATE TABLE [BILLS] ([ID] LONG, [DATE] DATETIME, [BILL] TEXT(50), [AMOUNT] CURRENCY, [OwingTo] TEXT(50), "
                 "[PeriodMonth] SHORT, [PeriodDays] SHORT, [WeekNum] TEXT(3), [BillingDate] DATETIME, [PaymentDate] DATETIME)"_s);
    for (int month = 1; month <= 6; ++month)
        m_db.Execute(u"INSERT INTO [BILLS] VALUES (%1,#%1/05/2027#,'MUM`S RENT',900,'Ann',1,0,Null,#12/01/2026#,Null)"_s.arg(month));
    m_db.Execute(u"INSERT INTO [BILLS] VALUES (7,#01/09/2027#,'Gas',0,Null,0,0,Null,Null,Null)"_s);
    m_db.Execute(u"INSERT INTO [BILLS] VALUES (8,#02/09/2027#,'Gas',0,Null,0,0,Null,Null,Null)"_s);
    const std::vector<RecordLine> rent{{u"Date"_s, u"Tuesday 05/01/2027"_s}, {u"Bill"_s, u"MUM'S RENT"_s}, {u"Amount"_s, u"900.00"_s},
                                       {u"Owing to"_s, u"Ann"_s}, {u"Billed on"_s, u"01/12/2026"_s},
                                       {u"Next dates"_s, u"Fri 05/02/2027\nFri 05/03/2027\nMon 05/04/2027\nWed 05/05/2027\n"
                                                         "and 1 more up to 05/06/2027"_s}};
    EXPECT_EQ(recordDetails(m_db, u"B"_s, 1), rent);
    EXPECT_EQ(recordDetails(m_db, u"B"_s, 7).size(), 2u) << "a text that comes twice is no series";
    m_db.Execute(u"CREATE TABLE [EVENTS] ([ID] LONG, [DATE] DATETIME, [SUBJECT] TEXT(25), [EVENT] TEXT(50), [Recurring] BIT, [FULLEVENT] MEMO)"_s);
    m_db.Execute(u"INSERT INTO [EVENTS] VALUES (1,#11/21/1960#,'Birthday','Bob',False,'{\\rtf1 \\b Cake\\b0  and tea}')"_s);
    m_db.Execute(u"INSERT INTO [EVENTS] VALUES (2,#11/22/2020#,'SPORT','Run',True,Null)"_s);
    m_db.Execute(u"INSERT INTO [EVENTS] VALUES (3,#11/22/2026#,'SPORT','Match',False,Null)"_s);
    const auto last = [this](int id) { return recordDetails(m_db, u"E"_s, id).back(); };
    EXPECT_EQ(last(1), (RecordLine{u"Next"_s, u"Sun 21/11/2027"_s}));
    EXPECT_EQ(recordDetails(m_db, u"E"_s, 1)[3], (RecordLine{u"Full details"_s, u"Cake and tea"_s}));
    EXPECT_EQ(last(2), (RecordLine{u"Next"_s, u"Sun 22/11/2026"_s})) << "today";
    EXPECT_EQ(last(3), (RecordLine{u"Event"_s, u"Match"_s}));
}

TEST_F(RowTipsTest, longTextsAreFoldedAndLockedRowsSayNothing)
{
    m_db.Execute(u"CREATE TABLE [NOTES] ([ID] LONG, [NOTES] MEMO, [PASSWORD] TEXT(255))"_s);
    m_db.Execute(u"INSERT INTO [NOTES] VALUES (1,'%1',Null)"_s.arg(u"word "_s.repeated(400)));
    m_db.Execute(u"INSERT INTO [NOTES] VALUES (2,'secret','key')"_s);
    const QStringList lines = tip(u"N"_s, 1).split(u'\n');
    EXPECT_EQ(lines.size(), 6);
    for (const QString &line : lines)
        EXPECT_LE(line.size(), 76) << line;
    EXPECT_EQ(tip(u"N"_s, 2), QString());
    EXPECT_TRUE(recordDetails(m_db, u"N"_s, 2).empty());
}

}
