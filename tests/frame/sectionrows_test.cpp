#include "session/sectiondesign.h"
#include "store/mainfile.h"

namespace vorel {

using namespace Qt::StringLiterals;

// What the queries of the contact sections find in a real file.
class SectionRowsTest : public test::MainFileTest {
protected:
    SectionRowsTest()
    {
        test::putEmptyFiles(m_folder.path());
        state().path(DataFile::Main) = m_folder.path(u"CONTACTS.MDB"_s);        // what rows() reads
    }
    // fields and values as in an INSERT; the flags that are not named are False.
    void add(const QString &name, const QString &fields, const QString &values)
    {
        execute(u"INSERT INTO [CONTACTS] ([SORTNAME],[LASTNAME],%1) VALUES ('%2','%2',%3);"_s.arg(fields, name, values));
    }
    QStringList list(const QString &code) { return rows(sectionByCode(code)->list->query); }
};

TEST_F(SectionRowsTest, whoIsInWhichList)
{
    const QString all = u"[INVISIBLE],[PRIVATE],[EMERGENCY],[CHRISTMASCARD],[CATEGORY]"_s;
    add(u"Hidden"_s, all, u"True,True,True,True,'Trade'"_s);
    add(u"HiddenToo"_s, all, u"True,False,False,False,'Trade'"_s);
    add(u"Private"_s, all, u"False,True,False,False,'Trade'"_s);
    add(u"Trade"_s, all, u"False,False,True,True,'Trade'"_s);
    add(u"Loose"_s, all, u"False,False,False,False,''"_s);
    const std::pair<QString, QString> expected[] = {
        {u"P"_s, u"Loose Private Trade"_s}, {u"T"_s, u"Private"_s}, {u"D"_s, u"Trade"_s},
        {u"X"_s, u"Trade"_s}, {u"C"_s, u"Trade"_s}};
    for (const auto &[code, people] : expected) {
        QStringList names;
        for (const QString &row : list(code))
            names << row.split(u'|').value(code == u"D" ? 3 : 1);
        EXPECT_EQ(names.join(u' '), people) << qPrintable(code);
    }
}

TEST_F(SectionRowsTest, cellsOfSeveralLines)
{
    add(u"Ann"_s, u"[EMERGENCY],[HomeTelephoneNumber],[MobileTelephoneNumber]"_s, u"True,'11','33'"_s);
    add(u"Bob"_s, u"[EMERGENCY],[BusinessTelephoneNumber],[PagerNumber]"_s, u"True,'22','44'"_s);
    add(u"Cid"_s,
        u"[CHRISTMASCARD],[MailingAddressStreet],[MailingAddressCity],[MailingAddressState],[MailingAddressPostalCode]"_s,
        u"True,'1 High St','Perth','WA','6000'"_s);
    // A number that is missing takes its label along, not its line end.
    EXPECT_EQ(list(u"X"_s),
              (QStringList{u"1|Ann|Home: 11\r\n'Cell:   33\r\n"_s, u"2|Bob|\r\n'Work: 22\r\n'Pager: 44\r\n"_s}));
    EXPECT_EQ(list(u"C"_s), QStringList{u"3|Cid|1 High St\r\nPerth WA 6000"_s});
}

}
