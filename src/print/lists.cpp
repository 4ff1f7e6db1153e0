#include "print/lists.h"

#include "platform/basic/prompts.h"
#include "print/listreport.h"
#include "print/player.h"
#include "session/datafiles.h"
#include "session/sectiondesign.h"

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

const ListReport &reportOf(SectionId id)
{
    return sectionDesign(id).print->report;
}

void printOf(SectionId id)
{
    if (PrinterReady())
        printList(reportOf(id));
}

// A blank list has the items alone, to be filled in by hand.
ListReport blankShoppingReport()
{
    ListReport report = reportOf(SectionId::Shopping);
    for (ListColumn &column : report.columns)
        if (column.alignment == u"R")
            column.cell = [](const dao::Recordset &) { return QString(); };
    report.total = {};
    report.totalColumn = -1;
    return report;
}

}

void PrintTelephoneList() { printOf(SectionId::Contacts); }
void PrintPasswordsList() { printOf(SectionId::Passwords); }
void PrintInventoryList() { printOf(SectionId::Inventory); }
void PrintFileBackupList() { printOf(SectionId::FileBackup); }
void PrintBooksList() { printOf(SectionId::Books); }
void PrintMoviesList() { printOf(SectionId::Movies); }
void PrintMusicList() { printOf(SectionId::Music); }
void PrintChristmasCardList() { printOf(SectionId::ChristmasCards); }
void PrintEmergencyList() { printOf(SectionId::EmergencyNumbers); }
void PrintNotesList() { printOf(SectionId::Notes); }
void PrintHowToList() { printOf(SectionId::HowTo); }
void PrintToDoList() { printOf(SectionId::ToDo); }

void PrintHealthVisits(int id, const QString &name)
{
    if (!PrinterReady())
        return;
    printList({.titleWord = u"DOCTORS VISITS for "_s + name + u" as at "_s, .file = DataFile::HowTo,
               .query = u"SELECT * FROM [HEALTHVISITS] where [ID]="_s + dao::literal(id) + u" ORDER BY [VISITDATE],[PROFESSION]"_s, .orientation = 2,
               .columns = {column(u"PROFESSION"_s, 1), column(u"NAME"_s, u"PROFESSIONNAME"_s, 16), column(u"LOCATION"_s, 32),
                           column(u"VISIT DATE"_s, u"VISITDATE"_s, 48), column(u"REASON"_s, 57), column(u"NOTES"_s, 75)}});
}

void PrintJournalList(const QString &name, const QString &query)
{
    if (!PrinterReady())
        return;
    ListReport report = reportOf(SectionId::Journal);
    report.titleWord = report.titleWord.arg(name);
    report.query = query;
    printList(report);
}

void PrintShoppingList()
{
    if (!PrinterReady())
        return;
    const bool byStore = basic::askYesNo(u"Do you want to print preview the list by Store and Item Alphabetically?"_s);
    dao::Database database = openDataFile(DataFile::Main);
    const QString picked = u"Select * from [SHOPPING] WHERE [PICK]=True"_s;
    dao::Recordset rows = database.OpenRecordset(picked + (byStore ? u" ORDER by [Store],[ITEM]"_s : u" ORDER by [ITEM]"_s));
    const bool isBlank = rows.rowTotal() < 1;
    if (isBlank) {
        if (!basic::askYesNo(u"No Items are marked for Purchase!\r\nDo you wish to print a blank List?"_s))
            return;
        rows = database.OpenRecordset(u"Select * from [SHOPPING] ORDER by [ITEM]"_s);
    }
    printRows(isBlank ? blankShoppingReport() : reportOf(SectionId::Shopping), rows);
}

void PrintRemindersList(const QString &section, const QString &query)
{
    const SectionDesign *design = sectionByCode(section);
    if (!PrinterReady() || !design || !design->print)
        return;
    ListReport report = design->print->report;
    report.query = query;
    printList(report);
}

bool printSectionList(const QString &code, const QString &remindersQuery)
{
    const SectionDesign *section = sectionByCode(code);
    if (!section || !section->print)
        return false;
    if (section->kind == SectionKind::Reminder)
        PrintRemindersList(code, remindersQuery);
    else if (section->id == SectionId::Shopping)
        PrintShoppingList();
    else if (section->id == SectionId::Journal)
        PrintJournalList(state().settings.gUserName, u"SELECT * FROM [JOURNAL] ORDER BY [DATE]"_s);
    else
        printOf(section->id);
    return true;
}

}
