#include "records/sectionscreen.h"

// The frame: tree, fields, lists, a new row, a save, a delete.
namespace vorel {

using namespace Qt::StringLiterals;

namespace {

class Section : public test::SectionScreen {
protected:
    void books(const QStringList &statements = {})
    {
        run(DataFile::Books, statements);
        openScreen<frmBooks>(u"K"_s);
    }
    static QStringList threeBooks()
    {
        return {u"INSERT INTO [BOOKS] (TITLE,AUTHOR,CATEGORY) VALUES('Dune','Herbert','Novel')"_s,
                u"INSERT INTO [BOOKS] (TITLE,AUTHOR,CATEGORY) VALUES('Amazing birds','Finch','Nature')"_s,
                u"INSERT INTO [BOOKS] (TITLE,AUTHOR) VALUES('7 days','Finch')"_s};
    }
};

}

// The controls that every section promises under their names, and distinct mnemonics on each panel.
TEST_F(Section, EveryScreenHasItsControlsAndNoMnemonicTwice)
{
    const std::tuple<QString, QString, std::function<void()>> screens[] = {
        {u"K"_s, u"dtaBookData"_s, [this] { openScreen<frmBooks>(u"K"_s); }},
        {u"V"_s, u"dtaMoviesData"_s, [this] { openScreen<frmMovies>(u"V"_s); }},
        {u"U"_s, u"dtaMusicData"_s, [this] { openScreen<frmMusic>(u"U"_s); }},
        {u"I"_s, u"dtaInventoryData"_s, [this] { openScreen<frmInventory>(u"I"_s); }}};
    for (const auto &[letter, data, openIt] : screens) {
        openIt();
        EXPECT_EQ(form->dtaData().objectName(), data);
        for (const QString &name : {u"TreeView"_s, u"TabStrip1"_s, u"picImage"_s, u"picHidden"_s, u"picDetails"_s, u"lblIDNum"_s,
                                    u"lblPictureFile"_s, u"lblPicInfo1"_s, u"lblPicInfo2"_s, u"cmdNew"_s, u"cmdUpdate"_s,
                                    u"cmdDelete"_s, u"cmdView"_s, u"cmdWeb"_s, u"cmdInfo"_s, u"cmdColor"_s, u"cmdAll"_s,
                                    u"cmdCategory"_s})
            EXPECT_TRUE(at(name));
        auto *tabs = at<QTabBar>(u"TabStrip1"_s);
        for (int tab = 0; tab < tabs->count(); ++tab) {
            tabs->setCurrentIndex(tab);
            EXPECT_EQ(repeatedMnemonics(), QStringList()) << qPrintable(form->objectName() + u' ' + tabs->tabText(tab));
        }
    }
}

TEST_F(Section, TheTreeTurnsByItsKeysAndGoesToRows)
{
    books(threeBooks());
    EXPECT_EQ(nodes(), (QStringList{u"7: 7 Days"_s, u"A: Amazing Birds"_s, u"D: Dune"_s}));
    EXPECT_EQ(text(u"txtTitle"_s), u"7 days"_s);            // the first in the order of the rows
    clickNode(u"Dune"_s);
    EXPECT_EQ(text(u"txtAuthor"_s), u"Herbert"_s);
    EXPECT_EQ(form->outcome().lastId, 1);
    click(u"cmdCategory"_s);
    EXPECT_EQ(nodes(), (QStringList{u"Nature: Amazing Birds"_s, u"Novel: Dune"_s}));
    EXPECT_EQ(selectedNode(), u"Dune"_s);
    clickNode(u"Nature"_s);                                 // a group has no row
    EXPECT_EQ(text(u"txtTitle"_s), u"Dune"_s);
    click(u"cmdAuthor"_s);
    EXPECT_EQ(nodes(), (QStringList{u"Finch: 7 Days, Amazing Birds"_s, u"Herbert: Dune"_s}));

    // A delete turns the tree back to the first characters; the key of the author stays the highlighted one.
    const QColor cyan(0, 255, 255);
    user.expect(u"Do you want to Delete this Record ?"_s, basic::Answer::Yes);
    clickNode(u"Dune"_s);
    click(u"cmdDelete"_s);
    EXPECT_EQ(user.shown().back().icon, basic::Icon::Critical);
    EXPECT_EQ(nodes(), (QStringList{u"7: 7 Days"_s, u"A: Amazing Birds"_s}));
    EXPECT_EQ(text(u"txtTitle"_s), u"Amazing birds"_s) << "the row before the last one";
    EXPECT_EQ(at(u"cmdAuthor"_s)->palette().color(QPalette::Button), cyan);
    EXPECT_NE(at(u"cmdAll"_s)->palette().color(QPalette::Button), cyan);
}

TEST_F(Section, AnEmptyTableTakesItsFirstRowAndItsLastIsDeleted)
{
    books();
    EXPECT_TRUE(nodes().isEmpty());
    EXPECT_TRUE(at(u"lblEmpty"_s)->isVisible());
    for (const QString &name : {u"cmdDelete"_s, u"cmdUpdate"_s, u"txtTitle"_s})
        EXPECT_FALSE(at(name)->isEnabled()) << qPrintable(name);
    click(u"cmdNew"_s);
    EXPECT_TRUE(text(u"txtComments"_s).startsWith(u"If you have the Internet connected then you may find the description of the book to paste"_s));
    EXPECT_TRUE(at(u"cmdDelete"_s)->isEnabled() && !at(u"lblEmpty"_s)->isVisible());
    user.expect(u"Delete this Record"_s, basic::Answer::Yes);
    click(u"cmdDelete"_s);
    EXPECT_EQ(read(DataFile::Books, u"select * from [BOOKS]"_s).size(), 0);
    EXPECT_FALSE(at(u"cmdDelete"_s)->isEnabled());
    EXPECT_EQ(text(u"txtTitle"_s), u""_s);
}

TEST_F(Section, NewRowsAreStoredAtOnceAndComeIntoTheTreeWithTheirFirstSave)
{
    books(threeBooks());
    click(u"cmdNew"_s);
    click(u"cmdNew"_s);
    EXPECT_EQ(read(DataFile::Books, u"select [ID] from [BOOKS] where [TITLE]=''"_s), (QStringList{u"4"_s, u"5"_s}));
    EXPECT_EQ(nodes().size(), 3);
    EXPECT_EQ(selectedNode(), u"7"_s) << "no node of its own: the first";
    QTest::keyClicks(at<QLineEdit>(u"txtTitle"_s), u"Ed's tale"_s);
    QTest::keyClick(at(u"txtTitle"_s), Qt::Key_Return);
    type(u"cboCategory"_s, u"Novel"_s);
    type(u"cboRating"_s, u"Good"_s);
    click(u"cmdUpdate"_s);
    EXPECT_EQ(read(DataFile::Books, u"select [TITLE],[CATEGORY] from [BOOKS] where [ID]=5"_s), (QStringList{u"Ed`s tale|Novel"_s}));
    EXPECT_EQ(selectedNode(), u"Ed's Tale"_s);
    EXPECT_NE(at<QComboBox>(u"cboRating"_s)->findText(u"Good"_s), -1) << "a list learns by saving";
    // An ordinary save leaves the tree as it is.
    type(u"txtTitle"_s, u"Zebras"_s);
    click(u"cmdUpdate"_s);
    EXPECT_TRUE(nodes().contains(u"E: Ed's Tale"_s));
    EXPECT_EQ(text(u"txtTitle"_s), u"Zebras"_s);
}

TEST_F(Section, ANumberIsKeptOfACopyOfOnesOwnAlone)
{
    books(threeBooks());
    bringUp(at(u"chkOwnCopy"_s));
    EXPECT_FALSE(at(u"txtStorageID"_s)->isVisible() || at(u"lblLibrary"_s)->isVisible());
    click(u"chkOwnCopy"_s);
    EXPECT_TRUE(at(u"txtStorageID"_s)->isVisible() && at(u"lblLibrary"_s)->isVisible());
    click(u"cmdUpdate"_s);
    EXPECT_EQ(read(DataFile::Books, u"select [HAVECOPY],[STORAGEID] from [BOOKS] where [ID]=3"_s), (QStringList{u"True|N/A"_s}));
    type(u"txtStorageID"_s, u"B 7"_s);
    click(u"chkOwnCopy"_s);
    click(u"cmdUpdate"_s);
    EXPECT_EQ(read(DataFile::Books, u"select [HAVECOPY],[STORAGEID] from [BOOKS] where [ID]=3"_s), (QStringList{u"False|"_s}));
}

TEST_F(Section, TheColourIsKeptAndTextStaysReadableOnIt)
{
    books(threeBooks());
    user.expectColour(0x102030u);
    click(u"cmdColor"_s);
    EXPECT_EQ(GetIniValue(iniSettings, u"BookBackColour"_s, {}), QString::number(0x302010));
    user.expectColour(std::nullopt);
    click(u"cmdColor"_s);
    openScreen<frmBooks>(u"K"_s);
    EXPECT_EQ(form->palette().color(QPalette::Window), QColor(0x10, 0x20, 0x30));
    EXPECT_EQ(form->palette().color(QPalette::WindowText), QColor(Qt::white));
}

}
