#include "frame/menus.h"

#include "session/sectiondesign.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vorel {

namespace {

MenuEntry menu(const QString &name, const QString &caption, const QString &parent = {})
{
    return {name, caption, parent, MenuCall::Menu, {}};
}

// An entry of the main screen's own, or of a folder above it: its key is its name.
MenuEntry action(const QString &name, const QString &caption, const QString &parent = {})
{
    return {name, caption, parent, MenuCall::Action, name};
}

MenuEntry category(const QString &name, const QString &caption, const QString &parent, SectionId section)
{
    return {name, caption, parent, MenuCall::Category, sectionDesign(section).name};
}

MenuEntry period(const QString &name, const QString &caption, const QString &parent)
{
    return {name, caption, parent, MenuCall::Period, name};
}

MenuEntry print(SectionId id)
{
    const SectionDesign &section = sectionDesign(id);
    return {section.print->menu, section.print->caption, u"mnuPrint"_s, MenuCall::Print, section.code};
}

void addFileAndPrint(std::vector<MenuEntry> &table)
{
    table.insert(table.end(), {
        menu(u"mnuFile"_s, u"&File"_s),
        action(u"mnuAbout"_s, u"&About"_s, u"mnuFile"_s),
        action(u"mnuImport"_s, u"&Export/Import"_s, u"mnuFile"_s),
        action(u"mnuExit"_s, u"E&xit"_s, u"mnuFile"_s),
        menu(u"mnuMessages"_s, u"Messa&ges"_s),
        action(u"mnuMessagesSent"_s, u"&Sent"_s, u"mnuMessages"_s),
        action(u"mnuMessagesReceived"_s, u"&Received"_s, u"mnuMessages"_s),
        action(u"mnuMessagesBoth"_s, u"&Both"_s, u"mnuMessages"_s),
        menu(u"mnuPrint"_s, u"&Print"_s),
        action(u"mnuFridgeCopy"_s, u"Desk/Fridge Copy"_s, u"mnuPrint"_s),
        print(SectionId::Appointments),
        print(SectionId::Bills),
        print(SectionId::Events),
        print(SectionId::FileBackup),
        print(SectionId::ToDo),
        print(SectionId::Contacts),
        print(SectionId::Passwords),
        print(SectionId::Inventory),
        print(SectionId::Journal),
        print(SectionId::Books),
        print(SectionId::Music),
        print(SectionId::Movies),
        print(SectionId::HowTo),
        print(SectionId::ChristmasCards),
        print(SectionId::EmergencyNumbers),
        print(SectionId::Notes),
        print(SectionId::Shopping),
        action(u"mnuPrintLabels"_s, u"&Labels"_s, u"mnuPrint"_s),
        action(u"mnuPrintEnvelopes"_s, u"Envelo&pes"_s, u"mnuPrint"_s),
        action(u"mnuPrintAddressBook"_s, u"Address Book Pa&ges"_s, u"mnuPrint"_s),
        action(u"mnuSetup"_s, u"&Setup"_s),
    });
}

void addDisplayAndView(std::vector<MenuEntry> &table)
{
    table.insert(table.end(), {
        menu(u"mnuDisplay"_s, u"&Display"_s),
        category(u"mnuDisplayA"_s, u"&Appointments"_s, u"mnuDisplay"_s, SectionId::Appointments),
        category(u"mnuDisplayAB"_s, u"Appointments and B&ills"_s, u"mnuDisplay"_s, SectionId::AppointmentsAndBills),
        category(u"mnuDisplayAE"_s, u"Appointments and E&vents"_s, u"mnuDisplay"_s, SectionId::AppointmentsAndEvents),
        category(u"mnuDisplayB"_s, u"&Bills"_s, u"mnuDisplay"_s, SectionId::Bills),
        category(u"mnuDisplayBE"_s, u"Bi&lls and Events"_s, u"mnuDisplay"_s, SectionId::BillsAndEvents),
        category(u"mnuDisplayE"_s, u"&Events"_s, u"mnuDisplay"_s, SectionId::Events),
        menu(u"mnuView"_s, u"&View"_s),
        category(u"mnuCatNumbers"_s, u"&Business Phone Numbers"_s, u"mnuView"_s, SectionId::BusinessNumbers),
        category(u"mnuXmasList"_s, u"&Christmas Card List"_s, u"mnuView"_s, SectionId::ChristmasCards),
        category(u"mnuEmergencyPhone"_s, u"&Emergency Phone Numbers"_s, u"mnuView"_s, SectionId::EmergencyNumbers),
        category(u"mnuViewPrivateNums"_s, u"&Private Phone Numbers"_s, u"mnuView"_s, SectionId::PrivateNumbers),
        category(u"mnuViewHowTo"_s, u"&How To"_s, u"mnuView"_s, SectionId::HowTo),
        category(u"mnuViewNotes"_s, u"&Notes"_s, u"mnuView"_s, SectionId::Notes),
        category(u"mnuViewRecipes"_s, u"&Recipes"_s, u"mnuView"_s, SectionId::Recipes),
        menu(u"mnuDisplayPeriod"_s, u"&Display Period"_s, u"mnuView"_s),
        period(u"mnuAll"_s, u"&All Records"_s, u"mnuDisplayPeriod"_s),
        menu(u"mnuDay"_s, u"&Day"_s, u"mnuDisplayPeriod"_s),
        period(u"mnuToday"_s, u"Today"_s, u"mnuDay"_s),
        period(u"mnuTomorrow"_s, u"Tomorrow"_s, u"mnuDay"_s),
        period(u"mnuYesterday"_s, u"Yesterday"_s, u"mnuDay"_s),
        menu(u"mnuWeek"_s, u"&Week"_s, u"mnuDisplayPeriod"_s),
        period(u"mnuThisWeek"_s, u"This Week"_s, u"mnuWeek"_s),
        period(u"mnuNextweek"_s, u"Next Week"_s, u"mnuWeek"_s),
        period(u"mnuLastWeek"_s, u"Last Week"_s, u"mnuWeek"_s),
        menu(u"mnuMonth"_s, u"&Month"_s, u"mnuDisplayPeriod"_s),
        period(u"mnuThisMonth"_s, u"This Month"_s, u"mnuMonth"_s),
        period(u"mnuNextMonth"_s, u"Next Month"_s, u"mnuMonth"_s),
        period(u"mnuLastMonth"_s, u"Last Month"_s, u"mnuMonth"_s),
        menu(u"mnuYear"_s, u"&Year"_s, u"mnuDisplayPeriod"_s),
        period(u"mnuThisYear"_s, u"This Year"_s, u"mnuYear"_s),
        period(u"mnuNextYear"_s, u"Next Year"_s, u"mnuYear"_s),
        period(u"mnuLastYear"_s, u"Last Year"_s, u"mnuYear"_s),
    });
}

void addTools(std::vector<MenuEntry> &table)
{
    table.insert(table.end(), {
        menu(u"mnuTools"_s, u"&Tools"_s),
        action(u"mnuTasksToOutlook"_s, u"&Tasks to Outlook"_s, u"mnuTools"_s),
        action(u"mnuInfoCard"_s, u"&Information Card"_s, u"mnuTools"_s),
        category(u"mnuCalculator"_s, u"Ca&lculator"_s, u"mnuTools"_s, SectionId::Calculator),
        category(u"mnuCalendar"_s, u"&Calendar"_s, u"mnuTools"_s, SectionId::Calendar),
        action(u"mnuInvoice"_s, u"I&nvoice"_s, u"mnuTools"_s),
        action(u"mnuMaintenance"_s, u"&Maintenance"_s, u"mnuTools"_s),
        action(u"mnuStickyNote"_s, u"&Sticky Note"_s, u"mnuTools"_s),
        action(u"mnuWordPad"_s, u"&Word Processor"_s, u"mnuTools"_s),
        action(u"mnuAdmin"_s, u"&Administration"_s),
        action(u"mnuHelp"_s, u"&Help"_s),
        action(u"mnuQuit"_s, u"&Quit"_s),
    });
}

}

