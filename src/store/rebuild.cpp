#include "store/rebuild.h"

#include "platform/basic/clock.h"
#include "platform/basic/files.h"
#include "platform/basic/prompts.h"
#include "session/datafiles.h"
#include "store/designs.h"
#include "store/tablecopy.h"
#include "store/upgrade.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

const QString locale = u";LANGID=0x0409;CP=1252;COUNTRY=0"_s;
const QString infoTable = u"Database Info"_s;       // the stamp's, which no design lists

bool stands(const QString &path)
{
    return QFileInfo(path).isFile();
}

void removeScratch(const QString &scratch)
{
    dao::DBEngine::Forget(scratch);
    for (const QString &suffix : {u""_s, u"-journal"_s, u".making"_s, u".making-journal"_s})
        QFile::remove(scratch + suffix);
}

// What is at the target until then is kept to the last moment.
void copyOver(const QString &from, const QString &to)
{
    const QString scratch = to + u".tmp"_s;
    QFile::remove(scratch);
    QFile source(from);
    try {
        if (!source.copy(scratch))
            throw basic::Error(75, source.errorString());
        dao::DBEngine::putInPlace(scratch, to);
    } catch (...) {
        QFile::remove(scratch);
        throw;
    }
}

// A file that nothing can be read from makes room, and stays for whoever knows more.
void moveAside(const QString &path)
{
    QString name = path + u".damaged"_s;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = path + u".damaged%1"_s.arg(number);
    dao::DBEngine::Forget(path);
    QFile file(path);
    if (!file.rename(name))
        throw basic::Error(75, file.errorString());
}

// Mends the file; one that cannot be mended is gone from the path.
void repair(const QString &path, const QString &connect)
{
    constexpr int wrongPassword = 3031, damaged = 3049, unknownFormat = 3343;
    try {
        dao::DBEngine::RepairDatabase(path, connect);
    } catch (const dao::EngineError &error) {
        const int number = error.number();
        if (number != damaged && number != unknownFormat && number != wrongPassword)
            throw;
        if (stands(path))
            moveAside(path);
    }
}

class Rebuild {
public:
    Rebuild(DataFile file, const QString &path)
        : m_designs(store::designsOf(file)), m_path(basic::realPath(path)), m_backup(backupNameOf(m_path)),
          m_connect(connectString(file))
    {
        // Beside the file, so that one rename puts it in place; always the same name, so that a kill leaves one at most.
        const QFileInfo place(m_path);
        m_scratch = place.absolutePath() + u"/cdb"_s + place.fileName() + u".tmp"_s;
    }
    ~Rebuild()
    {
        basic::IgnoreErrors([this] {
            if (m_database)
                m_database.Close();
        });
        removeScratch(m_scratch);
    }
    Rebuild(const Rebuild &) = delete;
    Rebuild &operator=(const Rebuild &) = delete;

    const QString &scratch() const { return m_scratch; }
    bool run(int version)
    {
        m_exists = stands(m_path);
        if (m_exists && !rescue())
            return false;
        open();
        {
            dao::Transaction all(m_database);
            deleteQueries();
            const QStringList oldNames = setAside();
            if (m_exists) {
                dropUnknown(oldNames);
                takeOver();
            } else {
                for (const dao::TableDef &design : m_designs)
                    m_database.AppendTable(design);
            }
            if (m_database.hasTable(infoTable))
                m_database.DeleteTable(infoTable);
            stampVersion(m_database, version);
            all.Commit();
        }
        m_database.Close();
        dao::DBEngine::putInPlace(m_scratch, m_path);
        return true;
    }

private:
    bool rescue();          // false: the file is lost, and the user wants no new one
    void keepCopy(bool mended) const;
    void open();
    void deleteQueries();
    QStringList setAside();
    void dropUnknown(const QStringList &oldNames);
    void takeOver();

    const std::vector<dao::TableDef> &m_designs;
    QString m_path, m_backup, m_scratch, m_connect;
    dao::Database m_database;
    bool m_exists = false;
};

