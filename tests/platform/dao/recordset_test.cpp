#include "daotest.h"
#include "platform/dao/connection.h"

namespace vorel::dao::test {

class Recordsets : public DaoTest {
protected:
    void SetUp() override
    {
        m_file = create();
        m_file.AppendTable(sample());
    }
    QStringList names(const Recordset &rows) const
    {
        QStringList list;
        const int column = rows.fieldIndex(u"NAME");
        for (qsizetype i = 0; i < rows.rowTotal(); ++i)
            list.append(rows.cell(i, column).text());
        return list;
    }
    Database m_file;
};

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
    struct Case { QString name; Value value; int error; Value stored; };
    const std::vector<Case> cases = {
        { u"NAME"_s, QString(20, u'x'), 0, QString(20, u'x') },
        { u"NAME"_s, QString(21, u'x'), 3163, {} },
        { u"NAME"_s, 12, 0, u"12"_s },
        { u"NAME"_s, true, 0, u"True"_s },
        { u"LARGE"_s, u"12"_s, 0, 12 },
        { u"LARGE"_s, 2.5, 0, 2 },
        { u"LARGE"_s, u""_s, 3421, {} },
        { u"LARGE"_s, u"twelve"_s, 3421, {} },
        { u"SMALL"_s, 40000, 3421, {} },
        { u"SMALL"_s, 3.5, 0, std::int16_t { 4 } },
        { u"PRICE"_s, u"$1,234.50"_s, 0, basic::Currency::fromScaled(12345000) },
        { u"FLAG"_s, Value(), 0, false },
        { u"FLAG"_s, 7, 0, true },
        { u"FLAG"_s, u"False"_s, 0, false },
        { u"FLAG"_s, u"Yes"_s, 3421, {} },
        { u"DAY"_s, u"Dec 25, 2003"_s, 0, basic::DateTime::fromParts(2003, 12, 25) },
        { u"DAY"_s, 37980, 0, basic::DateTime::fromParts(2003, 12, 25) },
        { u"DAY"_s, u""_s, 3421, {} },
        { u"DAY"_s, Value(), 0, {} },
        { u"WHOLE"_s, Value(), 0, {} },
        { u"PICTURE"_s, 5, 3421, {} },
    };
    Recordset rows = m_file.OpenRecordset(u"SAMPLE"_s);
    for (const Case &one : cases) {
        SCOPED_TRACE(one.name.toStdString() + " = " + one.value.text().left(30).toStdString());
        rows.AddNew();
        EXPECT_EQ(errorOf([&] { rows.Set(one.name, one.value); }), one.error);
        if (one.error == 0) {
            EXPECT_EQ(rows.Get(one.name), one.stored);
            rows.Update();
            rows.setBookmark(rows.LastModified());
            EXPECT_EQ(rows.Get(one.name), one.stored);
        }
    }
}

TEST_F(Recordsets, EmptyAndNullAreRefusedWhereTheDesignSaysSo)
{
    m_file.AppendTable({ .Name = u"STRICT"_s,
                         .Fields = { { .Name = u"A"_s, .Type = dbText, .Size = 5 },
                                     { .Name = u"B"_s, .Type = dbText, .Size = 5, .AllowZeroLength = true, .Required = true },
                                     { .Name = u"C"_s, .Type = dbLong, .Size = 4 } },
                         .Indexes = { { u"Key"_s, { u"C"_s }, true, true, true } } });
    Recordset rows = m_file.OpenRecordset(u"STRICT"_s);
    rows.AddNew();
    EXPECT_EQ(errorOf([&] { rows.Set(u"A", u""_s); }), 3315);
    rows.Set(u"C", 1);
    EXPECT_EQ(errorOf([&] { rows.Update(); }), 3314);
    rows.Set(u"B", u""_s);
    rows.Set(u"C", Value());
    EXPECT_EQ(errorOf([&] { rows.Update(); }), 3058);
    rows.Set(u"C", 1);
    EXPECT_EQ(errorOf([&] { rows.Update(); }), 0);      // the copy buffer outlived both refusals
    EXPECT_EQ(rows.rowTotal(), 1);
    // Through Execute a refused row is passed over, and the count shows it.
    m_file.Execute(u"INSERT INTO STRICT (B, C) VALUES ('x', 1)"_s);
    EXPECT_EQ(m_file.RecordsAffected(), 0);
}

