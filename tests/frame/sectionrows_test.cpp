#include "frame/framefixture.h"
#include "frame/sections.h"

using namespace Qt::StringLiterals;

// What the queries of the contact sections find in a real file.
namespace vorel {

class SectionRowsTest : public test::FrameTest {
protected:
    SectionRowsTest()
    {
        const QString path = folder.path(u"CONTACTS.MDB"_s);
        dao::DBEngine::CreateDatabase(path, {}).Close();
        m_db = dao::DBEngine::OpenDatabase(path);
        dao::TableDef design;
        design.Name = u"CONTACTS"_s;
        const auto addField = [&design](const QString &name, dao::DataType type, int size) {
            dao::FieldDef field;
            field.Name = name;
            field.Type = type;
            field.Size = size;
            field.AllowZeroLength = type == dao::dbText;
            design.Fields.push_back(field);
        };
        addField(u"ID"_s, dao::dbLong, 4);
        for (const QString &name : {u"INVISIBLE"_s, u"PRIVATE"_s, u"EMERGENCY"_s, u"CHRISTMASCARD"_s, u"NEWIMPORT"_s})
            addField(name, dao::dbBoolean, 1);
        for (const QString &name :
             {u"SORTNAME"_s, u"LASTNAME"_s, u"CATEGORY"_s, u"CONTACT"_s, u"FILENAME"_s, u"HomeTelephoneNumber"_s,
              u"BusinessTelephoneNumber"_s, u"Business2TelephoneNumber"_s, u"MobileTelephoneNumber"_s,
              u"Home2TelephoneNumber"_s, u"HomeFaxNumber"_s, u"PagerNumber"_s, u"Email1Address"_s,
              u"MailingAddressStreet"_s, u"MailingAddressCity"_s, u"MailingAddressState"_s,
              u"MailingAddressPostalCode"_s, u"MailingAddressCountry"_s})
            addField(name, dao::dbText, 100);
        m_db.AppendTable(design);
    }
    ~SectionRowsTest() override { m_db.Close(); }

    // fields and values as in an INSERT; the flags that are not named are False.
    void add(const QString &name, const QString &fields, const QString &values)
    {
        m_db.Execute(u"INSERT INTO [CONTACTS] ([ID],[SORTNAME],[LASTNAME],%1) VALUES (%2,'%3','%3',%4);"_s
                         .arg(fields).arg(++m_id).arg(name, values));
    }
    dao::Recordset open(const QString &code)
    {
        return m_db.OpenRecordset(sectionByCode(code)->query, dao::dbOpenSnapshot);
    }
    QStringList names(const QString &code)
    {
        QStringList found;
        for (auto rows = open(code); !rows.EOF_(); rows.MoveNext())
            found << rows.Get(1).text() + rows.Get(code == u"D" ? 3 : 0).text();
        return found;
    }

    dao::Database m_db;
    int m_id = 0;
};

TEST_F(SectionRowsTest, whoIsInWhichList)
{
    const QString all = u"[INVISIBLE],[PRIVATE],[EMERGENCY],[CHRISTMASCARD],[CATEGORY]"_s;
    add(u"Hidden"_s, all, u"True,True,True,True,'Trade'"_s);
    add(u"HiddenToo"_s, all, u"True,False,False,False,'Trade'"_s);
    add(u"Private"_s, all, u"False,True,False,False,'Trade'"_s);
    add(u"Trade"_s, all, u"False,False,True,True,'Trade'"_s);
    add(u"Loose"_s, all, u"False,False,False,False,''"_s);
    const std::pair<QString, QStringList> expected[] = {
        {u"P"_s, {u"Loose5"_s, u"Private3"_s, u"Trade4"_s}},
        {u"T"_s, {u"Private3"_s}},
        {u"D"_s, {u"Trade"_s}},
        {u"X"_s, {u"Trade4"_s}},
        {u"C"_s, {u"Trade4"_s}},
    };
    for (const auto &[code, list] : expected)
        EXPECT_EQ(names(code), list) << code << names(code).join(u' ');
}

TEST_F(SectionRowsTest, missingNumbersBlankTheirLabels)
{
    add(u"Ann"_s, u"[EMERGENCY],[INVISIBLE],[HomeTelephoneNumber],[MobileTelephoneNumber]"_s, u"True,False,'11','33'"_s);
    add(u"Bob"_s, u"[EMERGENCY],[INVISIBLE],[BusinessTelephoneNumber],[PagerNumber]"_s, u"True,False,'22','44'"_s);
    auto rows = open(u"X"_s);
    const QString ann = rows.Get(u"PHONENUM").text();
    EXPECT_TRUE(ann.startsWith(u"Home: 11\r\n"_s)) << ann;
    EXPECT_TRUE(ann.contains(u"Cell:   33\r\n"_s)) << ann;
    EXPECT_FALSE(ann.contains(u"Work"_s) || ann.contains(u"Pager"_s)) << ann;
    rows.MoveNext();
    const QString bob = rows.Get(u"PHONENUM").text();
    EXPECT_TRUE(bob.contains(u"Work: 22\r\n"_s) && bob.contains(u"Pager: 44\r\n"_s)) << bob;
    EXPECT_FALSE(bob.contains(u"Home"_s) || bob.contains(u"Cell"_s)) << bob;
}

TEST_F(SectionRowsTest, addressOverSeveralLines)
{
    add(u"Ann"_s,
        u"[CHRISTMASCARD],[INVISIBLE],[MailingAddressStreet],[MailingAddressCity],[MailingAddressState],"
        "[MailingAddressPostalCode]"_s,
        u"True,False,'1 High St','Perth','WA','6000'"_s);
    auto rows = open(u"C"_s);
    EXPECT_EQ(rows.Get(u"ADDRESS").text(), u"1 High St\r\nPerth WA 6000"_s);
}

}
