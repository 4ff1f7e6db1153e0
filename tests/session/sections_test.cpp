#include "frame/framefixture.h"
#include "frame/menus.h"
#include "frame/periods.h"
#include "session/sections.h"
#include "session/datafiles.h"
#include "store/mainfile.h"
#include "session/datafiles.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace vorel {

using SectionsTest = test::FrameTest;

TEST_F(SectionsTest, everyQueryRunsInItsFile)
{
    test::putEmptyFiles(folder.path());
    for (const DataFileEntry &entry : dataFiles())
        state().path(entry.file) = folder.path(entry.defaultName.mid(1));
    for (const Section &section : sectionTable()) {
        SCOPED_TRACE(section.name.toStdString());
        EXPECT_EQ(sectionByName(section.name.toUpper()), &section);
        if (section.kind != SectionKind::Grid)
            continue;
        EXPECT_EQ(sectionByCode(section.code), &section);
        const dao::Recordset rows = openDataFile(section.file).OpenRecordset(section.query, dao::dbOpenSnapshot);
        EXPECT_EQ(rows.Fields().size(), section.columns.size());
    }
    EXPECT_EQ(sectionByName(u"Nothing"_s), nullptr);
    EXPECT_EQ(sectionByCode({}), nullptr);
}

TEST_F(SectionsTest, sectionsThatAreActions)
{
    for (const auto &[name, code] : {std::pair{u"Calculator"_s, QString()}, {u"Calendar"_s, QString()},
                                     {u"Expenses"_s, u"EX"_s}, {u"Income"_s, u"IN"_s}, {u"Help"_s, QString()}}) {
        const Section *section = sectionByName(name);
        ASSERT_NE(section, nullptr) << name;
        EXPECT_EQ(section->kind, SectionKind::Action);
        EXPECT_EQ(section->code, code);
    }
}

TEST_F(SectionsTest, columnsMatchTheirQueries)
{
    for (const Section &section : sectionTable()) {
        if (section.kind != SectionKind::Grid)
            continue;
        SCOPED_TRACE(section.name.toStdString());
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
        state().selection.gSection = code;
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
