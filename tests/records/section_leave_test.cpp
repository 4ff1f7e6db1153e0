#include "records/sectionscreen.h"

#include "platform/controls/grid.h"
#include "support/fulldisk.h"

#include <QApplication>
#include <QFile>
#include <QTextEdit>

// The ways of leaving a row: all of them write it, none of them loses what was typed.
namespace vorel {

using namespace Qt::StringLiterals;

namespace {

class Leave : public test::SectionScreen {
protected:
    Leave()
    {
        run(DataFile::Books, {u"INSERT INTO [BOOKS] (TITLE,AUTHOR,CATEGORY) VALUES('Dune','Herbert','Novel')"_s,
                              u"INSERT INTO [BOOKS] (TITLE,AUTHOR,CATEGORY) VALUES('Emma','Austen','Novel')"_s});
        openScreen<frmBooks>(u"K"_s);
    }
    void openDune()
    {
        openScreen<frmBooks>(u"K"_s);
        form->dtaData().FindFirst(u"ID=1"_s);
        form->activateWindow();
        QCoreApplication::processEvents();
    }
    void leaveBy(const QString &way)
    {
        if (way == u"tree")
            clickNode(u"Emma"_s);
        else if (way == u"next")
            QTest::mouseClick(form->findChild<QAbstractButton *>(u"next"_s), Qt::LeftButton);
        else if (way == u"key")
            QTest::keyClick(form.get(), Qt::Key_Right, Qt::AltModifier);
        else if (way == u"new")
            click(u"cmdNew"_s);
        else if (way == u"close")
            click(u"cmdClose"_s);
        else if (way == u"escape")
            QTest::keyClick(form.get(), Qt::Key_Escape);
        else
            QApplication::closeAllWindows();
    }
    static QStringList stored() { return read(DataFile::Books, u"select [AUTHOR] from [BOOKS] where [ID]=1"_s); }
};

const QStringList ways{u"tree"_s, u"next"_s, u"key"_s, u"new"_s, u"close"_s, u"escape"_s, u"end"_s};

}

TEST_F(Leave, EveryRoadWritesTheRow)
{
    for (const QString &way : ways) {
        SCOPED_TRACE(qPrintable(way));
        openDune();
        type(u"txtAuthor"_s, u"by "_s + way);
        leaveBy(way);
        EXPECT_EQ(stored(), QStringList{u"by "_s + way});
    }
}

// What the field cannot hold is refused: the first attempt names it, turns to its tab and stays, the second one asks.
TEST_F(Leave, ARefusedRowIsKeptUntilTheUserLetsItGo)
{
    run(DataFile::Main, {u"INSERT INTO [INVENTORY] (ITEM,COST) VALUES('Dune buggy',40)"_s, u"INSERT INTO [INVENTORY] (ITEM) VALUES('Emma')"_s});
    for (const QString &way : ways) {
        SCOPED_TRACE(qPrintable(way));
        openScreen<frmInventory>(u"I"_s);
        form->activateWindow();
        QCoreApplication::processEvents();
        type(u"txtCost"_s, u"a lot"_s);
        EXPECT_TRUE(form->isWindowModified());
        at<QTabBar>(u"TabStrip1"_s)->setCurrentIndex(0);
        user.expect(u"Cost: \"a lot\" is not an amount"_s);
        leaveBy(way);
        EXPECT_TRUE(user.isDone() && form->isVisible());
        EXPECT_EQ(form->focusWidget(), at(u"txtCost"_s));
        EXPECT_TRUE(at(u"txtCost"_s)->isVisible());
        EXPECT_EQ(text(u"txtCost"_s), u"a lot"_s);
        EXPECT_EQ(text(u"lblIDNum"_s), u"1"_s);
        EXPECT_EQ(selectedNode(), u"Dune Buggy"_s);
        user.expect(u"not an amount"_s);
        user.expect(u"Leave without saving the changes?"_s, basic::Answer::No);
        leaveBy(way);
        EXPECT_EQ(text(u"txtCost"_s), u"a lot"_s);
        user.expect(u"not an amount"_s);
        user.expect(u"Leave without saving the changes?"_s, basic::Answer::Yes);
        leaveBy(way);
        EXPECT_TRUE(user.isDone());
        EXPECT_TRUE(!form->isVisible() || text(u"lblIDNum"_s) != u"1"_s);
        EXPECT_EQ(read(DataFile::Main, u"select [COST] from [INVENTORY] where [ID]=1"_s), QStringList{u"40"_s});
        run(DataFile::Main, {u"DELETE FROM [INVENTORY] WHERE [ID]>2"_s});
        if (form->isVisible())
            form->Close();
    }
}

TEST_F(Leave, AFileThatHasGoneIsToldAndTheTypingStays)
{
    ASSERT_TRUE(QFile::remove(state().path(DataFile::Books)));
    type(u"txtAuthor"_s, u"Frank Herbert"_s);
    for (const QString &step : {u"cmdUpdate"_s, u"cmdCategory"_s}) {
        user.expect(u"BOOKS.MDB"_s);
        click(step);
        EXPECT_EQ(text(u"txtAuthor"_s), u"Frank Herbert"_s);
    }
    user.expect(u"BOOKS.MDB"_s);
    click(u"cmdClose"_s);
    EXPECT_TRUE(user.isDone() && form->isVisible());
    EXPECT_EQ(text(u"txtAuthor"_s), u"Frank Herbert"_s);
    EXPECT_FALSE(QFile::exists(state().path(DataFile::Books)));
}

// Nothing replaces the apostrophe of a category: its group is missing and named, no row is lost, and the screen goes on.
TEST_F(Leave, AnApostropheInACategoryCostsItsGroupAlone)
{
    type(u"cboCategory"_s, u"Children's"_s);
    click(u"cmdUpdate"_s);
    EXPECT_EQ(read(DataFile::Books, u"select [CATEGORY] from [BOOKS] where [ID]=1"_s), (QStringList{u"Children's"_s}));
    user.expect(u"The tree cannot show the records of \"Children's\""_s);
    click(u"cmdCategory"_s);
    EXPECT_TRUE(user.isDone());
    EXPECT_EQ(nodes(), QStringList{u"Novel: Emma"_s});
    EXPECT_EQ(text(u"txtTitle"_s), u"Dune"_s);
    click(u"cmdAll"_s);
    EXPECT_EQ(nodes(), (QStringList{u"D: Dune"_s, u"E: Emma"_s}));
    EXPECT_EQ(read(DataFile::Books, u"select [ID] from [BOOKS]"_s).size(), 2);
}

void typeTrack(controls::Grid *grid, const QString &words)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);        // the editor before this one
    grid->EditNewRow();
    auto *editor = grid->viewport()->findChild<QLineEdit *>();
    ASSERT_TRUE(editor);
    QTest::keyClicks(editor, words);
}

