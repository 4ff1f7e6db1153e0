#include "contacts/frmContacts.h"
#include "contacts/frmNewContact.h"
#include "records/sectionscreen.h"
#include "support/opened.h"
#include "support/otherprocess.h"
#include "support/screens.h"

#include <QContextMenuEvent>
#include <QFile>
#include <QListWidget>
#include <QMenu>
#include <QTimer>
#include <sys/stat.h>
#include <unistd.h>

// The address book as its user sees it.
namespace vorel {

using namespace Qt::StringLiterals;
using basic::Answer;

namespace {

// A file and its folder that cannot be written for as long as this lives. No right holds root back, who becomes somebody else.
class ReadOnly {
public:
    explicit ReadOnly(const QString &file) : m_file(QFile::encodeName(file)), m_folder(QFile::encodeName(QFileInfo(file).path()))
    {
        EXPECT_EQ(::chmod(m_file.constData(), 0444) + ::chmod(m_folder.constData(), 0555), 0);
        if (::geteuid() == 0) {
            m_isRoot = true;
            EXPECT_EQ(::seteuid(65534), 0);
        }
    }
    ~ReadOnly()
    {
        if (m_isRoot) {
            EXPECT_EQ(::seteuid(0), 0);
        }
        EXPECT_EQ(::chmod(m_file.constData(), 0644) + ::chmod(m_folder.constData(), 0700), 0);
    }
    ReadOnly(const ReadOnly &) = delete;
    ReadOnly &operator=(const ReadOnly &) = delete;

private:
    QByteArray m_file, m_folder;
    bool m_isRoot = false;
};

class Contacts : public test::SectionScreen {
protected:
    void open(const QStringList &rows = {})
    {
        for (const QString &row : rows)
            run(DataFile::Contacts, {u"INSERT INTO [CONTACTS] (SORTNAME,LASTNAME,FULLNAME,COMPANYNAME,CATEGORY,[PRIVATE],NEWIMPORT,INVISIBLE) VALUES("_s
                                     + row + u",False)"_s});
        openScreen<frmContacts>(u"P"_s);
        form->resize(1400, 800);            // all keys in the row at the foot
        QCoreApplication::processEvents();
    }
    static QString person(const QString &last, const QString &category = {}, int imported = 0)
    {
        const QString name = dao::literal(last);
        return u"%1,%1,%1,'',%2,True,%3"_s.arg(name, dao::literal(category)).arg(imported);
    }
    static QString business(const QString &company, const QString &category = {})
    {
        const QString name = dao::literal(company);
        return u"%1,%1,%1,%1,%2,False,0"_s.arg(name, dao::literal(category));
    }
    static QStringList contacts(const QString &fields) { return read(DataFile::Contacts, u"select "_s + fields + u" from [CONTACTS] order by [ID]"_s); }
    void save() { click(u"cmdUpdate"_s); }
};

}

TEST_F(Contacts, NamesAreBuiltOnSavingAndANamelessOneIsAsked)
{
    open();
    click(u"cmdNew"_s);
    EXPECT_TRUE(at<QCheckBox>(u"chkPrivate"_s)->isChecked());
    const QString question = u"You have identified this Contact as Private,\r\nYet you have not entered a last name\r\nClick Yes to edit!"_s;
    user.expect(question, Answer::Yes);
    save();
    EXPECT_EQ(user.shown().back().title, u"Incomplete Contact"_s);
    EXPECT_EQ(form->focusWidget(), at(u"txtSurname"_s));
    user.expect(question, Answer::No);
    save();
    EXPECT_EQ(contacts(u"SORTNAME,FULLNAME,LASTNAME"_s), QStringList{u" | | "_s});
    EXPECT_TRUE(nodes().isEmpty());

    type(u"txtSurname"_s, u"o'hara"_s);
    type(u"txtFirstName"_s, u"jo"_s);
    type(u"txtMiddleName"_s, u"Ann"_s);
    save();
    EXPECT_EQ(contacts(u"SORTNAME,FULLNAME,FILEAS,LASTNAME"_s), QStringList{u"O`Hara, Jo|O`Hara, Jo Ann|O`Hara, Jo|O`Hara"_s});
    EXPECT_EQ(nodes(), QStringList{u"O: O'Hara, Jo"_s});
    // A row that is left without a click on Update is named alike.
    PutIniValue(iniSettings, u"ContactsUpperCase"_s, u"True"_s);
    type(u"txtSurname"_s, u"miller"_s);
    form->dtaData().MoveLast();
    EXPECT_EQ(contacts(u"SORTNAME,LASTNAME"_s), QStringList{u"MILLER, jo|MILLER"_s});
}

TEST_F(Contacts, AnotherOfTheSameNameIsToldAndKept)
{
    open({person(u"Smith"_s), person(u"Smith"_s)});
    click(u"cmdNew"_s);
    type(u"txtSurname"_s, u"smith"_s);
    user.expect(u"You already have this person Entered"_s);
    save();
    EXPECT_EQ(user.beeps(), 1);
    save();                                 // told once
    EXPECT_EQ(contacts(u"SORTNAME"_s).size(), 3);
    EXPECT_EQ(nodes(), QStringList{u"S: Smith"_s});
}

TEST_F(Contacts, APersonBecomesABusiness)
{
    open();
    click(u"cmdNew"_s);
    type(u"txtSurname"_s, u"smith"_s);
    type(u"txtFirstName"_s, u"jo"_s);
    type(u"txtHomeAddressStreet"_s, u"1 Elm St"_s);
    type(u"cboHomeAddressCity"_s, u"Ely"_s);
    click(u"cmdPostal"_s);
    click(u"chkPrivate"_s);
    save();
    EXPECT_EQ(contacts(u"COMPANYNAME,LASTNAME,FIRSTNAME,SORTNAME,FULLNAME,HomeAddressStreet,HomeAddressCity"_s),
              QStringList{u"Smith Jo|Smith Jo||Smith Jo|Smith Jo|Null|Null"_s});
    EXPECT_EQ(contacts(u"MailingAddressStreet,MailingAddressCity"_s), QStringList{u"1 Elm St|Ely"_s});
    type(u"txtBusinessAddressStreet"_s, u"2 Oak St"_s);
    click(u"cmdBusAsPostal"_s);
    save();
    EXPECT_EQ(contacts(u"MailingAddressStreet,MailingAddressCity"_s), QStringList{u"2 Oak St|"_s});
    click(u"cmdBusiness"_s);
    EXPECT_EQ(nodes(), QStringList{u"S: Smith Jo"_s});
    click(u"cmdPrivate"_s);
    EXPECT_TRUE(nodes().isEmpty());
}

TEST_F(Contacts, ASalutationFillsGenderAndSpouse)
{
    open({person(u"Ash"_s)});
    bringUp(at(u"cboSalutation"_s));
    auto *titles = at<QComboBox>(u"cboSalutation"_s);
    for (const auto &[title, gender, spouse] : {std::tuple{u"Mr."_s, u"Male"_s, u""_s}, {u"Ms."_s, u"Female"_s, u""_s},
                                                {u"Dr."_s, u"Female"_s, u""_s}, {u"Mr. & Mrs."_s, u"N/A"_s, u"N/A"_s}}) {
        titles->setCurrentIndex(titles->findText(title));
        emit titles->activated(titles->currentIndex());
        EXPECT_EQ(text(u"cboGender"_s) + u'/' + text(u"txtSpouse"_s), gender + u'/' + spouse) << qPrintable(title);
    }
}

// A company or a category with an apostrophe, or with none, loses nothing.
TEST_F(Contacts, CategoriesGroupAndArePutAway)
{
    open({person(u"Ash"_s, u"Friends"_s), business(u"Bob's mill"_s, u"Bob's"_s), person(u"Cole"_s)});
    click(u"cmdCategory"_s);
    EXPECT_EQ(nodes(), (QStringList{u"(none): Cole"_s, u"Bob's: Bob's mill"_s, u"Friends: Ash"_s}));
    const auto put = [this](const QString &name, Qt::CheckState state) {
        test::inModal<controls::Form>([this] { click(u"cmdCats"_s); }, [&](controls::Form &categories) {
            auto *list = test::control<QListWidget>(categories, u"lstCategories"_s);
            ASSERT_EQ(list->count(), 2);
            QListWidgetItem *item = list->findItems(name, Qt::MatchExactly).value(0);
            ASSERT_TRUE(item && item->checkState() != state);
            item->setCheckState(state);
        });
    };
    put(u"Bob's"_s, Qt::Unchecked);
    EXPECT_EQ(nodes(), (QStringList{u"(none): Cole"_s, u"Friends: Ash"_s}));
    EXPECT_EQ(form->dtaData().Recordset().rowTotal(), 2);
    click(u"cmdRefresh"_s);
    EXPECT_EQ(form->dtaData().Recordset().rowTotal(), 2) << "put away is put away";
    put(u"Bob's"_s, Qt::Checked);
    EXPECT_EQ(form->dtaData().Recordset().rowTotal(), 3);
    EXPECT_EQ(read(DataFile::Contacts, u"select [CATEGORY],[INVISIBLE] from [CATEGORY]"_s), QStringList{u"Bob's|False"_s});
    // A contact that comes into one that is put away follows it, if its user wants that.
    put(u"Friends"_s, Qt::Unchecked);
    clickNode(u"Cole"_s);
    const QString question = u"The category \"Friends\" is put away.\r\nDo you want to put this Contact away, too?"_s;
    type(u"cboCategory"_s, u"Friends"_s);
    user.expect(question, Answer::No);
    save();
    save();                                 // asked once
    EXPECT_EQ(contacts(u"CATEGORY,INVISIBLE"_s), (QStringList{u"Friends|True"_s, u"Bob's|False"_s, u"Friends|False"_s}));
    type(u"cboCategory"_s, u"Work"_s);
    save();
    type(u"cboCategory"_s, u"Friends"_s);
    user.expect(question, Answer::Yes);
    save();
    EXPECT_EQ(nodes(), QStringList{u"Bob's: Bob's mill"_s});
    EXPECT_EQ(form->dtaData().Recordset().rowTotal(), 1);
    put(u"Friends"_s, Qt::Checked);
    EXPECT_EQ(form->dtaData().Recordset().rowTotal(), 3);
}

// What the mail program's address book would be asked for is told to come, and the contact is saved or deleted all the same.
TEST_F(Contacts, ALinkedContactIsSavedAndDeletedHere)
{
    open({person(u"Ash"_s), person(u"Birch"_s)});
    run(DataFile::Contacts, {u"UPDATE [CONTACTS] SET [ENTRYID]='77' WHERE [ID]=1"_s});
    PutIniValue(iniSettings, u"EmailClient"_s, u"Outlook"_s);
    click(u"cmdRefresh"_s);
    type(u"txtNickName"_s, u"A"_s);
    user.expect(u"The update of the mail program's address book is not part of this version yet."_s);
    save();
    user.expect(u"Do you want to Delete this Record ?"_s, Answer::Yes);
    user.expect(u"The deletion in the mail program's address book is not part of this version yet."_s);
    click(u"cmdDelete"_s);
    EXPECT_EQ(contacts(u"ID"_s), QStringList{u"2"_s});
    click(u"cmdUpdate"_s);                  // this one has no entry there
}

TEST_F(Contacts, AnImportedContactIsNewUntilItIsLeft)
{
    open({person(u"Ash"_s, {}, 1), person(u"Birch"_s, u"Work"_s, 1), person(u"Cole"_s, {}, 0)});
    EXPECT_EQ(text(u"cboCategory"_s), u"UnCategorised"_s);
    form->dtaData().MoveNext();
    EXPECT_EQ(contacts(u"NEWIMPORT,CATEGORY"_s), (QStringList{u"0|UnCategorised"_s, u"1|Work"_s, u"0|"_s}));
}

TEST_F(Contacts, TheSearchTakesAnyCharacter)
{
    open({person(u"Ash"_s), person(u"Birch"_s), person(u"O`Hara"_s), person(u"100% [x]"_s)});
    for (const auto &[typed, found] : {std::pair{u"b"_s, u"Birch"_s}, {u"o'h"_s, u"O`Hara"_s}, {u"100% ["_s, u"100% [x]"_s}, {u"zzz"_s, u"100% [x]"_s}}) {
        auto *search = at<QLineEdit>(u"txtSearch"_s);
        search->clear();
        QTest::keyClicks(search, typed);
        EXPECT_EQ(text(u"lblSortname"_s), found) << qPrintable(typed);
    }
}

TEST_F(Contacts, ADeletedContactTakesItsPicturesAndNoOthers)
{
    open({person(u"Ash"_s), person(u"Birch"_s), person(u"Birch"_s)});
    run(DataFile::Contacts, {u"INSERT INTO [CONTACTDATA] ([ID],[USERNAME]) VALUES(2,'Old name')"_s,
                             u"INSERT INTO [CONTACTDATA] ([ID],[USERNAME]) VALUES(3,'Birch')"_s,
                             u"INSERT INTO [CONTACTDATA] ([ID],[USERNAME]) VALUES(0,'Birch')"_s});
    clickNode(u"Birch"_s);
    user.expect(u"Do you want to Delete this Record ?"_s, Answer::Yes);
    click(u"cmdDelete"_s);
    EXPECT_EQ(text(u"lblSortname"_s), u"Ash"_s);
    EXPECT_EQ(contacts(u"ID"_s), (QStringList{u"1"_s, u"3"_s}));
    EXPECT_EQ(read(DataFile::Contacts, u"select [ID] from [CONTACTDATA]"_s), QStringList{u"3"_s}) << "those of the other Birch";
}

TEST_F(Contacts, AddressesOpenByClickAndKey)
{
    test::Opened opened({u"http"_s, u"mailto"_s});
    open({person(u"Ash"_s)});
    type(u"txtWebpage"_s, u"www.example.org"_s);
    QTest::mouseDClick(at(u"txtWebpage"_s), Qt::LeftButton);
    type(u"txtEmail2Address"_s, u"jo@example.org"_s);
    QTest::keyClick(at(u"txtEmail2Address"_s), Qt::Key_Return, Qt::ControlModifier);
    QTimer::singleShot(0, form.get(), [] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        EXPECT_EQ(menu->actions().first()->text(), u"&Open"_s);
        menu->actions().first()->trigger();
        menu->close();
    });
    bringUp(at(u"txtWebpage"_s));
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {}, form->mapToGlobal(QPoint(50, 50)));
    QCoreApplication::sendEvent(at(u"txtWebpage"_s), &byKey);
    ASSERT_EQ(opened.urls.size(), 3) << "click, key and menu";
    EXPECT_EQ(opened.urls.takeLast(), opened.urls.first());
    EXPECT_EQ(opened.urls, (QList<QUrl>{QUrl(u"http://www.example.org"_s), QUrl(u"mailto:jo@example.org"_s)}));
    type(u"txtFTPSite"_s, u"/bin/sh"_s);
    user.expect(u"\"/bin/sh\" is not an address of the web or of e-mail."_s);
    QTest::keyClick(at(u"txtFTPSite"_s), Qt::Key_Return, Qt::ControlModifier);
    click(u"cmdEmail(3)"_s);
    EXPECT_EQ(user.beeps(), 1) << "no address";
    bringUp(at(u"txtLanguage"_s));
    QTest::mouseDClick(at(u"txtLanguage"_s), Qt::LeftButton);
    EXPECT_EQ(text(u"txtLanguage"_s), u"English"_s);
    QTest::mouseDClick(at(u"txtLanguage"_s), Qt::LeftButton);
    EXPECT_EQ(text(u"txtLanguage"_s), u"*English*"_s);
    test::inModal<controls::Form>([this] { QTest::mouseDClick(at(u"txtSurname"_s), Qt::LeftButton); }, [](controls::Form &edit) {
        test::control<QLineEdit>(edit, u"txtEdit"_s)->setText(u"d'Arc"_s);
        test::click(edit, u"cmdUpdate"_s);
    });
    EXPECT_EQ(text(u"txtSurname"_s), u"d`Arc"_s);
}

