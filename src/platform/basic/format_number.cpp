#include "platform/basic/formatting.h"

#include <QVarLengthArray>
#include <algorithm>

namespace vorel::basic::detail {

using namespace Qt::StringLiterals;

namespace {

enum class Kind : std::uint8_t { Literal, WholeDigit, Point, FractionDigit, Exponent };

struct Item {
    Kind kind;
    QChar literal;
};

// One section of a number pattern, taken apart.
class Section {
public:
    explicit Section(QStringView pattern)
    {
        for (qsizetype i = 0; i < pattern.size(); ++i)
            i = read(pattern, i);
        scale += m_commas;
    }

    QVarLengthArray<Item, 32> items;
    int wholePlaces = 0;
    int minWhole = 0;           // from the first "0" on, every place is filled
    int fractionPlaces = 0;
    int minFraction = 0;        // up to the last "0", every place is filled
    int percents = 0;
    int scale = 0;              // thousands to divide by
    bool grouped = false;
    bool hasPoint = false;
    bool hasExponent = false;
    bool exponentPlus = false;
    QChar exponentLetter;
    int minExponent = 0;

    bool hasPlaces() const { return wholePlaces + fractionPlaces > 0; }

private:
    void add(Kind kind, QChar literal = {}) { items.append(Item{kind, literal}); }

    void addPlace(bool zero)
    {
        if (hasPoint) {
            ++fractionPlaces;
            if (zero)
                minFraction = fractionPlaces;
            add(Kind::FractionDigit);
            return;
        }
        grouped = grouped || m_commas > 0;
        m_commas = 0;
        ++wholePlaces;
        if (zero || minWhole > 0)
            ++minWhole;
        add(Kind::WholeDigit);
    }

    // "E+0": the letter, the sign and the places of the exponent.
    qsizetype readExponent(QStringView pattern, qsizetype i)
    {
        hasExponent = true;
        exponentLetter = pattern[i];
        exponentPlus = pattern[i + 1] == u'+';
        i += 2;
        for (; i < pattern.size() && (pattern[i] == u'0' || pattern[i] == u'#'); ++i)
            minExponent += pattern[i] == u'0';
        add(Kind::Exponent);
        return i - 1;
    }

    qsizetype read(QStringView pattern, qsizetype i)
    {
        const QChar c = pattern[i];
        const QChar next = i + 1 < pattern.size() ? pattern[i + 1] : QChar();
        switch (c.unicode()) {
        case u'0':
        case u'#':
            addPlace(c == u'0');
            return i;
        case u'.':
            if (hasPoint) {
                add(Kind::Literal, c);
                return i;
            }
            hasPoint = true;
            add(Kind::Point);
            return i;
        case u',':
            if (!hasPoint && wholePlaces > 0)
                ++m_commas;
            return i;
        case u'%':
            ++percents;
            break;
        case u'"':
            for (++i; i < pattern.size() && pattern[i] != u'"'; ++i)
                add(Kind::Literal, pattern[i]);
            return i;
        case u'\\':
            if (!next.isNull())
                add(Kind::Literal, next);
            return i + 1;
        case u'e':
        case u'E':
            if (!hasExponent && hasPlaces() && (next == u'+' || next == u'-'))
                return readExponent(pattern, i);
            break;
        default:
            break;
        }
        add(Kind::Literal, c);
        return i;
    }

    int m_commas = 0;           // seen since the last place: grouping if a place follows, else a division
};

class NumberWriter {
public:
    NumberWriter(const Section &section, Decimal number, const Regional &settings)
        : m_section(section), m_number(number), m_settings(settings)
    {
        if (!m_number.isZero())
            m_number.point += 2 * section.percents - 3 * section.scale;
        if (section.hasExponent)
            takeExponent();
        m_number.roundHalfAway(section.fractionPlaces);
        m_whole = std::max({m_number.point, section.minWhole, 0});
        m_fraction = std::max(section.minFraction, m_number.count - m_number.point);
    }

    bool roundsToZero() const { return m_section.hasPlaces() && m_number.isZero(); }

