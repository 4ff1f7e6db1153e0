#pragma once

#include <array>
#include <string_view>

// The form in which files keep a date-time, "YYYY-MM-DD HH:MM:SS", read and written without allocation: these run for
// every row of a query.
namespace vorel::dao::jet {

struct StoredTime {
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

inline constexpr std::size_t storedLength = 19;

// Also takes a date without a time. False if the text is neither.
bool readStored(std::string_view text, StoredTime &time);
std::array<char, storedLength> writeStored(const StoredTime &time);

// Days since 1899-12-30 of the proleptic Gregorian calendar.
int dayNumber(int year, int month, int day);
double serialOf(const StoredTime &time);
// False outside of 0100-01-01 to 9999-12-31.
bool fromDayNumber(int days, StoredTime &time);
bool fromSerial(double serial, StoredTime &time);

}
