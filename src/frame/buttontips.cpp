#include "frame/buttontips.h"

#include <map>
#include <vector>

using namespace Qt::StringLiterals;

namespace vorel {

ButtonTip sectionTip(int index)
{
    static const std::vector<ButtonTip> tips{
        {u"APPOINTMENTS"_s,
         {u" Record all of your engagements, meetings, or appointments in this section."_s,
          u" You are warned before and after the time of each of them."_s}},
        {u"BILLS"_s,
         {u" Record the bills that you have to pay, and when they fall due."_s,
          u" A bill that comes again and again is entered once."_s}},
        {u"EVENTS"_s,
         {u" Record birthdays, anniversaries, holidays and sports in this section."_s,
          u" What comes back every year is shown on its day of this year."_s}},
        {u"ALL"_s, {u" Your appointments, bills and events on one screen."_s,
                    u" Double click on a title to see that list alone."_s}},
        {u"PASSWORDS"_s,
         {u" Enter all of your Internet passwords in this SECURE section"_s,
          u" They are kept in an encrypted file."_s}},
        {u"FILE BACKUP"_s,
         {u" List the files that matter to you, with the date of their last backup."_s,
          u" A row turns red when a backup is overdue."_s}},
        {u"NOTES"_s, {u" Keep your notes or a diary here, by date and name."_s}},
        {u"HOW TO"_s, {u" Record your secrets to fixing things in this SECURE area"_s}},
        {u"CONTACTS"_s,
         {u" Names, telephone numbers, addresses and email addresses."_s,
          u" The View menu shows them as business, private and emergency numbers and as a Christmas card list."_s}},
        {u"BOOKS"_s, {u" Your library: who wrote each book, whether you have read it, and who has borrowed it."_s}},
        {u"MOVIES"_s, {u" Your movies: the stars, whether you have seen them, and who has borrowed them."_s}},
        {u"MUSIC"_s, {u" Your records and discs, with their artists and tracks."_s}},
        {u"INVENTORY"_s,
         {u" Record what you own, what it cost, where it is and how it is insured."_s,
          u" A picture of each item helps if you ever have to make a claim."_s}},
        {u"MESSAGES"_s, {u" Leave messages for the other users of this program."_s,
                         u" A green panel below tells you when one waits for you."_s}},
        {u"SHOPPING"_s, {u" Tick what you need to buy; the title shows what it will cost."_s}},
        {u"RECIPES"_s, {u" Your recipes by category, with ingredients, method and a picture."_s}},
        {u"GARDENING"_s, {u" Your plants, when to plant them and how they are doing."_s}},
        {u"JOURNAL"_s,
         {u" Record your personal information and thoughts in this SECURE area"_s,
          u" It is kept in an encrypted file."_s}},
        {u"TO DO"_s, {u" List what is to be done, by priority, and tick it off when it is done."_s}},
        {u"PROFILE"_s, {u" Record the story of each member of your family, with pictures."_s}},
        {u"HEALTH"_s, {u" Record doctors visits, weight, food and diet for each person."_s}},
        {u"GOLF"_s, {u" Record your golf scores and follow your handicap."_s}},
        {u"VEHICLE"_s, {u" Record each vehicle, its services and costs, and keep a log of its journeys."_s}},
        {u"INCOME"_s, {u" Record all of your income, and print the reports for your tax return."_s}},
        {u"EXPENSES"_s, {u" Record all of your expenses, and pay the bills that are due."_s}},
    };
    return index >= 0 && static_cast<std::size_t>(index) < tips.size() ? tips[static_cast<std::size_t>(index)] : ButtonTip{};
}

ButtonTip toolTip(const QString &buttonName)
{
    static const std::map<QString, ButtonTip> tips{
        {u"cmdCalculator"_s,
         {u"CALCULATOR"_s,
          {u" Standard calculation with provision for your favourite picture."_s, u" It also converts measures and weights."_s}}},
        {u"cmdCalendar"_s, {u"CALENDAR"_s, {u" See a month at a glance, and print it with pictures of your own."_s}}},
        {u"cmdInvoice"_s, {u"INVOICES"_s, {u" Write an invoice, and follow what your customers owe you."_s}}},
        {u"cmdEmail"_s, {u"EMAIL"_s, {u" Click to launch your email client software."_s}}},
        {u"cmdSticky"_s, {u"STICKY NOTES"_s, {u" Click to put a short note on your desktop."_s}}},
        {u"cmdInfo"_s, {u"INFORMATION"_s, {u" Click to read how the section on the screen is used."_s}}},
        {u"cmdBackground"_s,
         {u"SCREEN BACKGROUND PICTURES"_s,
          {u" Click this button to change the background of this screen"_s, u" The Setup screen takes it away again."_s}}},
        {u"cmdWallpaper"_s, {u"WALLPAPER"_s, {u" Click to change the picture of your desktop from time to time."_s}}},
        {u"cmdPopUpCloser"_s, {u"POP-UP REMINDERS"_s, {u" Click to close the pop-up reminders of your appointments."_s}}},
    };
    const auto found = tips.find(buttonName);
    return found == tips.end() ? ButtonTip{} : found->second;
}

}