TEST_F(Recordsets, CountsTheRowsVisited)
{
    Recordset rows = m_file.OpenRecordset(u"SELECT * FROM SAMPLE"_s);
    EXPECT_TRUE(rows.BOF() && rows.EOF_());
    EXPECT_EQ(rows.RecordCount(), 0);
    for (const auto &move : { &Recordset::MoveFirst, &Recordset::MoveLast, &Recordset::MoveNext, &Recordset::MovePrevious })
        EXPECT_EQ(errorOf([&] { (rows.*move)(); }), 3021);
    EXPECT_EQ(errorOf([&] { rows.Get(u"NAME"); }), 3021);
    EXPECT_EQ(errorOf([&] { rows.Edit(); }), 3021);
    EXPECT_EQ(errorOf([&] { rows.Delete(); }), 3021);

    addRows(m_file, { u"a"_s, u"b"_s, u"c"_s });
    rows.Requery();
    // After each move its error, or the rows visited, the place and the name there.
    const struct { void (Recordset::*move)(); QString seen; } steps[] = {
        { &Recordset::MoveFirst, u"1 0 a"_s },      { &Recordset::MoveNext, u"2 1 b"_s },
        { &Recordset::MovePrevious, u"2 0 a"_s },   { &Recordset::MovePrevious, u"BOF"_s },
        { &Recordset::MovePrevious, u"3021"_s },    { &Recordset::MoveNext, u"2 0 a"_s },
        { &Recordset::MoveLast, u"3 2 c"_s },       { &Recordset::MoveNext, u"EOF"_s },
        { &Recordset::MoveNext, u"3021"_s },        { &Recordset::MovePrevious, u"3 2 c"_s },
    };
    for (const auto &step : steps) {
        const int error = errorOf([&] { (rows.*step.move)(); });
        const QString outside = rows.BOF() ? u"BOF"_s : rows.EOF_() ? u"EOF"_s : QString();
        EXPECT_EQ(!outside.isEmpty(), errorOf([&] { rows.Get(u"NAME"); }) == 3021);
        EXPECT_EQ(rows.AbsolutePosition() == -1, !outside.isEmpty());
        const QString seen = error != 0 ? QString::number(error) : !outside.isEmpty() ? outside
            : u"%1 %2 %3"_s.arg(rows.RecordCount()).arg(rows.AbsolutePosition()).arg(rows.Get(u"NAME").text());
        EXPECT_EQ(seen, step.seen) << seen.toStdString();
    }
}

TEST_F(Recordsets, AddNewKeepsTheCurrentRowAndAppends)
{
    addRows(m_file, { u"m"_s, u"z"_s });
    Recordset rows = m_file.OpenRecordset(u"SELECT * FROM SAMPLE ORDER BY NAME"_s);
    EXPECT_FALSE(rows.LastModified().isValid());
    EXPECT_EQ(errorOf([&] { rows.Set(u"NAME", u"x"_s); }), 3020);
    EXPECT_EQ(errorOf([&] { rows.Update(); }), 3020);
    EXPECT_EQ(errorOf([&] { rows.CancelUpdate(); }), 3020);
    rows.AddNew();
    EXPECT_EQ(rows.Get(u"NAME"), Value());
    EXPECT_EQ(rows.Get(u"LARGE"), Value(0));
    EXPECT_EQ(rows.Get(u"FLAG"), Value(false));
    EXPECT_EQ(rows.Get(u"ID"), Value(3));       // readable before Update
    rows.Set(u"NAME", u"a"_s);
    rows.Update();
    EXPECT_EQ(rows.Get(u"NAME"), Value(u"m"_s));
    EXPECT_EQ(names(rows), (QStringList { u"m"_s, u"z"_s, u"a"_s }));
    EXPECT_EQ(rows.RecordCount(), 2);
    rows.setBookmark(rows.LastModified());
    EXPECT_EQ(rows.Get(u"ID"), Value(3));
    rows.AddNew();
    EXPECT_EQ(rows.Get(u"ID"), Value(4));
    rows.MoveFirst();                           // drops it without a word
    EXPECT_FALSE(rows.editPending());
    rows.AddNew();
    EXPECT_EQ(rows.Get(u"ID"), Value(5));       // an abandoned number is not given again
    rows.Set(u"ID", 40);
    rows.Update();
    rows.AddNew();
    EXPECT_EQ(rows.Get(u"ID"), Value(41));
    rows.CancelUpdate();
    rows.Requery();
    EXPECT_EQ(names(rows).mid(1), (QStringList { u"a"_s, u"m"_s, u"z"_s }));
}

