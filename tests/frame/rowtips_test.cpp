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
    EXPECT_EQ(tip(u"A"_s, 1), u" DATE: Sunday 22/11/2026\n TIME: 09:00 Am\n APPOINTMENT: Dentist"_s);
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
}

}
