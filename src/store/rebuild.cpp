#include "store/rebuild.h"

#include "platform/basic/clock.h"
#include "platform/basic/files.h"
#include "platform/basic/prompts.h"
#include "platform/dao/safekeeping.h"
#include "session/datafiles.h"
#include "store/designs.h"
#include "store/suspects.h"
#include "store/tablecopy.h"
#include "store/upgrade.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <algorithm>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

const QString locale = u";LANGID=0x0409;CP=1252;COUNTRY=0"_s;
const QString infoTable = u"Database Info"_s;       // the stamp's, which no design lists

bool exists(const QString &path)
{
    return QFileInfo(path).isFile();
}

void removeScratch(const QString &scratch)
{
    dao::DBEngine::Forget(scratch);
    for (const QString &suffix : {u""_s, u"-journal"_s, u".making"_s, u".making-journal"_s})
        QFile::remove(scratch + suffix);
}

// Another program may be at the same work where the file system knows no locks.
QString ownSuffix()
{
    return u".%1.tmp"_s.arg(QCoreApplication::applicationPid());
}

// The target's earlier content is kept to the last moment.
void copyOver(const QString &from, const QString &to)
{
    const QString scratch = to + ownSuffix();
    try {
        dao::copyFile(from, scratch);
        dao::setSamePermissions(from, scratch);
        dao::DBEngine::putInPlace(scratch, to);
    } catch (...) {
        QFile::remove(scratch);
        throw;
    }
}

// Repairs the file; one that cannot be repaired is moved away.
void repair(const QString &path, const QString &connect, const std::vector<dao::TableDef> &wanted, store::Mending &mending)
{
    mending.path = path;
    try {
        const dao::RepairReport report = dao::DBEngine::RepairDatabase(path, connect, wanted);
        mending.original = report.damaged ? report.original : QString();
        mending.rowsSeen = report.rowsSeen;
        mending.rowsSaved = report.rowsSaved;
        mending.lost = report.lost;
    } catch (const dao::EngineError &error) {
        if (!isDamage(error.number()) && error.number() != dao::err::WrongPassword)
            throw;
        if (!exists(path))
            return;
        // A file that nothing can be read from is renamed and kept for manual recovery.
        mending.original = dao::freeDamagedName(path);
        dao::DBEngine::Forget(path);
        dao::setAside(path);
    }
}

class Rebuild {
public:
    Rebuild(DataFile file, const QString &path, const store::RebuildWishes &wishes, store::Mending &mending)
        : m_designs(store::designsOf(file)), m_wishes(wishes), m_mending(mending), m_path(basic::realPath(path)),
          m_backup(backupNameOf(m_path)), m_connect(connectString(file))
    {
        // Beside the file, so that one rename puts it in place.
        const QFileInfo place(m_path);
        m_scratch = place.absolutePath() + u"/cdb"_s + place.fileName() + ownSuffix();
    }
    ~Rebuild()
    {
        m_database.letGo();
        removeScratch(m_scratch);
    }
    Rebuild(const Rebuild &) = delete;
    Rebuild &operator=(const Rebuild &) = delete;

    const QString &scratch() const { return m_scratch; }
    const QString &backup() const { return m_backup; }
    bool run()
    {
        m_exists = exists(m_path);
        if (m_exists && !rescue())
            return false;
        if (m_exists && m_wishes.onlyIfDamaged && !m_mending.wasDamaged())
            return false;
        if (m_exists)
            keepCopy();
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
            stampVersion(m_database, m_wishes.version);
            all.Commit();
        }
        if (m_wishes.fill)
            m_wishes.fill(m_database);
        m_database.Close();
        dao::DBEngine::putInPlace(m_scratch, m_path);
        return true;
    }

