#include "platform/dao/jet/storedtime.h"

#include <cmath>

namespace vorel::dao::jet {

namespace {

constexpr int epochFromCivil = 693899;      // 1899-12-30 counted from 0000-03-01
constexpr int secondsPerDay = 86400;
constexpr int firstDay = -657434;           // 0100-01-01
constexpr int lastDay = 2958465;            // 9999-12-31

bool readDigits(std::string_view text, std::size_t at, std::size_t count, int &value)
{
    value = 0;
    for (std::size_t i = at; i < at + count; ++i) {
        const int digit = text[i] - '0';
        if (digit < 0 || digit > 9)
            return false;
        value = value * 10 + digit;
    }
    return true;
}

void writeDigits(char *at, int count, int value)
{
    for (int i = count - 1; i >= 0; --i) {
        at[i] = static_cast<char>('0' + value % 10);
        value /= 10;
    }
}

}

bool readStored(std::string_view text, StoredTime &time)
{
    if (text.size() != storedLength && text.size() != 10)
        return false;
    if (text[4] != '-' || text[7] != '-' || !readDigits(text, 0, 4, time.year) || !readDigits(text, 5, 2, time.month)
        || !readDigits(text, 8, 2, time.day) || time.month < 1 || time.month > 12 || time.day < 1 || time.day > 31)
        return false;
    if (text.size() == 10)
        return true;
    return readDigits(text, 11, 2, time.hour) && readDigits(text, 14, 2, time.minute)
        && readDigits(text, 17, 2, time.second) && text[13] == ':' && text[16] == ':';
}

std::array<char, storedLength> writeStored(const StoredTime &time)
{
    std::array<char, storedLength> text;
    text.fill('-');
    writeDigits(&text[0], 4, time.year);
    writeDigits(&text[5], 2, time.month);
    writeDigits(&text[8], 2, time.day);
    text[10] = ' ';
    writeDigits(&text[11], 2, time.hour);
    text[13] = ':';
    writeDigits(&text[14], 2, time.minute);
    text[16] = ':';
    writeDigits(&text[17], 2, time.second);
    return text;
}

int dayNumber(int year, int month, int day)
{
    // Years that begin in March put the leap day last.
    const int marchYear = month <= 2 ? year - 1 : year;
    const int era = (marchYear >= 0 ? marchYear : marchYear - 399) / 400;
    const int yearOfEra = marchYear - era * 400;
    const int dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - epochFromCivil;
}

double serialOf(const StoredTime &time)
{
    const int days = dayNumber(time.year, time.month, time.day);
    const double fraction = (time.hour * 3600 + time.minute * 60 + time.second) / static_cast<double>(secondsPerDay);
    return days < 0 ? days - fraction : days + fraction;    // a negative serial's fraction counts forward too
}

bool fromDayNumber(int days, StoredTime &time)
{
    if (days < firstDay || days > lastDay)
        return false;
    const int shifted = days + epochFromCivil;
    const int era = shifted / 146097;
    const int dayOfEra = shifted - era * 146097;
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int marchMonth = (5 * dayOfYear + 2) / 153;
    time.day = dayOfYear - (153 * marchMonth + 2) / 5 + 1;
    time.month = marchMonth < 10 ? marchMonth + 3 : marchMonth - 9;
    time.year = yearOfEra + era * 400 + (time.month <= 2 ? 1 : 0);
    return true;
}

bool fromSerial(double serial, StoredTime &time)
{
    if (!(serial > firstDay - 1.0 && serial < lastDay + 1.0))
        return false;
    const double whole = std::trunc(serial);
    int days = static_cast<int>(whole);
    auto seconds = static_cast<int>(std::lround(std::fabs(serial - whole) * secondsPerDay));
    if (seconds == secondsPerDay) {
        seconds = 0;
        ++days;
    }
    if (!fromDayNumber(days, time))
        return false;
    time.hour = seconds / 3600;
    time.minute = seconds / 60 % 60;
    time.second = seconds % 60;
    return true;
}

}
