#pragma once

#include <QString>

// What the recording operations share. Internal to this folder.
namespace vorel::recorder {

void ensureOpen();
void write(const QString &line);            // to the open script
void record(const QString &line);           // opens the script if need be
void newPage();                             // the line, and the count of pages

}