private:
    bool rescue();          // false: the file is lost, and the user wants no new one
    void keepCopy() const;
    void open();
    void deleteQueries();
    QStringList setAside();
    void dropUnknown(const QStringList &oldNames);
    void takeOver();

    const std::vector<dao::TableDef> &m_designs;
    const store::RebuildWishes &m_wishes;
    store::Mending &m_mending;
    QString m_path, m_backup, m_scratch, m_connect;
    dao::Database m_database;
    bool m_exists = false;
};

bool Rebuild::rescue()
{
    repair(m_path, m_connect, m_designs, m_mending);
    m_mending.beyondRepair = !exists(m_path);
    if (m_mending.beyondRepair && exists(m_backup)) {
        const auto dated = basic::DateTime::fromQDateTime(QFileInfo(m_backup).lastModified());
        if (basic::askYesNo(u"Database was corrupted beyond repair.\r\nA backup has been found dated: "_s
                            + basic::Value(dated).text() + u"\r\nWould you like to restore this copy?"_s)) {
            copyOver(m_backup, m_path);
            store::Mending ofCopy;
            repair(m_path, m_connect, m_designs, ofCopy);
            m_mending.fromCopy = exists(m_path);
        }
    }
    if (exists(m_path))
        return true;
    m_exists = false;
    return basic::askYesNo(u"Database was corrupted beyond repair and should be recreated.\r\n"
                           "If you have a backup you should restore the file: "_s + m_path
                           + u"\r\n\r\nWould you like to create a new database?"_s);
}

// A mended file may have lost rows that the copy before it still has: that copy stays too.
void Rebuild::keepCopy() const
{
    if (m_mending.wasDamaged() && exists(m_backup))
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
    // The longest first: an unknown table may have the name that another is to get.
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
    store::Mending mending;
    return store::rebuildFile(file, path, {version}, mending);
}

void CompactFile(const QString &path)
{
    const QString place = basic::realPath(path);
    if (!exists(place))
        return;
    const QString scratch = basic::programFolder() + u"/NEWDB.MDB"_s;
    removeScratch(scratch);
    dao::DBEngine::RepairDatabase(place);
    try {
        dao::DBEngine::CompactDatabase(place, scratch, locale, dao::dbVersion30);
        dao::DBEngine::putInPlace(scratch, place);
    } catch (...) {
        removeScratch(scratch);
        throw;
    }
}

bool store::rebuildFile(DataFile file, const QString &path, const RebuildWishes &wishes, Mending &mending)
{
    Rebuild work(file, path, wishes, mending);
    try {
        const bool replaced = work.run();
        forgetDamage(basic::realPath(path));
        return replaced;
    } catch (const dao::EngineError &error) {
        // The user knows the file, not the scratch.
        QString text = error.text();
        for (const QString &unknown : {work.scratch(), work.backup() + ownSuffix()})
            text.replace(QDir::toNativeSeparators(unknown), QDir::toNativeSeparators(path));
        throw dao::EngineError(error.number(), text, nullptr);
    }
}

QStringList store::scratchBeside(const QStringList &paths)
{
    QStringList found;
    QMap<QString, QStringList> folders;
    for (const QString &path : paths) {
        const QFileInfo file(path);
        const QString name = file.fileName(), copy = QFileInfo(backupNameOf(path)).fileName();
        folders[file.absolutePath()] << u"cdb"_s + name + u".*tmp*"_s << copy + u".*tmp"_s << copy + u".old.*tmp"_s
                                     << name + u".*.tmp"_s << name + u".making*"_s << name + u".rescue*"_s;
    }
    if (QDir(basic::programFolder()).exists())
        folders[QDir(basic::programFolder()).absolutePath()] << u"NEWDB.MDB*"_s;
    for (auto folder = folders.cbegin(); folder != folders.cend(); ++folder) {
        for (const QString &name : QDir(folder.key()).entryList(*folder, QDir::Files | QDir::Hidden))
            found << folder.key() + u'/' + name;
    }
    return found;
}

void store::removeDeadScratch(const QStringList &names)
{
    for (const QString &name : names) {
        dao::DBEngine::Forget(name);
        QFile::remove(name);
    }
}

}
