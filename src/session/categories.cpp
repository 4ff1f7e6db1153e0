#include "session/sections.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vorel {

const std::vector<CategoryButton> &categoryButtons()
{
    // The blanks in captions and tool tips belong to them.
    static const std::vector<CategoryButton> buttons{
        {0, u"Appointments"_s, u" Appoint/s"_s, u"Appointments "_s, u"appointment-new"_s, u"Appointments"_s},
        {1, u"Bills"_s, u" Bills "_s, u"Bills"_s, u"wallet-open"_s, u"Bills"_s},
        {2, u"Events"_s, u" Events "_s, u" Events "_s, u"view-calendar-special-occasion"_s, u"Events"_s},
        {3, u"All"_s, u" All "_s, u" Display Appointments, Bills and Events "_s, u"view-calendar-list"_s, {}},
        {4, u"Passwords"_s, u"Passwords "_s, u" Passwords  "_s, u"dialog-password"_s, u"Passwords"_s},
        {5, u"File Backup"_s, u"File Backup "_s, u" File Backup Reminders "_s, u"document-save-all"_s, u"Backup"_s},
        {6, u"Notes"_s, u" Notes  "_s, u" Notes or Diary "_s, u"view-pim-notes"_s, u"Notes"_s},
        {7, u"HOW TO"_s, u" How To "_s, u" How To "_s, u"help-hint"_s, u"HowTo"_s},
        {8, u"Contacts"_s, u"Contacts"_s, u" Contacts including Telephone Numbers and Email Addresses "_s,
         u"view-pim-contacts"_s, u"Contacts"_s},
        {9, u"Books"_s, u" Books "_s, u" Book Library "_s, u"folder-book"_s, u"Books"_s},
        {10, u"Movies"_s, u" Movies "_s, u" Movie Library "_s, u"video-x-generic"_s, u"Movies"_s},
        {11, u"Music"_s, u" Music "_s, u" Music Library "_s, u"audio-x-generic"_s, u"Music"_s},
        {12, u"Inventory"_s, u"Inventory "_s, u" Asset Inventory "_s, u"box"_s, u"Inventory"_s},
        {13, u"Messages"_s, u"Messages "_s, u" Messages "_s, u"mail-message"_s, u"Messages"_s},
        {14, u"Shopping"_s, u" Shopping  "_s, u" Shopping List "_s, u"view-list-text"_s, u"Shopping"_s},
        {15, u"RECIPES"_s, u" Recipes "_s, u" Recipes "_s, u"food"_s, u"Recipes"_s},
        {16, u"Gardening"_s, u" Gardening "_s, u" Gardening "_s, u"flower-shape"_s, u"Garden"_s},
        {17, u"Journal"_s, u" Journal  "_s, u" Journal "_s, u"view-pim-journal"_s, u"Journal"_s},
        {18, u"To Do"_s, u" To Do  "_s, u" To Do  "_s, u"view-task"_s, u"ToDo"_s},
        {19, u"Profile"_s, u" Profile   "_s, u" Profile "_s, u"user-identity"_s, u"Profile"_s},
        {20, u"Health"_s, u"Health"_s, u" Health - doctors visits, weight food and diet records "_s,
         u"emblem-favorite"_s, u"Health"_s},
        {21, u"Golf"_s, u" Golf "_s, u" Golf Scores "_s, u"games-achievements"_s, u"Golf"_s},
        {22, u"Vehicle"_s, u" Vehicle "_s, u" Motor Vehicle "_s, u"car"_s, u"Vehicle"_s},
        {23, u"Income"_s, u" Income  "_s, u" Record all of your Income "_s, u"taxes-finances"_s, u"Accounts"_s},
        {24, u"Expenses"_s, u" Expenses "_s, u" Record all of your expenses "_s, u"view-bank"_s, u"Accounts"_s},
    };
    return buttons;
}

const std::vector<FeatureEntry> &featureTable()
{
    static const std::vector<FeatureEntry> table{
        {u"Appointments"_s, 0, {u"mnuPrintAppointments"_s, u"mnuDisplayA"_s}},
        {u"Bills"_s, 1, {u"mnuPrintBills"_s, u"mnuDisplayB"_s}},
        {u"Events"_s, 2, {u"mnuPrintEvents"_s, u"mnuDisplayE"_s}},
        {u"Passwords"_s, 4, {u"mnuPrintPasswords"_s}},
        {u"Backup"_s, 5, {u"mnuPrintFiles"_s}},
        {u"Notes"_s, 6, {u"mnuPrintNotes"_s, u"mnuViewNotes"_s}},
        {u"HowTo"_s, 7, {u"mnuPrintHowTo"_s, u"mnuViewHowTo"_s}},
        {u"Contacts"_s, 8,
         {u"mnuPrintPhone"_s, u"mnuPrintXmasList"_s, u"mnuPrintEmergencyPhoneList"_s, u"mnuPrintLabels"_s,
          u"mnuInfoCard"_s, u"mnuXmasList"_s, u"mnuEmergencyPhone"_s, u"mnuCatNumbers"_s, u"mnuViewPrivateNums"_s}},
        {u"Books"_s, 9, {u"mnuPrintBooks"_s}},
        {u"Movies"_s, 10, {u"mnuPrintMovies"_s}},
        {u"Music"_s, 11, {u"mnuPrintMusic"_s}},
        {u"Inventory"_s, 12, {u"mnuPrintInventory"_s}},
        {u"Messages"_s, 13, {u"mnuMessages"_s}},
        {u"Shopping"_s, 14, {u"mnuPrintShoppingList"_s}},
        {u"Recipes"_s, 15, {u"mnuViewRecipes"_s}},
        {u"Garden"_s, 16, {}},
        {u"Journal"_s, 17, {u"mnuPrintJournal"_s}},
        {u"ToDo"_s, 18, {u"mnuPrintToDo"_s}},
        {u"Profile"_s, 19, {}},
        {u"Health"_s, 20, {}},
        {u"Golf"_s, 21, {}},
        {u"Vehicle"_s, 22, {}},
        // Income and Expenses go together.
        {u"Accounts"_s, 23, {u"cmdCat(24)"_s, u"cmdInvoice"_s, u"mnuInvoice"_s}},
        {u"Calendar"_s, -1, {u"cmdCalendar"_s, u"mnuCalendar"_s}},
        {u"Email"_s, -1, {}},
    };
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

}