bool Rebuild::rescue()
{
    const auto mark = [this] {
        const QFileInfo file(m_path);
        return std::pair(file.size(), file.lastModified());
    };
    const auto before = mark();
    repair(m_path, m_connect);
    bool mended = stands(m_path) && mark() != before;
    if (!stands(m_path) && stands(m_backup)) {
        const auto dated = basic::DateTime::fromQDateTime(QFileInfo(m_backup).lastModified());
        if (basic::askYesNo(u"Database was corrupted beyond repair.\r\nA backup has been found dated: "_s
                            + basic::Value(dated).text() + u"\r\nWould you like to restore this copy?"_s)) {
            copyOver(m_backup, m_path);
            repair(m_path, m_connect);
            mended = true;
        }
    }
    if (stands(m_path)) {
        keepCopy(mended);
        return true;
    }
    m_exists = false;
    return basic::askYesNo(u"Database was corrupted beyond repair and should be recreated.\r\n"
                           "If you have a backup you should restore the file: "_s + m_path
                           + u"\r\n\r\nWould you like to create a new database?"_s);
}

// A mended file may have lost rows that the copy before it still has: that copy stays too.
void Rebuild::keepCopy(bool mended) const
{
    if (mended && stands(m_backup))
        copyOver(m_backup, m_backup + u".old"_s);
    copyOver(m_path, m_backup);
}

void Rebuild::open()
{
    removeScratch(m_scratch);
    if (m_exists) {
        dao::DBEngine::CompactDatabase(m_path, m_scratch, locale + m_connect, dao::dbVersion30);
        m_database = dao::DBEngine::OpenDatabase(m_scratch, true, false, m_connect);
        m_database.writeUnsynced();
    } else {
        m_database = dao::DBEngine::createScratch(m_scratch, locale + m_connect);
        m_database.setQueryTimeout(60);
    }
}

void Rebuild::deleteQueries()
{
    for (const QString &query : m_database.QueryDefs())
        m_database.DeleteQuery(query);
}

QStringList Rebuild::setAside()
{
    QStringList names;
    for (const dao::TableDef &table : m_database.TableDefs()) {
        if (table.Attributes == 0 && table.Name.compare(infoTable, Qt::CaseInsensitive) != 0)
            names << table.Name;
    }
    // The longest first: a foreign table may bear the name that another is to get.
    QStringList ordered = names;
    std::stable_sort(ordered.begin(), ordered.end(), [](const QString &a, const QString &b) { return a.size() > b.size(); });
    for (const QString &name : ordered)
        m_database.RenameTable(name, setAsideName(name));
    return names;
}

void Rebuild::dropUnknown(const QStringList &oldNames)
{
    for (const QString &name : oldNames) {
        const bool wanted = std::any_of(m_designs.begin(), m_designs.end(), [&](const dao::TableDef &design) {
            return design.Name.compare(name, Qt::CaseInsensitive) == 0;
        });
        if (!wanted)
            m_database.DeleteTable(setAsideName(name));
    }
}

void Rebuild::takeOver()
{
    for (const dao::TableDef &design : m_designs) {
        const QString oldName = setAsideName(design.Name);
        const bool hadOld = m_database.hasTable(oldName);
        if (hadOld && !TableChanged(m_database, design)) {
            m_database.RenameTable(oldName, design.Name);
            m_database.appendHelpers(design);
            continue;
        }
        m_database.AppendTable(design);
        if (hadOld) {
            CopyTableRows(m_database, design);
            m_database.DeleteTable(oldName);
        }
    }
}

}

QString backupNameOf(const QString &path)
{
    const QFileInfo file(path);
    const QString folder = path.left(path.size() - file.fileName().size());
    return folder + file.baseName() + u".BAK"_s;
}

bool UpgradeDatabase(DataFile file, const QString &path, int version)
{
    Rebuild work(file, path);
    try {
        return work.run(version);
    } catch (const dao::EngineError &error) {
        // The user knows the file, not the scratch.
        QString text = error.text();
        text.replace(QDir::toNativeSeparators(work.scratch()), QDir::toNativeSeparators(path));
        throw dao::EngineError(error.number(), text, nullptr);
    }
}

void CompactFile(const QString &path)
{
    const QString place = basic::realPath(path);
    if (!stands(place))
        return;
    const QString scratch = basic::programFolder() + u"/NEWDB.MDB"_s;
    removeScratch(scratch);
    repair(place, {});
    try {
        dao::DBEngine::CompactDatabase(place, scratch, locale, dao::dbVersion30);
        dao::DBEngine::putInPlace(scratch, place);
    } catch (...) {
        removeScratch(scratch);
        throw;
    }
}

}
