#include "media/filesearch.h"
#include "support/testfolder.h"

#include <QCoreApplication>
#include <QThread>

using namespace Qt::StringLiterals;
using namespace vorel;

TEST(FileSearch, DriveTypes)
{
    const struct {
        QString fileSystem, device;
        bool removable;
        QString name;
    } cases[] = {
        {u"ext4"_s, u"/dev/sda1"_s, false, u"Fixed Drive"_s},  {u"vfat"_s, u"/dev/sdb1"_s, true, u"Removable Drive"_s},
        {u"nfs4"_s, u"host:/x"_s, false, u"Remote Drive"_s},   {u"fuse.sshfs"_s, u"me@host:"_s, false, u"Remote Drive"_s},
        {u"iso9660"_s, u"/dev/sr0"_s, true, u"CD-ROM"_s},      {u"tmpfs"_s, u"tmpfs"_s, false, u"RAM Disk"_s},
        {u"proc"_s, u"proc"_s, false, u"Drive Doesn't Exist"_s}, {u"fuseblk"_s, u"/dev/sdb2"_s, true, u"Removable Drive"_s},
    };
    for (const auto &one : cases)
        EXPECT_EQ(driveTypeName(driveTypeOf(one.fileSystem, one.device, one.removable)), one.name) << qPrintable(one.fileSystem);
    EXPECT_EQ(StripNulls(u"C:\\"_s + QChar(u'\0') + u"D:\\"_s), u"C:\\"_s);
    EXPECT_EQ(StripNulls(u"plain"_s), u"plain"_s);
}

TEST(FileSearch, FindsTheNearestPastCirclesAndClosedFolders)
{
    const test::TestFolder folder;
    basic::TaskContext context;
    const auto find = [&](const QString &name) { return FindFilesAPI(folder.path(), name, context); };
    folder.write(u"a/b/c/Rose.JPG"_s, "deep");
    folder.write(u"closed/secret.jpg"_s, "hidden");
    QFile::link(folder.path(), folder.path(u"a/circle"_s));
    QFile::link(folder.path(u"nowhere"_s), folder.path(u"a/broken.jpg"_s));
    QDir().mkdir(folder.path(u"tulip.jpg"_s));
    EXPECT_EQ(find(u"rose.jpg"_s), folder.path(u"a/b/c/Rose.JPG"_s));
    folder.write(u"z/rose.jpg"_s, "near");
    EXPECT_EQ(find(u"rose.jpg"_s), folder.path(u"z/rose.jpg"_s));
    QFile::setPermissions(folder.path(u"closed"_s), {});
    EXPECT_EQ(find(u"rose.jpg"_s), folder.path(u"z/rose.jpg"_s)) << "what lies beside it is found";
    for (const QString &none : {u"tulip.jpg"_s, u"broken.jpg"_s, QString()})
        EXPECT_EQ(find(none), QString()) << qPrintable(none);
    // An administrator may read any folder; for others this one is passed over without a word.
    const QString secret = find(u"secret.jpg"_s);
    EXPECT_TRUE(secret.isEmpty() || QFileInfo(folder.path(u"closed"_s)).isReadable());
    QFile::setPermissions(folder.path(u"closed"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST(FileSearch, GoesThroughTheRootsUntilItIsStopped)
{
    const test::TestFolder folder;
    const QString file = folder.write(u"a/rose.jpg"_s, "x");
    const QStringList roots{folder.path(u"nowhere"_s), folder.path()};
    QStringList ends;
    basic::Task task;
    const auto search = [&](const QString &name, bool isStopped) {
        task.start([&roots, name, isStopped](basic::TaskContext &context) {
            while (isStopped && !context.isCancelled())
                QThread::usleep(100);
            return searchFile(roots, name, context);
        }, [&](const basic::TaskOutcome<QString> &end) { ends << (end.isStopped() ? u"stopped"_s : end.value()); });
        if (isStopped)
            task.cancel();
        while (task.isRunning())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    search(u"rose.jpg"_s, false);
    EXPECT_TRUE(task.progress().text.startsWith(folder.path())) << "it tells where it is";
    search(u"tulip.jpg"_s, false);
    search(u"rose.jpg"_s, true);
    EXPECT_EQ(ends, QStringList({file, {}, u"stopped"_s}));
}
