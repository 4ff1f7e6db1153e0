#include "store/upgrade.h"

#include "accounts/accounts.h"
#include "platform/basic/clock.h"
#include "platform/basic/files.h"
#include "platform/basic/prompts.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/systemlock.h"
#include "session/datafiles.h"
#include "store/designs.h"
#include "store/firstrows.h"
#include "store/rebuild.h"
#include "store/startreport.h"
#include "store/suspects.h"

#include <QFileInfo>
#include <algorithm>
#include <map>
#include <optional>
#include <set>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

// In the order in which missing files are created. The upgrade takes the plain ones in this order, then the protected ones.
constexpr DataFile fileOrder[] = {
    DataFile::Garden, DataFile::Books, DataFile::Movies, DataFile::Music, DataFile::Notes, DataFile::HowTo,
    DataFile::Recipe, DataFile::Sports, DataFile::Contacts, DataFile::DataJ, DataFile::DataP, DataFile::Accounts,
};
constexpr DataFile upgradeOrder[] = {
    DataFile::Garden, DataFile::Books, DataFile::Movies, DataFile::Music, DataFile::Notes, DataFile::HowTo,
    DataFile::Recipe, DataFile::Sports, DataFile::Contacts, DataFile::Accounts, DataFile::DataJ, DataFile::DataP,
};

// Another program that brings the same files up to date is waited for: what it does need not be done again.
constexpr int waitForOtherPass = 60'000;

bool isProtected(DataFile file)
{
    return dataFileEntry(file).isProtected;
}

bool exists(DataFile file)
{
    return !basic::Dir(state().path(file)).isEmpty();
}

void show(const QString &report)
{
    if (!report.isEmpty())
        basic::MsgBox(report, {}, basic::Icon::Exclamation);
}

// The locks of all folders in which data files lie; folders without locks count as held.
class FolderLocks {
public:
    bool take(int waitMilliseconds)
    {
        std::set<QString> folders;
        for (const QString &path : state().paths) {
            if (!path.isEmpty())
                folders.insert(QFileInfo(basic::realPath(path)).absolutePath());
        }
        for (const QString &folder : folders) {         // sorted, so that two programs never wait for each other
            m_locks.push_back(std::make_unique<desktop::SystemLock>(folder, desktop::SystemLock::Kind::Folder, waitMilliseconds));
            if (m_locks.back()->isTaken())
                return false;
        }
        m_complete = std::all_of(m_locks.begin(), m_locks.end(), [](const auto &lock) { return lock->isHeld(); });
        return true;
    }
    bool isComplete() const { return m_complete; }

private:
    std::vector<std::unique_ptr<desktop::SystemLock>> m_locks;
    bool m_complete = false;
};

// The whole pass of one start.
class StartPass {
public:
    void run();

private:
    bool isDue() const;
    bool lockFolders(FolderLocks &locks);
    void attempt(DataFile file, const std::function<void()> &step);
    bool rebuild(DataFile file, const store::RebuildWishes &wishes);
    void make(DataFile file);
    void upgrade(DataFile file, int version);
    void serveFiles();
    void serveMain(bool isOld, int stamp);
    bool needsRows(DataFile file) const;
    void addRows(DataFile file);
    void addSamples(DataFile file, dao::Database &database);
    void checkMain();

    std::set<DataFile> m_made;          // in this run, so of the current design
    std::set<DataFile> m_suspects;
    std::map<DataFile, store::Failure> m_failed;
    std::vector<store::Mending> m_mended;
    std::vector<store::FirstRows> m_required;
    std::vector<store::FirstRows> m_samples;
};

// A file without a path is not in use; one that failed is let be.
void StartPass::attempt(DataFile file, const std::function<void()> &step)
{
    const QString path = basic::realPath(state().path(file));
    if (path.isEmpty() || m_failed.contains(file))
        return;
    const QString outcome = QFileInfo(path).isFile() ? u"These data files were left as they were:"_s
                                                     : u"These data files could not be made:"_s;
    try {
        step();
    } catch (const basic::Error &error) {
        m_failed[file] = {path, error.number(), error.text(), outcome};
    } catch (const std::exception &error) {
        m_failed[file] = {path, -1, QString::fromUtf8(error.what()), outcome};
    }
}

