#pragma once

#include "platform/basic/value.h"

#include <QString>
#include <functional>

// Small routines that several screens call.
namespace vorel {

QString GetOsName();            // osNameFor what the desktop layer reports
QString osNameFor(int platform, int major, int minor);
// "" stays ""; BasicError 13 when the text is not a date.
QString FormatDateForSql(const QString &text, bool monthFirst);
QString GetAge(basic::DateTime birthDate);          // " 22 years 3 months 1 days "
QString GetStarSign(basic::DateTime birthDate);
QString NormaliseKey(const QString &text);          // no blanks, no commas, in capitals: for comparing names
void NetSend(const QString &target, const QString &message);    // this system has no such service: does nothing
// 1 beep, 2 woosh, 3 doorbell, 4 message, 5 clang, 6 gSoundFile. Nothing when PlaySound is off or the file is missing.
void PlaySoundNumber(int number);
void playSoundFile(const QString &path);        // the same for any sound file; "" is silent
// What plays a sound file without waiting. Empty: silence.
void setSoundPlayer(std::function<void(const QString &path)> player);
// The amount in a typed text; a date's text gives the date's serial, Null gives 0. Never fails.
double MoneyValue(const basic::Value &text);
// The handle of a registry key; 0 without a registry.
int GetRegistryKey(const QString &key);
QString GetOfficeVersion(const QString &name);      // "" without a registry
// The apostrophe rule: a typed ' becomes a grave accent, so that the text can be put between single quotes.
QString graveApostrophes(const QString &text);
QString shownApostrophes(const QString &text);

}