TEST_F(Contacts, ThePageIsEscapedAndHoldsWhatIsFilled)
{
    test::Opened opened({u"file"_s});
    open({person(u"<b>Ash</b>"_s)});
    type(u"txtHobby"_s, u"<script>"_s);
    type(u"txtBusinessTelephoneNumber"_s, u"555"_s);
    click(u"cmdView"_s);
    ASSERT_EQ(opened.urls.size(), 1);
    QFile file(opened.urls.first().toLocalFile());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString page = QString::fromUtf8(file.readAll());
    EXPECT_TRUE(file.fileName().endsWith(u"/CONTACT.HTML"_s));
    EXPECT_FALSE(page.contains(u"<script>"_s) || page.contains(u"<b>"_s));
    EXPECT_TRUE(page.contains(u"HOBBY  :"_s) && page.contains(u"WORK   :"_s)) << qPrintable(page);
    EXPECT_FALSE(page.contains(u"TELEX"_s) || page.contains(u"BUSINESS   :"_s));
}

// The file turns against the screen: what was typed stays, and the user learns why.
TEST_F(Contacts, AFileThatCannotBeWrittenAndARowThatIsGone)
{
    open({person(u"Ash"_s), person(u"Birch"_s)});
    const QString path = state().path(DataFile::Contacts);
    type(u"txtFirstName"_s, u"jo"_s);
    {
        dao::DBEngine::setLockWait(20);
        const test::OtherProcess other(path);
        user.expect({});
        save();
        EXPECT_EQ(text(u"txtFirstName"_s), u"jo"_s);
        EXPECT_TRUE(form->isWindowModified());
    }
    dao::DBEngine::setLockWait(5000);
    save();
    EXPECT_EQ(contacts(u"FIRSTNAME"_s), (QStringList{u"jo"_s, u"Null"_s}));
    type(u"txtFirstName"_s, u"al"_s);
    run(DataFile::Contacts, {u"DELETE * FROM [CONTACTS] WHERE [ID]=1"_s});
    user.expect({});
    save();
    EXPECT_EQ(text(u"lblSortname"_s), u"Birch"_s) << "the next row";
    ASSERT_TRUE(QFile::remove(path));
    user.expect({});
    click(u"cmdRefresh"_s);
    form.reset();
}