bool StartPass::rebuild(DataFile file, const store::RebuildWishes &wishes)
{
    store::Mending mending;
    const auto note = [&] {
        if (mending.wasDamaged())
            m_mended.push_back(mending);
    };
    try {
        const bool replaced = store::rebuildFile(file, state().path(file), wishes, mending);
        note();
        return replaced;
    } catch (...) {
        note();
        throw;
    }
}

void StartPass::make(DataFile file)
{
    attempt(file, [&] {
        if (exists(file))
            return;
        rebuild(file, {store::currentVersion});
        m_made.insert(file);
    });
}

void StartPass::upgrade(DataFile file, int version)
{
    if (m_made.contains(file))
        return;         // the pass would find nothing to change
    attempt(file, [&] {
        // An earlier pass that was cut short came as far as this file: its safety copy is the one of the older version.
        const bool isDone = store::wasUpgraded(file);
        // The upgraded file is in place by now; one that cannot be made smaller, for want of room, is equivalent.
        if (rebuild(file, {version, isDone}) && !isProtected(file))
            basic::IgnoreErrors([&] { CompactFile(state().path(file)); });
    });
}

// Whether there is more to do than to look.
bool StartPass::isDue() const
{
    const auto isMissing = [](DataFile file) { return !state().path(file).isEmpty() && !exists(file); };
    return !m_suspects.empty() || std::any_of(std::begin(fileOrder), std::end(fileOrder), isMissing)
        || isMissing(DataFile::Main) || m_failed.contains(DataFile::Main) || GetDatabaseVersion(state().path(DataFile::Main)) < store::currentVersion;
}

// False: another program is at work on the files, and does not come to its end.
bool StartPass::lockFolders(FolderLocks &locks)
{
    QStringList paths;
    for (const QString &path : state().paths) {
        if (!path.isEmpty())
            paths << basic::realPath(path);
    }
    const bool isScratchLeft = !store::scratchBeside(paths).isEmpty();
    const bool due = isDue();
    if (!due && !isScratchLeft)
        return true;
    if (!locks.take(due ? waitForOtherPass : 0))
        return !due;
    if (isScratchLeft && locks.isComplete())
        store::removeDeadScratch(store::scratchBeside(paths));
    return true;
}

// The main file decides, so it comes last.
void StartPass::serveFiles()
{
    const bool isNew = !exists(DataFile::Main);
    const bool isInUse = m_failed.contains(DataFile::Main);
    const int version = isInUse ? store::currentVersion : GetDatabaseVersion(state().path(DataFile::Main));
    const bool isOld = version < store::currentVersion;
    if (isNew)
        m_samples = store::sampleRows(basic::Date());
    for (const DataFile file : fileOrder)
        make(file);
    for (const DataFile file : upgradeOrder) {
        if (isOld)
            upgrade(file, store::currentVersion);
        else if (m_suspects.contains(file))
            attempt(file, [&] { rebuild(file, {store::currentVersion, true}); });
    }
    // Missing files are made by any start; one that was left as it was needs the next upgrade.
    const bool isWhole = isNew ? std::none_of(m_failed.begin(), m_failed.end(), [](const auto &one) { return exists(one.first); })
                               : m_failed.empty();
    for (const DataFile file : fileOrder)
        attempt(file, [&] { addRows(file); });
    serveMain(isOld, isWhole ? store::currentVersion : version);
}

void StartPass::serveMain(bool isOld, int stamp)
{
    const DataFile file = DataFile::Main;
    if (!exists(file)) {
        attempt(file, [&] {
            // Without room for all first rows the installation stays a new one, which the next start completes.
            if (std::any_of(m_failed.begin(), m_failed.end(), [](const auto &failure) { return failure.second.number == dao::err::DiskFull; }))
                throw dao::EngineError(dao::err::DiskFull);
            rebuild(file, {stamp, false, [&](dao::Database &database) {
                dao::Transaction all(database);
                store::addFirstRows(m_required, file, database);
                all.Commit();
                addSamples(file, database);
            }});
            m_made.insert(file);
        });
    } else if (isOld) {
        upgrade(file, stamp);
    } else if (m_suspects.contains(file)) {
        attempt(file, [&] { rebuild(file, {store::currentVersion, true}); });
    }
    attempt(file, [&] { addRows(file); });
}

bool StartPass::needsRows(DataFile file) const
{
    const auto concerns = [file](const store::FirstRows &group) { return group.file == file; };
    return std::any_of(m_required.begin(), m_required.end(), concerns)
        || std::any_of(m_samples.begin(), m_samples.end(), concerns);
}

