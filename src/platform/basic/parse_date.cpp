#include "platform/basic/calendar.h"
#include "platform/basic/clock.h"

#include <QVarLengthArray>
#include <algorithm>

namespace vorel::basic::detail {

namespace {

constexpr const char16_t *monthNames[] = {
    u"january", u"february", u"march", u"april", u"may", u"june",
    u"july", u"august", u"september", u"october", u"november", u"december",
};

// 1 to 12, or 0: the full English name or its first three letters.
int monthNamed(QStringView word)
{
    for (int i = 0; i < 12; ++i) {
        const QStringView name(monthNames[i]);
        if (word.compare(name, Qt::CaseInsensitive) == 0 || word.compare(name.left(3), Qt::CaseInsensitive) == 0)
            return i + 1;
    }
    return 0;
}

enum class HalfDay { None, Am, Pm };

HalfDay halfDayNamed(QStringView word)
{
    const auto is = [word](QStringView name) { return word.compare(name, Qt::CaseInsensitive) == 0; };
    if (is(u"am") || is(u"a"))
        return HalfDay::Am;
    return is(u"pm") || is(u"p") ? HalfDay::Pm : HalfDay::None;
}

struct Ymd {
    int year;
    int month;
    int day;
};

std::optional<int> dayNumber(Ymd parts)
{
    int year = parts.year;
    if (year >= 0 && year < 100)
        year += year < 30 ? 2000 : 1900;
    if (year < 100 || year > 9999 || parts.month < 1 || parts.month > 12)
        return std::nullopt;
    if (parts.day < 1 || parts.day > daysInMonth(year, parts.month))
        return std::nullopt;
    return static_cast<int>(daysFromCivil(year, parts.month, parts.day));
}

std::optional<int> firstThatFits(std::initializer_list<Ymd> readings)
{
    for (const Ymd &reading : readings) {
        if (const auto days = dayNumber(reading))
            return days;
    }
    return std::nullopt;
}

// The regional order first, then those that the numbers allow. A year in front is never followed by the day.
std::optional<int> threeNumbers(int a, int b, int c, DateOrder order)
{
    const Ymd mdy{c, a, b};
    const Ymd dmy{c, b, a};
    const Ymd ymd{a, b, c};
    const Ymd myd{b, a, c};
    switch (order) {
    case DateOrder::MonthFirst:
        return firstThatFits({mdy, ymd, dmy});
    case DateOrder::DayFirst:
        return firstThatFits({dmy, mdy, ymd, myd});
    case DateOrder::YearFirst:
        break;
    }
    return firstThatFits({ymd, mdy, dmy});
}

// Day and month of the present year; if neither can be a day, month and year.
std::optional<int> twoNumbers(int a, int b, DateOrder order)
{
    const int year = Date().year();
    const Ymd monthDay{year, a, b};
    const Ymd dayMonth{year, b, a};
    const bool dayFirst = order == DateOrder::DayFirst;
    return firstThatFits({dayFirst ? dayMonth : monthDay, dayFirst ? monthDay : dayMonth, {b, a, 1}, {a, b, 1}});
}

class DateReader {
public:
    DateReader(QStringView text, const Regional &settings)
        : m_text(text), m_settings(settings), m_dotParts(settings.shortDate.contains(u'.'))
    {
    }

    std::optional<DateTime> read()
    {
        skipBlanks();
        if (atEnd())
            return std::nullopt;
        while (!atEnd()) {
            if (!readItem())
                return std::nullopt;
            if (!readSeparator())
                return std::nullopt;
        }
        return result();
    }

private:
    static bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }
    bool atEnd() const { return m_at >= m_text.size(); }
    QChar here() const { return atEnd() ? QChar() : m_text[m_at]; }
    bool skipBlanks()
    {
        const qsizetype start = m_at;
        while (!atEnd() && here() == u' ')
            ++m_at;
        return m_at > start;
    }
    int readNumber()
    {
        int value = 0;
        for (; !atEnd() && isDigit(here()); ++m_at)
            value = std::min(value * 10 + (here().unicode() - u'0'), 100000);
        return value;
    }
    QStringView readWord()
    {
        const qsizetype start = m_at;
        while (!atEnd() && here().isLetter())
            ++m_at;
        return m_text.mid(start, m_at - start);
    }
    bool timeSeparatorFollows() const
    {
        return m_at + 1 < m_text.size() && isDigit(m_text[m_at + 1]) && (here() == u':' || (here() == u'.' && !m_dotParts));
    }

