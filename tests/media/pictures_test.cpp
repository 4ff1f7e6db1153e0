#include "media/allotment.h"
#include "media/pictures.h"
#include "platform/basic/clock.h"
#include "platform/basic/files.h"
#include "support/table.h"
#include "support/testfolder.h"

#include <QCoreApplication>
#include <QSet>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace vorel;

TEST(Pictures, TheTableOfDefaultsNeverGivesEAndH)
{
    const test::TestFolder folder;
    QSet<QString> seen;
    basic::setRandomSeed(7);
    for (int i = 0; i < 3000; ++i)
        seen << defaultPicture(u"P"_s);
    QSet<QString> wanted;
    for (const QChar letter : u"ABCDFGIJKLMNOPQRSTUVW"_s)
        wanted << u"\\DefaultPic"_s + letter + u".jpg"_s;
    EXPECT_EQ(seen, wanted);
    const std::pair<QString, QString> sections[] = {{u"K"_s, u"\\DefaultPicE.jpg"_s}, {u"Q"_s, u"\\DefaultPicS.jpg"_s},
                                                    {u"Z"_s, u"\\garden.jpg"_s},      {u"R"_s, u"\\recipes.jpg"_s}};
    for (const auto &[section, picture] : sections)
        EXPECT_EQ(defaultPicture(section), picture);
}

TEST(Pictures, OnlyAPathWhoseFileHasGoneIsChanged)
{
    const test::TestFolder folder;
    const QString own = folder.write(u"BookPictures/own.jpg"_s, "x"), standIn = folder.write(u"DefaultPicE.jpg"_s, "x");
    const QString plain = folder.write(u"DefaultS.jpg"_s, "x");
    const struct {
        QString path;
        bool keepBroken;
        QString file, after;
        bool isDefault;
    } cases[] = {
        {own, false, own, own, false},
        {folder.path(u"bookpictures\\OWN.JPG"_s), false, own, folder.path(u"bookpictures\\OWN.JPG"_s), false},
        {{}, false, standIn, {}, true},
        {u"  "_s, true, standIn, u"  "_s, true},
        {u"*"_s, false, standIn, {}, true},
        {folder.path(u"gone.jpg"_s), false, standIn, {}, true},
        {folder.path(u"gone.jpg"_s), true, folder.path(u"gone.jpg"_s), folder.path(u"gone.jpg"_s), false},
        {folder.path(u"BookPictures"_s), false, standIn, {}, true},
        {plain, false, plain, plain, false},
    };
    for (const auto &one : cases) {
        QString path = one.path;
        const PictureChoice choice = choosePicture(path, u"K"_s, one.keepBroken);
        EXPECT_EQ(choice.file, one.file) << qPrintable(one.path);
        EXPECT_EQ(choice.isDefault, one.isDefault) << qPrintable(one.path);
        EXPECT_EQ(path.trimmed(), one.after.trimmed()) << qPrintable(one.path);
    }
}

TEST(Pictures, NoteColoursGoByTheLastLetter)
{
    const auto colour = [](const char *name) { return defaultNoteColour(QString::fromLatin1(name)); };
    EXPECT_EQ(colour("\\DefaultPicB.jpg"), colour("\\DefaultPicE.jpg"));
    EXPECT_EQ(colour("\\DefaultPicB.jpg"), colour("\\DefaultPicJ.JPG"));
    EXPECT_NE(colour("\\DefaultPicB.jpg"), colour("\\DefaultPicG.jpg"));
    EXPECT_NE(colour("\\DefaultPicG.jpg"), colour("\\DefaultPicA.jpg"));
}

TEST(Pictures, FoldersAreMadeWhereTheyCanBe)
{
    const test::TestFolder folder;
    folder.write(u"MusicPictures"_s, "a file in its place");
    QDir().mkdir(folder.path(u"bookpictures"_s));
    MakePictureFolders();
    const QStringList folders = pictureFolders();
    for (const QString &name : folders)
        EXPECT_EQ(QFileInfo(pictureFolder(name)).isDir(), true) << qPrintable(name);
    EXPECT_EQ(pictureFolder(u"MusicPictures"_s), folder.path());
    EXPECT_FALSE(QFileInfo::exists(folder.path(u"BookPictures"_s)));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 12);

    basic::setProgramFolder(folder.path(u"nowhere"_s));
    MakePictureFolders();
    EXPECT_FALSE(QFileInfo::exists(folder.path(u"nowhere"_s)));
}

