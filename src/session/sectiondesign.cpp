#include "session/recorddesign.h"
#include "session/sections/parts.h"
#include "session/shared.h"

#include <algorithm>

namespace vorel {

namespace {

// Widths are numbered from the first column that keeps one.
SectionDesign numbered(SectionDesign design)
{
    int number = 0;
    if (design.list)
        for (SectionColumn &column : design.list->columns)
            if (column.isNumbered)
                column.widthColumn = ++number;
    if (design.print && keepsGraveAccents(design)) {
        for (ListColumn &column : design.print->report.columns)
            column.cell = [stored = column.cell](const dao::Recordset &rows) { return shownApostrophes(stored(rows)); };
    }
    return design;
}

template <class Test> const SectionDesign *find(Test test)
{
    const auto &all = sectionDesigns();
    const auto found = std::find_if(all.begin(), all.end(), test);
    return found == all.end() ? nullptr : &*found;
}

}

const std::vector<SectionDesign> &sectionDesigns()
{
    static const std::vector<SectionDesign> designs = [] {
        using namespace sections;
        SectionDesign (*const all[])() = {
            appointments, bills, events, allReminders, appointmentsAndBills, appointmentsAndEvents, billsAndEvents,
            shopping, contacts, toDo, books, movies, music, inventory, profile, messages, passwords, journal, fileBackup, notes,
            howTo, gardening, recipes, health, golf, vehicle, businessNumbers, emergencyNumbers, christmasCards, privateNumbers,
            income, expenses, calculator, calendar, help};
        std::vector<SectionDesign> built;
        for (const auto design : all)
            built.push_back(numbered(design()));
        return built;
    }();
    return designs;
}

const SectionDesign &sectionDesign(SectionId id)
{
    return sectionDesigns()[static_cast<std::size_t>(id)];
}

const SectionDesign *sectionByName(const QString &name)
{
    return find([&](const SectionDesign &design) { return design.name.compare(name, Qt::CaseInsensitive) == 0; });
}

const SectionDesign *sectionByCode(QStringView code)
{
    return code.isEmpty() ? nullptr : find([&](const SectionDesign &design) { return design.code == code; });
}

QString chooserOf(const SectionDesign &section, PathKind kind)
{
    if (section.pictures) {
        for (const ChooserDesign &chooser : section.pictures->choosers) {
            if (chooser.kind == kind)
                return chooser.caption;
        }
    }
    return {};
}

const SectionDesign *shownSection()
{
    return sectionByCode(state().selection.gSection);
}

bool keepsGraveAccents(const SectionDesign &section)
{
    if (section.kind == SectionKind::Reminder)
        return true;
    if (!section.screen || !section.screen->record)
        return false;
    const auto &fields = section.screen->record().fields;
    return std::any_of(fields.begin(), fields.end(), [](const auto &field) { return bool(field.rules & controls::FieldRule::Grave); });
}

bool isShown(SectionId id)
{
    const SectionDesign *shown = shownSection();
    return shown && shown->id == id;
}

}