// Whatever would write says why it cannot, and takes nothing from the file or the screen.
TEST_F(Contacts, AReadOnlyFileIsReadAndKept)
{
    open({person(u"Ash"_s, u"Friends"_s), person(u"Birch"_s)});
    const QStringList before = contacts(u"SORTNAME,NICKNAME,CATEGORY,INVISIBLE"_s);
    {
        const ReadOnly held(state().path(DataFile::Contacts));
        click(u"cmdRefresh"_s);
        EXPECT_EQ(nodes(), (QStringList{u"A: Ash"_s, u"B: Birch"_s}));
        for (const QString &key : {u"cmdNew"_s, u"cmdUCase"_s}) {
            user.expect({});
            click(key);
        }
        test::inModal<controls::Form>([this] { click(u"cmdCats"_s); }, [this](controls::Form &categories) {
            auto *item = test::control<QListWidget>(categories, u"lstCategories"_s)->item(0);
            user.expect({});
            item->setCheckState(Qt::Unchecked);
            EXPECT_EQ(item->checkState(), Qt::Checked) << "what is stored";
        });
        user.expect(u"Do you want to Delete this Record ?"_s, Answer::Yes);
        user.expect({});
        click(u"cmdDelete"_s);
        type(u"txtNickName"_s, u"A"_s);
        user.expect({});
        save();
        EXPECT_TRUE(form->isWindowModified());
        EXPECT_EQ(contacts(u"SORTNAME,NICKNAME,CATEGORY,INVISIBLE"_s), before);
        EXPECT_FALSE(user.texts().contains(QString())) << "each refusal has its text";
    }
    EXPECT_EQ(text(u"txtNickName"_s), u"A"_s);
    save();
    EXPECT_EQ(contacts(u"NICKNAME"_s).first(), u"A"_s);
}

