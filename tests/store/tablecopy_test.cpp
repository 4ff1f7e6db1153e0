#include "store/tablecopy.h"

#include "store/designfields.h"
#include "store/mainfile.h"

namespace vorel {

using namespace Qt::StringLiterals;
using namespace store::design;
using basic::Value;
using dao::DataType;

using TableCopyTest = test::MainFileTest;

TEST_F(TableCopyTest, aValueBecomesWhatTheNewFieldTakes)
{
    const Value day = basic::DateTime::fromParts(2026, 11, 22);
    const struct {
        Value value;
        DataType oldType;
        int oldSize;
        DataType newType;
        int newSize;
        Value wanted;
    } cases[] = {
        {{}, dao::dbText, 50, dao::dbDate, 8, {}},
        {u" as it is "_s, dao::dbText, 50, dao::dbText, 50, u" as it is "_s},
        {u"  twenty characters and more"_s, dao::dbText, 50, dao::dbText, 20, u"twenty characters"_s},
        {u" wider "_s, dao::dbText, 20, dao::dbText, 50, u"wider"_s},
        {u"12.5 apples"_s, dao::dbText, 50, dao::dbInteger, 2, std::int16_t{12}},
        {u"1e3"_s, dao::dbMemo, 0, dao::dbLong, 4, 1000},
        {u"no number"_s, dao::dbText, 50, dao::dbDouble, 8, 0.0},
        {u"0.1"_s, dao::dbText, 50, dao::dbCurrency, 8, basic::Currency::fromScaled(1000)},
        {u"-1"_s, dao::dbText, 50, dao::dbBoolean, 1, true},
        {u"True"_s, dao::dbText, 50, dao::dbBoolean, 1, false},
        {u"200"_s, dao::dbText, 50, dao::dbByte, 1, std::uint8_t{200}},
        {u"2.5"_s, dao::dbText, 50, dao::dbSingle, 4, 2.5f},
        {day, dao::dbDate, 8, dao::dbLong, 4, 11},
        {70000, dao::dbLong, 4, dao::dbInteger, 2, 70000},      // the field itself has the last word
        {u"11/22/2026"_s, dao::dbText, 11, dao::dbDate, 8, day},
        {day, dao::dbDate, 8, dao::dbText, 11, u"11/22/2026"_s},
        {day, dao::dbDate, 8, dao::dbText, 5, u"11/22"_s},
        {true, dao::dbBoolean, 1, dao::dbMemo, 0, u"True"_s},
        {QString(300, u'x'), dao::dbText, 255, dao::dbMemo, 0, QString(300, u'x')},
        {QString(300, u'x'), dao::dbMemo, 0, dao::dbText, 255, QString(255, u'x')},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(qPrintable(c.value.text() + u" as %1"_s.arg(c.newType)));
        const Value found = ConvertFieldValue(c.value, {u"F"_s, c.oldType, c.oldSize, c.newType, c.newSize, true});
        EXPECT_EQ(found.type(), c.wanted.type());
        EXPECT_EQ(found.text(), c.wanted.text());
    }
    const auto failure = [](const QString &text, DataType type) {
        return test::errorOf([&] { ConvertFieldValue(text, {u"F"_s, dao::dbText, 50, type, 0, true}); });
    };
    EXPECT_EQ(failure(u"soon"_s, dao::dbDate), 13);
    EXPECT_EQ(failure(u"70000"_s, dao::dbInteger), 6);
    for (const bool allowed : {true, false}) {
        EXPECT_EQ(ConvertFieldValue(u"  "_s, {u"F"_s, dao::dbText, 20, dao::dbText, 10, allowed}).text(),
                  allowed ? u""_s : u" "_s);
    }
}

TEST_F(TableCopyTest, whatMakesATableCountAsChanged)
{
    using Change = std::function<void(dao::TableDef &)>;
    const dao::TableDef base = table(u"T"_s, {counter(u"ID"_s), text(u"NAME"_s, 20), longer(u"PLACE"_s)}, {primaryKey()});
    const auto field = [](auto member, auto value) {
        return Change([=](dao::TableDef &old) { old.Fields[1].*member = value; });
    };
    const struct { const char *name; Change change; bool wanted; } cases[] = {
        {"nothing", [](auto &) {}, false},
        {"another order", [](auto &old) { std::swap(old.Fields[1], old.Fields[2]); }, false},
        {"another case", [](auto &old) { old.Fields[1].Name = u"Name"_s; }, false},
        {"a helper index", [](auto &old) { old.Helpers = QStringList{u"PLACE"_s}; }, false},
        {"a field less", [](auto &old) { old.Fields.pop_back(); }, true},
        {"a field more", [](auto &old) { old.Fields.push_back(flag(u"MORE"_s)); }, true},
        {"type", field(&dao::FieldDef::Type, dao::dbMemo), true},
        {"size", field(&dao::FieldDef::Size, 30), true},
        {"no empty text", field(&dao::FieldDef::AllowZeroLength, false), true},
        {"default", field(&dao::FieldDef::DefaultValue, u"x"_s), true},
        {"required", field(&dao::FieldDef::Required, true), true},
        {"rule", field(&dao::FieldDef::ValidationRule, u"<>'x'"_s), true},
        {"rule's text", field(&dao::FieldDef::ValidationText, u"Not x"_s), true},
        {"no index", [](auto &old) { old.Indexes.clear(); }, true},
        {"an index more", [](auto &old) { old.Indexes.push_back(uniqueIndex(u"NAME"_s, u"NAME"_s)); }, true},
        {"not unique", [](auto &old) { old.Indexes = {{u"PrimaryKey"_s, {u"ID"_s}, false, false, true}}; }, true},
        {"on another field", [](auto &old) { old.Indexes = {{u"PrimaryKey"_s, {u"PLACE"_s}, true, true, true}}; }, true},
    };
    dao::Database database = open();
    for (const auto &c : cases) {
        dao::TableDef old = base;
        c.change(old);
        old.Name = setAsideName(u"T"_s);
        database.AppendTable(old);
        EXPECT_EQ(TableChanged(database, base), c.wanted) << c.name;
        database.DeleteTable(old.Name);
    }
    EXPECT_EQ(test::errorOf([&] { TableChanged(database, base); }), 3265);
}

TEST_F(TableCopyTest, rowsComeOverByName)
{
    dao::Database database = open();
    database.AppendTable(table(setAsideName(u"T"_s), {longer(u"ID"_s), text(u"NAME"_s, 50), text(u"PRICE"_s, 20), memo(u"GONE"_s)}));
    const dao::TableDef wanted = table(u"T"_s, {counter(u"ID"_s), text(u"name"_s, 10), money(u"PRICE"_s), flag(u"NEW"_s)});
    database.AppendTable(wanted);
    for (const auto &values : {u"7,'A long old name','12.5 each'"_s, u"7,'Twin',''"_s, u"Null,Null,Null"_s, u"8,'Eight',1"_s})
        database.Execute(u"INSERT INTO [T$$] ([ID],[NAME],[PRICE]) VALUES ("_s + values + u')');
    EXPECT_TRUE(CopyTableRows(database, wanted));
    EXPECT_EQ(rows(u"SELECT [NAME],[PRICE],[NEW] FROM [T]"_s),
              QStringList({u"A long old|12.5|False"_s, u"Eight|1|False"_s, u"Twin|0|False"_s, u"Null|Null|False"_s}));
    EXPECT_EQ(rows(u"SELECT [NAME] FROM [T] WHERE [ID]=7 OR [ID]=8 ORDER BY [ID]"_s), QStringList({u"A long old"_s, u"Eight"_s}));

    const dao::TableDef strange = table(u"U"_s, {text(u"OTHER"_s, 5)});
    database.AppendTable(strange);
    database.AppendTable(table(setAsideName(u"U"_s), {text(u"MINE"_s, 5)}));
    database.Execute(u"INSERT INTO [U$$] ([MINE]) VALUES ('x')"_s);
    EXPECT_TRUE(CopyTableRows(database, strange));
    EXPECT_EQ(rows(u"SELECT * FROM [U]"_s), QStringList());
}

}
