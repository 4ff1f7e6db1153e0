#include "calendar/monthpicture.h"

#include "calendar/month.h"
#include "session/ini.h"

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

// Where older versions kept the pictures.
const QString oldSection = QStringLiteral("Cal Pic");

QString keptUnder(const QString &key)
{
    const QString old = GetIniValue(oldSection, key, {}).trimmed();
    return old.isEmpty() ? GetIniValue(iniSettings, key, {}).trimmed() : old;
}

}

QString monthPictureKey(int month) { return monthNames()[static_cast<std::size_t>(month - 1)].left(3) + u"PicFile"_s; }

QString monthPicture(int month)
{
    const QString own = keptUnder(monthPictureKey(month));
    return own.isEmpty() ? keptUnder(u"CalPicFile"_s) : own;
}

void keepMonthPicture(int month, const QString &path)
{
    const QString key = monthPictureKey(month);
    PutIniValue(iniSettings, key, QString(path));
    if (!GetIniValue(oldSection, key, {}).isEmpty())        // it would be read first
        PutIniValue(oldSection, key, QString());
}

}
