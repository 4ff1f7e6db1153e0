#include "platform/dao/jet/dateliteral.h"

#include "platform/basic/clock.h"

#include <QDate>
#include <array>
#include <vector>

namespace vorel::dao::jet {

namespace {

struct Part {
    int value = 0;
    qsizetype digits = 0;   // 0 for a month's name
};

struct Reader {
    QStringView text;
    qsizetype at = 0;
    std::vector<Part> parts;
    int hour = -1;
    int minute = 0;
    int second = 0;

    QChar current() const { return at < text.size() ? text[at] : QChar(); }
    bool read();
    bool word();
    bool number();
    bool time(int firstNumber);
    int digits(qsizetype *count);
};

int monthNumber(QStringView name)
{
    static constexpr std::array<QStringView, 12> months = {u"january", u"february", u"march", u"april",
        u"may", u"june", u"july", u"august", u"september", u"october", u"november", u"december"};
    for (size_t i = 0; i < months.size(); ++i) {
        if (name.compare(months[i], Qt::CaseInsensitive) == 0
            || name.compare(months[i].left(3), Qt::CaseInsensitive) == 0)
            return static_cast<int>(i) + 1;
    }
    return 0;
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

int Reader::digits(qsizetype *count)
{
    int value = 0;
    *count = 0;
    while (isDigit(current())) {
        if (++*count > 4)
            return -1;
        value = value * 10 + (current().unicode() - u'0');
        ++at;
    }
    return *count == 0 ? -1 : value;
}

bool Reader::time(int firstNumber)
{
    if (hour >= 0 || firstNumber > 23)
        return false;
    hour = firstNumber;
    qsizetype count = 0;
    for (int *part : {&minute, &second}) {
        if (current() != u':')
            break;
        ++at;
        *part = digits(&count);
        if (*part < 0 || *part > 59)
            return false;
    }
    return true;
}

bool Reader::word()
{
    const qsizetype begin = at;
    while (current().isLetter())
        ++at;
    const QStringView name = text.mid(begin, at - begin);
    const bool pm = name.compare(u"pm", Qt::CaseInsensitive) == 0 || name.compare(u"p", Qt::CaseInsensitive) == 0;
    const bool am = name.compare(u"am", Qt::CaseInsensitive) == 0 || name.compare(u"a", Qt::CaseInsensitive) == 0;
    if (am || pm) {
        if (hour < 0 && !parts.empty() && parts.back().digits != 0 && parts.back().value <= 12) {   // 9 AM
            hour = parts.back().value;
            parts.pop_back();
        }
        if (hour < 0)
            return false;
        if (hour <= 12)
            hour = hour % 12 + (pm ? 12 : 0);
        return true;
    }
    const int month = monthNumber(name);
    parts.push_back({month, 0});
    return month != 0;
}

bool Reader::number()
{
    qsizetype count = 0;
    const int value = digits(&count);
    if (value < 0)
        return false;
    if (current() == u':')
        return time(value);
    parts.push_back({value, count});
    return parts.size() <= 4;
}

bool Reader::read()
{
    while (at < text.size()) {
        const QChar c = current();
        if (isDigit(c)) {
            if (!number())
                return false;
        } else if (c.isLetter()) {
            if (!word())
                return false;
        } else if (c.isSpace() || c == u'/' || c == u'-' || c == u',') {
            ++at;
        } else {
            return false;
        }
    }
    return true;
}

int fullYear(const Part &part)
{
    if (part.digits > 2)
        return part.value;
    return part.value < 30 ? 2000 + part.value : 1900 + part.value;
}

QDate dateOf(const Part &year, const Part &month, const Part &day)
{
    if (month.digits > 2 || day.digits > 2 || (year.digits == 0) || fullYear(year) < 100)
        return {};
    return QDate(fullYear(year), month.value, day.value);
}

QDate namedMonth(const std::vector<Part> &parts, size_t month)
{
    std::vector<Part> others = parts;
    others.erase(others.begin() + static_cast<qsizetype>(month));
    const Part &named = parts[month];
    const Part thisYear{basic::Date().year(), 4};
    if (others.size() == 1) {
        const QDate day = dateOf(thisYear, named, others[0]);
        return day.isValid() ? day : dateOf(others[0], named, {1, 1});
    }
    if (others.size() != 2)
        return {};
    const bool yearFirst = others[0].digits > 2;
    const QDate date = yearFirst ? dateOf(others[0], named, others[1]) : dateOf(others[1], named, others[0]);
    return date.isValid() ? date : dateOf(others[0], named, others[1]);
}

QDate dateFrom(const std::vector<Part> &parts)
{
    for (size_t i = 0; i < parts.size(); ++i) {
        if (parts[i].digits == 0)
            return namedMonth(parts, i);
    }
    if (parts.size() == 2) {
        const Part thisYear{basic::Date().year(), 4};
        const QDate date = dateOf(thisYear, parts[0], parts[1]);
        return date.isValid() ? date : dateOf(thisYear, parts[1], parts[0]);
    }
    if (parts.size() != 3)
        return {};
    if (parts[0].digits > 2)        // year first admits no other order
        return dateOf(parts[0], parts[1], parts[2]);
    for (const auto &[year, month, day] : {std::array{2, 0, 1}, std::array{0, 1, 2}, std::array{2, 1, 0}}) {
        const auto part = [&](int i) { return parts[static_cast<size_t>(i)]; };
        const QDate date = dateOf(part(year), part(month), part(day));
        if (date.isValid())
            return date;
    }
    return {};
}

}

std::optional<QString> parseDateLiteral(QStringView text)
{
    Reader reader{.text = text, .parts = {}};
    if (!reader.read() || (reader.parts.empty() && reader.hour < 0))
        return {};
    const QDate date = reader.parts.empty() ? QDate(1899, 12, 30) : dateFrom(reader.parts);
    if (!date.isValid() || date.year() > 9999)
        return {};
    const QTime time(std::max(reader.hour, 0), reader.minute, reader.second);
    return date.toString(Qt::ISODate) + u' ' + time.toString(Qt::ISODate);
}

}
