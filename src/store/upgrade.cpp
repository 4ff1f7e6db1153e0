#include "store/upgrade.h"

#include "frame/startup.h"
#include "platform/basic/files.h"
#include "platform/basic/prompts.h"
#include "store/designs.h"

#include <QFile>
#include <QFileInfo>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

const QString locale = u";LANGID=0x0409;CP=1252;COUNTRY=0"_s;

struct FileDesign {
    DataFile file;
    const std::vector<dao::TableDef> &(*tables)();
};
const FileDesign fileDesigns[] = {
    {DataFile::Main, store::mainDesigns},
};

// A row that a table must hold before the screens can use it; written when the query finds none.
struct RequiredRow {
    DataFile file;
    const char16_t *query;
    std::vector<std::pair<const char16_t *, basic::Value>> fields;
};
const std::vector<RequiredRow> &requiredRows()
{
    static const std::vector<RequiredRow> rows = {
        {DataFile::Main, u"SELECT * FROM [Setup];", {{u"AdminPassword", 0.0}, {u"DeleteAfterDays", std::int16_t{30}}}},
    };
    return rows;
}

void appendTables(const QString &path, const std::vector<dao::TableDef> &tables)
{
    dao::Database database = dao::DBEngine::CreateDatabase(path, locale, dao::dbVersion30);
    database.setQueryTimeout(60);
    dao::Transaction all(database);
    for (const dao::TableDef &table : tables)
        database.AppendTable(table);
    all.Commit();
    database.Close();
}

// What an interrupted write leaves beside a file would be played into a new file of that name.
void removeTraces(const QString &path)
{
    for (const QString &suffix : {u""_s, u"-journal"_s, u"-wal"_s, u"-shm"_s})
        QFile::remove(path + suffix);
}

// The tables are built on a scratch file beside the place and moved there in one step: a kill on the way leaves no file
// with half its tables, and a file that came into being meanwhile is never overwritten.
void createFile(const FileDesign &design, const QString &path)
{
    const QString scratch = path + u".new"_s;
    removeTraces(scratch);
    try {
        appendTables(scratch, design.tables());
        SetDatabaseVersion(scratch, store::currentVersion);
        if (GetDatabaseVersion(scratch) != store::currentVersion)
            throw dao::EngineError(3027);
        for (const QString &suffix : {u"-journal"_s, u"-wal"_s})
            QFile::rename(path + suffix, path + suffix + u".old"_s);
        QFile made(scratch);
        if (!made.rename(path))
            throw basic::Error(75, made.errorString());
    } catch (...) {
        removeTraces(scratch);
        throw;
    }
}

void addRequiredRow(const RequiredRow &row, dao::Database &database)
{
    dao::Recordset rows = database.OpenRecordset(QString::fromUtf16(row.query), dao::dbOpenDynaset);
    dao::DBEngine::Idle(dao::dbRefreshCache);
    if (rows.RecordCount() == 0) {
        rows.AddNew();
        for (const auto &[name, value] : row.fields)
            rows.Set(name, value);
        rows.Update();
    }
    rows.Close();
}

void addRequiredRows(DataFile file)
{
    dao::Database database = dao::DBEngine::OpenDatabase(state().path(file));
    for (const RequiredRow &row : requiredRows()) {
        if (row.file == file)
            addRequiredRow(row, database);
    }
    database.Close();
}

void report(const QString &path, const QString &what, const QString &outcome)
{
    basic::MsgBox(u"%1\r\n\r\n%2\r\n\r\n%3"_s.arg(path, what, outcome), {}, basic::Icon::Exclamation);
}

void prepareFile(const FileDesign &design)
{
    const QString path = basic::realPath(state().path(design.file));
    const QFileInfo place(path);
    const bool missing = !place.exists();
    MainFileAccess access = MainFileAccess::None;
    try {
        if (missing)
            createFile(design, path);
        addRequiredRows(design.file);
        access = MainFileAccess::Read;
        if (!missing && !place.isWritable())
            throw dao::EngineError(3027);   // better told now than at the first save
        access = MainFileAccess::Full;
    } catch (const basic::Error &error) {
        report(path, error.text(),
               missing ? u"The file could not be made."_s : u"The file was left as it is."_s);
    } catch (const std::exception &error) {
        report(path, QString::fromUtf8(error.what()), u"The file was left as it is."_s);
    }
    if (design.file == DataFile::Main)
        state().mainFile = access;
}

}

void UpgradeAllDatabases()
{
    DetectDateOrder();
    for (const FileDesign &design : fileDesigns)
        prepareFile(design);
}

}