// An ordinary start opens the main file and the accounts alone, and writes to neither.
void StartPass::addRows(DataFile file)
{
    if (!needsRows(file) || !exists(file))
        return;
    dao::Database database = openDataFile(file);
    std::optional<dao::Transaction> all;
    if (m_made.contains(file) || !m_samples.empty())
        all.emplace(database);
    store::addFirstRows(m_required, file, database);
    if (file == DataFile::Accounts
        && database.OpenRecordset(u"SELECT * FROM [Accounts]"_s, dao::dbOpenSnapshot).RecordCount() == 0)
        SeedAccounts();
    if (all)
        all->Commit();
    all.reset();
    addSamples(file, database);
    database.Close();
}

// In a step of their own: a sample that cannot be written takes no other row with it.
void StartPass::addSamples(DataFile file, dao::Database &database)
{
    if (m_samples.empty())
        return;
    try {
        dao::Transaction samples(database);
        store::addFirstRows(m_samples, file, database);
        samples.Commit();
    } catch (const basic::Error &error) {
        if (error.number() == dao::err::DiskFull)
            throw;
        m_failed[file] = {basic::realPath(state().path(file)), error.number(), error.text(),
                          u"These data files were made without their sample rows:"_s};
    }
}

// How far the main file is usable; one whose upgrade failed may still be. Better reported now than at the first save.
void StartPass::checkMain()
{
    MainFileAccess &access = state().mainFile;
    access = MainFileAccess::None;
    const bool failed = m_failed.contains(DataFile::Main);
    // What failed has been noted already: here it only counts whether the file serves as it is.
    if (!exists(DataFile::Main) || (failed && basic::IgnoreErrors([this] { addRows(DataFile::Main); }) != 0))
        return;
    const bool isWritable = QFileInfo(basic::realPath(state().path(DataFile::Main))).isWritable();
    access = isWritable ? MainFileAccess::Full : MainFileAccess::Read;
    attempt(DataFile::Main, [&] {
        if (!isWritable)
            throw dao::EngineError(dao::err::ReadOnly);
    });
}

void StartPass::run()
{
    const bool dayFirst = state().settings.gDateShort.toUpper().startsWith(u'D');
    m_required = store::requiredRows(basic::Date(), dayFirst);
    attempt(DataFile::Main, [] {
        // In use elsewhere is not the same as old.
        const int error = exists(DataFile::Main) ? store::openingError(DataFile::Main) : 0;
        if (store::isInUse(error))
            throw dao::EngineError(error, state().path(DataFile::Main));
    });
    m_suspects = store::suspects();
    {
        FolderLocks locks;
        if (lockFolders(locks))
            serveFiles();
        else
            attempt(DataFile::Main, [] { throw dao::EngineError(dao::err::OpenedExclusively, state().path(DataFile::Main)); });
    }
    checkMain();
    std::vector<store::Failure> failures;
    for (const auto &[file, failure] : m_failed)
        failures.push_back(failure);
    show(store::startReport(m_mended, failures));
}

// A file that does not open while the program runs. What was tried once is not tried again.
bool mendWhileRunning(DataFile file)
{
    static std::set<QString> tried;
    const QString path = basic::realPath(state().path(file));
    if (!tried.insert(path + QString::number(QFileInfo(path).lastModified().toMSecsSinceEpoch())).second)
        return false;
    constexpr int waitForOther = 5'000;      // the user waits for a file that does not open
    const desktop::SystemLock lock(QFileInfo(path).absolutePath(), desktop::SystemLock::Kind::Folder, waitForOther);
    if (lock.isTaken())
        return false;
    store::Mending mending;
    bool replaced = false;
    std::vector<store::Failure> failures;
    try {
        replaced = store::rebuildFile(file, path, {store::currentVersion, true}, mending);
    } catch (const basic::Error &error) {
        failures.push_back({path, error.number(), error.text(), u"This data file is damaged and could not be repaired:"_s});
    }
    show(store::startReport(mending.wasDamaged() ? std::vector{mending} : std::vector<store::Mending>(), failures));
    return replaced;
}

}

void UpgradeAllDatabases()
{
    setDataFileMender({});
    dao::DBEngine::setDamageText({});
    DetectDateOrder();
    StartPass().run();
    setDataFileMender(mendWhileRunning);
    dao::DBEngine::setDamageText(store::damageMet);
}

}
