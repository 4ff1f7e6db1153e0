#include "session/shared.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/error.h"
#include "platform/basic/text.h"
#include "platform/desktop/desktop.h"
#include "session/ini.h"
#include "session/state.h"

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace vorel {

using basic::DateTime;
using basic::Value;

namespace {

std::function<void(const QString &)> &soundPlayer()
{
    static std::function<void(const QString &)> player;
    return player;
}

// A day of any year as one number that compares.
constexpr int dayOfYear(int day, int month)
{
    return month * 100 + day;
}

}

QString GetOsName()
{
    const desktop::OsVersion version;
    return osNameFor(version.platform, version.major, version.minor);
}

QString osNameFor(int platform, int major, int minor)
{
    if (platform == 1 && minor == 0)
        return u"Windows 95"_s;
    if (platform == 1 && minor == 10)
        return u"Windows 98"_s;
    if (platform == 1 && minor == 90)
        return u"Windows Mellinnium"_s;
    if (platform == 2 && major == 3)
        return u"Windows NT 3.51"_s;
    if (platform == 2 && major == 4)
        return u"Windows NT 4.0"_s;
    if (platform == 2 && major == 5)
        return minor == 0 ? u"Windows 2000"_s : u"Windows XP"_s;
    return u"Failed"_s;
}

QString FormatDateForSql(const QString &text, bool monthFirst)
{
    if (text.isEmpty())
        return {};
    const DateTime date = basic::CDate(text);
    return monthFirst ? sqlDate(date) : shortDate(date);
}

QString GetAge(DateTime birthDate)
{
    const DateTime birth = birthDate.dayOnly();
    const DateTime today = basic::Date();
    int months = basic::DateDiff(u"m", birth, today);
    if (basic::DateAdd(u"m", months, birth) > today)
        --months;
    const int days = basic::DateDiff(u"d", basic::DateAdd(u"m", months, birth), today);
    return u" %1 years %2 months %3 days "_s.arg(months / 12).arg(months % 12).arg(days);
}

QString GetStarSign(DateTime birthDate)
{
    // Each bound is a day and a month of the birth year.
    struct Sign {
        int from;
        int to;
        QStringView name;
    };
    static constexpr std::array signs{
        Sign{dayOfYear(22, 12), dayOfYear(31, 12), u"Capricorn"}, Sign{dayOfYear(1, 1), dayOfYear(20, 1), u"Capricorn"},
        Sign{dayOfYear(21, 1), dayOfYear(19, 2), u"Aquarius"},    Sign{dayOfYear(20, 2), dayOfYear(20, 3), u"Pisces"},
        Sign{dayOfYear(21, 3), dayOfYear(20, 4), u"Aries"},       Sign{dayOfYear(21, 4), dayOfYear(21, 5), u"Taurus"},
        Sign{dayOfYear(22, 5), dayOfYear(22, 6), u"Gemini"},      Sign{dayOfYear(23, 6), dayOfYear(23, 7), u"Cancer"},
        Sign{dayOfYear(24, 7), dayOfYear(23, 8), u"Leo"},         Sign{dayOfYear(24, 8), dayOfYear(23, 9), u"Virgo"},
        Sign{dayOfYear(24, 9), dayOfYear(23, 10), u"Libra"},      Sign{dayOfYear(24, 10), dayOfYear(22, 11), u"Scorpio"},
        Sign{dayOfYear(23, 11), dayOfYear(21, 12), u"Sagittarius"},
    };
    const int day = dayOfYear(birthDate.day(), birthDate.month());
    for (const Sign &sign : signs) {
        if (day >= sign.from && day <= sign.to)
            return sign.name.toString();
    }
    return u" "_s;
}

QString NormaliseKey(const QString &text)
{
    QString key = text;
    return key.remove(u' ').remove(u',').toUpper();
}

void NetSend(const QString &, const QString &) {}

void setSoundPlayer(std::function<void(const QString &)> player)
{
    soundPlayer() = std::move(player);
}

void PlaySoundNumber(int number)
{
    static const std::array files{u"\\beep.wav"_s, u"\\woosh.wav"_s, u"\\doorbell.wav"_s, u"\\message.wav"_s,
                                  u"\\clang.wav"_s};
    constexpr int userSound = 6;
    if (number < 1 || number > userSound)
        return;
    playSoundFile(number == userSound ? state().settings.gSoundFile
                                      : desktop::findResource(files[static_cast<std::size_t>(number - 1)]));
}

void playSoundFile(const QString &path)
{
    if (!path.isEmpty() && soundPlayer() && iniBoolean(GetIniValue(iniSettings, u"PlaySound"_s, u"True"_s)))
        soundPlayer()(path);
}

double MoneyValue(const Value &value)
{
    if (value.isNull())
        return 0;
    if (value.isNumber() || value.isDate())
        return basic::CDbl(value);
    const QString text = basic::Trim(value.text());
    if (text.contains(u'/') && basic::IsDate(text))
        return basic::CDate(text).serial();
    QString digits;
    for (const QChar c : text) {
        if (u"0123456789.-"_s.contains(c))
            digits += c;
    }
    const double amount = basic::valOr(digits, 0);
    return text.startsWith(u'(') && text.endsWith(u')') ? -std::abs(amount) : amount;
}

int GetRegistryKey(const QString &)
{
    return 0;
}

QString GetOfficeVersion(const QString &)
{
    return {};
}

QString graveApostrophes(const QString &text)
{
    QString result = text;
    return result.replace(u'\'', u'`');
}

QString shownApostrophes(const QString &text)
{
    QString result = text;
    return result.replace(u'`', u'\'');
}

}
