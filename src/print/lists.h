#pragma once

#include <QString>

// The lists that the sections print, each with its public name. They show the preview, or say in a message why there is
// none.
namespace vorel {

void PrintTelephoneList();
void PrintPasswordsList();
void PrintInventoryList();
void PrintHealthVisits(int id, const QString &name);            // of the person with this ID
void PrintFileBackupList();
void PrintBooksList();
void PrintMoviesList();
void PrintMusicList();
void PrintChristmasCardList();
void PrintEmergencyList();
void PrintNotesList();
void PrintJournalList(const QString &name, const QString &query);    // name: whose journal; query: the selected records
void PrintShoppingList();
void PrintHowToList();
void PrintToDoList();
// section: "A", "B" or "E"; query: the one that its grid shows, so that the paper shows what the grid shows.
void PrintRemindersList(const QString &section, const QString &query);

// The list by the code of its section, as the print key and the print menu name it. false: there is none.
bool printSectionList(const QString &code, const QString &remindersQuery = {});

}
