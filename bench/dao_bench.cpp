#include "platform/dao/dao.h"
#include "platform/dao/jet/translator.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <ctime>
#include <sqlcipher/sqlite3.h>

// A 100,000-row query read completely through Recordset, against the same through the store's C interface. Both read
// every field of every row; the C side takes each cell by its own accessor and copies nothing.

using namespace vorel::dao;
using namespace Qt::StringLiterals;

namespace {

constexpr int rowsWanted = 100'000;

FieldDef field(const QString &name, DataType type, int size, int attributes = 0)
{
    return { .Name = name, .Type = type, .Size = size, .Attributes = attributes,
             .AllowZeroLength = type == dbText || type == dbMemo };
}

const QString &filledFile()
{
    static QTemporaryDir folder;
    static const QString path = [] {
        const QString file = folder.filePath(u"BENCH.MDB"_s);
        Database database = DBEngine::CreateDatabase(file, {});
        database.AppendTable({ .Name = u"APPOINTMENTS"_s,
                               .Fields = { field(u"ID"_s, dbLong, 4, dbAutoIncrField), field(u"DATE"_s, dbDate, 8),
                                           field(u"DAY"_s, dbText, 3), field(u"TIME"_s, dbDate, 8), field(u"APPTIME"_s, dbText, 11),
                                           field(u"APPOINTMENT"_s, dbText, 255), field(u"MET"_s, dbBoolean, 1),
                                           field(u"Delete"_s, dbBoolean, 1), field(u"PeriodMonth"_s, dbInteger, 2),
                                           field(u"PeriodDays"_s, dbInteger, 2), field(u"WeekNum"_s, dbText, 3),
                                           field(u"WeekDay"_s, dbText, 3), field(u"TimeUpdate"_s, dbBoolean, 1),
                                           field(u"UsersName"_s, dbText, 20), field(u"IDNUM"_s, dbLong, 4) } });
        Transaction all(database);
        Recordset rows = database.OpenRecordset(u"APPOINTMENTS"_s);
        const auto start = vorel::basic::DateTime::fromParts(2000, 1, 1);
        for (int i = 0; i < rowsWanted; ++i) {
            rows.AddNew();
            rows.Set(u"DATE", vorel::basic::DateTime(start.serial() + i * 7919 % 9000));
            rows.Set(u"DAY", u"Mon"_s);
            rows.Set(u"APPTIME", u"09:00 Am"_s);
            rows.Set(u"APPOINTMENT", u"Appointment number %1 with somebody"_s.arg(i));
            rows.Set(u"PeriodMonth", i % 12);
            rows.Set(u"WeekNum", u""_s);
            rows.Set(u"UsersName", u"Administrator"_s);
            rows.Set(u"IDNUM", i);
            rows.Update();
        }
        all.Commit();
        return file;
    }();
    return path;
}

const char *const queries[] = { "SELECT * FROM APPOINTMENTS", "SELECT * FROM APPOINTMENTS ORDER BY [DATE]",
                                "SELECT * FROM APPOINTMENTS WHERE PeriodMonth<6" };

// Touches a cell so that no compiler drops the reading.
qint64 throughInterface(sqlite3 *connection, const char *sql)
{
    sqlite3_stmt *statement = nullptr;
    sqlite3_prepare_v2(connection, sql, -1, &statement, nullptr);
    qint64 sum = 0;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        const int columns = sqlite3_column_count(statement);
        for (int i = 0; i < columns; ++i) {
            switch (sqlite3_column_type(statement, i)) {
            case SQLITE_INTEGER:
                sum += sqlite3_column_int64(statement, i);
                break;
            case SQLITE_FLOAT:
                sum += static_cast<qint64>(sqlite3_column_double(statement, i));
                break;
            case SQLITE_TEXT:
                sum += sqlite3_column_text(statement, i)[0];
                sum += sqlite3_column_bytes(statement, i);
                break;
            default:
                break;
            }
        }
    }
    sqlite3_finalize(statement);
    return sum;
}

qint64 throughRecordset(Database &database, const char *sql)
{
    Recordset rows = database.OpenRecordset(QString::fromLatin1(sql), dbOpenSnapshot);
    const int columns = static_cast<int>(rows.Fields().size());
    qint64 sum = 0;
    for (; !rows.EOF_(); rows.MoveNext()) {
        for (int i = 0; i < columns; ++i)
            sum += static_cast<qint64>(rows.Get(i).type());
    }
    return sum;
}

