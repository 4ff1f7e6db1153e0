#pragma once

#include <QDateTime>
#include <QString>
#include <compare>
#include <cstdint>
#include <variant>

// The values that fields, queries and the runtime's conversions pass around.
namespace vorel::basic {

// Fixed-point money: a whole number of ten-thousandths, range +-922,337,203,685,477.5807.
class Currency {
public:
    constexpr Currency() = default;
    static constexpr Currency fromScaled(std::int64_t tenThousandths)
    {
        Currency c;
        c.m_scaled = tenThousandths;
        return c;
    }
    // Rounds to four decimals, half to even. Throws BasicError 6 (Overflow) out of range.
    static Currency fromDouble(double amount);
    constexpr std::int64_t scaled() const { return m_scaled; }
    double toDouble() const { return static_cast<double>(m_scaled) / 10000.0; }
    // Exact; BasicError 6 (Overflow) out of range.
    Currency operator+(Currency other) const;
    Currency operator-(Currency other) const;
    constexpr Currency operator-() const
    {
        return fromScaled(static_cast<std::int64_t>(0 - static_cast<std::uint64_t>(m_scaled)));
    }
    constexpr auto operator<=>(const Currency &) const = default;

private:
    std::int64_t m_scaled = 0;
};

// A date-time: days since 1899-12-30 as a double, the fraction the time of day (for negative serials the fraction
// still counts forward from midnight). Range 0100-01-01 to 9999-12-31. Day 0 means "no date part".
class DateTime {
public:
    constexpr DateTime() = default;
    constexpr explicit DateTime(double serial) : m_serial(serial) {}
    // BasicError 5 when there is no such day or time.
    static DateTime fromParts(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
    static DateTime fromQDate(QDate date);
    static DateTime fromQDateTime(const QDateTime &dateTime);
    // The form in which files keep a date-time: "YYYY-MM-DD HH:MM:SS". An unreadable text gives
    // ok = false and day 0. The day alone, minutes without seconds and a "T" between are read too.
    static DateTime fromStored(QStringView text, bool *ok = nullptr);
    QString toStored() const;

    constexpr double serial() const { return m_serial; }
    QDate date() const;          // of the day part, always valid within the range
    QTime time() const;          // to the nearest second
    bool hasDate() const;        // the day part is not 1899-12-30
    bool hasTime() const;        // the time part is not midnight
    int year() const { return date().year(); }
    int month() const { return date().month(); }
    int day() const { return date().day(); }
    DateTime dayOnly() const;    // the same day at midnight
    constexpr auto operator<=>(const DateTime &) const = default;

private:
    double m_serial = 0;
};

// The type numbers of the engine's field types; a Value reports the one that fits what it holds.
enum class ValueType { Null, Boolean, Byte, Integer, Long, Currency, Single, Double, Date, Text, Binary };

// One value of any of those types. Conversions that may fail are in convert.h; the members here never fail.
class Value {
public:
    Value() = default;                                            // Null
    Value(bool v) : m_data(v) {}
    Value(std::uint8_t v) : m_data(v) {}
    Value(std::int16_t v) : m_data(v) {}
    Value(std::int32_t v) : m_data(v) {}
    Value(std::int64_t v) = delete;                               // no such type: choose Long, Double or Currency
    Value(Currency v) : m_data(v) {}
    Value(float v) : m_data(v) {}
    Value(double v) : m_data(v) {}
    Value(DateTime v) : m_data(v) {}
    Value(QString v) : m_data(std::move(v)) {}
    Value(QByteArray v) : m_data(std::move(v)) {}
    Value(const char *) = delete;

    ValueType type() const { return static_cast<ValueType>(m_data.index()); }
    bool isNull() const { return type() == ValueType::Null; }
    bool isNumber() const { return type() >= ValueType::Boolean && type() <= ValueType::Double; }
    bool isText() const { return type() == ValueType::Text; }
    bool isDate() const { return type() == ValueType::Date; }

    template <class T> const T &get() const { return std::get<T>(m_data); }
    template <class T> const T *tryGet() const { return std::get_if<T>(&m_data); }

    // The value joined to an empty text (`value & ""`): Null gives "", a Boolean "True"/"False", a number as CStr,
    // a date in the general format of the regional settings.
    QString text() const;

    bool operator==(const Value &) const = default;               // same type and same content

private:
    std::variant<std::monostate, bool, std::uint8_t, std::int16_t, std::int32_t, Currency, float, double, DateTime,
                 QString, QByteArray> m_data;
};

}
