#include "print/lists.h"

#include "platform/basic/clock.h"
#include "platform/basic/dates.h"
#include "platform/basic/format.h"
#include "platform/basic/prompts.h"
#include "print/listreport.h"
#include "print/player.h"
#include "session/datafiles.h"

#include <map>

namespace vorel {

using basic::Value;
using namespace Qt::StringLiterals;

namespace {

using Cell = ListColumn::Cell;

// A column whose heading is its field's name, or not.
ListColumn column(const QString &heading, double percent, int cut = 0)
{
    return {.heading = heading, .cell = fieldText(heading), .percent = percent, .cut = cut};
}
ListColumn column(const QString &heading, const QString &field, double percent, int cut = 0)
{
    return {.heading = heading, .cell = fieldText(field), .percent = percent, .cut = cut};
}
ListColumn wrapped(const QString &heading, const QString &field, double percent, int characters)
{
    return {.heading = heading, .cell = fieldText(field), .percent = percent, .wrap = characters};
}
ListColumn rightAligned(const QString &heading, Cell cell, double percent)
{
    return {.heading = heading, .cell = std::move(cell), .percent = percent, .alignment = u"R"_s};
}

QString nameOf(const dao::Recordset &rows)
{
    const QString last = rows.Get(u"LASTNAME").text(), first = rows.Get(u"FIRSTNAME").text();
    if (last.trimmed().isEmpty() && first.trimmed().isEmpty())
        return rows.Get(u"SORTNAME").text();        // a business
    return last + u", "_s + first;
}

QString surnameOrBusiness(const dao::Recordset &rows)
{
    const QString last = rows.Get(u"LASTNAME").text();
    return last.trimmed().isEmpty() ? rows.Get(u"SORTNAME").text() : last;
}

QString addressOf(const dao::Recordset &rows)
{
    for (const QString &kind : {u"MAILING"_s, u"HOME"_s}) {
        QStringList parts;
        for (const QString &part : {u"STREET"_s, u"CITY"_s, u"STATE"_s, u"POSTALCODE"_s, u"COUNTRY"_s}) {
            const QString text = rows.Get(kind + u"ADDRESS"_s + part).text().trimmed();
            if (!text.isEmpty())
                parts << text;
        }
        if (!parts.isEmpty())
            return parts.join(u' ');
    }
    return {};
}

QString firstNumber(const dao::Recordset &rows)
{
    for (const QString &kind : {u"HOME"_s, u"BUSINESS"_s, u"MOBILE"_s}) {
        const QString number = rows.Get(kind + u"TELEPHONENUMBER"_s).text();
        if (!number.trimmed().isEmpty())
            return number;
    }
    return {};
}

QString daysSinceBackup(const dao::Recordset &rows)
{
    const Value last = rows.Get(u"LASTBACKUPDATE");
    return last.isDate() ? QString::number(basic::DateDiff(u"d", last.get<basic::DateTime>(), basic::Date())) : QString();
}

QString truth(bool value)
{
    return Value(value).text();
}

using ReportTable = std::map<QString, ListReport>;

void addContacts(ReportTable &table)
{
    table[u"P"_s] = {.titleWord = u"TELEPHONE NUMBERS as at "_s, .file = DataFile::Contacts,
        .query = u"Select * from [Contacts] WHERE [PRINT]="_s + truth(true) + u" order by [Lastname]"_s, .rowLimit = 54,
        .columns = {{.heading = u"SURNAME/BUSINESS NAME"_s, .cell = surnameOrBusiness, .percent = 1, .cut = 36},
                    column(u"HOME"_s, u"HOMETELEPHONENUMBER"_s, 32), column(u"WORK"_s, u"BUSINESSTELEPHONENUMBER"_s, 49),
                    column(u"FAX"_s, u"HOMEFAXNUMBER"_s, 66), column(u"MOBILE/CELL"_s, u"MOBILETELEPHONENUMBER"_s, 83)}};
    table[u"C"_s] = {.titleWord = u"CHRISTMAS CARD LIST as at "_s, .file = DataFile::Contacts,
        .query = u"SELECT * FROM [CONTACTS] WHERE [ChristmasCard]="_s + truth(true) + u" ORDER BY [LASTNAME];"_s, .orientation = 2,
        .columns = {{.heading = u"NAME"_s, .cell = nameOf, .percent = 1}, {.heading = u"ADDRESS"_s, .cell = addressOf, .percent = 50}}};
    table[u"X"_s] = {.titleWord = u"EMERGENCY PHONE NUMBERS as at "_s, .file = DataFile::Contacts,
        .query = u"SELECT * FROM [CONTACTS] WHERE [Emergency]="_s + truth(true) + u" ORDER BY [LASTNAME];"_s, .rowLimit = 47,
        .columns = {{.heading = u"NAME"_s, .cell = nameOf, .percent = 1}, {.heading = u"NUMBER"_s, .cell = firstNumber, .percent = 75}}};
}

void addLibraries(ReportTable &table)
{
    table[u"K"_s] = {.titleWord = u"BOOKS as at "_s, .file = DataFile::Books, .query = u"Select * from [BOOKS] order by [TITLE]"_s,
        .orientation = 2, .heightTest = false,
        .columns = {column(u"TITLE"_s, 1, 36), column(u"DATE READ"_s, u"READ"_s, 40), column(u"AUTHOR"_s, 50, 30),
                    column(u"PUBLISHER"_s, 75, 30), column(u"RATING"_s, 90, 30)}};
    table[u"V"_s] = {.titleWord = u"MOVIES as at "_s, .file = DataFile::Movies, .query = u"Select * from [MOVIES] order by [TITLE]"_s,
        .orientation = 2, .rowLimit = 20,
        .columns = {column(u"TITLE"_s, 1, 36), wrapped(u"STARS"_s, u"STARS"_s, 30, 36), wrapped(u"PRODUCER"_s, u"PRODUCER"_s, 50, 36),
                    wrapped(u"DIRECTOR"_s, u"DIRECTOR"_s, 65, 36), column(u"SEEN"_s, 80), column(u"RATING"_s, 90)}};
    table[u"U"_s] = {.titleWord = u"MUSIC as at "_s, .file = DataFile::Music, .query = u"Select * from [MUSIC] order by [TITLE]"_s,
        .orientation = 2,
        .columns = {column(u"TITLE"_s, 1, 36), column(u"ARTIST"_s, 40, 36), column(u"MEDIA"_s, u"TYPE"_s, 80), column(u"RATING"_s, 90)}};
    ListColumn purchasedFrom = column(u"PURCHASED FROM"_s, u"PURCHASEDFROM"_s, 57, 30);
    purchasedFrom.roomPercent = 69;
    table[u"I"_s] = {.titleWord = u"INVENTORY as at "_s, .query = u"Select * from [Inventory] order by [Item]"_s, .orientation = 2,
        .columns = {column(u"ITEM"_s, 1, 36), column(u"SERIAL#"_s, u"SERIALNUM"_s, 26), column(u"LOCATION"_s, 37, 30),
                    column(u"DATE PURCHASED"_s, u"DATEPURCHASED"_s, 48), purchasedFrom,
                    rightAligned(u"COST"_s, fieldFormat(u"COST"_s, u"currency"_s), 76),
                    column(u"DATE DISPOSED"_s, u"DATEDISPOSED"_s, 78), column(u"DISPOSED TO"_s, u"DISPOSEDTO"_s, 87, 30)}};
}

void addTexts(ReportTable &table)
{
    table[u"W"_s] = {.titleWord = u"PASSWORDS as at "_s, .file = DataFile::DataP,
        .query = u"Select * from [Passwords] order by [Organisation]"_s, .rowLimit = 54,
        .columns = {column(u"ORGANISATION"_s, 1, 36), column(u"USERNAME"_s, 42), column(u"PASSWORD"_s, 74)}};
    table[u"F"_s] = {.titleWord = u"BACKUP FILES as at "_s, .query = u"Select * from [FILEBACKUP] order by [FILENAME],[FILEDATE]"_s,
        .orientation = 2, .heightTest = false,
        .columns = {column(u"FILE NAME"_s, u"FILENAME"_s, 1, 36), column(u"FILE DATE"_s, u"FILEDATE"_s, 59),
                    column(u"LAST BACKUP DATE"_s, u"LASTBACKUPDATE"_s, 79),
                    {.heading = u"DAYS"_s, .cell = daysSinceBackup, .percent = 94, .alignment = u"R"_s, .bodyPercent = 99}}};
    table[u"N"_s] = {.titleWord = u"NOTES as at "_s, .file = DataFile::Notes, .query = u"Select * from [NOTES] order by [DATE]"_s,
        .orientation = 2, .rowLimit = 9,
        .columns = {column(u"DATE"_s, 1), column(u"NAME"_s, 15), wrapped(u"NOTE"_s, u"NOTES"_s, 30, 130)}};
    table[u"Y"_s] = {.titleWord = u"HOW TO"_s, .isDated = false, .file = DataFile::HowTo,
        .query = u"Select * from [HowTo] order by [SUBJECT]"_s, .orientation = 2,
        .columns = {column(u"SUBJECT"_s, 0), column(u"HOW TO"_s, u"HOWTO"_s, 0), column(u"SOLUTION"_s, 0)}, .head = ListHead::Block,
        .isTable = false};
    table[u"G"_s] = {.titleWord = u"TO DO'S as at "_s,
        .query = u"Select * from [TODO] WHERE [ACTIONED]="_s + truth(false) + u" ORDER BY [TODO];"_s, .size = 12, .rowLimit = 45,
        .columns = {column(u"TODO"_s, 1, 70), column(u"PRIORITY"_s, 85)}, .noRows = u"No Records to Preview"_s};
}

const ReportTable &reportTable()
{
    static const ReportTable table = [] {
        ReportTable made;
        addContacts(made);
        addLibraries(made);
        addTexts(made);
        return made;
    }();
    return table;
}

void printOf(const QString &code)
{
    if (PrinterReady())
        printList(reportTable().at(code));
}

ListReport shoppingReport(bool isBlank)
{
    const auto amount = [isBlank](const QString &field, const QString &format) {
        return isBlank ? Cell([](const dao::Recordset &) { return QString(); }) : fieldFormat(field, format);
    };
    const QString money = u"currency"_s;
    ListColumn store = column(u"STORE"_s, 41);
    store.roomPercent = 63;
    ListReport report{.titleWord = u"SHOPPING LIST as at "_s, .size = 12, .rowLimit = 45,
        .columns = {column(u"ITEM"_s, 1, 37), store, rightAligned(u"NO."_s, amount(u"NUMBER"_s, {}), 70),
                    rightAligned(u"LAST"_s, amount(u"LASTCOST"_s, money), 78),
                    rightAligned(u"AMOUNT"_s, amount(u"AMOUNT"_s, money), 86),
                    rightAligned(u"TOTAL"_s, amount(u"TOTAL"_s, money), 96)},
        .countWord = u"NUMBER OF RECORDS LISTED: "_s};
    if (!isBlank) {
        report.total = fieldSum(u"TOTAL"_s);
        report.totalColumn = 5;
        report.totalFormat = money;
    }
    return report;
}

Cell yesWhenSet(const QString &field)
{
    return [field](const dao::Recordset &rows) { return rows.Get(field) == Value(true) ? u"YES"_s : QString(); };
}

ListReport remindersReport(const QString &section, const QString &query)
{
    const QString day = state().settings.gDateShort;
    ListReport report{.isDated = false, .size = 0, .rowLimit = 55, .head = ListHead::Block,
                      .countWord = u"NUMBER OF RECORDS LISTED: "_s, .hideEmail = true, .noRows = u"No Records to Preview"_s};
    report.query = query;
    ListColumn date{.heading = u"DATE"_s, .cell = fieldFormat(u"DATE"_s, day), .percent = 1};
    if (section == u"A") {
        report.titleWord = u"APPOINTMENTS"_s;
        report.orientation = 2;
        report.rowLimit = 20;
        report.columns = {date, {.heading = u"TIME"_s, .cell = fieldFormat(u"APPTIME"_s, u"hh:mm am/pm"_s), .percent = 16.5},
                          wrapped(u"APPOINTMENT"_s, u"APPOINTMENT"_s, 27, 100),
                          {.heading = u"MET"_s, .cell = yesWhenSet(u"MET"_s), .percent = 93}};
    } else if (section == u"B") {
        report.titleWord = u"BILLS"_s;
        ListColumn bill = wrapped(u"BILL"_s, u"BILL"_s, 15, 60);
        bill.roomPercent = 68;
        report.columns = {date, bill, rightAligned(u"AMOUNT"_s, fieldFormat(u"AMOUNT"_s, u"currency"_s), 88),
                          {.heading = u"PAID"_s, .cell = yesWhenSet(u"PAID"_s), .percent = 90}};
        report.total = fieldSum(u"AMOUNT"_s);
        report.totalColumn = 2;
        report.totalFormat = u"currency"_s;
    } else {
        report.titleWord = u"EVENTS"_s;
        report.columns = {date, wrapped(u"EVENT"_s, u"SUBJECT"_s, 15, 25), wrapped(u"DETAILS"_s, u"EVENT"_s, 32, 70)};
    }
    return report;
}

}

void PrintTelephoneList() { printOf(u"P"_s); }
void PrintPasswordsList() { printOf(u"W"_s); }
void PrintInventoryList() { printOf(u"I"_s); }
void PrintFileBackupList() { printOf(u"F"_s); }
void PrintBooksList() { printOf(u"K"_s); }
void PrintMoviesList() { printOf(u"V"_s); }
void PrintMusicList() { printOf(u"U"_s); }
void PrintChristmasCardList() { printOf(u"C"_s); }
void PrintEmergencyList() { printOf(u"X"_s); }
void PrintNotesList() { printOf(u"N"_s); }
void PrintHowToList() { printOf(u"Y"_s); }
void PrintToDoList() { printOf(u"G"_s); }

void PrintHealthVisits(int id, const QString &name)
{
    if (!PrinterReady())
        return;
    printList({.titleWord = u"DOCTORS VISITS for "_s + name + u" as at "_s, .file = DataFile::HowTo,
               .query = u"SELECT * FROM [HEALTHVISITS] where [ID]=%1 ORDER BY [VISITDATE],[PROFESSION]"_s.arg(id), .orientation = 2,
               .columns = {column(u"PROFESSION"_s, 1), column(u"NAME"_s, u"PROFESSIONNAME"_s, 16), column(u"LOCATION"_s, 32),
                           column(u"VISIT DATE"_s, u"VISITDATE"_s, 48), column(u"REASON"_s, 57), column(u"NOTES"_s, 75)}});
}

void PrintJournalList(const QString &name, const QString &query)
{
    if (!PrinterReady())
        return;
    printList({.titleWord = u"JOURNAL OF "_s + name + u" as at "_s, .file = DataFile::DataJ, .query = query, .orientation = 2,
               .rowLimit = 9, .columns = {column(u"DATE"_s, 1), wrapped(u"NOTE"_s, u"NOTESDISPLAY"_s, 15, 130)}});
}

void PrintShoppingList()
{
    if (!PrinterReady())
        return;
    const bool byStore = basic::askYesNo(u"Do you want to print preview the list by Store and Item Alphabetically?"_s);
    dao::Database database = openDataFile(DataFile::Main);
    const QString picked = u"Select * from [SHOPPING] WHERE [PICK]="_s + truth(true);
    dao::Recordset rows = database.OpenRecordset(picked + (byStore ? u" ORDER by [Store],[ITEM]"_s : u" ORDER by [ITEM]"_s));
    const bool isBlank = rows.rowTotal() < 1;
    if (isBlank) {
        if (!basic::askYesNo(u"No Items are marked for Purchase!\r\nDo you wish to print a blank List?"_s))
            return;
        rows = database.OpenRecordset(u"Select * from [SHOPPING] ORDER by [ITEM]"_s);
    }
    printRows(shoppingReport(isBlank), rows);
}

void PrintRemindersList(const QString &section, const QString &query)
{
    if (PrinterReady())
        printList(remindersReport(section, query));
}

bool printSectionList(const QString &code, const QString &remindersQuery)
{
    if (code == u"A" || code == u"B" || code == u"E")
        PrintRemindersList(code, remindersQuery);
    else if (code == u"H")
        PrintShoppingList();
    else if (code == u"J")
        PrintJournalList(state().settings.gUserName, u"SELECT * FROM [JOURNAL] ORDER BY [DATE]"_s);
    else if (reportTable().contains(code))
        printOf(code);
    else
        return false;
    return true;
}

}
