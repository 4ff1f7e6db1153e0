#include "store/upgrade.h"

#include "accounts/accounts.h"
#include "frame/startup.h"
#include "platform/basic/clock.h"
#include "platform/basic/files.h"
#include "platform/basic/prompts.h"
#include "store/designs.h"
#include "store/firstrows.h"
#include "store/rebuild.h"

#include <QFileInfo>
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
    return dataFiles()[static_cast<std::size_t>(file)].isProtected;
}

bool stands(DataFile file)
{
    return !basic::Dir(state().path(file)).isEmpty();
}

// The whole pass of one start.
class StartPass {
public:
    void run();

private:
    void attempt(DataFile file, const std::function<void()> &step);
    void make(DataFile file);
    void upgrade(DataFile file);
    void fill(DataFile file);
    void checkMain();

    bool m_firstRun = false;
    std::set<DataFile> m_made;          // in this run, so of the current design
    std::set<DataFile> m_failed;
    std::vector<store::FirstRows> m_required;
    std::vector<store::FirstRows> m_samples;
};

void report(const QString &path, const QString &what, const QString &outcome)
{
    basic::MsgBox(u"%1\r\n\r\n%2\r\n\r\n%3"_s.arg(path, what, outcome), {}, basic::Icon::Exclamation);
}

// A file that failed is told once.
void StartPass::attempt(DataFile file, const std::function<void()> &step)
{
    const QString path = basic::realPath(state().path(file));
    if (path.isEmpty() || m_failed.contains(file))
        return;
    const QString outcome = QFileInfo(path).isFile() ? u"The file was left as it is."_s : u"The file could not be made."_s;
    try {
        return step();
    } catch (const basic::Error &error) {
        report(path, error.text(), outcome);
    } catch (const std::exception &error) {
        report(path, QString::fromUtf8(error.what()), outcome);
    }
    m_failed.insert(file);
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
        if (UpgradeDatabase(file, path, store::currentVersion) && !isProtected(file))
            CompactFile(path);
    });
}

// An ordinary start opens the main file and the accounts alone, and writes to neither.
void StartPass::fill(DataFile file)
{
    const auto concerned = [&](const std::vector<store::FirstRows> &groups) {
        return std::any_of(groups.begin(), groups.end(), [&](const store::FirstRows &group) { return group.file == file; });
    };
    if (!stands(file) || (!concerned(m_required) && !concerned(m_samples)))
        return;
    attempt(file, [&] {
        dao::Database database = dao::DBEngine::OpenDatabase(state().path(file));
        std::optional<dao::Transaction> all;
        if (m_firstRun || m_made.contains(file))
            all.emplace(database);
        store::addFirstRows(m_required, file, database);
        if (file == DataFile::Accounts
            && database.OpenRecordset(u"SELECT * FROM [Accounts]"_s, dao::dbOpenSnapshot).RecordCount() == 0)
            SeedAccounts();
        store::addFirstRows(m_samples, file, database);
        if (all)
            all->Commit();
        database.Close();
    });
}

// What the main file is good for. Better told now than at the first save.
void StartPass::checkMain()
{
    MainFileAccess &access = state().mainFile;
    access = MainFileAccess::None;
    if (!stands(DataFile::Main) || m_failed.contains(DataFile::Main))
        return;
    access = MainFileAccess::Read;
    attempt(DataFile::Main, [] {
        if (!QFileInfo(basic::realPath(state().path(DataFile::Main))).isWritable())
            throw dao::EngineError(3027);
        state().mainFile = MainFileAccess::Full;
    });
}

void StartPass::run()
{
    const bool dayFirst = state().gDateShort.toUpper().startsWith(u'D');
    m_firstRun = !stands(DataFile::Main);
    for (const DataFile file : fileOrder) {
        if (file != DataFile::Main)
            make(file);
    }
    if (GetDatabaseVersion(state().path(DataFile::Main)) < store::currentVersion) {
        make(DataFile::Main);
        for (const bool guarded : {false, true}) {
            for (const DataFile file : fileOrder) {
                if (isProtected(file) == guarded)
                    upgrade(file);
            }
        }
    }
    m_required = store::requiredRows(basic::Date(), dayFirst);
    if (m_firstRun)
        m_samples = store::sampleRows(basic::Date());
    for (const DataFile file : fileOrder)
        fill(file);
    checkMain();
}

}

void UpgradeAllDatabases()
{
    DetectDateOrder();
    StartPass().run();
}

}
