#include "store/upgrade.h"

#include "accounts/accounts.h"
#include "platform/basic/clock.h"
#include "platform/basic/files.h"
#include "platform/basic/prompts.h"
#include "session/datafiles.h"
#include "store/designs.h"
#include "store/firstrows.h"
#include "store/rebuild.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <map>
#include <optional>
#include <set>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

// In the order in which missing files are made. The upgrade takes the plain ones in this order, then the protected ones.
constexpr DataFile fileOrder[] = {
    DataFile::Main, DataFile::Garden, DataFile::Books, DataFile::Movies, DataFile::Music, DataFile::Notes,
    DataFile::HowTo, DataFile::Recipe, DataFile::Sports, DataFile::Contacts, DataFile::DataJ, DataFile::DataP,
    DataFile::Accounts,
};

bool isProtected(DataFile file)
{
    return dataFileEntry(file).isProtected;
}

bool stands(DataFile file)
{
    return !basic::Dir(state().path(file)).isEmpty();
}

// A file that could not be served, and what is told about it.
struct Failure {
    QString path, what, outcome;
    // The same trouble, whatever file it names.
    QString kind() const { return QString(what).remove(QDir::toNativeSeparators(path)) + outcome; }
};

// One box for each trouble: a folder that takes no files must not open thirteen.
void report(const std::vector<Failure> &failures)
{
    QStringList told;
    for (const Failure &first : failures) {
        if (told.contains(first.kind()))
            continue;
        told << first.kind();
        QStringList paths;
        for (const Failure &failure : failures) {
            if (failure.kind() == first.kind())
                paths << failure.path;
        }
        basic::MsgBox(u"%1\r\n\r\n%2\r\n\r\n%3"_s.arg(paths.join(u"\r\n"_s), first.what, first.outcome), {},
                      basic::Icon::Exclamation);
    }
}

// The whole pass of one start.
class StartPass {
public:
    void run();

private:
    void attempt(DataFile file, const std::function<void()> &step);
    void make(DataFile file);
    void upgrade(DataFile file);
    void upgradeAll();
    bool needsRows(DataFile file) const;
    void addRows(DataFile file);
    void checkMain();

    std::set<DataFile> m_made;          // in this run, so of the current design
    std::map<DataFile, Failure> m_failed;
    std::vector<store::FirstRows> m_required;
    std::vector<store::FirstRows> m_samples;
};

// A file without a path is not in use; one that failed is let be.
void StartPass::attempt(DataFile file, const std::function<void()> &step)
{
    const QString path = basic::realPath(state().path(file));
    if (path.isEmpty() || m_failed.contains(file))
        return;
    const QString outcome = QFileInfo(path).isFile() ? u"The file was left as it is."_s : u"The file could not be made."_s;
    try {
        step();
    } catch (const basic::Error &error) {
        m_failed[file] = {path, error.text(), outcome};
    } catch (const std::exception &error) {
        m_failed[file] = {path, QString::fromUtf8(error.what()), outcome};
    }
}

void StartPass::make(DataFile file)
{
    attempt(file, [&] {
        if (stands(file))
            return;
        UpgradeDatabase(file, state().path(file), store::currentVersion);
        m_made.insert(file);
    });
}

void StartPass::upgrade(DataFile file)
{
    if (m_made.contains(file))
        return;         // the pass would find nothing to change
    attempt(file, [&] {
        const QString path = state().path(file);
        // The upgraded file is in place by now; one that cannot be made smaller is as good.
        if (UpgradeDatabase(file, path, store::currentVersion) && !isProtected(file))
            basic::IgnoreErrors([&] { CompactFile(path); });
    });
}

void StartPass::upgradeAll()
{
    make(DataFile::Main);
    for (const bool guarded : {false, true}) {
        for (const DataFile file : fileOrder) {
            if (isProtected(file) == guarded)
                upgrade(file);
        }
    }
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
    if (!needsRows(file) || !stands(file))
        return;
    dao::Database database = dao::DBEngine::OpenDatabase(state().path(file));
    std::optional<dao::Transaction> all;
    if (m_made.contains(file) || !m_samples.empty())
        all.emplace(database);
    store::addFirstRows(m_required, file, database);
    if (file == DataFile::Accounts
        && database.OpenRecordset(u"SELECT * FROM [Accounts]"_s, dao::dbOpenSnapshot).RecordCount() == 0)
        SeedAccounts();
    store::addFirstRows(m_samples, file, database);
    if (all)
        all->Commit();
    database.Close();
}

// What the main file is good for; one whose upgrade failed may serve as it is. Better told now than at the first save.
void StartPass::checkMain()
{
    MainFileAccess &access = state().mainFile;
    access = MainFileAccess::None;
    const bool failed = m_failed.contains(DataFile::Main);
    if (!stands(DataFile::Main) || (failed && basic::IgnoreErrors([this] { addRows(DataFile::Main); }) != 0))
        return;
    access = MainFileAccess::Read;
    attempt(DataFile::Main, [] {
        if (!QFileInfo(basic::realPath(state().path(DataFile::Main))).isWritable())
            throw dao::EngineError(3027);
    });
    if (failed == m_failed.contains(DataFile::Main))
        access = MainFileAccess::Full;
}

void StartPass::run()
{
    const bool dayFirst = state().settings.gDateShort.toUpper().startsWith(u'D');
    for (const DataFile file : fileOrder) {
        if (file != DataFile::Main)
            make(file);
    }
    if (GetDatabaseVersion(state().path(DataFile::Main)) < store::currentVersion)
        upgradeAll();
    m_required = store::requiredRows(basic::Date(), dayFirst);
    if (m_made.contains(DataFile::Main))        // a new installation
        m_samples = store::sampleRows(basic::Date());
    for (const DataFile file : fileOrder)
        attempt(file, [&] { addRows(file); });
    checkMain();
    std::vector<Failure> failures;
    for (const auto &[file, failure] : m_failed)
        failures.push_back(failure);
    report(failures);
}

}

void UpgradeAllDatabases()
{
    DetectDateOrder();
    StartPass().run();
}

}
