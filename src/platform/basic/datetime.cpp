#include "platform/basic/calendar.h"
#include "platform/basic/error.h"
#include <cmath>

namespace vorel::basic {

namespace detail {

namespace {

constexpr int daysPerEra = 146097;           // 400 years
constexpr int eraShift = 719468 - 25569;     // from 0000-03-01 to 1899-12-30

}

// Years are counted from 1 March, so that the leap day is the last of its year.
std::int64_t daysFromCivil(std::int64_t year, int month, int day)
{
    year -= month <= 2;
    const std::int64_t era = (year >= 0 ? year : year - 399) / 400;
    const std::int64_t yearOfEra = year - era * 400;
    const int dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5;
    return era * daysPerEra + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear + day - 1 - eraShift;
}

Civil civilFromDays(int days)
{
    const int shifted = days + eraShift;
    const int era = (shifted >= 0 ? shifted : shifted - daysPerEra + 1) / daysPerEra;
    const int dayOfEra = shifted - era * daysPerEra;
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / (daysPerEra - 1)) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int marchMonth = (5 * dayOfYear + 2) / 153;
    const int month = marchMonth + (marchMonth < 10 ? 3 : -9);
    return {yearOfEra + era * 400 + (month <= 2), month, dayOfYear - (153 * marchMonth + 2) / 5 + 1};
}

int daysInMonth(int year, int month)
{
    if (month == 2)
        return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0 ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

Moment momentOf(DateTime date)
{
    const double serial = date.serial();
    if (!inRange(serial)) {
        if (serial > 0)
            return {lastDay, secondsPerDay - 1};
        return {serial < 0 ? firstDay : 0, 0};
    }
    const double whole = std::trunc(serial);
    auto days = static_cast<int>(whole);
    auto seconds = static_cast<int>(std::abs(serial - whole) * secondsPerDay + 0.5);
    if (seconds >= secondsPerDay) {
        if (days == lastDay)
            return {lastDay, secondsPerDay - 1};
        ++days;
        seconds = 0;
    }
    return {days, seconds};
}

DateTime serialOf(std::int64_t days, int seconds)
{
    if (days < firstDay || days > lastDay)
        throw BasicError(5);
    const double fraction = static_cast<double>(seconds) / secondsPerDay;
    const auto whole = static_cast<double>(days);
    return DateTime(days < 0 ? whole - fraction : whole + fraction);
}

bool inRange(double serial)
{
    return serial > firstDay - 1.0 && serial < lastDay + 1.0;
}

}

using namespace detail;

DateTime DateTime::fromParts(int year, int month, int day, int hour, int minute, int second)
{
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > daysInMonth(year, month) || hour < 0
        || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59)
        throw BasicError(5);
    return serialOf(daysFromCivil(year, month, day), (hour * 60 + minute) * 60 + second);
}

DateTime DateTime::fromQDate(QDate date)
{
    return date.isValid() ? fromParts(date.year(), date.month(), date.day()) : DateTime();
}

DateTime DateTime::fromQDateTime(const QDateTime &dateTime)
{
    if (!dateTime.isValid())
        return {};
    const QDate date = dateTime.date();
    const QTime time = dateTime.time();
    return fromParts(date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second());
}

namespace {

// `count` digits at `at`, or -1.
int number(QStringView text, qsizetype at, int count)
{
    int value = 0;
    for (qsizetype i = at; i < at + count; ++i) {
        const char16_t c = text[i].unicode();
        if (c < u'0' || c > u'9')
            return -1;
        value = value * 10 + (c - u'0');
    }
    return value;
}

// "HH:MM" or "HH:MM:SS" at position 11, as seconds of the day, or -1.
int storedTime(QStringView text)
{
    const int hour = number(text, 11, 2);
    const int minute = number(text, 14, 2);
    const int second = text.size() == 19 ? number(text, 17, 2) : 0;
    if (text[13] != u':' || (text.size() == 19 && text[16] != u':'))
        return -1;
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59)
        return -1;
    return (hour * 60 + minute) * 60 + second;
}

std::optional<DateTime> readStored(QStringView text)
{
    // Another tool may have written the day alone, the minutes without seconds or the "T" of ISO 8601.
    if (text.size() != 19 && text.size() != 10 && text.size() != 16)
        return std::nullopt;
    if (text[4] != u'-' || text[7] != u'-')
        return std::nullopt;
    const int year = number(text, 0, 4);
    const int month = number(text, 5, 2);
    const int day = number(text, 8, 2);
    if (year < 100 || month < 1 || month > 12 || day < 1 || day > daysInMonth(year, month))
        return std::nullopt;
    int seconds = 0;
    if (text.size() > 10) {
        if (text[10] != u' ' && text[10] != u'T')
            return std::nullopt;
        seconds = storedTime(text);
        if (seconds < 0)
            return std::nullopt;
    }
    return serialOf(daysFromCivil(year, month, day), seconds);
}

void put(char16_t *at, int value, int count)
{
    for (int i = count - 1; i >= 0; --i, value /= 10)
        at[i] = static_cast<char16_t>(u'0' + value % 10);
}

}

DateTime DateTime::fromStored(QStringView text, bool *ok)
{
    const std::optional<DateTime> date = readStored(text);
    if (ok)
        *ok = date.has_value();
    return date.value_or(DateTime());
}

QString DateTime::toStored() const
{
    const Moment moment = momentOf(*this);
    const Civil civil = civilFromDays(moment.days);
    char16_t buffer[] = u"0000-00-00 00:00:00";
    put(buffer, civil.year, 4);
    put(buffer + 5, civil.month, 2);
    put(buffer + 8, civil.day, 2);
    put(buffer + 11, moment.seconds / 3600, 2);
    put(buffer + 14, moment.seconds / 60 % 60, 2);
    put(buffer + 17, moment.seconds % 60, 2);
    return QString(reinterpret_cast<const QChar *>(buffer), 19);
}

QDate DateTime::date() const
{
    const Civil civil = civilFromDays(momentOf(*this).days);
    return QDate(civil.year, civil.month, civil.day);
}

QTime DateTime::time() const
{
    return QTime::fromMSecsSinceStartOfDay(momentOf(*this).seconds * 1000);
}

bool DateTime::hasDate() const
{
    return momentOf(*this).days != 0;
}

bool DateTime::hasTime() const
{
    return momentOf(*this).seconds != 0;
}

DateTime DateTime::dayOnly() const
{
    return serialOf(momentOf(*this).days, 0);
}

}
