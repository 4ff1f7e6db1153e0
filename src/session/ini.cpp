#include "session/ini.h"

#include "platform/basic/convert.h"
#include "platform/basic/error.h"
#include "platform/desktop/profile.h"
#include "session/state.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace vorel {

namespace {

// A colour of the file is 0xBBGGRR, or the number of a colour of the desktop's above the highest bit.
constexpr quint32 lastPlainColour = 0xFFFFFF;
constexpr quint32 firstSystemColour = 0x80000000;
constexpr quint32 lastSystemColour = 0x80000018;

constexpr int pathFileAccessError = 75;

// "&HFFFFFF" and "&HFFFFFF&", always as a whole number without sign.
std::optional<qint64> hexNumber(QString text)
{
    if (!text.startsWith("&H"_L1, Qt::CaseInsensitive))
        return std::nullopt;
    text.remove(0, 2);
    if (text.endsWith(u'&'))
        text.chop(1);
    bool ok = false;
    const quint32 number = text.toUInt(&ok, 16);
    return ok ? std::optional<qint64>(number) : std::nullopt;
}

std::optional<qint64> wholeNumber(const QString &text)
{
    if (const auto hex = hexNumber(text))
        return hex;
    bool ok = false;
    const qint64 number = text.toLongLong(&ok);
    return ok ? std::optional<qint64>(number) : std::nullopt;
}

}

QString GetIniValue(const QString &section, const QString &key, const QString &defaultText)
{
    return desktop::GetPrivateProfileString(section, key, defaultText, state().gIniFile);
}

void PutIniValue(const QString &section, const QString &key, QString &value)
{
    value.replace(u'\r', u' ').replace(u'\n', u' ');
    if (!desktop::WritePrivateProfileString(section, key, value, state().gIniFile))
        throw basic::Error(pathFileAccessError, u"Path/File access error: %1"_s.arg(state().gIniFile));
}

void PutIniValue(const QString &section, const QString &key, QString &&value)
{
    PutIniValue(section, key, value);
}

bool tryPutIniValue(const QString &section, const QString &key, const QString &value)
{
    try {
        PutIniValue(section, key, QString(value));
        return true;
    } catch (const basic::Error &) {
        return false;
    }
}

quint32 GetIniColour(const QString &key, quint32 defaultColour)
{
    quint32 &label = state().settings.lblBackcolor;
    label = colourNumber(GetIniValue(iniSettings, key, QString::number(defaultColour))).value_or(defaultColour);
    return label;
}

std::optional<quint32> colourNumber(const QString &text)
{
    const auto number = wholeNumber(text.trimmed());
    if (!number || *number < std::numeric_limits<qint32>::min() || *number > lastSystemColour)
        return std::nullopt;
    // A system colour is stored as a negative number of 32 bits.
    const auto colour = static_cast<quint32>(*number);
    if (colour <= lastPlainColour || (colour >= firstSystemColour && colour <= lastSystemColour))
        return colour;
    return std::nullopt;
}

bool iniBoolean(const QString &text)
{
    if (text.compare("true"_L1, Qt::CaseInsensitive) == 0)
        return true;
    return iniInteger(text) != 0;
}

std::int16_t iniInteger(const QString &text)
{
    using Limits = std::numeric_limits<std::int16_t>;
    const double number = basic::Round(basic::valOr(text, 0));
    return static_cast<std::int16_t>(std::clamp<double>(number, Limits::min(), Limits::max()));
}

}
