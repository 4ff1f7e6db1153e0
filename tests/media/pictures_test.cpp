#include "media/allotment.h"
#include "media/pictures.h"
#include "platform/basic/clock.h"
#include "support/testfolder.h"

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
    EXPECT_TRUE(hasDefaultNote(u"frmBooks"_s));
    EXPECT_FALSE(hasDefaultNote(u"frmDataPath"_s));
}

TEST(Pictures, FoldersAreMadeWhereTheyCanBe)
{
    const test::TestFolder folder;
    folder.write(u"MusicPictures"_s, "a file in its place");
    QDir().mkdir(folder.path(u"bookpictures"_s));
    MakePictureFolders();
    for (const QString &name : pictureFolders())
        EXPECT_EQ(QFileInfo(pictureFolder(name)).isDir(), true) << qPrintable(name);
    EXPECT_EQ(pictureFolder(u"MusicPictures"_s), folder.path());
    EXPECT_FALSE(QFileInfo::exists(folder.path(u"BookPictures"_s)));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 12);

    basic::setProgramFolder(folder.path(u"nowhere"_s));
    MakePictureFolders();
    EXPECT_FALSE(QFileInfo::exists(folder.path(u"nowhere"_s)));
}

TEST(Allotments, TheCaptionNamesFolderKindAndTarget)
{
    const struct {
        QString caption, folder, screen, controls;
        PathKind kind;
    } cases[] = {
        {u"Data Path"_s, {}, u"frmSetup"_s, u"txtDataPath"_s, PathKind::Data},
        {u"Backup File"_s, {}, u"frmBackup"_s, u"txtFilename"_s, PathKind::Backup},
        {u"Book Picture"_s, u"BookPictures"_s, u"frmBooks"_s, u"lblFilename|lblPictureFile"_s, PathKind::Picture},
        {u"Music Sound"_s, u"MusicPictures"_s, u"frmMusic"_s, u"lblSoundFile"_s, PathKind::Sound},
        {u"Contact Other Picture 5"_s, u"ContactPictures"_s, u"frmContacts"_s, u"imgOther(5)"_s, PathKind::Picture},
        {u"Contact Other Picture 6"_s, {}, {}, {}, PathKind::Picture},
        {u"Health Picture"_s, u"HealthPictures"_s, u"frmHealth"_s, u"lblFilename|lblPictureFile"_s, PathKind::Picture},
        {u"Health Picture 9"_s, u"HealthPictures"_s, u"frmHealth"_s, u"imgOther(9)"_s, PathKind::Picture},
        {u"CalcPic"_s, u"CalendarPictures"_s, u"frmCalculator"_s, u"lblPictureFile"_s, PathKind::Picture},
        {u"Nothing known"_s, {}, {}, {}, PathKind::Picture},
    };
    for (const auto &one : cases) {
        const Allotment &found = allotmentOf(one.caption);
        EXPECT_EQ(found.folder.toString(), one.folder) << qPrintable(one.caption);
        EXPECT_EQ(found.screen.toString(), one.screen) << qPrintable(one.caption);
        EXPECT_EQ(targetControls(one.caption).join(u'|'), one.controls) << qPrintable(one.caption);
        EXPECT_EQ(found.kind, one.kind) << qPrintable(one.caption);
    }
}

TEST(Allotments, ATransferIsWholeOrNotAtAll)
{
    const test::TestFolder folder;
    const QByteArray content(3'000'000, 'x');
    const QString source = folder.write(u"from/rose.jpg"_s, content);
    const Transfer first = transferFile(source, u"Garden Picture"_s);
    EXPECT_EQ(first.path, folder.path(u"GardenPictures/rose.jpg"_s));
    EXPECT_EQ(folder.read(u"GardenPictures/rose.jpg"_s), content);

    folder.write(u"from/rose.jpg"_s, "another");
    EXPECT_EQ(transferFile(source, u"Garden Picture"_s).path, first.path);
    EXPECT_EQ(folder.read(u"GardenPictures/rose.jpg"_s), content) << "a file of the name stays";

    EXPECT_FALSE(transferFile(folder.path(u"gone.jpg"_s), u"Garden Picture"_s).failure.isEmpty());
    folder.write(u"BookPictures"_s, "no folder");
    const Transfer refused = transferFile(source, u"Book Picture"_s);
    EXPECT_TRUE(refused.path.isEmpty());
    EXPECT_TRUE(refused.failure.contains(u"rose.jpg"_s));
    EXPECT_EQ(QDir(folder.path(u"GardenPictures"_s)).entryList(QDir::Files | QDir::Hidden).size(), 1) << "no scratch is left";
}
