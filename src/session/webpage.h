#pragma once

#include <QString>

// Pages for the browser that the program writes into its folder.
namespace vorel {

// A text as a page may hold it; what HTML cannot hold is left out.
QString escapedForPage(const QString &text);
// The path of a page by its name "\CALENDAR.HTML" in the program folder.
QString pagePath(const QString &name);
// Writes the page anew, whole or not at all. Error 75 with the file's name in its text when it cannot be written (also when
// the disk is full).
void writePage(const QString &path, const QString &html);
// Opens it with the desktop's browser; error 53 when nothing does.
void openPage(const QString &path);

}
