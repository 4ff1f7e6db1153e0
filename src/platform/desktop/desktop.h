#pragma once

#include <QString>
#include <QStringList>

namespace vorel::desktop {

// Where data, configuration and scratch files lie: VOREL_FOLDER if set; else the program file's own folder if
// vorelreminder.ini lies in it; else $XDG_DATA_HOME/VorelReminder, made at the first start.
QString decideProgramFolder();

// A resource: looked for in the program folder first (any case), then in the installed resource folder, then in the
// built-in resources (":/..."). "" if there is none. Takes "Paper.jpg" or "\Paper.jpg".
QString findResource(const QString &name);

// True for the first instance on this program folder; a second one gets false. What a killed process left behind is
// no instance. A folder in which nothing can be written has no instances to count: true.
bool claimSingleInstance();
// What the run before this one left with releaseSingleInstance; runningNote if it was broken off, by a kill or a power loss;
// empty if nothing is known of it.
QByteArray lastRunNote();
bool holdsInstance();           // whether this program has the claim, and so can leave a note
inline const QByteArray runningNote = QByteArrayLiteral("running\n");
void releaseSingleInstance(const QByteArray &note = {});

// Starts a program or opens a document or address with the desktop's own program; nothing is waited for.
// false if nothing could be started.
bool ShellExecute(const QString &target, const QStringList &arguments = {});

// Platform, major and minor as the classic version call gives them. Platform 0: a system that the call does not know.
struct OsVersion { int platform = 0; int major = 0; int minor = 0; };

}
