#pragma once

#include <QString>

// The picture of each month, as the configuration file keeps it.
namespace vorel {

QString monthPictureKey(int month);                 // "NovPicFile"
// The stored path of the month's picture, or of the calendar's own where the month has none; "" = none. The file may have
// gone: see pictureFile.
QString monthPicture(int month);
void keepMonthPicture(int month, const QString &path);      // "" = none

}
