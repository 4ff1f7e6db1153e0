#include "store/designs.h"

#include "store/mainfile.h"

#include <QFile>
#include <map>

namespace vorel {

using namespace Qt::StringLiterals;

using DesignsTest = test::MainFileTest;

// What a field of each type has by rule: its size, the empty text, the number it starts with.
static dao::FieldDef fieldOf(const QStringList &row)
{
    static const QHash<QString, dao::DataType> types = {
        {u"dbBoolean"_s, dao::dbBoolean}, {u"dbInteger"_s, dao::dbInteger}, {u"dbLong"_s, dao::dbLong},
        {u"dbCurrency"_s, dao::dbCurrency}, {u"dbDouble"_s, dao::dbDouble}, {u"dbDate"_s, dao::dbDate},
        {u"dbText"_s, dao::dbText}, {u"dbMemo"_s, dao::dbMemo}};
    static const QHash<int, int> bytes = {{dao::dbBoolean, 1}, {dao::dbInteger, 2}, {dao::dbLong, 4}, {dao::dbCurrency, 8},
                                          {dao::dbDouble, 8}, {dao::dbDate, 8}, {dao::dbMemo, 0}};
    dao::FieldDef field;
    field.Name = row[2];
    field.Type = types.value(row[3], dao::dbUnknown);
    field.Size = field.Type == dao::dbText ? row[4].toInt() : bytes.value(field.Type);
    field.Attributes = row[5] == u"auto" ? 16 : 0;
    field.AllowZeroLength = field.Type == dao::dbText || field.Type == dao::dbMemo;
    const bool counts = QSet<int>{dao::dbInteger, dao::dbLong, dao::dbDouble, dao::dbCurrency}.contains(field.Type);
    field.DefaultValue = counts && field.Attributes == 0 ? u"0"_s : u""_s;
    return field;
}

// The tables as they are wanted, typed apart from the program's own: by file, in order.
static std::map<QString, std::vector<dao::TableDef>> wantedTables()
{
    QFile list(QStringLiteral(VOREL_TEST_DATA "/../platform/dao/jet/designs.tsv"));
    EXPECT_TRUE(list.open(QIODevice::ReadOnly));
    list.readLine();
    std::map<QString, std::vector<dao::TableDef>> files;
    while (!list.atEnd()) {
        QString line = QString::fromUtf8(list.readLine());
        const QStringList row = line.remove(u'\n').split(u'\t');
        std::vector<dao::TableDef> &tables = files[row[0]];
        if (tables.empty() || tables.back().Name != row[1])
            tables.emplace_back().Name = row[1];
        tables.back().Fields.push_back(fieldOf(row));
    }
    return files;
}

static QString shown(const dao::FieldDef &field)
{
    return u"%1 type %2 size %3%4 =%5%6"_s.arg(field.Name).arg(field.Type).arg(field.Size)
        .arg(field.Attributes == dao::dbAutoIncrField ? u" auto"_s : u""_s, field.DefaultValue,
             field.AllowZeroLength ? u" empty"_s : u""_s)
        + (field.Required || !field.ValidationRule.isEmpty() || !field.ValidationText.isEmpty() ? u" restricted"_s : u""_s);
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

TEST_F(DesignsTest, eachCreatedTableHasItsFieldsInOrder)
{
    const QString key = u"PrimaryKey:ID primary unique required"_s;
    const std::map<QString, QString> indexes = {
        {u"APPOINTMENTS"_s, key}, {u"EVENTS"_s, key}, {u"MESSAGES"_s, key},
        {u"SUBJECTS"_s, key + u"; SUBJECT:SUBJECT unique"_s}};
    test::putEmptyFiles(m_folder.path());
    const auto files = wantedTables();
    ASSERT_EQ(files.size(), 13u);
    for (const auto &[file, tables] : files) {
        dao::Database database = dao::DBEngine::OpenDatabase(m_folder.path((file == u"main" ? u"VOREL"_s : file.toUpper()) + u".MDB"_s), false, false,
                                                             file.startsWith(u"data") ? u";pwd=KARVELOT"_s : QString());
        QStringList names, found;
        for (const dao::TableDef &table : database.TableDefs())
            found << table.Name;
        for (const dao::TableDef &wanted : tables) {
            if (wanted.Name == u"Database Info")
                continue;       // the stamp's own
            names << wanted.Name;
            const dao::TableDef table = database.TableDefByName(wanted.Name);
            QStringList wantedFields, fields;
            for (const dao::FieldDef &field : wanted.Fields)
                wantedFields << shown(field);
            for (const dao::FieldDef &field : table.Fields)
                fields << shown(field);
            EXPECT_EQ(fields, wantedFields) << qPrintable(wanted.Name);
            const auto index = indexes.find(wanted.Name);
            EXPECT_EQ(shownIndexes(table), file == u"main" && index != indexes.end() ? index->second : QString());
        }
        found.removeAll(u"Database Info"_s);
        EXPECT_EQ(found, names) << qPrintable(file);
        database.Close();
    }
}

// A bill has no key index, and is still found and deleted by its number.
TEST_F(DesignsTest, billsCountUpWithoutAnIndex)
{
    for (int i = 0; i < 3; ++i)
        execute(u"INSERT INTO [Bills] ([Bill]) VALUES ('Rent');"_s);
    execute(u"DELETE * FROM [Bills] WHERE [ID]=2;"_s);
    EXPECT_EQ(rows(u"SELECT [ID], [Amount], [Paid] FROM [Bills] ORDER BY [ID];"_s),
              QStringList({u"1|0|False"_s, u"3|0|False"_s}));
}

}
