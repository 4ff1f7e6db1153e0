#include "store/designs.h"

#include "store/mainfile.h"

namespace vorel {

using namespace Qt::StringLiterals;

// A design in the notation of the expectations below: "NAME kind size default flags", one field a line.
static QString shownField(const dao::FieldDef &field)
{
    static const QHash<int, QString> kinds = {
        {dao::dbBoolean, u"boolean"_s}, {dao::dbInteger, u"integer"_s}, {dao::dbLong, u"long"_s},
        {dao::dbCurrency, u"currency"_s}, {dao::dbDouble, u"double"_s}, {dao::dbDate, u"date"_s},
        {dao::dbText, u"text"_s}, {dao::dbMemo, u"memo"_s}};
    QString line = field.Name + u' ' + kinds.value(field.Type, u"?"_s);
    if (field.Type == dao::dbText)
        line += u' ' + QString::number(field.Size);
    if (!field.DefaultValue.isEmpty())
        line += u" ="_s + field.DefaultValue;
    if (field.Attributes & dao::dbAutoIncrField)
        line += u" auto"_s;
    if (field.AllowZeroLength)
        line += u" empty"_s;
    if (field.Required || !field.ValidationRule.isEmpty() || !field.ValidationText.isEmpty())
        line += u" restricted"_s;
    return line;
}

static QString shownIndexes(const dao::TableDef &table)
{
    QStringList lines;
    for (const dao::IndexDef &index : table.Indexes) {
        lines << index.Name + u':' + index.Fields.join(u'+') + (index.Primary ? u" primary"_s : u""_s)
                + (index.Unique ? u" unique"_s : u""_s) + (index.Required ? u" required"_s : u""_s);
    }
    lines.sort();
    return lines.join(u"; "_s);
}

static QStringList shownFields(const dao::TableDef &table)
{
    QStringList lines;
    for (const dao::FieldDef &field : table.Fields)
        lines << shownField(field);
    return lines;
}

class DesignsTest : public test::MainFileTest {
protected:
    dao::Database m_database = open();
};

struct TableCase {
    const char16_t *name;
    std::vector<const char *> fields;
    const char *indexes;
};

TEST_F(DesignsTest, createdTablesReadBackAsWanted)
{
    const TableCase cases[] = {
        {u"APPOINTMENTS",
         {"ID long auto", "DATE date", "DAY text 3 empty", "TIME date", "APPTIME text 11 empty",
          "APPOINTMENT text 255 empty", "MET boolean", "Delete boolean", "PeriodMonth integer =0",
          "PeriodDays integer =0", "WeekNum text 3 empty", "WeekDay text 3 empty", "TimeUpdate boolean",
          "UsersName text 20 empty", "IDNUM long =0"},
         "PrimaryKey:ID primary unique required"},
        {u"BILLS",
         {"ID long auto", "DATE date", "DAY text 3 empty", "BILL text 100 empty", "AMOUNT currency =0",
          "OwingTo text 100 empty", "PAID boolean", "PeriodMonth integer =0", "PeriodDays integer =0", "Delete boolean",
          "WeekNum text 3 empty", "WeekDay text 3 empty", "FixedAmount boolean", "BillingDate date", "PaymentDate date",
          "Website text 200 empty", "UsersName text 20 empty", "IDNUM long =0"},
         ""},
        {u"EVENTS",
         {"ID long auto", "DATE date", "DAY text 3 empty", "SUBJECT text 25 empty", "EVENT text 250 empty",
          "DATETO text 11 empty", "Delete boolean", "Recurring boolean", "FILENAME text 100 empty",
          "MatchID text 255 empty", "UsersName text 20 empty", "IDNUM long =0", "EMAIL boolean",
          "EmailAddress text 75 empty", "EMAILID integer =0", "LastEmailDate text 11 empty", "Card boolean",
          "CardPurchased boolean", "CardSent boolean", "ContactID long =0", "FULLEVENT memo empty"},
         "PrimaryKey:ID primary unique required"},
        {u"SUBJECTS",
         {"ID long auto", "SUBJECT text 20 empty"},
         "PrimaryKey:ID primary unique required; SUBJECT:SUBJECT unique"},
        {u"Setup",
         {"MailServer text 70 empty", "DeleteAfterDays integer =0", "BackupAfterDays integer =0",
          "AdminPassword double =0", "PasswordHint text 255 empty"},
         ""},
    };
    for (const TableCase &wanted : cases) {
        const dao::TableDef table = m_database.TableDefByName(wanted.name);
        QStringList fields;
        for (const char *line : wanted.fields)
            fields << QString::fromLatin1(line);
        EXPECT_EQ(shownFields(table), fields);
        EXPECT_EQ(shownIndexes(table), QString::fromLatin1(wanted.indexes)) << qPrintable(table.Name);
    }
}

TEST_F(DesignsTest, everyTableStandsInOrderWithItsOwnFieldsAndIndexes)
{
    const QStringList wanted = {u"APPOINTMENTS"_s, u"BILLS"_s, u"EVENTS"_s, u"SUBJECTS"_s, u"Setup"_s, u"MESSAGES"_s,
                                u"INVENTORY"_s, u"Users"_s, u"FILEBACKUP"_s, u"SHOPPING"_s, u"TODO"_s, u"PROFILE"_s,
                                u"ProfileData"_s};
    const QStringList indexed = {u"APPOINTMENTS"_s, u"EVENTS"_s, u"SUBJECTS"_s, u"MESSAGES"_s};
    QStringList found;
    for (const dao::TableDef &table : m_database.TableDefs()) {
        if (table.Name != u"Database Info")
            found << table.Name;
    }
    EXPECT_EQ(found, wanted);
    for (const dao::TableDef &design : store::mainDesigns()) {
        const dao::TableDef table = m_database.TableDefByName(design.Name);
        EXPECT_EQ(table.Fields, design.Fields) << qPrintable(design.Name);
        EXPECT_EQ(shownIndexes(table), shownIndexes(design)) << qPrintable(design.Name);
        EXPECT_EQ(table.Indexes.empty(), !indexed.contains(design.Name)) << qPrintable(design.Name);
    }
    const dao::TableDef pictures = m_database.TableDefByName(u"ProfileData");
    ASSERT_EQ(pictures.Fields.size(), 21u);
    EXPECT_EQ(shownField(pictures.Fields[0]), u"ID long =0");
    EXPECT_EQ(shownField(pictures.Fields[8]), u"PICFILE6 text 255 empty");
    EXPECT_EQ(shownField(pictures.Fields[14]), u"PICFILE6CAPTION memo empty");
    EXPECT_EQ(shownField(pictures.Fields[20]), u"PIC6SORTNUM double =0");
}

TEST_F(DesignsTest, tablesTakeWhatTheirDesignsAllow)
{
    dao::Recordset subjects = m_database.OpenRecordset(u"SUBJECTS"_s);
    const auto add = [&subjects](const QString &subject) {
        return test::errorOf([&] {
            subjects.AddNew();
            subjects.Set(u"SUBJECT", subject);
            subjects.Update();
        });
    };
    EXPECT_EQ(add(u"GENERAL"_s), 0);
    EXPECT_EQ(add(u""_s), 0);
    EXPECT_EQ(add(u"General "_s), 3022);    // case and trailing blanks make no other subject
    EXPECT_EQ(add(u""_s), 3022);
    subjects.Close();

    dao::Recordset rows = m_database.OpenRecordset(u"APPOINTMENTS"_s);
    rows.AddNew();
    EXPECT_EQ(test::errorOf([&] { rows.Set(u"APPOINTMENT", QString(256, u'x')); }), 3163);
    rows.Set(u"APPOINTMENT", QString(255, u'x'));
    EXPECT_EQ(test::shown(rows.Get(u"PeriodDays")), u"0");
    EXPECT_TRUE(rows.Get(u"DATE").isNull());
    rows.Update();
    EXPECT_EQ(rows.RecordCount(), 1);
}

// A bill has no key index, and is still found and deleted by its number.
TEST_F(DesignsTest, billsCountUpWithoutAnIndex)
{
    for (int i = 0; i < 3; ++i)
        m_database.Execute(u"INSERT INTO [Bills] ([Bill]) VALUES ('Rent');"_s);
    m_database.Execute(u"DELETE * FROM [Bills] WHERE [ID]=2;"_s);
    EXPECT_EQ(rows(u"SELECT [ID], [Amount], [Paid] FROM [Bills] ORDER BY [ID];"_s),
              QStringList({u"1|0|False"_s, u"3|0|False"_s}));
}

}
