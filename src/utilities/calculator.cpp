#include "utilities/calculator.h"

#include "platform/basic/convert.h"
#include "platform/basic/locale.h"

#include <cmath>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestEntry = 20;          // what fits the display

}

// The first character after an operator, a percentage or a clearing begins a new number.
void Calculator::begin()
{
    if (!m_typing)
        m_entry.clear();
    m_typing = m_hasEntry = true;
}

void Calculator::Number(int digit)
{
    begin();
    if (m_entry == u"0"_s)
        m_entry.clear();
    if (m_entry.size() < longestEntry)
        m_entry += QString::number(digit);
}

void Calculator::Decimal()
{
    begin();
    if (m_entry.isEmpty())
        m_entry = u"0"_s;
    if (!m_entry.contains(u'.') && m_entry.size() < longestEntry)
        m_entry += u'.';
}

void Calculator::Back()
{
    if (!m_typing)
        return;
    m_entry.chop(1);
    if (m_entry.isEmpty())
        m_entry = u"0"_s;
}

double Calculator::entered() const
{
    return m_typing ? basic::Val(m_entry) : m_shown;
}

// A second operator in a row takes the place of the first.
Calculator::Outcome Calculator::Operator(Key key)
{
    double result = m_hasEntry ? entered() : m_value;
    if (m_hasEntry) {
        switch (m_operator) {
        case Key::Plus: result = m_value + result; break;
        case Key::Minus: result = m_value - result; break;
        case Key::Multiply: result = m_value * result; break;
        case Key::Divide:
            if (result == 0)
                return Outcome::DivisionByZero;
            result = m_value / result;
            break;
        case Key::Equals: break;
        }
    }
    if (!std::isfinite(result))
        return Outcome::Overflow;
    m_value = m_shown = result + 0.0;         // no minus before a zero
    m_operator = key;
    m_entry.clear();
    m_typing = m_hasEntry = false;
    return Outcome::Done;
}

Calculator::Outcome Calculator::Percent()
{
    const double part = entered() * m_value / 100;
    if (!std::isfinite(part))
        return Outcome::Overflow;
    m_shown = part;
    m_entry.clear();
    m_typing = false;
    m_hasEntry = true;
    return Outcome::Done;
}

void Calculator::Cancel()
{
    *this = {};
}

void Calculator::CancelEntry()
{
    m_entry.clear();
    m_shown = 0;
    m_typing = false;
    m_hasEntry = true;
}

QString Calculator::Readout() const
{
    if (!m_typing)
        return basic::CStr(m_shown);
    QString shown = m_entry;
    return shown.replace(u'.', basic::regional().decimalPoint);
}

}
