#pragma once

#include "platform/basic/calendar.h"
#include <array>
#include <string_view>

// The form in which files keep a date-time, "YYYY-MM-DD HH:MM:SS", read and written without allocation: these run for
// every row of a grid and of a query.
namespace vorel::basic {

struct StoredTime {
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

inline constexpr std::size_t storedLength = 19;

// Also reads what another tool may have written: the day alone, the minutes without seconds, the "T" of ISO 8601, blanks
// around it all. False for anything else, and for a day or a time that does not exist.
bool readStored(std::string_view text, StoredTime &time);
std::array<char, storedLength> writeStored(const StoredTime &time);

DateTime dateTimeOf(const StoredTime &time);
// False outside of 0100-01-01 to 9999-12-31.
bool fromDayNumber(std::int64_t days, StoredTime &time);
bool fromSerial(double serial, StoredTime &time);

}
