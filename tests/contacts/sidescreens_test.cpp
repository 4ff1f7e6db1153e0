#include "contacts/frmInfoCard.h"
#include "contacts/frmLabelSheet.h"
#include "contacts/frmLabels.h"
#include "contacts/frmPrintAddressBook.h"
#include "print/addressbook.h"
#include "print/envelope.h"
#include "print/printfixture.h"
#include "print/scriptfile.h"
#include "session/datafiles.h"
#include "session/ini.h"
#include "support/screens.h"
#include "utilities/frmInformation.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTreeView>
#include <QTreeWidget>

namespace vorel {

using namespace Qt::StringLiterals;
using test::click;
using test::control;

class SideScreens : public test::PrintTest {
protected:
    SideScreens()
    {
        for (const DataFileEntry &entry : dataFiles())
            state().path(entry.file) = m_folder.path(entry.defaultName.mid(1));
        test::putEmptyFiles(m_folder.path());
        state().gIniFile = m_folder.path(u"vorelreminder.ini"_s);
    }
    struct Person {
        QString name;
        std::map<QString, QString> fields;
    };
    static void put(const std::vector<Person> &people)
    {
        dao::Database database = openDataFile(DataFile::Contacts);
        dao::Recordset rows = database.OpenRecordset(u"SELECT * FROM [CONTACTS]"_s);
        for (const Person &person : people) {
            dao::NewRow row(rows);
            row.set(u"SORTNAME", person.name).set(u"INVISIBLE", false);
            for (const auto &[field, text] : person.fields)
                row.set(field, text);
            row.save();
        }
    }
    template <class Screen> static std::unique_ptr<Screen> shown(std::unique_ptr<Screen> screen)
    {
        screen->show();
        return screen;
    }
    static std::unique_ptr<frmInfoCard> card(std::function<void(qint32)> open = [](qint32) {})
    {
        return shown(std::make_unique<frmInfoCard>(std::move(open)));
    }
    static std::unique_ptr<frmLabels> labels(LabelMode mode) { return shown(std::make_unique<frmLabels>(mode)); }
    static std::map<QString, QString> itemsOf(const QWidget &screen)
    {
        std::map<QString, QString> items;
        auto *list = control<QTreeWidget>(screen, u"lvInfo"_s);
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            items[list->topLevelItem(i)->text(0)] = list->topLevelItem(i)->text(1);
        return items;
    }
    static void choose(const QWidget &screen, const QString &list, int row)
    {
        auto *view = control<QAbstractItemView>(screen, list);
        view->setCurrentIndex(view->model()->index(row, 0));
    }
    static void tick(const QWidget &screen, int row)
    {
        auto *view = control<QTreeView>(screen, u"lvList"_s);
        view->model()->setData(view->model()->index(row, 0), Qt::Checked, Qt::CheckStateRole);
    }
};

TEST_F(SideScreens, CardShowsWhatIsPresent)
{
    state().settings.gDateDisplay = u"dd/mm/yyyy"_s;        // contacts keep the short date, whatever is chosen for show
    put({{u"O`BRIEN, Pat"_s, {{u"HOME2TELEPHONENUMBER"_s, u"9555 2"_s}, {u"BIRTHDAY"_s, u"01/01/4501"_s}, {u"HOMEADDRESSSTREET"_s, u"1 High St"_s},
                              {u"EMAIL3ADDRESS"_s, u"pat@example.org"_s}}},
         {u"ADAMS, Ann"_s, {{u"BIRTHDAY"_s, u"12/11/1950"_s}, {u"HOMETELEPHONENUMBER"_s, u"9555 1"_s}, {u"BUSINESSFAXNUMBER"_s, u"9555 3"_s}}},
         {u"ZERO"_s, {{u"BIRTHDAY"_s, u"01/01/1900"_s}}},
         {u"ADAMS, Ann"_s, {{u"MOBILETELEPHONENUMBER"_s, u"0400 9"_s}}}});
    const auto screen = card();
    const std::map<QString, QString> expected[] = {
        {{u"BIRTHDATE"_s, u"11/12/1950"_s}, {u"HOME"_s, u"9555 1"_s}, {u"FAX"_s, u"9555 3"_s}},
        {{u"MOBILE"_s, u"0400 9"_s}},               // another one of the same name
        {{u"STREET"_s, u"1 High St"_s}, {u"HOME"_s, u"9555 2"_s}, {u"EMAIL - 3"_s, u"pat@example.org"_s}},
        {}};
    for (int row = 0; row < 4; ++row) {
        choose(*screen, u"lstContacts"_s, row);
        EXPECT_EQ(itemsOf(*screen), expected[row]) << row;
    }
    state().settings.gDateDisplay.clear();
}

TEST_F(SideScreens, CardHoldsTwentyEntries)
{
    put({{u"ADAMS, Ann"_s, {{u"HOMETELEPHONENUMBER"_s, u"9555 1"_s}, {u"MOBILETELEPHONENUMBER"_s, u"0400 1"_s}, {u"BIRTHDAY"_s, u"12/24/1950"_s}}},
         {u"O`BRIEN, Pat"_s, {{u"HOMETELEPHONENUMBER"_s, u"9555 2"_s}}}});
    qint32 opened = 0;
    const auto screen = card([&](qint32 id) { opened = id; });
    auto *items = control<QTreeWidget>(*screen, u"lvInfo"_s);
    for (int i = 0; i < items->topLevelItemCount(); ++i)
        if (items->topLevelItem(i)->text(0) != u"MOBILE")
            items->topLevelItem(i)->setCheckState(0, Qt::Checked);
    click(*screen, u"cmdAdd"_s);
    choose(*screen, u"lstContacts"_s, 1);
    EXPECT_EQ(items->topLevelItem(0)->checkState(0), Qt::Checked) << "the ticks go with the kind of item";
    for (int i = 2; i <= 20; ++i)
        click(*screen, u"cmdAdd"_s);
    auto *list = control<QListWidget>(*screen, u"lstList"_s);
    EXPECT_EQ(list->item(0)->text(), u"ADAMS, Ann\nBIRTHDAY: 24/12/1950\nHOME: 9555 1"_s);
    list->setCurrentRow(0);
    QTest::keyClick(list, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_TRUE(list->item(1)->text().startsWith(u"ADAMS"_s)) << "an entry moves within the card";
    EXPECT_EQ(list->currentRow(), 1);
    list->setCurrentRow(19);
    m_prompts.expect(u"You have reached the maximum of 20 entries"_s);
    click(*screen, u"cmdAdd"_s);
    EXPECT_EQ(list->count(), 20);
    emit list->itemDoubleClicked(list->currentItem());
    EXPECT_EQ(list->count(), 19);
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_EQ(list->count(), 18);
    click(*screen, u"cmdContact"_s);
    EXPECT_EQ(opened, 2);

    click(*screen, u"cmdPrint"_s);                  // straight to the printer
    EXPECT_EQ(m_jobs.sheetCounts(), QList<int>{1});
    EXPECT_EQ(test::FakePreview::opened, 0);
    useNoPrinter();
    const QStringList lines = script([&] { click(*screen, u"cmdPrint"_s); });       // without one the pages are shown
    EXPECT_EQ(lines.filter(u"\"O'BRIEN, Pat\""_s).size(), 17);
    EXPECT_EQ(lines.filter(u"\"HOME: 9555 1\""_s).size(), 1);
}

// Millimetres: every text lies within its card, however long, and no two of a card cover each other.
TEST_F(SideScreens, CardTextsStayOnTheirCards)
{
    std::vector<CardEntry> entries;
    for (int i = 0; i < 20; ++i)
        entries.push_back({u"SURNAME-THAT-TAKES-MORE-THAN-ONE-LINE-OF-THE-CARD, Alexandra"_s,
                           QStringList(14, u"EMAIL: a.very.long.address.of.somebody@department.example.org"_s)});
    for (const QString &region : {u"de_DE"_s, u"en_US"_s}) {
        useNoPrinter();
        setRegion(region);
        printer::Page page(printer::localePaper());
        page.setScaleMode(printer::Millimetres);
        page.setFontName(u"Arial"_s);
        page.setFontSize(6);
        page.setFontBold(true);
        std::vector<QRectF> cards, taken;
        int texts = 0;
        for (const QString &line : script([&] { printInfoCard(entries); })) {
            if (line == u"NEWPAGE") {
                cards.clear();
                taken.clear();
            } else if (line.startsWith(u"LINE")) {
                const DrawnLine box = parseDrawnLine(line);
                cards.emplace_back(box.x1, box.y1, box.x2, box.y2);
                EXPECT_TRUE(QRectF(0, 0, page.ScaleWidth(), page.ScaleHeight()).contains(cards.back())) << qPrintable(line);
            } else if (line.startsWith(u"LPRINT")) {
                const TextLine text = parseTextLine(line, {});
                const QRectF place(text.x, text.y, page.TextWidth(text.text) - 0.01, page.TextHeight(u"A"_s) - 0.01);
                ++texts;
                EXPECT_TRUE(!cards.empty() && cards.back().contains(place)) << qPrintable(line);
                for (const QRectF &other : taken)
                    EXPECT_FALSE(other.intersects(place)) << qPrintable(line);
                taken.push_back(place);
            }
        }
        EXPECT_GE(texts, 20 * 15);
    }
}

TEST_F(SideScreens, LabelsAreThoseOfTheTickedContacts)
{
    const std::map<QString, QString> address{{u"MAILINGADDRESSSTREET"_s, u"1 High St"_s}, {u"MAILINGADDRESSCITY"_s, u"Perth"_s}};
    auto club = address;
    club[u"CATEGORY"_s] = u"D`Art"_s;
    put({{u"O`BRIEN, Pat"_s, club}, {u"ADAMS, Ann"_s, address}, {u"NOWHERE"_s, {{u"CATEGORY"_s, u"Work"_s}}}});
    const auto screen = labels(LabelMode::Labels);
    EXPECT_EQ(screen->windowTitle(), u"Label Printing"_s);
    auto *view = control<QTreeView>(*screen, u"lvList"_s);
    auto *categories = control<QComboBox>(*screen, u"cboCategory"_s);
    EXPECT_EQ(view->model()->rowCount(), 3);
    m_prompts.expect(u"No Selected Labels to Print"_s);
    click(*screen, u"cmdPrint"_s);

    auto *note = control<QLabel>(*screen, u"lblNote"_s);
    EXPECT_TRUE(note->text().contains(u"PLEASE NOTE:"_s));
    EXPECT_FALSE(note->text().contains(u"1 ticked"_s));
    click(*screen, u"chkAll"_s);
    EXPECT_TRUE(note->text().contains(u"1 ticked contact has no complete address."_s)) << "the missing address is counted";
    control<QLineEdit>(*screen, u"txtNumber"_s)->setText(u"3"_s);
    QStringList lines = script([&] { click(*screen, u"cmdPrint"_s); }).filter(u"LPRINT"_s);
    ASSERT_EQ(lines.size(), 7);
    EXPECT_EQ(parseTextLine(lines[0], {}).text, u"ADAMS, Ann"_s);
    EXPECT_EQ(parseTextLine(lines[0], {}).y, 2846);
    EXPECT_EQ(lines.filter(u"O'BRIEN, Pat"_s).size(), 1);

    ASSERT_EQ(categories->findText(u"D'Art"_s), categories->count() - 2) << "All, D'Art, Work";
    categories->setCurrentIndex(categories->findText(u"D'Art"_s));
    EXPECT_EQ(view->model()->rowCount(), 1);
    EXPECT_EQ(view->model()->index(0, 0).data(Qt::CheckStateRole).toInt(), Qt::Unchecked);
    QTest::keyClick(view, Qt::Key_Space);
    EXPECT_EQ(view->model()->index(0, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked);
}

TEST_F(SideScreens, SheetChoosesTheStart)
{
    const auto screen = labels(LabelMode::Labels);
    auto *sheet = control<frmLabelSheet>(*screen, u"Picture1"_s);
    auto *number = control<QLineEdit>(*screen, u"txtNumber"_s);
    EXPECT_FALSE(sheet->isVisible());
    click(*screen, u"cmdLayout"_s);
    ASSERT_TRUE(sheet->isVisible());
    QTest::mouseClick(sheet, Qt::LeftButton, {}, sheet->labelRect(12).center());
    EXPECT_EQ(number->text(), u"12"_s);
    const std::pair<Qt::Key, QString> keys[] = {{Qt::Key_Down, u"14"_s}, {Qt::Key_Down, u"14"_s}, {Qt::Key_Left, u"13"_s},
                                                {Qt::Key_Up, u"11"_s},   {Qt::Key_Home, u"1"_s},  {Qt::Key_Left, u"1"_s},
                                                {Qt::Key_Right, u"2"_s}, {Qt::Key_End, u"14"_s}};
    for (const auto &[key, start] : keys) {
        QTest::keyClick(sheet, key);
        EXPECT_EQ(number->text(), start) << key;
    }
    for (const auto &[typed, start] : {std::pair{u"15"_s, 14}, {u"5"_s, 5}, {u"0"_s, 14}, {u"x"_s, 14}}) {
        number->setText(typed);
        emit number->editingFinished();
        EXPECT_EQ(sheet->start(), start) << qPrintable(typed);
        EXPECT_EQ(number->text(), QString::number(start));
    }
    click(*screen, u"cmdCloseLayout"_s);
    EXPECT_FALSE(sheet->isVisible());
}

TEST_F(SideScreens, EnvelopesKeepTheReturnAddress)
{
    put({{u"ADAMS, Ann"_s, {{u"MAILINGADDRESSPOSTOFFICEBOX"_s, u"12"_s}, {u"MAILINGADDRESSCITY"_s, u"Perth"_s}}}, {u"O`BRIEN, Pat"_s, {}}});
    auto screen = labels(LabelMode::Envelopes);
    EXPECT_EQ(screen->windowTitle(), u"Envelope Printing"_s);
    auto *address = control<QPlainTextEdit>(*screen, u"txtAddress"_s);
    EXPECT_EQ(address->toPlainText(), u"ADAMS, Ann\nPO BOX 12\nPerth"_s);
    auto *sender = control<QPlainTextEdit>(*screen, u"txtReturnAddress"_s);
    sender->setPlainText(u"Bob\n1 High Street"_s);
    EXPECT_TRUE(control<QCheckBox>(*screen, u"chkReturnAddress"_s)->isChecked());
    choose(*screen, u"lvList"_s, 1);
    address->setFocus();
    address->setPlainText(u"Pat\nby hand"_s);
    const QStringList one = script([&] { click(*screen, u"cmdPrint"_s); }).filter(u"LPRINT"_s);
    EXPECT_EQ(one.filter(u"\"by hand\""_s).size() + one.filter(u"\"1 High Street\""_s).size(), 2) << "what is on show";
    EXPECT_EQ(one.filter(u"PO BOX"_s).size(), 0);
    tick(*screen, 0);
    tick(*screen, 1);
    control<QCheckBox>(*screen, u"chkReturnAddress"_s)->setChecked(false);
    const QStringList both = script([&] { click(*screen, u"cmdPrint"_s); });
    EXPECT_EQ(both.filter(u"NEWPAGE"_s).size(), 1);
    EXPECT_EQ(both.filter(u"\"PO BOX 12\""_s).size() + both.filter(u"\"by hand\""_s).size(), 2);
    EXPECT_EQ(both.filter(u"High Street"_s).size(), 0);
    sender->setPlainText(QString(150, u'x') + u'\n' + QString(150, u'y'));
    EXPECT_EQ(sender->toPlainText().size(), longestReturnAddress - 1) << "what could not be kept is not taken";
    EXPECT_EQ(m_prompts.beeps(), 1);
    sender->setPlainText(u"Bob\n2 Low Street"_s);
    screen->Close();
    screen = labels(LabelMode::Envelopes);
    EXPECT_EQ(control<QPlainTextEdit>(*screen, u"txtReturnAddress"_s)->toPlainText(), u"Bob\n2 Low Street"_s);
}

TEST_F(SideScreens, BookSettingsAreKeptAtOnce)
{
    PutIniValue(iniSettings, u"AddressLinesPerPage"_s, u"33"_s);
    PutIniValue(iniSettings, u"AddressHeadingColor"_s, u"seven"_s);
    const auto screen = shown(std::make_unique<frmPrintAddressBook>());
    EXPECT_EQ(control<QComboBox>(*screen, u"cboLinesPerPage"_s)->currentText(), u"33"_s);
    auto *bar = control<QComboBox>(*screen, u"cboAddressHeadingColor"_s);
    EXPECT_EQ(bar->currentText(), u"Light Yellow"_s);
    const QStringList colours{u"Black"_s, u"Blue"_s, u"Green"_s, u"Cyan"_s, u"Red"_s, u"Magenta"_s, u"Yellow"_s, u"White"_s, u"Grey"_s,
                              u"Light Blue"_s, u"Light Green"_s, u"Light Cyan"_s, u"Light Red"_s, u"Light Magenta"_s, u"Light Yellow"_s,
                              u"Bright White"_s};
    for (int number = 0; number < 16; ++number)
        EXPECT_EQ(bar->itemText(number), colours[number]);
    bar->setCurrentIndex(9);
    control<QComboBox>(*screen, u"cboTopMargin"_s)->setCurrentIndex(0);
    m_prompts.expectFont(basic::FontChoice{.name = u"Courier New"_s, .points = 12});
    click(*screen, u"cmdContactsFont"_s);
    EXPECT_EQ(addressBookStyle(), (AddressBookStyle{u"Courier New"_s, 12, 33, 0, 5, 9, 0}));
    m_prompts.expectFont(std::nullopt);
    click(*screen, u"cmdContactsFont"_s);
    EXPECT_EQ(addressBookStyle().font, u"Courier New"_s);
}

TEST_F(SideScreens, BookOfTheChosenContacts)
{
    put({{u"ADAMS"_s, {{u"LASTNAME"_s, u"ADAMS"_s}}}, {u"BROWN"_s, {{u"LASTNAME"_s, u"BROWN"_s}, {u"PRINT"_s, u"True"_s}}}});
    PutIniValue(iniSettings, u"AddressHeadingColor"_s, u"9"_s);
    const auto screen = shown(std::make_unique<frmPrintAddressBook>());
    m_prompts.expect(u"No Records Applicable for this Report"_s);
    click(*screen, u"cmdFormatBook"_s);
    m_prompts.expect(u"This option will SELECT all of the Contacts for Address Book Printing\r\nProceed?"_s, basic::Answer::No);
    click(*screen, u"cmdPrintContacts"_s);
    EXPECT_EQ(control<QLabel>(*screen, u"lblMarked"_s)->text(), u"No contact is selected for the address book."_s);
    m_prompts.expect(u"This option will SELECT"_s, basic::Answer::Yes);
    click(*screen, u"cmdPrintContacts"_s);
    const std::pair<QString, QString> books[] = {{u"cmdFormatBook"_s, u",9,BF"_s}, {u"cmdPrintWithoutSettings"_s, u",0,BF"_s}, {u"cmdStandardBook"_s, u",9,BF"_s}};
    for (const auto &[key, bar] : books) {
        const QStringList lines = script([&] { click(*screen, key); });
        EXPECT_EQ(lines.filter(bar).size(), 2) << qPrintable(key);
        EXPECT_EQ(lines.count(u"NEWPAGE"_s), key == u"cmdStandardBook" ? 1 : 0);
    }
    control<QComboBox>(*screen, u"cboPrint"_s)->setCurrentText(u"DESELECT"_s);
    m_prompts.expect(u"This option will DESELECT all of the Contacts for Address Book Printing, except those identified for Printing in "
                     "the Contact.\r\nProceed?"_s, basic::Answer::Yes);
    click(*screen, u"cmdPrintContacts"_s);
    EXPECT_EQ(control<QLabel>(*screen, u"lblMarked"_s)->text(), u"1 contact is selected for the address book."_s);
}

TEST_F(SideScreens, WithoutContactsNothingCanGoWrong)
{
    const auto empty = card();
    EXPECT_FALSE(control<QWidget>(*empty, u"cmdAdd"_s)->isEnabled() || control<QWidget>(*empty, u"cmdContact"_s)->isEnabled()
                 || control<QWidget>(*empty, u"cmdPrint"_s)->isEnabled());
    const auto envelopes = labels(LabelMode::Envelopes);
    m_prompts.expect(u"There is no address to print."_s);
    click(*envelopes, u"cmdPrint"_s);
    QFile::remove(state().path(DataFile::Contacts));
    for (int screen = 0; screen < 3; ++screen)
        m_prompts.expect({});                       // the file that is gone is told, and the screen is usable
    const auto goneCard = card();
    const auto goneLabels = labels(LabelMode::Labels);
    const auto goneBook = shown(std::make_unique<frmPrintAddressBook>());
    for (QWidget *gone : std::initializer_list<QWidget *>{goneCard.get(), goneLabels.get(), goneBook.get()})
        EXPECT_TRUE(gone->isVisible());
    installScreenHelp();
    QTest::keyClick(empty.get(), Qt::Key_F1);
    QWidget *help = nullptr;
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (widget->objectName() == u"frmInformation" && widget->isVisible())
            help = widget;
    ASSERT_TRUE(help);
    EXPECT_TRUE(help->windowTitle().startsWith(u"Contacts"_s)) << qPrintable(help->windowTitle());
    unloadInformation();
    controls::Form::setHelp({});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}