TEST_F(Contacts, CapitalsRewriteAllNames)
{
    run(DataFile::Books, {u"INSERT INTO [BOOKS] (TITLE) VALUES('dune')"_s});
    run(DataFile::Main, {u"INSERT INTO [EVENTS] ([DATE],SUBJECT,EVENT) VALUES(#11/23/2026#,'birthday','jo')"_s});
    open({person(u"mcleod"_s), business(u"the mill"_s)});
    PutIniValue(iniSettings, u"ContactsUpperCase"_s, u"True"_s);
    click(u"cmdUCase"_s);
    EXPECT_EQ(contacts(u"SORTNAME,LASTNAME,COMPANYNAME"_s), (QStringList{u"MCLEOD|MCLEOD|"_s, u"THE MILL|THE MILL|THE MILL"_s}));
    EXPECT_EQ(read(DataFile::Books, u"select [TITLE] from [BOOKS]"_s) + read(DataFile::Main, u"select [SUBJECT] from [EVENTS]"_s),
              (QStringList{u"DUNE"_s, u"BIRTHDAY"_s}));
    PutIniValue(iniSettings, u"ContactsUpperCase"_s, u"False"_s);
    click(u"cmdUCase"_s);
    EXPECT_EQ(contacts(u"SORTNAME"_s), (QStringList{u"McLeod"_s, u"The Mill"_s}));
    EXPECT_EQ(nodes(), (QStringList{u"M: McLeod"_s, u"T: The Mill"_s}));
}

