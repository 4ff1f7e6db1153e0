#include "platform/basic/value.h"

#include "platform/basic/calendar.h"
#include "platform/basic/decimal.h"

namespace vorel::basic {

using namespace Qt::StringLiterals;

QString Value::text() const
{
    switch (type()) {
    case ValueType::Text:
        return get<QString>();
    case ValueType::Null:
        break;
    case ValueType::Boolean:
        return get<bool>() ? u"True"_s : u"False"_s;
    case ValueType::Byte:
        return QString::number(get<std::uint8_t>());
    case ValueType::Integer:
        return QString::number(get<std::int16_t>());
    case ValueType::Long:
        return QString::number(get<std::int32_t>());
    case ValueType::Currency:
        return detail::currencyText(get<Currency>(), regional().decimalPoint);
    case ValueType::Single:
        return detail::singleText(get<float>(), regional().decimalPoint);
    case ValueType::Double:
        return detail::doubleText(get<double>(), regional().decimalPoint);
    case ValueType::Date: {
        QString out;
        detail::appendGeneralDate(out, get<DateTime>(), regional());
        return out;
    }
    case ValueType::Binary:
        return QString::fromLatin1(get<QByteArray>());
    }
    return {};
}

}