TEST(Pictures, ThePicturesMoveWithTheProgramFolder)
{
    const test::TestFolder folder;
    const QString book = folder.write(u"BookPictures/sub/Own.jpg"_s, "x"), sample = folder.write(u"movie.jpg"_s, "x");
    const QString elsewhere = folder.write(u"album/rose.jpg"_s, "x");
    basic::setProgramFolder(folder.path());
    EXPECT_EQ(basic::keptPath(book), u"\\BookPictures\\sub\\Own.jpg"_s);
    EXPECT_EQ(basic::keptPath(folder.path(u"BOOKPICTURES\\sub\\own.JPG"_s)), u"\\BookPictures\\sub\\Own.jpg"_s);
    QFile::link(folder.path(), folder.path(u"link"_s));
    basic::setProgramFolder(folder.path(u"link"_s));
    EXPECT_EQ(basic::keptPath(book), u"\\BookPictures\\sub\\Own.jpg"_s) << "the folder's other name";
    basic::setProgramFolder(folder.path());
    for (const QString &other : {u"/elsewhere/x.jpg"_s, folder.path() + u"2/x.jpg"_s, u"C:\\Pictures\\x.jpg"_s, QString(), folder.path(),
                                 folder.write(u"back\\slash.jpg"_s, "x")})
        EXPECT_EQ(basic::keptPath(other), other);

    const std::pair<QString, QString> cases[] = {
        {u"\\BookPictures\\sub\\Own.jpg"_s, book},
        {u"\\bookpictures\\sub\\own.JPG"_s, book},
        {u"/old/place/BookPictures/sub/Own.jpg"_s, book},           // as the folder was before it moved
        {u"C:\\Vorel\\BookPictures\\sub\\Own.jpg"_s, book},
        {u"/old/place/movie.jpg"_s, sample},
        {folder.path(u"album/movie.jpg"_s), {}},                    // that folder is there: deleted, not moved
        {u"/old/place/MoviePictures/Own.jpg"_s, {}},
        {u"/old/place/album/rose.jpg"_s, {}},
        {elsewhere, elsewhere}, {u"\\album\\rose.jpg"_s, elsewhere},
        {u"\\\\HOST\\movie.jpg"_s, sample}, {{}, {}}, {u" "_s, {}},
    };
    for (const auto &[stored, file] : cases)
        EXPECT_EQ(pictureFile(stored), file) << qPrintable(stored);
    QString path = u"/old/place/BookPictures/sub/Own.jpg"_s;
    const PictureChoice choice = choosePicture(path, u"K"_s, false);
    EXPECT_EQ(choice.file, book);
    EXPECT_FALSE(choice.isDefault);
    EXPECT_EQ(path, u"/old/place/BookPictures/sub/Own.jpg"_s) << "the record keeps its text";
}

TEST(Allotments, TheCaptionNamesFolderAndKind)
{
    const QHash<QString, PathKind> kinds{
        {u"Data"_s, PathKind::Data}, {u"Backup"_s, PathKind::Backup}, {u"Picture"_s, PathKind::Picture}, {u"Sound"_s, PathKind::Sound}};
    test::forEachRow("pictures", "captions", [&kinds](const test::Row &row) {
        const Allotment found = allotmentOf(row["caption"]);
        ASSERT_TRUE(kinds.contains(row["kind"]));
        EXPECT_EQ(found.folder, row["folder"]);
        EXPECT_EQ(found.kind, kinds.value(row["kind"]));
    });
}

TEST(Allotments, ATransferIsWholeOrNotAtAll)
{
    const test::TestFolder folder;
    const auto files = [&](const QString &name) {
        return QDir(folder.path(name)).entryList(QDir::Files | QDir::Hidden).join(u'|');
    };
    basic::TaskContext context;
    const auto transfer = [&](const QString &path, const QString &caption) { return transferFile(path, caption, context).value(); };
    const QByteArray content(3'000'000, 'x');
    const QString source = folder.write(u"from/rose.jpg"_s, content);
    const Transfer first = transfer(source, u"Garden Picture"_s);
    EXPECT_EQ(first.path, folder.path(u"GardenPictures/rose.jpg"_s));
    EXPECT_EQ(folder.read(u"GardenPictures/rose.jpg"_s), content);
    EXPECT_FALSE(transfer(source, u"Garden Picture"_s).isTaken) << "the same picture";
    EXPECT_FALSE(transfer(first.path, u"Garden Picture"_s).isTaken) << "the very file";

    for (const QByteArray &other : {QByteArray("another"), QByteArray(3'000'000, 'y')}) {
        folder.write(u"from/Rose.JPG"_s, other);
        const Transfer taken = transfer(folder.path(u"from/Rose.JPG"_s), u"Garden Picture"_s);
        EXPECT_EQ(taken.path, first.path);
        EXPECT_TRUE(taken.isTaken);
        EXPECT_EQ(folder.read(u"GardenPictures/rose.jpg"_s), content) << "a file of the name stays";
    }
    EXPECT_FALSE(transfer(folder.path(u"gone.jpg"_s), u"Garden Picture"_s).failure.isEmpty());
    folder.write(u"BookPictures"_s, "no folder");
    const Transfer refused = transfer(source, u"Book Picture"_s);
    EXPECT_TRUE(refused.path.isEmpty());
    EXPECT_TRUE(refused.failure.contains(u"rose.jpg"_s));
    EXPECT_EQ(files(u"GardenPictures"_s), u"rose.jpg"_s) << "no scratch is left";

    // Stopped in the middle of a copy.
    basic::Task task;
    bool isStopped = false;
    QObject::connect(&task, &basic::Task::progressed, &task, [&] {
        EXPECT_GT(task.progress().done, 0);
        EXPECT_FALSE(files(u"MoviePictures"_s).contains(u"big.jpg"_s)) << "no half a file under the right name";
        task.cancel();
    });
    task.start([&](basic::TaskContext &inner) {
        QFile big(folder.path(u"from/big.jpg"_s));          // a sparse terabyte: its copy does not come to an end first
        EXPECT_TRUE(big.open(QIODevice::WriteOnly) && big.resize(qint64{1} << 40));
        return transferFile(big.fileName(), u"Movie Picture"_s, inner);
    }, [&](const basic::TaskOutcome<Transfer> &end) { isStopped = end.isStopped(); });
    while (task.isRunning())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_TRUE(isStopped);
    EXPECT_EQ(files(u"MoviePictures"_s), QString());
}
