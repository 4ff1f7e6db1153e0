#include "platform/dao/dao.h"

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
BENCHMARK(openTheFile)->Unit(benchmark::kMicrosecond);

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
