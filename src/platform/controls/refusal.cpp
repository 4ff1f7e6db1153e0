#include "platform/controls/refusal.h"

namespace vorel::controls {

using namespace Qt::StringLiterals;

namespace {

constexpr int errMismatch = 13, errOverflow = 6;

QString kindOf(dao::DataType type)
{
    switch (type) {
    case dao::dbCurrency: return u"an amount"_s;
    case dao::dbDate: return u"a date"_s;
    case dao::dbBoolean: return u"yes or no"_s;
    default: return u"a number"_s;
    }
}

}

QString refusalText(const QString &caption, const QString &typed, const dao::RecordsetField &field, const dao::Value &value,
                    const basic::Error &error)
{
    const QString start = caption + u": "_s;
    switch (error.number()) {
    case dao::err::TooLong:
        return start + u"too long, %1 of %2"_s.arg(value.text().size()).arg(field.Size);
    case dao::err::Conversion:
    case errMismatch:
        return start + u"\"%1\" is not %2"_s.arg(typed, kindOf(field.Type));
    case errOverflow:
        return start + u"\"%1\" is too large"_s.arg(typed);
    case dao::err::ValueRequired:
        return start + u"must be filled in"_s;
    default:
        return start + error.text();
    }
}

}