// The disk has no room for the row and its track together: neither is stored, and both are still typed.
TEST_F(Leave, AFullDiskLeavesTheRowAndItsTrackUnsaved)
{
    run(DataFile::Music, {u"INSERT INTO [MUSIC] (TITLE,ARTIST) VALUES('Evenings','Willow')"_s});
    openScreen<frmMusic>(u"U"_s);
    auto *grid = at<controls::Grid>(u"grdTracks"_s);
    bringUp(grid);
    typeTrack(grid, u"Dew"_s);
    bringUp(at<QTextEdit>(u"txtComments"_s));
    at<QTextEdit>(u"txtComments"_s)->insertPlainText(QString(50'000, u'x'));      // pasted: key by key takes minutes
    {
        const test::FullDisk full(static_cast<rlim_t>(QFileInfo(state().path(DataFile::Music)).size()));
        user.expect(u"Not enough space on disk."_s);
        click(u"cmdUpdate"_s);
    }
    EXPECT_TRUE(user.isDone());
    EXPECT_EQ(read(DataFile::Music, u"select [TRACK] from [TRACKS]"_s), QStringList());
    EXPECT_TRUE(grid->isRowChanged() && form->isWindowModified());
    click(u"cmdUpdate"_s);
    EXPECT_EQ(read(DataFile::Music, u"select [ID],[TRACK] from [TRACKS]"_s), QStringList{u"1|Dew"_s});
    EXPECT_EQ(read(DataFile::Music, u"select len([COMMENTS]) from [MUSIC]"_s), QStringList{u"50000"_s});
}

// A track that is being typed is part of its row.
TEST_F(Leave, ATrackIsWrittenWithItsTitleAndCarriesItsKey)
{
    run(DataFile::Music, {u"INSERT INTO [MUSIC] (TITLE,ARTIST) VALUES('Evenings','Willow')"_s,
                          u"INSERT INTO [MUSIC] (TITLE,ARTIST) VALUES('Mornings','Willow')"_s});
    openScreen<frmMusic>(u"U"_s);
    auto *grid = at<controls::Grid>(u"grdTracks"_s);
    bringUp(grid);
    typeTrack(grid, u"By the bridge"_s);
    clickNode(u"Mornings"_s);
    EXPECT_EQ(grid->rows(), 0);
    typeTrack(grid, u"Dew"_s);
    click(u"cmdUpdate"_s);
    EXPECT_EQ(read(DataFile::Music, u"select [ID],[TRACK] from [TRACKS]"_s), (QStringList{u"1|By the bridge"_s, u"2|Dew"_s}));
    EXPECT_EQ(text(u"txtTitle"_s), u"Mornings"_s);
    m_prompts.expect(u"Do you want to Delete this Record ?"_s, basic::Answer::Yes);
    click(u"cmdDelete"_s);                  // its tracks go with it, no others
    EXPECT_EQ(read(DataFile::Music, u"select [ID],[TRACK] from [TRACKS]"_s), QStringList{u"1|By the bridge"_s});
    EXPECT_EQ(text(u"txtTitle"_s), u"Evenings"_s);
}

}
