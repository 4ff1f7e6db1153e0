#include "platform/basic/dates.h"
#include "platform/basic/files.h"
#include "platform/desktop/desktop.h"
#include "store/firstrows.h"

#include <QDir>
#include <QFile>

namespace vorel::store {

using namespace Qt::StringLiterals;
using basic::DateTime;
using basic::Value;

namespace {

// The path, as rows keep it, of a picture in the program folder, where the built-in one is copied if needed; Null if no such
// picture exists.
Value picture(const QString &name)
{
    const QString path = basic::realPath(basic::programFolder() + u'/' + name);
    if (QFile::exists(path))
        return basic::keptPath(path);
    const QString builtIn = desktop::findResource(name);
    if (builtIn.isEmpty() || !QFile::copy(builtIn, path))
        return {};
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    return basic::keptPath(path);
}

Value money(double amount)
{
    return basic::Currency::fromDouble(amount);
}

Value number(std::int32_t value)
{
    return value;
}

std::vector<FirstRows> reminders(DateTime today, DateTime yesterday)
{
    const auto day = [](int year, int month, int number) { return DateTime::fromParts(year, month, number); };
    const auto appointment = [](DateTime date, const QString &text) -> std::vector<FirstField> {
        return {{u"DATE", date}, {u"APPTIME", u"09:00 Am"_s}, {u"APPOINTMENT", text}, {u"TimeUpdate", true}};
    };
    const auto bill = [](DateTime date, const QString &text, double amount, const QString &owingTo) -> std::vector<FirstField> {
        return {{u"DATE", date}, {u"BILL", text}, {u"AMOUNT", money(amount)}, {u"OwingTo", owingTo}};
    };
    const auto event = [](DateTime date, const QString &subject, const QString &text) -> std::vector<FirstField> {
        return {{u"DATE", date}, {u"SUBJECT", subject}, {u"EVENT", text}};
    };
    return {
        {DataFile::Main, u"select * from [Appointments];",
         {appointment(today, u"DENTIST - SIX MONTHLY CHECK UP"_s), appointment(today, u"COLLECT THE DRY CLEANING"_s),
          appointment(yesterday, u"RETURN THE LIBRARY BOOKS"_s)}},
        {DataFile::Main, u"select * from [Bills];",
         {bill(today, u"TELEPHONE ACCOUNT"_s, 64.50, u"Northline Telephone"_s),
          bill(yesterday, u"VEHICLE INSURANCE"_s, 412.00, u"Harbour Mutual Insurance"_s)}},
        {DataFile::Main, u"select * from [Subjects];",
         {{{u"SUBJECT", u"ANNIVERSARY"_s}}, {{u"SUBJECT", u"BIRTHDAY"_s}}, {{u"SUBJECT", u"GENERAL"_s}}}},
        {DataFile::Main, u"select * from [Events];",
         {event(day(1969, 7, 20), u"ANNIVERSARY"_s, u"FIRST PEOPLE ON THE MOON"_s),
          event(day(1989, 11, 9), u"ANNIVERSARY"_s, u"THE BERLIN WALL IS OPENED"_s),
          event(day(1867, 3, 14), u"BIRTHDAY"_s, u"AUGUSTA FERNWORTH, BOTANIST"_s),
          event(day(1988, 9, 26), u"BIRTHDAY"_s, u"SAMPLE, ROSEMARY"_s),
          event(yesterday, u"GENERAL"_s, u"TODAY'S DISPLAYED IN YELLOW"_s)}},
    };
}

std::vector<FirstRows> collections()
{
    return {
        {DataFile::HowTo, u"select * from [HowTo];",
         {{{u"SUBJECT", u"COMPUTER"_s}, {u"HOWTO", u"PUT A PICTURE OF THE SCREEN INTO A LETTER"_s},
           {u"SOLUTION", u"Press the Print Screen key: the picture of the whole screen is now on the clipboard.\r\n"
                         "With Alt held down it is that of the window in front alone.\r\n"
                         "Then click into the letter and press Ctrl+V."_s}}}},
        {DataFile::Movies, u"select * from [MOVIES];",
         {{{u"TITLE", u"THE LAST LIGHTHOUSE"_s}, {u"STARS", u"Helena Marsh\r\nThomas Oakley"_s},
           {u"DIRECTOR", u"Ingrid Sommerfeld"_s}, {u"PRODUCER", u"Paul Winterbourne"_s}, {u"CATEGORY", u"DRAMA"_s},
           {u"COMMENTS", u"One winter, one island, and a letter that comes ten years late."_s},
           {u"FILENAME", picture(u"sample-movie.jpg"_s)}}}},
        {DataFile::Books, u"select * from [BOOKS];",
         {{{u"TITLE", u"THE CLOCKMAKER OF LINDEN STREET"_s}, {u"AUTHOR", u"Margaret Ashdown"_s}}}},
        {DataFile::Music, u"select * from [MUSIC];",
         {{{u"TITLE", u"EVENINGS BY THE RIVER"_s}, {u"ARTIST", u"The Willow Quartet"_s}}}},
        {DataFile::Main, u"select * from [INVENTORY];",
         {{{u"Item", u"Vacuum Cleaner"_s}, {u"Make", u"Whisperline"_s}, {u"Model", u"WL 200"_s},
           {u"SerialNum", u"WL2-0047-318"_s}, {u"Location", u"Hall cupboard"_s}, {u"DatePurchased", u"01/01/2005"_s},
           {u"PurchasedFrom", u"Home and Hearth Electrical"_s}, {u"Cost", money(249)}, {u"Category", u"Electrical"_s},
           {u"FILENAME", picture(u"vacuumcleaner.jpg"_s)}}}},
        {DataFile::Main, u"select * from [SHOPPING];",
         {{{u"ITEM", u"COFFEE 150g"_s}, {u"NUMBER", number(1)}, {u"LASTCOST", 4.25}, {u"AMOUNT", 3.90},
           {u"TOTAL", 3.90}, {u"PICK", true}, {u"STORE", u"Corner Grocery"_s}}}},
    };
}

std::vector<FirstRows> recipe()
{
    const auto ingredient = [](const QString &amount, const QString &measure, const QString &name) -> std::vector<FirstField> {
        return {{u"ID", number(1)}, {u"AMOUNT", amount}, {u"MEASURE", measure}, {u"INGREDIENT", name}};
    };
    return {
        {DataFile::Recipe, u"select * from [RECIPE];",
         {{{u"ID", number(1)}, {u"CATEGORY", u"Chicken"_s}, {u"TITLE", u"Chicken Wings"_s}, {u"SOURCE", u"Anonymous"_s},
           {u"FILENAME", picture(u"sample-recipe.jpg"_s)},
           {u"METHOD", u"1. Heat the oven to 200 degrees Celsius.\r\n"
                       "2. Mix the flour, the paprika and the salt in a bag.\r\n"
                       "3. Shake the wings in it until they are covered.\r\n"
                       "4. Lay them on a tray and pour the melted butter over.\r\n"
                       "5. Bake for 40 minutes and turn them once.\r\n"
                       "6. Stir the honey and the lemon juice together and brush it on while they are hot."_s},
           {u"PrepTime", u"15 minutes"_s}, {u"CookTime", u"40 minutes"_s}, {u"Yield", u"4 people"_s}}}},
        {DataFile::Recipe, u"select * from [INGREDIENTS];",
         {ingredient(u"12"_s, {}, u"Chicken wings"_s), ingredient(u"1/4"_s, u"Cup"_s, u"Flour"_s),
          ingredient(u"1"_s, u"Teaspoon"_s, u"Paprika"_s), ingredient(u"1/2"_s, u"Teaspoon"_s, u"Salt"_s),
          ingredient(u"60"_s, u"g"_s, u"Butter, melted"_s), ingredient(u"2"_s, u"Tablespoon"_s, u"Honey"_s),
          ingredient(u"1"_s, u"Tablespoon"_s, u"Lemon juice"_s)}},
    };
}

// What a person does: sport and health, each with its pictures.
std::vector<FirstRows> activities(DateTime today)
{
    const QString name = u"Rosemary Sample"_s;
    const QString day = shortDate(today);
    return {
        {DataFile::Sports, u"select * from [GENERAL];",
         {{{u"ID", number(1)}, {u"USERNAME", name}, {u"CLUB", u"Willow Creek Golf Club"_s}, {u"HANDICAP", u"18"_s},
           {u"DATE", today}, {u"FILENAME", picture(u"sample-golf.jpg"_s)},
           {u"NOTES", u"A lesson on Thursday: the short game."_s}}}},
        {DataFile::Sports, u"select * from [PERSONAL];",
         {{{u"IDNUM", number(1)}, {u"USERNAME", name}, {u"PICFILE1", picture(u"sample-golf.jpg"_s)},
           {u"PICFILE1CAPTION", u"The ninth green at Willow Creek"_s}, {u"PIC1SORTNUM", 1.0}}}},
        {DataFile::HowTo, u"select * from [HEALTH];",
         {{{u"ID", number(1)}, {u"DATE", day}, {u"USERNAME", name}, {u"FILENAME", picture(u"sample-health.jpg"_s)},
           {u"NOTES", u"Half an hour's walk each day, more vegetables, early to bed."_s}}}},
        {DataFile::HowTo, u"select * from [GENERALHEALTH];",
         {{{u"IDNUM", number(1)}, {u"USERNAME", name}, {u"PICFILE1", picture(u"sample-health.jpg"_s)},
           {u"PICFILE1CAPTION", u"Plenty of fruit"_s}, {u"PIC1SORTNUM", 1.0},
           {u"BREAKFASTMONDAY", u"Muesli and fruit"_s}, {u"LUNCHMONDAY", u"Vegetable soup"_s},
           {u"DINNERMONDAY", u"Grilled fish and salad"_s}}}},
        {DataFile::HowTo, u"select * from [HEALTHVISITS];",
         {{{u"ID", number(1)}, {u"PROFESSION", u"Dentist"_s}, {u"PROFESSIONNAME", u"Dr Alma Whitfield"_s},
           {u"LOCATION", u"Market Square"_s}, {u"VISITDATE", day}, {u"REASON", u"Check Up"_s},
           {u"NOTES", u"Next visit in six months."_s}}}},
    };
}

std::vector<FirstRows> peopleAndPlants()
{
    // The contact's pictures are looked for under the number 2, so the contact gets it.
    const Value contact = number(2);
    const QString sortName = u"SAMPLE, Rosemary"_s;
    return {
        {DataFile::Contacts, u"select * from [Contacts];",
         {{{u"ID", contact}, {u"FirstName", u"Rosemary"_s}, {u"LastName", u"SAMPLE"_s}, {u"Fullname", u"Rosemary SAMPLE"_s},
           {u"SORTNAME", sortName}, {u"FileAs", sortName}, {u"Gender", u"Female"_s}, {u"Private", true},
           {u"Category", u"FRIENDS"_s}, {u"HomeAddressStreet", u"7 Linden Street"_s},
           {u"HomeAddressCity", u"Riverside"_s}, {u"HomeAddressPostalCode", u"1234"_s},
           {u"HomeTelephoneNumber", u"555 0142"_s}, {u"MobileTelephoneNumber", u"555 0187"_s},
           {u"Email1Address", u"rosemary@example.com"_s}, {u"NOTES", u"Knows everything about roses."_s},
           {u"FILENAME", picture(u"sample-contact.jpg"_s)}, {u"PrintAddressBook", true}, {u"Active", true}}}},
        {DataFile::Contacts, u"select * from [ContactData] WHERE [ID]=2;",
         {{{u"ID", contact}, {u"USERNAME", sortName}, {u"PICFILE1", picture(u"sample-contact.jpg"_s)},
           {u"PICFILE1CAPTION", u"Rosemary in her garden"_s}, {u"PIC1SORTNUM", 1.0}}}},
        {DataFile::Garden, u"select * from [GARDEN];",
         {{{u"PlantName", u"SUNFLOWER"_s}, {u"BotanicalName", u"Helianthus annuus"_s}, {u"PlantTime", u"Spring"_s},
           {u"Category", u"ANNUALS"_s}, {u"SORTNAME", u"SUNFLOWER"_s}, {u"FILENAME", picture(u"sample-garden.jpg"_s)},
           {u"Notes", u"Full sun and a stake. The birds are fond of the seeds."_s}}}},
        {DataFile::Main, u"select * from [PROFILE];",
         {{{u"ID", number(1)}, {u"Surname", u"SAMPLE"_s}, {u"OtherNames", u"Rosemary"_s},
           {u"Category", u"Gardener"_s}, {u"FILENAME", picture(u"sample-profile.jpg"_s)},
           {u"NOTES", u"Met at the flower show."_s}}}},
        {DataFile::Main, u"select * from [PROFILEDATA];",
         {{{u"ID", number(1)}, {u"USERNAME", u"SAMPLE, Rosemary"_s}, {u"PICFILE1", picture(u"sample-profile.jpg"_s)},
           {u"PICFILE1CAPTION", u"At the flower show"_s}, {u"PIC1SORTNUM", 1.0}}}},
    };
}

}

std::vector<FirstRows> sampleRows(DateTime today)
{
    std::vector<FirstRows> all;
    for (const auto &part : {reminders(today, basic::DateAdd(u"d", -1, today)), collections(), recipe(), activities(today),
                             peopleAndPlants()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

}
