#include "platform/dao/dao.h"

#include <QLocale>
#include <cmath>

namespace vorel::dao {

using namespace Qt::StringLiterals;

namespace {

// With every decimal, as the lexer reads a number without going through a binary fraction where money is meant.
QString moneyText(basic::Currency amount)
{
    const std::int64_t scaled = amount.scaled();
    const QString digits = QString::number(scaled < 0 ? 0 - static_cast<quint64>(scaled) : static_cast<quint64>(scaled))
                               .rightJustified(5, u'0');
    return (scaled < 0 ? u"-"_s : QString()) + digits.chopped(4) + u'.' + digits.last(4);
}

QString numberText(double number)
{
    if (!std::isfinite(number))
        throw EngineError(err::Conversion);
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

// Month first, in which order the engine reads a date whatever the region.
QString dateText(basic::DateTime date)
{
    const QString stored = date.toStored();
    const QString day = stored.sliced(5, 2) + u'/' + stored.sliced(8, 2) + u'/' + stored.first(4);
    return u'#' + (date.hasTime() ? day + stored.sliced(10) : day) + u'#';
}

}

QString literal(const Value &value)
{
    switch (value.type()) {
    case basic::ValueType::Null:
        return u"Null"_s;
    case basic::ValueType::Boolean:
        return value.get<bool>() ? u"-1"_s : u"0"_s;
    case basic::ValueType::Byte:
        return QString::number(value.get<std::uint8_t>());
    case basic::ValueType::Integer:
        return QString::number(value.get<std::int16_t>());
    case basic::ValueType::Long:
        return QString::number(value.get<std::int32_t>());
    case basic::ValueType::Currency:
        return moneyText(value.get<basic::Currency>());
    case basic::ValueType::Single:      // as it is stored, so that the comparison is exact
        return numberText(static_cast<double>(value.get<float>()));
    case basic::ValueType::Double:
        return numberText(value.get<double>());
    case basic::ValueType::Date:
        return dateText(value.get<basic::DateTime>());
    case basic::ValueType::Text:
        return asTyped(QString(value.get<QString>()).replace(u'\'', u"''"_s));
    case basic::ValueType::Binary:
        break;
    }
    throw EngineError(err::Conversion);
}

QString asTyped(QStringView text)
{
    return u'\'' + text.toString() + u'\'';
}

}
