#include "frame/framefixture.h"
#include "frame/menus.h"
#include "frame/periods.h"
#include "session/sections.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace vorel {

using SectionsTest = test::FrameTest;

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

TEST_F(SectionsTest, everyButtonHasItsPlaceAndFollowsItsSwitch)
{
    ASSERT_EQ(categoryButtons().size(), 25u);
    std::set<std::pair<RailGroup, int>> places;
    int index = 0;
    for (const SectionDesign *section : categoryButtons()) {
        SCOPED_TRACE(section->name.toStdString());
        EXPECT_EQ(section->button->index, index++);
        EXPECT_TRUE(places.emplace(section->button->group, section->button->place).second);
        EXPECT_FALSE(section->button->tip.heading.isEmpty() || section->button->tip.lines.isEmpty());
        if (section->id == SectionId::AllReminders)
            continue;
        const QString control = u"cmdCat(%1)"_s.arg(section->button->index);
        EXPECT_TRUE(std::any_of(featureTable().begin(), featureTable().end(), [&](const FeatureEntry &entry) {
            return entry.category == section->button->index || entry.controls.contains(control);
        }));
    }
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
    for (const SectionDesign &section : sectionDesigns()) {
        for (const QString &name : printMenusOf(section)) {
            ASSERT_NE(menuEntry(name), nullptr) << name;
            if (section.print) {
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
}

}
