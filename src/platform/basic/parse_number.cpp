#include "platform/basic/decimal.h"

#include <algorithm>

namespace vorel::basic::detail {

namespace {

class NumberReader {
public:
    NumberReader(QStringView text, const Regional &settings) : m_text(text), m_settings(settings) {}

    std::optional<Decimal> read()
    {
        skipBlanks();
        if (!readPrefix() || !readDigits())
            return std::nullopt;
        readExponent();
        if (!readSuffix())
            return std::nullopt;
        m_number.trim();
        m_number.negative = m_number.negative && !m_number.isZero();
        return m_number;
    }

private:
    bool atEnd() const { return m_at >= m_text.size(); }
    QChar here() const { return atEnd() ? QChar() : m_text[m_at]; }
    bool take(QChar c)
    {
        if (atEnd() || m_text[m_at] != c)
            return false;
        ++m_at;
        return true;
    }
    void skipBlanks()
    {
        while (!atEnd() && (here() == u' ' || here() == u'\t'))
            ++m_at;
    }
    static bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }
    static bool isSpaceLike(QChar c) { return c == u' ' || c == u'\u00A0' || c == u'\u202F'; }

    bool takeSymbol()
    {
        const QString &symbol = m_settings.currencySymbol;
        if (symbol.isEmpty() || !m_text.mid(m_at).startsWith(symbol))
            return false;
        m_at += symbol.size();
        return true;
    }

    // A sign, a bracket and the currency symbol in any order, each at most once.
    bool readPrefix()
    {
        for (;; skipBlanks()) {
            if (here() == u'+' || here() == u'-') {
                if (m_signed)
                    return false;
                m_signed = true;
                m_number.negative = take(u'-');
                if (!m_number.negative)
                    ++m_at;
            } else if (here() == u'(') {
                if (m_signed)
                    return false;
                ++m_at;
                m_signed = m_bracket = m_number.negative = true;
            } else if (!m_symbol && takeSymbol()) {
                m_symbol = true;
            } else {
                return true;
            }
        }
    }

    // Separators of thousands may occur anywhere before the point.
    bool takeThousands()
    {
        const QChar c = here();
        const bool fits = c == m_settings.thousands
            || (isSpaceLike(m_settings.thousands) && isSpaceLike(c) && m_at + 1 < m_text.size() && isDigit(m_text[m_at + 1]));
        if (fits)
            ++m_at;
        return fits;
    }

    void addDigit(QChar c, bool afterPoint)
    {
        const bool leadingZero = m_number.isZero() && c == u'0';
        if (!afterPoint && !leadingZero)
            ++m_number.point;
        else if (afterPoint && leadingZero)
            --m_number.point;
        if (!leadingZero && m_number.count < Decimal::capacity)
            m_number.digits[static_cast<std::size_t>(m_number.count++)] = static_cast<char>(c.unicode());
    }

    bool readDigits()
    {
        bool any = false;
        bool afterPoint = false;
        while (!atEnd()) {
            const QChar c = here();
            if (isDigit(c)) {
                any = true;
                addDigit(c, afterPoint);
                ++m_at;
            } else if (!afterPoint && c == m_settings.decimalPoint) {
                afterPoint = true;
                ++m_at;
            } else if (afterPoint || !any || !takeThousands()) {
                break;
            }
        }
        return any;
    }

    void readExponent()
    {
        if (here() != u'e' && here() != u'E')
            return;
        qsizetype at = m_at + 1;
        bool negative = false;
        if (at < m_text.size() && (m_text[at] == u'+' || m_text[at] == u'-'))
            negative = m_text[at++] == u'-';
        if (at >= m_text.size() || !isDigit(m_text[at]))
            return;
        int exponent = 0;
        for (; at < m_text.size() && isDigit(m_text[at]); ++at)
            exponent = std::min(exponent * 10 + m_text[at].digitValue(), 100000);
        m_number.point += negative ? -exponent : exponent;
        m_at = at;
    }

    bool readSuffix()
    {
        skipBlanks();
        if (m_bracket && !take(u')'))
            return false;
        if (!m_signed && (here() == u'-' || here() == u'+')) {
            m_number.negative = here() == u'-';
            ++m_at;
        }
        if (m_settings.currencyAfter && !m_symbol) {
            while (!atEnd() && isSpaceLike(here()))
                ++m_at;
            takeSymbol();
        }
        skipBlanks();
        return atEnd();
    }

    QStringView m_text;
    const Regional &m_settings;
    qsizetype m_at = 0;
    Decimal m_number;
    bool m_signed = false;
    bool m_bracket = false;
    bool m_symbol = false;
};

}

std::optional<Decimal> parseNumber(QStringView text, const Regional &settings)
{
    return NumberReader(text, settings).read();
}

}
