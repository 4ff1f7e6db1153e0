#include "session/sections.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vorel {

const std::vector<const SectionDesign *> &categoryButtons()
{
    static const std::vector<const SectionDesign *> buttons = [] {
        std::vector<const SectionDesign *> sorted;
        for (const SectionDesign &design : sectionDesigns())
            if (design.button)
                sorted.push_back(&design);
        std::sort(sorted.begin(), sorted.end(), [](auto *a, auto *b) { return a->button->index < b->button->index; });
        return sorted;
    }();
    return buttons;
}

QStringList printMenusOf(const SectionDesign &section)
{
    if (section.print)
        return {section.print->menu};
    QStringList menus;
    const SectionId ofGrids[] = {SectionId::Appointments, SectionId::Bills, SectionId::Events};
    for (std::size_t grid = 0; grid < std::size(ofGrids); ++grid)
        if (section.grids[grid])
            menus << sectionDesign(ofGrids[grid]).print->menu;
    return menus;
}

// Sections that share a switch make one entry, under the first of their buttons.
const std::vector<FeatureEntry> &featureTable()
{
    static const std::vector<FeatureEntry> table = [] {
        std::vector<FeatureEntry> entries;
        for (const SectionDesign &design : sectionDesigns()) {
            if (!design.feature)
                continue;
            const int index = design.button ? design.button->index : -1;
            const auto shared = std::find_if(entries.begin(), entries.end(),
                                             [&](const FeatureEntry &entry) { return entry.key == design.feature->key; });
            if (shared == entries.end())
                entries.push_back({design.feature->key, index, design.feature->controls});
            else
                shared->controls << u"cmdCat(%1)"_s.arg(index) << design.feature->controls;
        }
        entries.push_back({u"Email"_s, -1, {}});
        return entries;
    }();
    return table;
}

bool remindersSwitchedOn()
{
    const auto &feature = state().settings.gFeature;
    // Before the switches are read everything is on.
    const auto on = [&](const QString &key) {
        const auto found = feature.find(key);
        return found == feature.end() || found->second;
    };
    return on(u"Appointments"_s) || on(u"Bills"_s) || on(u"Events"_s);
}

QStringList reminderControls()
{
    return {u"cmdCat(3)"_s, u"mnuDisplayPeriod"_s, u"mnuDisplay"_s, u"panPeriod"_s};
}

QString SectionName()
{
    // Only these give their name back; the other codes return as they are, which DisplayCategory does not know, so the
    // screen stays as it is.
    static const QStringList named{u"A"_s, u"B"_s, u"E"_s, u"F"_s, u"G"_s, u"H"_s, u"I"_s, u"M"_s, u"N"_s, u"P"_s, u"Y"_s};
    const QString &code = state().selection.gSection;
    const SectionDesign *section = named.contains(code) ? sectionByCode(code) : nullptr;
    return section ? section->name : code;
}

}