const std::vector<MenuEntry> &menuTable()
{
    static const std::vector<MenuEntry> table = [] {
        std::vector<MenuEntry> t;
        addFileAndPrint(t);
        addDisplayAndView(t);
        addTools(t);
        return t;
    }();
    return table;
}

const MenuEntry *menuEntry(const QString &objectName)
{
    const auto &table = menuTable();
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const MenuEntry &entry) { return entry.objectName == objectName; });
    return found == table.end() ? nullptr : &*found;
}

const std::vector<ToolbarButton> &toolbarTable()
{
    static const std::vector<ToolbarButton> table{
        {1, u"CALCULATOR"_s, u"Calculator"_s, u"accessories-calculator"_s, u"mnuCalculator"_s},
        {2, u"CALENDAR"_s, u"Calendar"_s, u"view-calendar-month"_s, u"mnuCalendar"_s},
        {4, u"TODAY"_s, u"Today"_s, u"go-jump-today"_s, u"mnuToday"_s},
        {5, u"TOMORROW"_s, u"Tomorrow"_s, u"go-next"_s, u"mnuTomorrow"_s},
        {6, u"YESTERDAY"_s, u"Yesterday"_s, u"go-previous"_s, u"mnuYesterday"_s},
        {7, u"THIS WEEK"_s, u"This Week"_s, u"view-calendar-week"_s, u"mnuThisWeek"_s},
        {8, u"NEXT WEEK"_s, u"Next Week"_s, u"go-next-view"_s, u"mnuNextweek"_s},
        {9, u"LAST WEEK"_s, u"Last Week"_s, u"go-previous-view"_s, u"mnuLastWeek"_s},
        {10, u"THIS MONTH"_s, u"This Month"_s, u"view-calendar"_s, u"mnuThisMonth"_s},
        {11, u"NEXT MONTH"_s, u"Next Month"_s, u"go-next-view-page"_s, u"mnuNextMonth"_s},
        {12, u"LAST MONTH"_s, u"Last Month"_s, u"go-previous-view-page"_s, u"mnuLastMonth"_s},
        {13, u"THIS YEAR"_s, u"This Year"_s, u"view-calendar-timeline"_s, u"mnuThisYear"_s},
        {14, u"NEXT YEAR"_s, u"Next Year"_s, u"go-last"_s, u"mnuNextYear"_s},
        {15, u"LAST YEAR"_s, u"Last Year"_s, u"go-first"_s, u"mnuLastYear"_s},
        {17, u"ALL RECORDS"_s, u"All Records"_s, u"view-list-details"_s, u"mnuAll"_s},
        {toolbarPrintIndex, u"PRINT CURRENT CATEGORY"_s, u"Print Current Category"_s, u"document-print"_s, {}},
    };
    return table;
}

QString printCodeFor(const QString &sectionCode)
{
    const SectionDesign *section = sectionByCode(sectionCode);
    return section && section->print ? sectionCode : QString();
}

}
