#include "frame/menus.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vorel {

namespace {

MenuEntry menu(const QString &name, const QString &caption, const QString &parent = {})
{
    return {name, caption, parent, MenuCall::Menu, {}};
}

// An entry of the main screen's own, or of a room above it: its key is its name.
MenuEntry action(const QString &name, const QString &caption, const QString &parent = {})
{
    return {name, caption, parent, MenuCall::Action, name};
}

MenuEntry category(const QString &name, const QString &caption, const QString &parent, const QString &section)
{
    return {name, caption, parent, MenuCall::Category, section};
}

MenuEntry period(const QString &name, const QString &caption, const QString &parent)
{
    return {name, caption, parent, MenuCall::Period, name};
}

MenuEntry print(const QString &name, const QString &caption, const QString &code)
{
    return {name, caption, u"mnuPrint"_s, MenuCall::Print, code};
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
        print(u"mnuPrintAppointments"_s, u"&Appointments"_s, u"A"_s),
        print(u"mnuPrintBills"_s, u"&Bills"_s, u"B"_s),
        print(u"mnuPrintEvents"_s, u"&Events"_s, u"E"_s),
        print(u"mnuPrintFiles"_s, u"&File Backup"_s, u"F"_s),
        print(u"mnuPrintToDo"_s, u"To &Do List"_s, u"G"_s),
        print(u"mnuPrintPhone"_s, u"&Telephone Numbers"_s, u"P"_s),
        print(u"mnuPrintPasswords"_s, u"Pass&words"_s, u"W"_s),
        print(u"mnuPrintInventory"_s, u"&Inventory"_s, u"I"_s),
        print(u"mnuPrintJournal"_s, u"&Journal"_s, u"J"_s),
        print(u"mnuPrintBooks"_s, u"Boo&ks"_s, u"K"_s),
        print(u"mnuPrintMusic"_s, u"M&usic"_s, u"U"_s),
        print(u"mnuPrintMovies"_s, u"Mo&vies"_s, u"V"_s),
        print(u"mnuPrintHowTo"_s, u"How T&o"_s, u"Y"_s),
        print(u"mnuPrintXmasList"_s, u"&Christmas Card List"_s, u"C"_s),
        print(u"mnuPrintEmergencyPhoneList"_s, u"Eme&rgency Phone Numbers"_s, u"X"_s),
        print(u"mnuPrintNotes"_s, u"&Notes"_s, u"N"_s),
        print(u"mnuPrintShoppingList"_s, u"&Shopping List"_s, u"H"_s),
        action(u"mnuPrintLabels"_s, u"&Labels"_s, u"mnuPrint"_s),
        action(u"mnuSetup"_s, u"&Setup"_s),
    });
}

void addDisplayAndView(std::vector<MenuEntry> &table)
{
    table.insert(table.end(), {
        menu(u"mnuDisplay"_s, u"&Display"_s),
        category(u"mnuDisplayA"_s, u"&Appointments"_s, u"mnuDisplay"_s, u"Appointments"_s),
        category(u"mnuDisplayAB"_s, u"Appointments and B&ills"_s, u"mnuDisplay"_s, u"AB"_s),
        category(u"mnuDisplayAE"_s, u"Appointments and E&vents"_s, u"mnuDisplay"_s, u"AE"_s),
        category(u"mnuDisplayB"_s, u"&Bills"_s, u"mnuDisplay"_s, u"Bills"_s),
        category(u"mnuDisplayBE"_s, u"Bi&lls and Events"_s, u"mnuDisplay"_s, u"BE"_s),
        category(u"mnuDisplayE"_s, u"&Events"_s, u"mnuDisplay"_s, u"Events"_s),
        menu(u"mnuView"_s, u"&View"_s),
        category(u"mnuCatNumbers"_s, u"&Business Phone Numbers"_s, u"mnuView"_s, u"Business"_s),
        category(u"mnuXmasList"_s, u"&Christmas Card List"_s, u"mnuView"_s, u"Christmas Cards"_s),
        category(u"mnuEmergencyPhone"_s, u"&Emergency Phone Numbers"_s, u"mnuView"_s, u"Emergency"_s),
        category(u"mnuViewPrivateNums"_s, u"&Private Phone Numbers"_s, u"mnuView"_s, u"Private"_s),
        category(u"mnuViewHowTo"_s, u"&How To"_s, u"mnuView"_s, u"HOW TO"_s),
        category(u"mnuViewNotes"_s, u"&Notes"_s, u"mnuView"_s, u"Notes"_s),
        category(u"mnuViewRecipes"_s, u"&Recipes"_s, u"mnuView"_s, u"RECIPES"_s),
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
        category(u"mnuCalculator"_s, u"Ca&lculator"_s, u"mnuTools"_s, u"Calculator"_s),
        category(u"mnuCalendar"_s, u"&Calendar"_s, u"mnuTools"_s, u"Calendar"_s),
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
    for (const MenuEntry &entry : menuTable()) {
        if (entry.call == MenuCall::Print && entry.argument == sectionCode)
            return entry.argument;
    }
    return {};
}

}