    // The half of the day behind a time, which may follow blanks. Any other word is left unread.
    HalfDay readHalfDay()
    {
        const qsizetype start = m_at;
        skipBlanks();
        const HalfDay half = halfDayNamed(readWord());
        if (half == HalfDay::None)
            m_at = start;
        return half;
    }

    bool readItem()
    {
        if (isDigit(here())) {
            const int value = readNumber();
            if (timeSeparatorFollows())
                return readTime(value);
            if (const HalfDay half = readHalfDay(); half != HalfDay::None)
                return setTime(value, 0, 0, half);
            if (m_numbers.size() == 3)
                return false;
            m_numbers.append(value);
            return true;
        }
        if (m_month != 0)
            return false;
        m_month = monthNamed(readWord());
        return m_month != 0;
    }

    bool readTime(int hour)
    {
        ++m_at;
        const int minute = readNumber();
        int second = 0;
        if (timeSeparatorFollows()) {
            ++m_at;
            second = readNumber();
        }
        return setTime(hour, minute, second, readHalfDay());
    }

    bool setTime(int hour, int minute, int second, HalfDay half)
    {
        if (m_seconds >= 0 || hour > 23 || minute > 59 || second > 59)
            return false;
        // Past twelve the 24-hour clock speaks for itself.
        if (half == HalfDay::Am && hour == 12)
            hour = 0;
        else if (half == HalfDay::Pm && hour < 12)
            hour += 12;
        m_seconds = (hour * 60 + minute) * 60 + second;
        return true;
    }

    bool isPartSeparator(QChar c) const
    {
        return c == u'/' || c == u'-' || c == u',' || (m_dotParts && c == u'.');
    }

    // The separator of two items: blanks and at most one mark. Only the dot of "25.12." may end a text.
    bool readSeparator()
    {
        const bool blanks = skipBlanks();
        if (atEnd())
            return true;
        if (isPartSeparator(here())) {
            const bool dot = here() == u'.';
            ++m_at;
            skipBlanks();
            return dot || !atEnd();
        }
        // "25Dec2003" needs nothing between; two numbers or two words do.
        return blanks || here().isLetter() || isDigit(here());
    }

    std::optional<DateTime> result() const
    {
        if (m_numbers.isEmpty() && m_month == 0)
            return m_seconds < 0 ? std::nullopt : std::optional(serialOf(0, m_seconds));
        const std::optional<int> days = m_month != 0 ? withMonthName() : withNumbers();
        if (!days)
            return std::nullopt;
        return serialOf(*days, std::max(m_seconds, 0));
    }

    std::optional<int> withNumbers() const
    {
        if (m_numbers.size() == 3)
            return threeNumbers(m_numbers[0], m_numbers[1], m_numbers[2], m_settings.order);
        if (m_numbers.size() == 2)
            return twoNumbers(m_numbers[0], m_numbers[1], m_settings.order);
        return std::nullopt;
    }

    std::optional<int> withMonthName() const
    {
        if (m_numbers.size() == 2) {
            const int a = m_numbers[0];
            const int b = m_numbers[1];
            return firstThatFits({{b, m_month, a}, {a, m_month, b}});
        }
        if (m_numbers.size() != 1)
            return std::nullopt;
        return firstThatFits({{Date().year(), m_month, m_numbers[0]}, {m_numbers[0], m_month, 1}});
    }

    QStringView m_text;
    const Regional &m_settings;
    const bool m_dotParts;       // "25.12.2003" is a date, not a time
    qsizetype m_at = 0;
    QVarLengthArray<int, 3> m_numbers;
    int m_month = 0;
    int m_seconds = -1;
};

}

std::optional<DateTime> parseDate(QStringView text, const Regional &settings)
{
    return DateReader(text, settings).read();
}

}
