#include "frame/startup.h"
#include "platform/basic/files.h"
#include "platform/basic/locale.h"
#include "store/upgrade.h"
#include "testdata.h"
#include "session/datafiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

// What the thirteen files cost: the first start, which makes and fills them, an ordinary one, which finds them current, and
// one that brings them all up to date.
using namespace vorel;
using namespace Qt::StringLiterals;

static void useFolder(const QString &folder)
{
    state() = State{};
    basic::setProgramFolder(folder);
    for (const DataFileEntry &entry : dataFiles())
        state().path(entry.file) = folder + u'/' + entry.defaultName.mid(1);
}

// As a program that has just started: nothing is kept of any file.
static double start()
{
    for (const DataFileEntry &entry : dataFiles())
        dao::DBEngine::Forget(state().path(entry.file));
    QElapsedTimer timer;
    timer.start();
    UpgradeAllDatabases();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// One file of an older design with many rows: each is read, converted and written.
static void measureManyRows()
{
    const QTemporaryDir folder;
    state() = State{};
    basic::setProgramFolder(folder.path());
    bench::makeMainFile(folder.filePath(u"VOREL.MDB"_s));
    bench::addAppointments(state().path(DataFile::Main), {});
    dao::Database database = dao::DBEngine::OpenDatabase(state().path(DataFile::Main));
    database.Execute(u"ALTER TABLE [APPOINTMENTS] DROP COLUMN [WeekNum]"_s);
    database.Close();
    SetDatabaseVersion(state().path(DataFile::Main), 289);
    bench::report(u"upgrade of 100,000 appointments"_s, {start()}, 4000);
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    basic::setRegional(basic::regionalFor(u"en_US"_s));
    std::vector<double> first, ordinary, upgrade;
    for (int run = 0; run < 5; ++run) {
        const QTemporaryDir folder;
        useFolder(folder.path());
        first.push_back(start());
        for (int again = 0; again < 5; ++again)
            ordinary.push_back(start());
        SetDatabaseVersion(state().path(DataFile::Main), 289);
        upgrade.push_back(start());
    }
    bench::report(u"first start, all files and sample rows"_s, first, 2000);
    bench::report(u"ordinary start, thirteen current files"_s, ordinary, 10);
    bench::report(u"upgrade of thirteen files"_s, upgrade, 4000);
    measureManyRows();
    return 0;
}