TEST_F(Contacts, TheShortFormAddsAContact)
{
    frmNewContact shop(u"Bob's mill"_s, false);
    shop.show();
    EXPECT_EQ(test::control<QLabel>(shop, u"txtFullName"_s)->text(), u"BOB`S MILL"_s);
    test::control<QLineEdit>(shop, u"txtContact"_s)->setText(u"Bob"_s);
    test::click(shop, u"cmdSave"_s);
    EXPECT_EQ(shop.savedId(), 1);
    EXPECT_EQ(contacts(u"SORTNAME,COMPANYNAME,LASTNAME,CONTACT,[PRIVATE],INVISIBLE"_s),
              QStringList{u"BOB`S MILL|BOB`S MILL|BOB`S MILL|Bob|False|False"_s});
    frmNewContact nobody({}, true);
    nobody.show();
    test::click(nobody, u"cmdSave"_s);
    EXPECT_TRUE(nobody.isVisible() && nobody.savedId() == 0);
    EXPECT_EQ(user.beeps(), 1);
}

// A picture whose file is gone leaves its slot empty, and its path where it is.
TEST_F(Contacts, PicturesAreKeptWithoutTheirFiles)
{
    run(DataFile::Contacts, {u"INSERT INTO [CONTACTDATA] ([ID],[USERNAME],[PICFILE2],[PICFILE2CAPTION]) VALUES(1,'Ash','/gone.jpg','Sea')"_s});
    open({person(u"Ash"_s)});
    form->findChild<QTabBar *>()->setCurrentIndex(7);
    EXPECT_EQ(text(u"txtCaption(1)"_s), u"Sea"_s);
    type(u"txtCaption(1)"_s, u"At sea"_s);
    save();
    EXPECT_EQ(read(DataFile::Contacts, u"select [PICFILE2],[PICFILE2CAPTION],[USERNAME] from [CONTACTDATA]"_s), QStringList{u"/gone.jpg|At sea|Ash"_s});
    click(u"cmdNew"_s);                     // "Pics": another set, no other contact
    EXPECT_EQ(contacts(u"ID"_s).size(), 1);
    EXPECT_EQ(read(DataFile::Contacts, u"select [ID] from [CONTACTDATA]"_s).size(), 2);
}

// The people of a business stand open below it.
TEST_F(Contacts, PeopleStandBelowTheirBusiness)
{
    open({business(u"Mill"_s), business(u"Ox"_s)});
    run(DataFile::Contacts, {u"UPDATE [CONTACTS] SET [CONTACT]='Carl' WHERE [ID]=1"_s});
    click(u"cmdBusiness"_s);
    auto *tree = at<QTreeView>(u"TreeView"_s);
    tree->collapseAll();
    tree->expand(tree->model()->index(0, 0));
    const QModelIndex mill = tree->model()->index(0, 0, tree->model()->index(0, 0));
    EXPECT_TRUE(tree->isExpanded(mill));
    EXPECT_EQ(tree->model()->index(0, 0, mill).data().toString(), u"-   Carl"_s);
}

TEST_F(Contacts, NoMnemonicTwice)
{
    open({person(u"Ash"_s)});
    auto *tabs = form->findChild<QTabBar *>(u"SSTab1"_s);
    ASSERT_EQ(tabs->count(), 8);
    for (int tab = 0; tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        EXPECT_EQ(repeatedMnemonics(), QStringList()) << qPrintable(tabs->tabText(tab));
    }
}

}
