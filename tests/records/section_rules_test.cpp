#include "records/sectionscreen.h"

#include <QFile>

// What the sections do each in its own way.
namespace vorel {

using namespace Qt::StringLiterals;

namespace {

class Rules : public test::SectionScreen {};

}

TEST_F(Rules, TypedApostrophesBecomeGraveAccentsInTheFieldsOfQueries)
{
    const auto typed = [this](const QString &control) {
        type(control, u"a'b"_s);
        return text(control);
    };
    openScreen<frmBooks>(u"K"_s);
    click(u"cmdNew"_s);
    EXPECT_EQ(typed(u"txtTitle"_s) + typed(u"txtAuthor"_s) + typed(u"txtPublisher"_s), u"a`ba`ba'b"_s);
    openScreen<frmMovies>(u"V"_s);
    click(u"cmdNew"_s);
    EXPECT_EQ(typed(u"txtTitle"_s) + typed(u"txtStarring"_s) + typed(u"txtDirector"_s), u"a`ba`ba'b"_s);
    openScreen<frmMusic>(u"U"_s);
    click(u"cmdNew"_s);
    EXPECT_EQ(typed(u"txtTitle"_s) + typed(u"txtArtist"_s) + typed(u"txtDistributor"_s), u"a`ba`ba`b"_s);
    openScreen<frmInventory>(u"I"_s);
    click(u"cmdNew"_s);
    EXPECT_EQ(typed(u"cboItem"_s) + typed(u"txtMake"_s), u"a'ba'b"_s);
}

// Text comes by other ways than keys; what a row held before is shown as it is.
TEST_F(Rules, PastedAndCompletedApostrophesTooAndWhatAFieldCannotHoldIsCut)
{
    run(DataFile::Books, {u"INSERT INTO [BOOKS] (TITLE,AUTHOR) VALUES('Ann''s way','O''Hara')"_s});
    openScreen<frmBooks>(u"K"_s);
    EXPECT_EQ(text(u"txtTitle"_s) + u' ' + text(u"txtAuthor"_s), u"Ann's way O'Hara"_s);
    EXPECT_FALSE(form->isWindowModified());
    auto *title = at<QLineEdit>(u"txtTitle"_s);
    auto *author = at<QPlainTextEdit>(u"txtAuthor"_s);
    title->clear();
    title->insert(u"Bea's"_s);
    author->clear();
    author->insertPlainText(u"O'Brien\nD'Arcy"_s);
    EXPECT_EQ(text(u"txtTitle"_s) + u' ' + text(u"txtAuthor"_s), u"Bea`s O`Brien\nD`Arcy"_s);
    EXPECT_TRUE(form->isWindowModified());

    author->setPlainText(u"end"_s);
    author->moveCursor(QTextCursor::Start);
    author->insertPlainText(u"a line\n"_s.repeated(20));        // 20 * 8 with its CR LF
    const QString kept = text(u"txtAuthor"_s);
    EXPECT_EQ(kept.size() + kept.count(u'\n'), 100) << kept.toStdString();
    EXPECT_TRUE(kept.endsWith(u"end"_s)) << "what was there stays";
    at<QComboBox>(u"cboCategory"_s)->lineEdit()->insert(QString(300, u'x'));
    click(u"cmdUpdate"_s);
    EXPECT_EQ(text(u"lblState"_s), u"Saved"_s);
    EXPECT_TRUE(form->windowTitle().contains(u"Bea's"_s));
    EXPECT_FALSE(form->isWindowModified());
}

// The next record in the order on show, though rows were added since and the order in the file is another.
TEST_F(Rules, AfterADeleteTheNextRecordIsShown)
{
    for (const QString &title : {u"Alpha"_s, u"Beta"_s, u"Delta"_s, u"Eta"_s})
        run(DataFile::Books, {u"INSERT INTO [BOOKS] (TITLE) VALUES('"_s + title + u"')"_s});
    openScreen<frmBooks>(u"K"_s);
    click(u"cmdNew"_s);
    type(u"txtTitle"_s, u"Aardvark"_s);
    click(u"cmdUpdate"_s);
    clickNode(u"Delta"_s);
    user.expect(u"Do you want to Delete this Record ?"_s, basic::Answer::Yes);
    click(u"cmdDelete"_s);
    EXPECT_EQ(text(u"txtTitle"_s), u"Eta"_s);
}

TEST_F(Rules, MoviesShowARatingOnceSeenAndListsStartAsTold)
{
    run(DataFile::Movies, {u"INSERT INTO [MOVIES] (TITLE,MEDIA) VALUES('Dawn','DVD')"_s, u"INSERT INTO [MOVIES] (TITLE) VALUES('Dusk')"_s});
    openScreen<frmMovies>(u"V"_s);
    bringUp(at(u"chkSeen"_s));
    EXPECT_FALSE(at(u"cboRating"_s)->isVisible() || at(u"lblRating"_s)->isVisible());
    click(u"chkSeen"_s);
    EXPECT_TRUE(at(u"cboRating"_s)->isVisible() && at(u"lblRating"_s)->isVisible());
    const auto items = [this](const QString &name) {
        QStringList all;
        for (int i = 0; i < at<QComboBox>(name)->count(); ++i)
            all << at<QComboBox>(name)->itemText(i);
        return all;
    };
    EXPECT_EQ(items(u"cboMediaType"_s), (QStringList{u""_s, u"DVD"_s})) << "a null is an empty entry";
    click(u"cmdClose"_s);
    run(DataFile::Music, {u"INSERT INTO [MUSIC] (TITLE,TYPE) VALUES('Evenings','Tape')"_s});
    openScreen<frmMusic>(u"U"_s);
    EXPECT_EQ(items(u"cboType"_s), (QStringList{u"CD"_s, u"Cassette"_s, u"LP"_s, u"Tape"_s}));
    EXPECT_EQ(read(DataFile::Movies, u"select [SEEN] from [MOVIES]"_s), (QStringList{u"True"_s, u"False"_s}));
}

TEST_F(Rules, InventoryReckonsTheWarrantyAndTellsTheEventsOnce)
{
    openScreen<frmInventory>(u"I"_s);
    click(u"cmdNew"_s);
    EXPECT_EQ(read(DataFile::Main, u"select [ITEM],[COST],[UsersName] from [INVENTORY]"_s), (QStringList{u"|Null|Rosemary"_s}));
    type(u"cboItem"_s, u"Kettle"_s);
    type(u"txtMake"_s, u"Whistle"_s);
    type(u"txtModel"_s, u"W1"_s);
    type(u"txtWarrantyExpiryDate"_s, u"unknown"_s);
    click(u"cmdTransfer"_s);
    EXPECT_EQ(user.beeps(), 1);
    type(u"txtDatePurchased"_s, u"1/31/2026"_s);
    type(u"txtWarrantyPeriod"_s, u"1"_s);
    EXPECT_EQ(text(u"txtWarrantyExpiryDate"_s), u"02/28/2026"_s);
    type(u"txtCost"_s, u"39.5"_s);
    click(u"cmdUpdate"_s);
    EXPECT_EQ(text(u"txtCost"_s), u"39.50"_s);
    const QString dates = u"select [DATEPURCHASED],[WARRANTYEXPIRYDATE] from [INVENTORY]"_s;
    EXPECT_EQ(read(DataFile::Main, dates), (QStringList{u"01/31/2026|02/28/2026"_s}));
    click(u"cmdTransfer"_s);
    type(u"txtWarrantyPeriod"_s, u"0"_s);   // no reckoning: the date is what is typed
    type(u"txtWarrantyExpiryDate"_s, u"3/1/2027"_s);
    click(u"cmdUpdate"_s);
    EXPECT_EQ(read(DataFile::Main, dates), (QStringList{u"01/31/2026|03/01/2027"_s}));
    click(u"cmdTransfer"_s);
    EXPECT_EQ(read(DataFile::Main, u"select [DATE],[SUBJECT],[EVENT] from [EVENTS]"_s),
              (QStringList{u"2026-02-28|Warranty Expired|Kettle Whistle W1"_s}));
    EXPECT_EQ(nodes(), (QStringList{u"K: Kettle"_s}));
    bringUp(at(u"chkInsured"_s));
    EXPECT_FALSE(at(u"txtPolicyNum"_s)->isEnabled());
    click(u"chkInsured"_s);
    EXPECT_TRUE(at(u"txtPolicyNum"_s)->isEnabled());
    EXPECT_TRUE(at(u"cmdInsuranceExpiryDate"_s)->isVisible());
}

// Several lines are kept with the line ends that the reports and pages cut at; looking at a row changes nothing in it.
TEST_F(Rules, LinesAndDatesKeepTheirStoredForm)
{
    run(DataFile::Movies, {u"INSERT INTO [MOVIES] (TITLE) VALUES('Dawn')"_s});
    openScreen<frmMovies>(u"V"_s);
    type(u"txtStarring"_s, u"Ann"_s);
    QTest::keyClick(at(u"txtStarring"_s), Qt::Key_Return);
    QTest::keyClicks(at(u"txtStarring"_s), u"Bea"_s);
    click(u"cmdUpdate"_s);
    EXPECT_EQ(read(DataFile::Movies, u"select [STARS] from [MOVIES]"_s), (QStringList{u"Ann\r\nBea"_s}));
    EXPECT_EQ(text(u"txtStarring"_s), u"Ann\nBea"_s);
    run(DataFile::Main, {u"INSERT INTO [INVENTORY] (ITEM,DATEPURCHASED,COST) VALUES('Lamp','2005-01-09',7)"_s});
    openScreen<frmInventory>(u"I"_s);
    EXPECT_EQ(text(u"txtDatePurchased"_s), u"01/09/2005"_s);
    EXPECT_EQ(text(u"lblInitialPurchaseDate"_s), u"01/09/2005"_s);
    click(u"cmdClose"_s);
    EXPECT_EQ(read(DataFile::Main, u"select [DATEPURCHASED] from [INVENTORY]"_s), (QStringList{u"2005-01-09"_s}));
}

}