    void write(QString &out)
    {
        int place = m_section.wholePlaces;
        int decimal = 0;
        for (const Item &item : m_section.items) {
            switch (item.kind) {
            case Kind::Literal:
                out += item.literal;
                break;
            case Kind::WholeDigit:
                // The first place shows all digits that have none of their own.
                writeWhole(out, place == m_section.wholePlaces ? std::max(m_whole, place) : place, place - 1);
                --place;
                break;
            case Kind::Point:
                if (m_section.wholePlaces == 0)
                    writeWhole(out, m_whole, 0);
                out += m_settings.decimalPoint;
                break;
            case Kind::FractionDigit:
                ++decimal;
                if (decimal <= m_fraction)
                    out += QLatin1Char(m_number.at(-decimal));
                break;
            case Kind::Exponent:
                writeExponent(out);
                break;
            }
        }
    }

private:
    // Digits of 10^(from - 1) down to 10^to.
    void writeWhole(QString &out, int from, int to)
    {
        for (int exponent = std::min(from, m_whole) - 1; exponent >= to; --exponent) {
            out += QLatin1Char(m_number.at(exponent));
            if (m_section.grouped && exponent > 0 && exponent % 3 == 0)
                out += m_settings.thousands;
        }
    }

    // Moves the point so that the places before it are filled.
    void takeExponent()
    {
        if (m_number.isZero())
            return;
        const int places = std::max(m_section.wholePlaces, 1);
        m_exponent = m_number.point - places;
        m_number.point = places;
        Decimal roundedUp = m_number;
        roundedUp.roundHalfAway(m_section.fractionPlaces);
        if (roundedUp.point > places) {
            ++m_exponent;
            --m_number.point;
        }
    }

    void writeExponent(QString &out) const
    {
        out += m_section.exponentLetter;
        if (m_exponent < 0)
            out += u'-';
        else if (m_section.exponentPlus)
            out += u'+';
        const QString digits = QString::number(std::abs(m_exponent));
        out += QString(std::max<qsizetype>(m_section.minExponent - digits.size(), 0), u'0') + digits;
    }

    const Section &m_section;
    Decimal m_number;
    const Regional &m_settings;
    int m_exponent = 0;
    int m_whole = 0;
    int m_fraction = 0;
};

}

int splitSections(QStringView pattern, QStringView (&sections)[4])
{
    int count = 0;
    qsizetype start = 0;
    for (qsizetype i = 0; i <= pattern.size() && count < 4; ++i) {
        if (i == pattern.size() || pattern[i] == u';') {
            sections[count++] = pattern.mid(start, i - start);
            start = i + 1;
        } else if (pattern[i] == u'\\' && i + 1 < pattern.size()) {
            ++i;
        } else if (pattern[i] == u'"') {
            while (i + 1 < pattern.size() && pattern[++i] != u'"') {
            }
        }
    }
    return count;
}

QString formatNumber(const Decimal &number, QStringView pattern, const Regional &settings)
{
    QStringView sections[4];
    const int count = splitSections(pattern, sections);
    int chosen = 0;
    if (number.isZero())
        chosen = count > 2 ? 2 : 0;
    else if (number.negative)
        chosen = count > 1 ? 1 : 0;
    // An empty section is printed by the first one, which then shows the sign itself.
    if (sections[chosen].isEmpty())
        chosen = 0;
    const Section section(sections[chosen]);
    NumberWriter writer(section, number, settings);
    QString out;
    if (number.negative && chosen == 0 && !writer.roundsToZero())
        out += u'-';
    writer.write(out);
    return out;
}

QString formatCurrency(const Decimal &number, const Regional &settings)
{
    Decimal absolute = number;
    absolute.roundHalfAway(2);
    const bool negative = absolute.negative && !absolute.isZero();
    absolute.negative = false;
    QString amount = formatNumber(absolute, u"#,##0.00", settings);
    if (settings.currencyAfter) {
        amount += u' ' + settings.currencySymbol;
    } else {
        amount.prepend(settings.currencySymbol);
    }
    if (!negative)
        return amount;
    return settings.currencyNegativeInBrackets ? u'(' + amount + u')' : u'-' + amount;
}

}
