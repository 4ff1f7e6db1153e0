#include "platform/basic/storedtime.h"

namespace vorel::basic {

using namespace detail;

namespace {

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

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == text.npos ? std::string_view() : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool readTime(std::string_view text, StoredTime &time)
{
    if ((text[10] != ' ' && text[10] != 'T') || !readDigits(text, 11, 2, time.hour) || text[13] != ':'
        || !readDigits(text, 14, 2, time.minute) || time.hour > 23 || time.minute > 59)
        return false;
    return text.size() != storedLength || (text[16] == ':' && readDigits(text, 17, 2, time.second) && time.second <= 59);
}

}

bool readStored(std::string_view text, StoredTime &time)
{
    if (text.size() != storedLength)
        text = trimmed(text);
    if (text.size() != storedLength && text.size() != 10 && text.size() != 16)
        return false;
    if (text[4] != '-' || text[7] != '-' || !readDigits(text, 0, 4, time.year) || !readDigits(text, 5, 2, time.month)
        || !readDigits(text, 8, 2, time.day) || time.year < 100 || time.month < 1 || time.month > 12 || time.day < 1)
        return false;
    if (time.day > 28 && time.day > daysInMonth(time.year, time.month))
        return false;
    return text.size() == 10 || readTime(text, time);
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

DateTime dateTimeOf(const StoredTime &time)
{
    return serialOf(daysFromCivil(time.year, time.month, time.day), (time.hour * 60 + time.minute) * 60 + time.second);
}

bool fromDayNumber(std::int64_t days, StoredTime &time)
{
    if (days < firstDay || days > lastDay)
        return false;
    const Civil civil = civilFromDays(static_cast<int>(days));
    time.year = civil.year;
    time.month = civil.month;
    time.day = civil.day;
    return true;
}

bool fromSerial(double serial, StoredTime &time)
{
    if (!inRange(serial))
        return false;
    const Moment moment = momentOf(DateTime(serial));
    time.hour = moment.seconds / 3600;
    time.minute = moment.seconds / 60 % 60;
    time.second = moment.seconds % 60;
    return fromDayNumber(moment.days, time);
}

}
