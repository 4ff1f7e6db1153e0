#include "platform/dao/connection.h"
#include "script.h"

namespace vorel::dao::test {

using Recordsets = Script;

TEST_F(Recordsets, ValuesComeBackAsTheyWereStored)
{
    const basic::DateTime moment = basic::DateTime::fromParts(2004, 2, 29, 23, 59, 58);
    struct Case { QString name; Value value; };
    const std::vector<Case> cases = {
        { u"NAME"_s, u"007"_s }, { u"NAME"_s, u" blanks  "_s }, { u"NAME"_s, u""_s }, { u"NAME"_s, u"O'Neil \"é漢\U0001F600"_s },
        { u"NAME"_s, Value() }, { u"DAY"_s, moment }, { u"DAY"_s, basic::DateTime(0.5) },
        { u"DAY"_s, basic::DateTime::fromParts(1899, 12, 29, 6) }, { u"DAY"_s, basic::DateTime::fromParts(100, 1, 1) },
        { u"DAY"_s, basic::DateTime::fromParts(9999, 12, 31) }, { u"DAY"_s, basic::DateTime::fromParts(1900, 1, 31) },
        { u"DAY"_s, basic::DateTime::fromParts(2003, 3, 1, 9, 30) }, { u"DAY"_s, Value() },
        { u"PRICE"_s, basic::Currency::fromScaled(9223372036854775807LL) }, { u"PRICE"_s, basic::Currency::fromScaled(-1) },
        { u"FLAG"_s, true }, { u"FLAG"_s, false }, { u"SMALL"_s, std::int16_t { -32768 } }, { u"LARGE"_s, 2147483647 },
        { u"TINY"_s, std::uint8_t { 255 } }, { u"HALF"_s, 0.1f }, { u"WHOLE"_s, 1.0 / 3.0 }, { u"WHOLE"_s, -1e300 },
        { u"NOTE"_s, QString(100000, u'n') }, { u"NOTE"_s, u"line\r\nline"_s }, { u"PICTURE"_s, QByteArray("\x00\x01\xff", 3) },
        { u"PICTURE"_s, QByteArray(3000000, 'p') },
    };
    Recordset rows = m_file.OpenRecordset(u"SAMPLE"_s);
    for (const Case &one : cases)
        add(rows, { { one.name, one.value } });
    rows.Close();
    m_file.Close();
    DBEngine::Forget(path());
    m_file = DBEngine::OpenDatabase(path());
    rows = m_file.OpenRecordset(u"SELECT * FROM SAMPLE"_s, dbOpenSnapshot);
    for (const Case &one : cases) {
        EXPECT_EQ(rows.Get(one.name), one.value) << one.name.toStdString() << " " << one.value.text().left(40).toStdString();
        rows.MoveNext();
    }
    EXPECT_TRUE(rows.EOF_());
}

TEST_F(Recordsets, AssignmentConvertsOrRefuses)
{
    Recordset rows = m_file.OpenRecordset(u"SAMPLE"_s);
    vorel::test::forEachRow("dao", "assignment", [&](const vorel::test::Row &row) {
        const QString field = row["field"];
        rows.AddNew();
        EXPECT_EQ(row["stored"], vorel::test::answerOf([&] { rows.Set(field, valueIn(row["value"])); return shown(rows.Get(field)); }));
        if (row["stored"].startsWith(u'!'))
            return;
        rows.Update();
        rows.setBookmark(rows.LastModified());
        EXPECT_EQ(row["stored"], shown(rows.Get(field)));
    });
}

TEST_F(Recordsets, EmptyAndNullAreRefusedWhereTheDesignSaysSo)
{
    m_file.AppendTable({ .Name = u"STRICT"_s,
                         .Fields = { { .Name = u"A"_s, .Type = dbText, .Size = 5 },
                                     { .Name = u"B"_s, .Type = dbText, .Size = 5, .AllowZeroLength = true, .Required = true },
                                     { .Name = u"C"_s, .Type = dbLong, .Size = 4 } },
                         .Indexes = { { u"Key"_s, { u"C"_s }, true, true, true } } });
    play("strict");
}

// A move shows the rows visited, the place and the name there.
TEST_F(Recordsets, CountsTheRowsVisited) { play("move"); }
TEST_F(Recordsets, AddNewKeepsTheCurrentRowAndAppends) { play("add"); }
TEST_F(Recordsets, EditStaysInPlaceAndDeleteLeavesAGap) { play("edit"); }
TEST_F(Recordsets, FindsForwardsAndBackwards) { play("find"); }
TEST_F(Recordsets, TopTakesTiesAlong) { play("top"); }
TEST_F(Recordsets, SortAndFilterActOnTheNextRecordset) { play("sort and filter"); }
TEST_F(Recordsets, KindsThatCannotChange) { play("unchangeable"); }

// The order of the texts, ties in the order of the rows, whatever else is stored in the column.
TEST_F(Recordsets, ManyRowsInTheOrderOfTheirTexts)
{
    const std::vector<Value> names = { Value(), Value(u""_s), Value(u"co-op"_s), Value(u"COOP"_s), Value(u"coop  "_s), Value(u"cop"_s),
                                       Value(u"\u00c9clair"_s), Value(u"eclair"_s), Value(u"Zebra 1"_s), Value(u"zebra 10"_s) };
    // Places in that order; equal for texts that are the same to the engine.
    const int places[] = { 0, 1, 3, 2, 2, 4, 6, 5, 7, 8 };
    m_file.Execute(u"DELETE FROM SAMPLE"_s);
    Transaction all(m_file);
    Recordset rows = m_file.OpenRecordset(u"SAMPLE"_s);
    constexpr int count = 3000;
    for (int i = 0; i < count; ++i)
        add(rows, { { u"NAME", names[static_cast<size_t>(i * 7 % 10)] }, { u"LARGE", (i * 13) % 5 - 2 }, { u"SMALL", i } });
    rows.Close();
    all.Commit();
    struct Case { const char *order; int byName, byLarge /* 1 ascending, -1 descending */; bool largeFirst; };
    for (const Case &one : { Case { "NAME", 1, 0, false }, Case { "NAME DESC", -1, 0, false }, Case { "NAME, LARGE DESC", 1, -1, false },
                             Case { "LARGE, NAME DESC", -1, 1, true }, Case { "[LARGE] DESC, 'x', 1", 1, -1, true } }) {
        SCOPED_TRACE(one.order);
        rows = m_file.OpenRecordset(u"SELECT NAME,LARGE,SMALL FROM SAMPLE WHERE SMALL>=10 ORDER BY "_s + QString::fromLatin1(one.order));
        ASSERT_EQ(rows.rowTotal(), count - 10);
        using Place = std::array<int, 3>;
        const auto placeOf = [&](qsizetype row) {
            const int number = rows.cell(row, 2).get<std::int16_t>();
            const int name = places[number * 7 % 10] * one.byName;
            const int large = rows.cell(row, 1).get<std::int32_t>() * one.byLarge;
            return one.largeFirst ? Place { large, name, number } : Place { name, large, number };
        };
        for (qsizetype row = 1; row < rows.rowTotal(); ++row)
            ASSERT_LT(placeOf(row - 1), placeOf(row)) << row;
        EXPECT_EQ(rows.positionOf(rows.bookmarkAt(1234)), 1234);
    }
}

// Every second row wanted, one of them changed meanwhile so that it would be no more, one gone.
TEST_F(Recordsets, ARowStaysWhereItsConditionsEnd)
{
    m_file.Execute(u"DELETE FROM SAMPLE"_s);
    QStringList names;
    for (int i = 1; i <= 400; ++i)
        names.append(i % 2 ? u"odd"_s : u"even"_s);
    addRows(m_file, names);
    Recordset rows = m_file.OpenRecordset(u"SELECT NAME,LARGE FROM SAMPLE WHERE NAME='odd'"_s);
    m_file.Execute(u"UPDATE SAMPLE SET NAME='changed' WHERE LARGE=101"_s);
    m_file.Execute(u"DELETE FROM SAMPLE WHERE LARGE=103 OR LARGE=399"_s);
    ASSERT_EQ(rows.rowTotal(), 200);
    for (qsizetype row = 0; row < 200; ++row) {
        const int large = static_cast<int>(row) * 2 + 1;
        const bool gone = large == 103 || large == 399;
        EXPECT_EQ(rows.cell(row, 1), gone ? Value() : Value(large));
        EXPECT_EQ(rows.cell(row, 0), gone ? Value() : large == 101 ? Value(u"changed"_s) : Value(u"odd"_s));
    }
}

TEST_F(Recordsets, WindowsFollowTheirPlaceInALargeSet)
{
    addRows(m_file, QStringList(3000, u"x"_s));
    m_file.Execute(u"DELETE FROM SAMPLE WHERE LARGE MOD 7 = 0 OR LARGE BETWEEN 900 AND 1400"_s);
    for (const QString &source : { u"SELECT * FROM SAMPLE"_s, u"SELECT * FROM SAMPLE ORDER BY LARGE DESC"_s,
                                   u"SELECT * FROM SAMPLE WHERE LARGE MOD 5 = 1"_s }) {
        SCOPED_TRACE(source.toStdString());
        Recordset rows = m_file.OpenRecordset(source);
        QList<int> wanted;
        for (int i = 1; i <= 3000; ++i) {
            if (i % 7 != 0 && (i < 900 || i > 1400) && (!source.contains(u"WHERE") || i % 5 == 1))
                wanted.append(i);
        }
        if (source.contains(u"DESC"))
            std::reverse(wanted.begin(), wanted.end());
        ASSERT_EQ(rows.rowTotal(), wanted.size());
        const int column = rows.fieldIndex(u"LARGE");
        for (qsizetype step : { 1, 17, 391 }) {
            for (qsizetype i = 0; i < wanted.size(); i += step) {
                ASSERT_EQ(rows.cell(i, column), Value(wanted[i])) << i;
                ASSERT_EQ(rows.cell(wanted.size() - 1 - i, column), Value(wanted[wanted.size() - 1 - i])) << i;
            }
        }
        qsizetype at = 0;
        for (; !rows.EOF_(); rows.MoveNext())
            ASSERT_EQ(rows.Get(u"LARGE"), Value(wanted[at++]));
        for (rows.MoveLast(); !rows.BOF(); rows.MovePrevious())
            ASSERT_EQ(rows.Get(u"LARGE"), Value(wanted[--at]));
    }
}

TEST_F(Recordsets, ALiteralFindsTheValueThatItSpells)
{
    const auto date = [](auto... parts) { return basic::DateTime::fromParts(parts...); };
    struct Case { QString field; Value value; QString text; };
    const std::vector<Case> cases = {
        { u"NAME"_s, u"Mum's \"call\""_s, u"'Mum''s \"call\"'"_s },
        { u"NAME"_s, u"''"_s, u"''''''"_s },
        { u"NOTE"_s, u"#1#, [x] \r\n; é漢"_s, u"'#1#, [x] \r\n; é漢'"_s },
        { u"DAY"_s, date(2026, 2, 1), u"#02/01/2026#"_s },
        { u"DAY"_s, date(2026, 12, 31, 23, 59, 58), u"#12/31/2026 23:59:58#"_s },
        { u"DAY"_s, date(1899, 12, 30, 9, 30), u"#12/30/1899 09:30:00#"_s },
        { u"DAY"_s, date(150, 3, 4), u"#03/04/0150#"_s },
        { u"PRICE"_s, basic::Currency::fromScaled(-15), u"-0.0015"_s },
        { u"PRICE"_s, basic::Currency::fromScaled(9223372036854775807LL), u"922337203685477.5807"_s },
        { u"PRICE"_s, basic::Currency::fromScaled(std::numeric_limits<qint64>::min()), u"-922337203685477.5808"_s },
        { u"FLAG"_s, true, u"-1"_s },
        { u"TINY"_s, std::uint8_t { 7 }, u"7"_s },
        { u"SMALL"_s, std::int16_t { -5 }, u"-5"_s },
        { u"LARGE"_s, -2147483647, u"-2147483647"_s },
        { u"HALF"_s, 0.1f, u"0.10000000149011612"_s },
        { u"WHOLE"_s, 0.1, u"0.1"_s },
        { u"WHOLE"_s, 1e300, u"1e+300"_s },
    };
    Recordset rows = m_file.OpenRecordset(u"SAMPLE"_s);
    for (const Case &one : cases)
        add(rows, { { one.field, one.value } });
    for (const Case &one : cases) {
        EXPECT_EQ(literal(one.value), one.text);
        const QString query = u"SELECT * FROM SAMPLE WHERE [%1]=%2"_s.arg(one.field, literal(one.value));
        const Recordset found = m_file.OpenRecordset(query, dbOpenSnapshot);
        ASSERT_EQ(found.rowTotal(), 1) << query.toStdString();
        EXPECT_EQ(found.Get(one.field), one.value) << query.toStdString();
    }
    m_file.Execute(u"UPDATE SAMPLE SET [NAME]="_s + literal(Value()));
    EXPECT_EQ(m_file.OpenRecordset(u"SELECT * FROM SAMPLE WHERE [NAME] IS NULL"_s).rowTotal(), qsizetype(cases.size()));
    for (const Value &none : { Value(QByteArray("x")), Value(std::numeric_limits<double>::infinity()) })
        EXPECT_EQ(errorOf([&] { literal(none); }), 3421);
    EXPECT_EQ(asTyped(u"Mum's"), u"'Mum's'"_s);
    EXPECT_EQ(errorOf([&] { m_file.OpenRecordset(u"SELECT * FROM SAMPLE WHERE [NAME]="_s + asTyped(u"Mum's")); }), 3075);
}

TEST_F(Recordsets, ANewRowThatIsNotSavedTakesItselfBack)
{
    Recordset rows = m_file.OpenRecordset(u"SAMPLE"_s);
    EXPECT_EQ(errorOf([&] { NewRow(rows).set(u"NAME", QString(21, u'x')).save(); }), 3163);
    EXPECT_FALSE(rows.editPending());
    EXPECT_EQ(rows.rowTotal(), 0);
    {
        NewRow row(rows);
        row.set(u"NAME", u"kept"_s).set(u"LARGE", 3).save();
        rows.MoveFirst();
        rows.Edit();        // whatever follows is not the new row's any more
    }
    EXPECT_TRUE(rows.editPending());
    EXPECT_EQ(columnOf(rows, u"NAME"_s), u"kept"_s);
    {
        NewRow closed(rows);
        m_file.Close();
    }
    EXPECT_EQ(errorOf([&] { NewRow row(rows); }), 3420);
}

TEST_F(Recordsets, QuestionsAreAnsweredWithoutARow)
{
    Recordset rows;
    const auto asked = [&rows](dao::Bookmark mark) {
        return QStringList { rows.tryBookmark(mark) ? u"there"_s : u"gone"_s, rows.valueOr(u"NAME", u"none"_s).text(),
                             rows.valueOr(u"NO FIELD", u"?"_s).text(), rows.hasCurrentRow() ? u"row"_s : u"no row"_s,
                             QString::number(rows.rowTotal()), rows.bookmarkAt(0).isValid() ? u"first"_s : u"empty"_s,
                             QString::number(rows.positionOf(mark)) };
    };
    const QStringList nothing = { u"gone"_s, u"none"_s, u"?"_s, u"no row"_s, u"0"_s, u"empty"_s, u"-1"_s };
    EXPECT_EQ(asked({}), nothing);
    rows = m_file.OpenRecordset(u"SAMPLE"_s);
    EXPECT_EQ(asked({}), nothing);
    add(rows, { { u"NAME", u"one"_s } });
    add(rows, { { u"NAME", u"two"_s } });
    const dao::Bookmark second = rows.LastModified();
    EXPECT_EQ(asked(second), (QStringList { u"there"_s, u"two"_s, u"?"_s, u"row"_s, u"2"_s, u"first"_s, u"1"_s }));
    rows.AddNew();
    rows.Set(u"NAME", u"typed"_s);
    EXPECT_EQ(rows.valueOr(u"NAME", {}), Value(u"typed"_s));
    rows.CancelUpdate();
    rows.MoveFirst();
    EXPECT_FALSE(rows.tryBookmark(dao::Bookmark(77)));
    EXPECT_EQ(rows.Get(u"NAME"), Value(u"one"_s));      // a failed move changes nothing
    m_file.Close();
    EXPECT_EQ(asked(second), nothing);
}

// A file from elsewhere, or from another tool; no day: no date.
TEST_F(Recordsets, ADateReadsAlikeInARowAndInAQuery)
{
    vorel::test::forEachRow("dao", "stored dates", [this](const vorel::test::Row &row) {
        {
            Connection tool(path(), {}, Connection::Purpose::Open);
            execute(tool.handle(), "DELETE FROM SAMPLE; INSERT INTO SAMPLE (DAY) VALUES ('" + row.bytes("stored") + "')");
        }
        const Recordset rows = m_file.OpenRecordset(u"SELECT [DAY], Day([DAY]) AS D FROM SAMPLE"_s, dbOpenSnapshot);
        const Value date = rows.Get(0);
        EXPECT_EQ(date.isNull() ? 0 : date.get<basic::DateTime>().day(), row.number("day"));
        EXPECT_EQ(rows.Get(1).text(), row["day"]);
    });
}

}
