#include "platform/basic/storedtime.h"

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

DateTime DateTime::fromStored(QStringView text, bool *ok)
{
    StoredTime time;
    const bool read = readStored(text.toLatin1().toStdString(), time);
    if (ok)
        *ok = read;
    return read ? dateTimeOf(time) : DateTime();
}

QString DateTime::toStored() const
{
    StoredTime time;
    const Moment moment = momentOf(*this);
    fromDayNumber(moment.days, time);
    time.hour = moment.seconds / 3600;
    time.minute = moment.seconds / 60 % 60;
    time.second = moment.seconds % 60;
    const auto stored = writeStored(time);
    return QString::fromLatin1(stored.data(), stored.size());
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
