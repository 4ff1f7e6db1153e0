#include "frame/framefixture.h"
#include "frame/menus.h"
#include "frame/periods.h"
#include "frame/sections.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace vorel {

using SectionsTest = test::FrameTest;

TEST_F(SectionsTest, namesLeadToCodesFilesAndPrintEntries)
{
    const struct {
        QString name, code;
        DataFile file;
        QString printMenu;
    } cases[] = {
        {u"Inventory"_s, u"I"_s, DataFile::Main, u"mnuPrintInventory"_s},
        {u"Books"_s, u"K"_s, DataFile::Books, u"mnuPrintBooks"_s},
        {u"Music"_s, u"U"_s, DataFile::Music, u"mnuPrintMusic"_s},
        {u"Movies"_s, u"V"_s, DataFile::Movies, u"mnuPrintMovies"_s},
        {u"Gardening"_s, u"Z"_s, DataFile::Garden, {}},
        {u"Passwords"_s, u"W"_s, DataFile::DataP, u"mnuPrintPasswords"_s},
        {u"Journal"_s, u"J"_s, DataFile::DataJ, u"mnuPrintJournal"_s},
        {u"To Do"_s, u"G"_s, DataFile::Main, u"mnuPrintToDo"_s},
        {u"Contacts"_s, u"P"_s, DataFile::Contacts, u"mnuPrintPhone"_s},
        {u"Private"_s, u"T"_s, DataFile::Contacts, {}},
        {u"Business"_s, u"D"_s, DataFile::Contacts, {}},
        {u"Emergency"_s, u"X"_s, DataFile::Contacts, u"mnuPrintEmergencyPhoneList"_s},
        {u"Christmas Cards"_s, u"C"_s, DataFile::Contacts, u"mnuPrintXmasList"_s},
        {u"Messages"_s, u"M"_s, DataFile::Main, {}},
        {u"File Backup"_s, u"F"_s, DataFile::Main, u"mnuPrintFiles"_s},
        {u"Shopping"_s, u"H"_s, DataFile::Main, u"mnuPrintShoppingList"_s},
        {u"Notes"_s, u"N"_s, DataFile::Notes, u"mnuPrintNotes"_s},
        {u"HOW TO"_s, u"Y"_s, DataFile::HowTo, u"mnuPrintHowTo"_s},
        {u"Vehicle"_s, u"MV"_s, DataFile::HowTo, {}},
        {u"RECIPES"_s, u"R"_s, DataFile::Recipe, {}},
        {u"Health"_s, u"O"_s, DataFile::HowTo, {}},
        {u"Golf"_s, u"Q"_s, DataFile::Sports, {}},
        {u"Profile"_s, u"L"_s, DataFile::Main, {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name.toStdString());
        const Section *section = sectionByName(c.name.toUpper());
        ASSERT_NE(section, nullptr);
        EXPECT_EQ(section->name, c.name);
        EXPECT_EQ(section->code, c.code);
        EXPECT_EQ(section->kind, SectionKind::Grid);
        EXPECT_EQ(section->file, c.file);
        EXPECT_EQ(section->printMenu, c.printMenu);
        EXPECT_EQ(sectionByCode(c.code), section);
    }
    EXPECT_EQ(sectionByName(u"Nothing"_s), nullptr);
    EXPECT_EQ(sectionByCode({}), nullptr);
}

TEST_F(SectionsTest, reminderSectionsShowTheirGrids)
{
    const struct {
        QString name, code;
        bool a, b, e;
        QStringList printMenus;
    } cases[] = {
        {u"Appointments"_s, u"A"_s, true, false, false, {u"mnuPrintAppointments"_s}},
        {u"Bills"_s, u"B"_s, false, true, false, {u"mnuPrintBills"_s}},
        {u"Events"_s, u"E"_s, false, false, true, {u"mnuPrintEvents"_s}},
        {u"All"_s, u"All"_s, true, true, true, {u"mnuPrintAppointments"_s, u"mnuPrintBills"_s, u"mnuPrintEvents"_s}},
        {u"AB"_s, u"AB"_s, true, true, false, {u"mnuPrintAppointments"_s, u"mnuPrintBills"_s}},
        {u"AE"_s, u"AE"_s, true, false, true, {u"mnuPrintAppointments"_s, u"mnuPrintEvents"_s}},
        {u"BE"_s, u"BE"_s, false, true, true, {u"mnuPrintBills"_s, u"mnuPrintEvents"_s}},
    };
    for (const auto &c : cases) {
        const Section *section = sectionByName(c.name);
        ASSERT_NE(section, nullptr) << c.name;
        EXPECT_EQ(section->kind, SectionKind::Reminder);
        EXPECT_EQ(section->code, c.code);
        EXPECT_EQ(section->grids[0], c.a) << c.name;
        EXPECT_EQ(section->grids[1], c.b) << c.name;
        EXPECT_EQ(section->grids[2], c.e) << c.name;
        EXPECT_EQ(printMenusOf(*section), c.printMenus) << c.name;
    }
    for (const auto &[name, code] : {std::pair{u"Calculator"_s, QString()}, {u"Calendar"_s, QString()},
                                     {u"Expenses"_s, u"EX"_s}, {u"Income"_s, u"IN"_s}, {u"Help"_s, QString()}}) {
        const Section *section = sectionByName(name);
        ASSERT_NE(section, nullptr) << name;
        EXPECT_EQ(section->kind, SectionKind::Action);
        EXPECT_EQ(section->code, code);
    }
}

TEST_F(SectionsTest, queriesWithLineEndsInTheirCells)
{
    EXPECT_EQ(sectionByCode(u"X"_s)->query,
              u"SELECT [ID],[SORTNAME],'Home: '+ [HOMETELEPHONENUMBER] & '\r\n"
              "''Work: ' + [BUSINESSTELEPHONENUMBER] & '\r\n"
              "''Cell:   ' + [MOBILETELEPHONENUMBER] & '\r\n"
              "''Pager: '+ [PAGERNUMBER] & '\r\n"
              "' AS PHONENUM FROM [CONTACTS] WHERE [EMERGENCY]=-1 AND [INVISIBLE]=False ORDER BY [LASTNAME]"_s);
    EXPECT_EQ(sectionByCode(u"C"_s)->query,
              u"SELECT [ID],[SORTNAME] AS PERSON,[MAILINGADDRESSSTREET] & '\r\n"
              "' +[MAILINGADDRESSCITY] & ' ' & [MAILINGADDRESSSTATE] & ' ' & [MAILINGADDRESSPOSTALCODE] & '\r\n"
              "' + [MAILINGADDRESSCOUNTRY] AS ADDRESS FROM [CONTACTS] WHERE [CHRISTMASCARD]=True AND [INVISIBLE]=False ORDER BY [SORTNAME]"_s);
}

TEST_F(SectionsTest, columnsMatchTheirQueries)
{
    for (const Section &section : sectionTable()) {
        if (section.kind != SectionKind::Grid)
            continue;
        SCOPED_TRACE(section.name.toStdString());
        // The list of fields, its commas outside brackets and quotes.
        QString fields = section.query.mid(7, section.query.indexOf(u" FROM "_s) - 7);
        fields.remove(QRegularExpression(u"'[^']*'"_s));
        if (section.code != u"F") {
            EXPECT_EQ(static_cast<qsizetype>(section.columns.size()), fields.count(u',') + 1);
        }
        EXPECT_EQ(section.columns.front().field, u"ID"_s);
        EXPECT_EQ(section.columns.front().role, SectionColumn::Role::Hidden);
        QStringList shown;
        int widths = 0;
        int buttons = 0;
        for (const SectionColumn &column : section.columns) {
            buttons += column.role == SectionColumn::Role::Button;
            if (column.role != SectionColumn::Role::Shown)
                continue;
            shown << column.title;
            EXPECT_EQ(column.widthColumn, ++widths);
        }
        EXPECT_EQ(buttons, section.query.contains(u"' ' as PBUT"_s) ? 1 : 0);
        for (const QString &title : section.columnTitles) {
            if (!title.isEmpty() && title != u"ID") {
                EXPECT_TRUE(shown.contains(title)) << title;
            }
        }
    }
}

TEST_F(SectionsTest, nameOfTheSectionOnShow)
{
    const std::pair<QString, QString> cases[] = {
        {u"A"_s, u"Appointments"_s}, {u"P"_s, u"Contacts"_s}, {u"G"_s, u"To Do"_s}, {u"All"_s, u"All"_s}, {u"AB"_s, u"AB"_s},
        {u"K"_s, u"K"_s}, {u"V"_s, u"V"_s}, {u"W"_s, u"W"_s}, {{}, {}},
    };
    for (const auto &[code, name] : cases) {
        state().gSection = code;
        EXPECT_EQ(SectionName(), name);
    }
    // Those codes are no names: the screen stays as it is.
    for (const QString &code : {u"K"_s, u"V"_s, u"W"_s})
        EXPECT_EQ(sectionByName(code), nullptr);
}

TEST_F(SectionsTest, everyButtonOpensASectionAndFollowsItsSwitch)
{
    ASSERT_EQ(categoryButtons().size(), 25u);
    int index = 0;
    for (const CategoryButton &button : categoryButtons()) {
        SCOPED_TRACE(button.tag.toStdString());
        EXPECT_EQ(button.index, index++);
        EXPECT_NE(sectionByName(button.tag), nullptr);
        EXPECT_FALSE(button.icon.isEmpty());
        const auto feature = std::find_if(featureTable().begin(), featureTable().end(),
                                          [&](const FeatureEntry &f) { return f.key == button.feature; });
        if (button.index == 3) {
            EXPECT_EQ(button.feature, QString());
            continue;
        }
        ASSERT_NE(feature, featureTable().end());
        const QString control = u"cmdCat(%1)"_s.arg(button.index);
        EXPECT_TRUE(feature->category == button.index || feature->controls.contains(control));
    }
    EXPECT_EQ(categoryButtons()[5].caption, u"File Backup "_s);
    EXPECT_EQ(categoryButtons()[4].toolTip, u" Passwords  "_s);
    EXPECT_EQ(categoryButtons()[19].caption, u" Profile   "_s);
}

TEST_F(SectionsTest, switchesOfTheReminders)
{
    EXPECT_EQ(featureTable().size(), 25u);
    EXPECT_TRUE(remindersSwitchedOn());
    state().gFeature = {{u"Appointments"_s, false}, {u"Bills"_s, false}, {u"Events"_s, true}};
    EXPECT_TRUE(remindersSwitchedOn());
    state().gFeature[u"Events"_s] = false;
    EXPECT_FALSE(remindersSwitchedOn());
}

TEST_F(SectionsTest, menuTreeIsWhole)
{
    std::set<QString> names;
    for (const MenuEntry &entry : menuTable()) {
        SCOPED_TRACE(entry.objectName.toStdString());
        EXPECT_TRUE(names.insert(entry.objectName).second);
        EXPECT_FALSE(entry.caption.isEmpty());
        if (!entry.parent.isEmpty()) {
            EXPECT_TRUE(names.contains(entry.parent)) << "its menu comes before it";
            EXPECT_EQ(menuEntry(entry.parent)->call, MenuCall::Menu);
        }
        if (entry.call == MenuCall::Category) {
            EXPECT_NE(sectionByName(entry.argument), nullptr);
        }
        if (entry.call == MenuCall::Print) {
            EXPECT_NE(sectionByCode(entry.argument), nullptr);
        }
    }
    for (const PeriodEntry &period : periodTable()) {
        const MenuEntry *entry = menuEntry(QStringView(period.menu).toString());
        ASSERT_NE(entry, nullptr) << QStringView(period.menu).toString();
        EXPECT_EQ(entry->call, MenuCall::Period);
    }
    for (const Section &section : sectionTable()) {
        for (const QString &name : printMenusOf(section)) {
            ASSERT_NE(menuEntry(name), nullptr) << name;
            if (section.kind == SectionKind::Grid) {
                EXPECT_EQ(menuEntry(name)->argument, section.code);
            }
        }
    }
    for (const FeatureEntry &feature : featureTable()) {
        for (const QString &control : feature.controls) {
            if (control.startsWith(u"mnu"_s)) {
                EXPECT_NE(menuEntry(control), nullptr) << control;
            }
        }
    }
}

TEST_F(SectionsTest, mnemonicsAreUniqueInTheirMenu)
{
    std::map<QString, QString> taken;
    for (const MenuEntry &entry : menuTable()) {
        const qsizetype at = entry.caption.indexOf(u'&');
        if (at < 0)
            continue;
        const QString key = entry.parent + u'&' + entry.caption.at(at + 1).toLower();
        EXPECT_FALSE(taken.contains(key)) << entry.objectName << " and " << taken[key];
        taken[key] = entry.objectName;
    }
}

TEST_F(SectionsTest, toolbarRunsTheMenus)
{
    QStringList keys;
    int last = 0;
    for (const ToolbarButton &button : toolbarTable()) {
        EXPECT_GT(button.index, last);
        last = button.index;
        keys << button.key;
        if (button.index != toolbarPrintIndex) {
            EXPECT_NE(menuEntry(button.menu), nullptr) << button.key;
        }
    }
    EXPECT_EQ(last, 19);
    EXPECT_EQ(keys.size(), 16);
    for (const PeriodEntry &period : periodTable()) {
        const auto found = std::find_if(toolbarTable().begin(), toolbarTable().end(),
                                        [&](const ToolbarButton &b) { return b.key == QStringView(period.toolbarKey); });
        ASSERT_NE(found, toolbarTable().end()) << QStringView(period.toolbarKey).toString();
        EXPECT_EQ(found->menu, QStringView(period.menu).toString());
    }
    for (const QString &code : u"A B E F G P W I J K U V Y C X N H"_s.split(u' '))
        EXPECT_EQ(printCodeFor(code), code);
    for (const QString &code : u"All M MV O Q R L Z T D"_s.split(u' '))
        EXPECT_EQ(printCodeFor(code), QString()) << code;
}

}