// Of the processor, not of the wall: a busy machine must not weigh on the comparison.
double seconds(const std::function<void()> &work)
{
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void interfaceRead(benchmark::State &state)
{
    sqlite3 *connection = nullptr;
    sqlite3_open(filledFile().toUtf8().constData(), &connection);
    for (auto _ : state)
        benchmark::DoNotOptimize(throughInterface(connection, queries[state.range(0)]));
    sqlite3_close(connection);
}

// Both take turns, so that they meet the machine in the same state.
void recordsetRead(benchmark::State &state)
{
    Database database = DBEngine::OpenDatabase(filledFile());
    sqlite3 *connection = nullptr;
    sqlite3_open(filledFile().toUtf8().constData(), &connection);
    const char *sql = queries[state.range(0)];
    double ours = 0;
    double theirs = 0;
    for (auto _ : state) {
        const double took = seconds([&] { benchmark::DoNotOptimize(throughRecordset(database, sql)); });
        theirs += seconds([&] { benchmark::DoNotOptimize(throughInterface(connection, sql)); });
        ours += took;
        state.SetIterationTime(took);
    }
    state.counters["ratio"] = ours / theirs;
    state.SetLabel(sql);
    sqlite3_close(connection);
}

void openTheKeyset(benchmark::State &state)
{
    Database database = DBEngine::OpenDatabase(filledFile());
    for (auto _ : state)
        benchmark::DoNotOptimize(database.OpenRecordset(QString::fromLatin1(queries[state.range(0)])).rowTotal());
}

// Names as people have them: every tenth with an accent, many beginning alike.
const QString &filledContacts()
{
    static QTemporaryDir folder;
    static const QString path = [] {
        const QString file = folder.filePath(u"CONTACTS.MDB"_s);
        Database database = DBEngine::CreateDatabase(file, {});
        database.AppendTable({ .Name = u"CONTACTS"_s,
                               .Fields = { { .Name = u"ID"_s, .Type = dbLong, .Size = 4, .Attributes = dbAutoIncrField },
                                           field(u"SORTNAME"_s, dbText, 100), field(u"CATEGORY"_s, dbText, 50),
                                           field(u"TITLE"_s, dbText, 100), field(u"INVISIBLE"_s, dbBoolean, 1),
                                           field(u"NOTES"_s, dbMemo, 0) } });
        Transaction all(database);
        Recordset rows = database.OpenRecordset(u"CONTACTS"_s);
        const QStringList names = { u"Miller"_s, u"Smith"_s, u"O'Connor"_s, u"M\u00fcller"_s, u"Garc\u00eda"_s, u"Nguyen"_s, u"Baker-Lee"_s,
                                    u"Smithers"_s, u"de Vries"_s, u"Jones"_s };
        for (int i = 0; i < rowsWanted; ++i) {
            const int mixed = static_cast<int>(i * 48271LL % 2147483647 % rowsWanted);
            rows.AddNew();
            rows.Set(u"SORTNAME", u"%1, Person %2"_s.arg(names[mixed % 10]).arg(mixed));
            rows.Set(u"CATEGORY", u"Category %1"_s.arg(mixed % 30));
            rows.Set(u"TITLE", u"The title number %1 of a long row"_s.arg(mixed));
            rows.Set(u"INVISIBLE", mixed % 50 == 0);
            rows.Set(u"NOTES", u"Some words that nobody looks for in a list, but which lie in the way"_s);
            rows.Update();
        }
        all.Commit();
        return file;
    }();
    return path;
}

const char *const sections[] = { "SELECT ID,SORTNAME FROM CONTACTS WHERE [INVISIBLE]=False ORDER BY [SORTNAME]",
                                 "SELECT ID,CATEGORY,TITLE FROM CONTACTS ORDER BY [CATEGORY],[TITLE]",
                                 "SELECT ID,TITLE FROM CONTACTS ORDER BY [TITLE]" };

// The keys of a section with the first rows, as its grid asks for them; budget 100 ms with the painting.
void openTheSection(benchmark::State &state)
{
    Database database = DBEngine::OpenDatabase(filledContacts());
    for (auto _ : state) {
        const Recordset rows = database.OpenRecordset(QString::fromLatin1(sections[state.range(0)]));
        for (qsizetype row = 0; row < 40; ++row)
            benchmark::DoNotOptimize(rows.cell(row, 1));
    }
    state.SetLabel(sections[state.range(0)]);
}

// The same order asked of the store, for comparison.
void sortByCollation(benchmark::State &state)
{
    Database database = DBEngine::OpenDatabase(filledContacts());
    sqlite3 *connection = nullptr;
    sqlite3_open(filledContacts().toUtf8().constData(), &connection);
    jet::registerFunctions(connection);
    const QByteArray sql = QByteArray(sections[state.range(0)]).replace("[", "").replace("]", "").replace("False", "0")
        .replace("ID,SORTNAME", "ID").replace("ID,CATEGORY,TITLE", "ID").replace("ID,TITLE", "ID").replace("Y,TITLE", "Y COLLATE JET,TITLE")
        + " COLLATE JET";
    for (auto _ : state)
        benchmark::DoNotOptimize(throughInterface(connection, sql.constData()));
    sqlite3_close(connection);
}

// What a key costs in the search field while nothing fits, and where the last row does; budget 50 ms.
void search(benchmark::State &state)
{
    Database database = DBEngine::OpenDatabase(filledContacts());
    const Recordset rows = database.OpenRecordset(QString::fromLatin1(sections[0]));
    const QString sought = state.range(0) == 0 ? u"zzq"_s : rows.cell(rows.rowTotal() - 1, 1).text();
    for (auto _ : state) {
        Recordset look = rows.Clone();
        look.FindFirst(u"[SORTNAME] Like '*"_s + sought.toUpper() + u"*'"_s);
        if (!look.NoMatch())
            benchmark::DoNotOptimize(look.Bookmark());
    }
}

void openTheFile(benchmark::State &state)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(u"LOCKED.MDB"_s);
    DBEngine::CreateDatabase(path, u";pwd=BENCHWORD"_s).Close();
    for (auto _ : state)
        DBEngine::OpenDatabase(path, false, false, u";pwd=BENCHWORD"_s).Close();
}

}

BENCHMARK(interfaceRead)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(recordsetRead)->DenseRange(0, 2)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(openTheKeyset)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(openTheSection)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(sortByCollation)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(search)->DenseRange(0, 1)->Unit(benchmark::kMillisecond);
BENCHMARK(openTheFile)->Unit(benchmark::kMicrosecond);

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