TEST_F(Recordsets, EditStaysInPlaceAndDeleteLeavesAGap)
{
    addRows(m_file, { u"a"_s, u"b"_s, u"c"_s, u"d"_s });
    Recordset rows = m_file.OpenRecordset(u"SELECT * FROM SAMPLE WHERE NAME<>'x' ORDER BY NAME"_s);
    rows.MoveNext();
    const Bookmark second = rows.Bookmark();
    rows.Edit();
    rows.Set(u"NAME", u"x"_s);
    EXPECT_EQ(rows.Get(u"NAME"), Value(u"x"_s));
    rows.Update();
    EXPECT_EQ(rows.LastModified(), second);
    EXPECT_EQ(rows.AbsolutePosition(), 1);      // still in the set, though it no longer matches
    EXPECT_EQ(rows.Get(u"NAME"), Value(u"x"_s));
    rows.Edit();
    rows.Set(u"NAME", u"y"_s);
    rows.MoveNext();
    rows.MovePrevious();
    EXPECT_EQ(rows.Get(u"NAME"), Value(u"x"_s));

    rows.MoveLast();
    rows.setBookmark(second);
    rows.Delete();
    EXPECT_FALSE(rows.BOF() || rows.EOF_());
    EXPECT_EQ(errorOf([&] { rows.Get(u"NAME"); }), 3021);
    EXPECT_EQ(errorOf([&] { rows.Delete(); }), 3021);
    EXPECT_EQ(rows.RecordCount(), 3);
    rows.MoveNext();
    EXPECT_EQ(rows.Get(u"NAME"), Value(u"c"_s));
    EXPECT_EQ(errorOf([&] { rows.setBookmark(second); }), 3167);
    EXPECT_EQ(errorOf([&] { rows.setBookmark(Bookmark()); }), 3159);
    EXPECT_EQ(errorOf([&] { rows.setBookmark(Bookmark(999)); }), 3159);
    while (!rows.EOF_()) {
        rows.Delete();
        rows.MoveNext();
    }
    EXPECT_EQ(names(rows), QStringList { u"a"_s });
}

TEST_F(Recordsets, FindsForwardsAndBackwards)
{
    addRows(m_file, { u"b"_s, u"A"_s, u"b "_s, u"a"_s, u"c"_s });
    Recordset rows = m_file.OpenRecordset(u"SELECT * FROM SAMPLE ORDER BY LARGE DESC"_s);
    struct Case {
        void (Recordset::*find)(QStringView);
        QString criteria;
        int wanted;         // LARGE of the row found, 0 for none
    };
    const std::vector<Case> cases = {
        { &Recordset::FindFirst, u"NAME='a'"_s, 4 },     { &Recordset::FindNext, u"NAME='a'"_s, 2 },
        { &Recordset::FindNext, u"NAME='a'"_s, 0 },      { &Recordset::FindPrevious, u"[NAME] = 'A'"_s, 4 },
        { &Recordset::FindLast, u"NAME LIKE 'b*'"_s, 1 }, { &Recordset::FindPrevious, u"NAME='b'"_s, 3 },
        { &Recordset::FindFirst, u"ID=5"_s, 5 },         { &Recordset::FindFirst, u"ID=77"_s, 0 },
    };
    EXPECT_FALSE(rows.NoMatch());
    for (const Case &one : cases) {
        SCOPED_TRACE(one.criteria.toStdString());
        const Value before = rows.Get(u"LARGE");
        (rows.*one.find)(one.criteria);
        EXPECT_EQ(rows.NoMatch(), one.wanted == 0);
        EXPECT_EQ(rows.Get(u"LARGE"), one.wanted == 0 ? before : Value(one.wanted));
    }
    EXPECT_EQ(errorOf([&] { rows.FindFirst(u"NAME='a"); }), 3077);
    EXPECT_EQ(errorOf([&] { rows.FindFirst(u"NONE=1"); }), 3070);
}

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

