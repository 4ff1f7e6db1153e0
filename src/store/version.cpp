#include "session/datafiles.h"
#include "platform/basic/convert.h"
#include "platform/basic/files.h"
#include "store/upgrade.h"

// The version stamp of a data file: one row in a table of its own. A stamp that cannot be read counts as 0 and one that
// cannot be written is skipped, so that a damaged file reaches the repair instead of ending the start.
namespace vorel {

using namespace Qt::StringLiterals;

namespace {

using Open = std::function<dao::Database()>;

bool exists(const QString &path)
{
    return !basic::Dir(path).isEmpty();
}

// A stamp that cannot be read is an old file's, and one that is not written leaves the file old: the next upgrade looks into it
// and says what it finds.
void tryWith(const Open &open, const std::function<void(dao::Database &)> &step)
{
    basic::IgnoreErrors([&] {
        dao::Database database = open();
        step(database);
        database.Close();
    });
}

std::int16_t readVersion(const Open &open)
{
    std::int16_t version = 0;
    tryWith(open, [&](dao::Database &database) {
        dao::Recordset rows = database.OpenRecordset(u"SELECT [Version] FROM [Database Info]"_s, dao::dbOpenSnapshot);
        dao::DBEngine::Idle(dao::dbRefreshCache);
        version = basic::CInt(rows.Get(u"Version"));
        rows.Close();
    });
    return version;
}

void writeVersion(const Open &open, int version)
{
    tryWith(open, [&](dao::Database &database) { stampVersion(database, version); });
}

// The path only says whether the file exists; what is opened is the file in use.
dao::Database openProtected(DataFile file)
{
    return dao::DBEngine::OpenDatabase(state().path(file), true, false, connectString(file));
}

}

void stampVersion(dao::Database &database, int version)
{
    const QString count = u"SELECT COUNT(*) FROM [Database Info]"_s;
    dao::Recordset rows;
    try {
        rows = database.OpenRecordset(count, dao::dbOpenSnapshot);
    } catch (const dao::EngineError &error) {
        if (error.number() != dao::err::TableNotFound)
            throw;
        database.Execute(u"CREATE TABLE [Database Info] ([Version] INTEGER)"_s);
        rows = database.OpenRecordset(count, dao::dbOpenSnapshot);
    }
    dao::DBEngine::Idle(dao::dbRefreshCache);
    const bool stamped = basic::CLng(rows.Get(0)) > 0;
    rows.Close();
    database.Execute(stamped ? u"UPDATE [Database Info] SET [Version] = %1;"_s.arg(version)
                             : u"INSERT INTO [Database Info] ([Version]) VALUES (%1);"_s.arg(version));
}

std::int16_t store::versionAt(const QString &path, const QString &connect)
{
    // Not openDataFile: the stamp is read before the start repairs, and of safety copies too.
    return readVersion([&] { return dao::DBEngine::OpenDatabase(path, false, false, connect); });
}

std::int16_t GetDatabaseVersion(const QString &path)
{
    return exists(path) ? store::versionAt(path, {}) : std::int16_t{0};
}

void SetDatabaseVersion(const QString &path, int version)
{
    if (exists(path))
        writeVersion([&] { return dao::DBEngine::OpenDatabase(path); }, version);
}

std::int16_t GetProtectedDatabaseVersion(DataFile file, const QString &path)
{
    return exists(path) ? readVersion([&] { return openProtected(file); }) : std::int16_t{0};
}

void SetProtectedDatabaseVersion(DataFile file, const QString &path, int version)
{
    if (exists(path))
        writeVersion([&] { return openProtected(file); }, version);
}

}