// The first rows, with those that tie with the last of them.
TEST_F(Recordsets, TopTakesTiesAlong)
{
    m_file.Execute(u"DELETE FROM SAMPLE"_s);
    addRows(m_file, { u"b"_s, u"a"_s, u"B "_s, u"c"_s, u"b"_s, u"a"_s, u"d"_s, u"d"_s });     // LARGE counts from 1
    struct Case {
        const char *query;
        QList<int> rows;
    };
    for (const auto &[query, wanted] : { Case { "SELECT TOP 3 LARGE FROM SAMPLE ORDER BY NAME", { 2, 6, 1, 3, 5 } },
                                         Case { "SELECT TOP 2 LARGE FROM SAMPLE ORDER BY NAME, LARGE DESC", { 6, 2 } },
                                         Case { "SELECT TOP 1 LARGE FROM SAMPLE WHERE LARGE<8 ORDER BY NAME DESC", { 7 } },
                                         Case { "SELECT TOP 3 LARGE FROM SAMPLE ORDER BY LARGE", { 1, 2, 3 } },
                                         Case { "SELECT TOP 20 LARGE FROM SAMPLE WHERE NAME='b' ORDER BY NAME", { 1, 3, 5 } },
                                         Case { "SELECT TOP 3 LARGE FROM SAMPLE", { 1, 2, 3 } } }) {
        Recordset rows = m_file.OpenRecordset(QString::fromLatin1(query));
        QList<int> found;
        for (qsizetype row = 0; row < rows.rowTotal(); ++row)
            found.append(rows.cell(row, 0).get<int>());
        EXPECT_EQ(found, wanted) << query;
        rows.FindFirst(u"LARGE=4");
        EXPECT_EQ(rows.NoMatch(), !wanted.contains(4)) << query;
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

TEST_F(Recordsets, SortAndFilterActOnTheNextRecordset)
{
    addRows(m_file, { u"b"_s, u"c"_s, u"a"_s });
    Recordset rows = m_file.OpenRecordset(u"SELECT * FROM SAMPLE ORDER BY NAME"_s);
    rows.setSort(u"[NAME] desc"_s);
    EXPECT_EQ(names(rows), (QStringList { u"a"_s, u"b"_s, u"c"_s }));
    Recordset sorted = rows.OpenRecordset();
    EXPECT_EQ(names(sorted), (QStringList { u"c"_s, u"b"_s, u"a"_s }));
    sorted.setFilter(u"NAME<>'b'"_s);
    Recordset both = sorted.OpenRecordset();
    both.setFilter(u"NAME<>'c'"_s);
    EXPECT_EQ(names(both), (QStringList { u"c"_s, u"a"_s }));
    EXPECT_EQ(names(both.OpenRecordset()), QStringList { u"a"_s });

    Recordset clone = rows.Clone();
    EXPECT_EQ(errorOf([&] { clone.Get(u"NAME"); }), 3021);
    clone.FindFirst(u"NAME='b'");
    rows.setBookmark(clone.Bookmark());
    EXPECT_EQ(rows.Get(u"NAME"), Value(u"b"_s));
}

TEST_F(Recordsets, KindsThatCannotChange)
{
    addRows(m_file, { u"a"_s, u"a"_s, u"b"_s });
    struct Case { QString source; RecordsetType type; qsizetype rows; int error; };
    const std::vector<Case> cases = {
        { u"SELECT * FROM SAMPLE"_s, dbOpenSnapshot, 3, 3251 },
        { u"SELECT DISTINCT NAME FROM SAMPLE"_s, dbOpenDynaset, 2, 3027 },
        { u"SELECT Count(*) AS N FROM SAMPLE"_s, dbOpenDynaset, 1, 3027 },
        { u"SELECT NAME FROM SAMPLE UNION SELECT NAME FROM SAMPLE"_s, dbOpenDynaset, 2, 3027 },
    };
    for (const Case &one : cases) {
        Recordset rows = m_file.OpenRecordset(one.source, one.type);
        EXPECT_FALSE(rows.Updatable()) << one.source.toStdString();
        EXPECT_EQ(rows.rowTotal(), one.rows) << one.source.toStdString();
        EXPECT_EQ(errorOf([&] { rows.Edit(); }), one.error);
        EXPECT_EQ(errorOf([&] { rows.AddNew(); }), one.error);
        EXPECT_EQ(errorOf([&] { rows.Delete(); }), one.error);
    }
    EXPECT_EQ(errorOf([&] { m_file.OpenRecordset(u"DELETE FROM SAMPLE"_s); }), 3219);
    EXPECT_EQ(errorOf([&] { m_file.OpenRecordset(u"SELECT NOPE FROM SAMPLE"_s); }), 3061);
    Recordset rows = m_file.OpenRecordset(u"SELECT NAME, LARGE+1 AS MORE FROM SAMPLE"_s);
    EXPECT_EQ(rows.Get(u"MORE").text(), u"2");
    rows.Edit();
    EXPECT_EQ(errorOf([&] { rows.Set(u"MORE", 5); }), 3164);
    EXPECT_EQ(errorOf([&] { rows.Set(u"LARGE", 5); }), 3265);
    rows.Set(u"NAME", u"q"_s);
    rows.Update();
    EXPECT_EQ(rows.Get(u"NAME"), Value(u"q"_s));
    rows.Close();
    EXPECT_FALSE(static_cast<bool>(rows));
    EXPECT_EQ(errorOf([&] { rows.Close(); }), 3420);
    EXPECT_EQ(errorOf([&] { rows.MoveFirst(); }), 3420);
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
    EXPECT_EQ(names(rows), QStringList(u"kept"_s));
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

// A file from elsewhere, or from another tool.
TEST_F(Recordsets, ADateReadsAlikeInARowAndInAQuery)
{
    struct Case { const char *stored; int day; };       // 0: no date
    const std::vector<Case> cases = {
        { "2026-11-22 09:30:00", 22 }, { "2026-11-22", 22 }, { "2026-11-22 09:30", 22 }, { "2026-11-22T09:30:00", 22 },
        { " 2026-11-22 ", 22 }, { "2024-02-29", 29 }, { "2026-02-31 00:00:00", 0 }, { "2026-02-29", 0 }, { "2026-11-22 24:00:00", 0 },
        { "2026-11-22 09:60", 0 }, { "2026-11-22x09:30:00", 0 }, { "0099-01-01", 0 }, { "22/11/2026", 0 }, { "", 0 },
    };
    {
        Connection tool(path(), {}, Connection::Purpose::Open);
        for (const Case &one : cases)
            execute(tool.handle(), "INSERT INTO SAMPLE (DAY) VALUES ('" + QByteArray(one.stored) + "')");
    }
    Recordset rows = m_file.OpenRecordset(u"SELECT [DAY], Day([DAY]) AS D FROM SAMPLE ORDER BY [ID]"_s, dbOpenSnapshot);
    for (const Case &one : cases) {
        const Value date = rows.Get(0);
        EXPECT_EQ(date.isNull() ? 0 : date.get<basic::DateTime>().day(), one.day) << one.stored;
        EXPECT_EQ(rows.Get(1).text(), one.day == 0 ? QString() : QString::number(one.day)) << one.stored;
        rows.MoveNext();
    }
}

TEST_F(Recordsets, SortingByAColumnsNumberAsksForOneThatIsThere)
{
    Recordset rows = m_file.OpenRecordset(u"SELECT [ID],[NAME] FROM SAMPLE"_s);
    add(rows, { { u"NAME", u"b"_s } });
    add(rows, { { u"NAME", u"a"_s } });
    for (const auto &[sort, error] : { std::pair { u"0"_s, 3138 }, std::pair { u"3"_s, 3138 }, std::pair { u"99"_s, 3138 },
                                       std::pair { u"1, 99"_s, 3138 }, std::pair { u"2"_s, 0 } }) {
        rows.setSort(sort);
        EXPECT_EQ(errorOf([&] { rows.OpenRecordset(); }), error) << sort.toStdString();
    }
    rows.setSort(u"2"_s);
    EXPECT_EQ(names(rows.OpenRecordset()), (QStringList { u"a"_s, u"b"_s }));
}

}
