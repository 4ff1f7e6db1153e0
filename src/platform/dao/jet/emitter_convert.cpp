#include "platform/dao/jet/emitter.h"

#include "platform/dao/jet/functions.h"
#include "platform/basic/storedtime.h"

#include <QtNumeric>
#include <cstdlib>

namespace vorel::dao::jet {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 currencyUnits = 922337203685477;

// Ten-thousandths of a number as written; half to even where it has more decimals.
qint64 scaledDecimal(const QString &written)
{
    const bool negative = written.startsWith(u'-');
    const qsizetype point = written.indexOf(u'.');
    const QStringView units = QStringView(written).mid(negative, (point < 0 ? written.size() : point) - negative);
    if (written.contains(u'e', Qt::CaseInsensitive) || units.size() > 15) {
        try {
            return basic::Currency::fromDouble(written.toDouble()).scaled();
        } catch (const basic::Error &) {
            throw EngineError(err::NumericOverflow);
        }
    }
    const QString decimals = (point < 0 ? QString() : written.mid(point + 1)).leftJustified(5, u'0');
    bool ok = false;
    qint64 scaled = ((negative ? u"-"_s : QString()) + units.toString() + decimals.left(4)).toLongLong(&ok);
    const QChar next = decimals[4];
    const bool tie = next == u'5' && decimals.mid(5).count(u'0') == decimals.size() - 5;
    const bool up = tie ? scaled % 2 != 0 : next >= u'5';
    const qint64 step = !up ? 0 : negative ? -1 : 1;
    if (!ok || qAddOverflow(scaled, step, &scaled))
        throw EngineError(err::NumericOverflow);
    return scaled;
}

bool isNumberLiteral(const Expr &expr)
{
    return expr.kind == ExprKind::Integer || expr.kind == ExprKind::Decimal;
}

}

void Emitter::as(const Expr &expr, DataType type)
{
    if (expr.type == type || expr.type == dbUnknown) {
        value(expr);
        return;
    }
    switch (type) {
    case dbText:
    case dbMemo:
        text(expr);
        break;
    case dbDate:
        date(expr);
        break;
    case dbCurrency:
        currency(expr);
        break;
    case dbSingle:
    case dbDouble:
        number(expr);
        break;
    case dbBoolean:
        wrapped("j_bool", expr, &Emitter::number);
        break;
    case dbByte:
    case dbInteger:
    case dbLong:
        whole(expr);
        break;
    case dbLongBinary:
    case dbUnknown:
        value(expr);
        break;
    }
}

void Emitter::wrapped(const char *function, const Expr &expr, void (Emitter::*operand)(const Expr &))
{
    m_out += function;
    m_out += '(';
    (this->*operand)(expr);
    m_out += ')';
}

void Emitter::text(const Expr &expr)
{
    if (isTextType(expr.type) || expr.type == dbUnknown) {
        value(expr);
    } else if (isIntegerType(expr.type)) {
        m_out += "CAST(";
        value(expr);
        m_out += " AS TEXT)";
    } else {
        m_out += "j_text(";
        value(expr);
        m_out += ',' + QByteArray::number(expr.type) + ')';
    }
}

void Emitter::number(const Expr &expr)
{
    if (expr.type == dbCurrency) {
        m_out += '(';
        value(expr);
        m_out += "/10000.0)";
    } else if (expr.type == dbDate) {
        wrapped("j_serial", expr, &Emitter::value);
    } else if (isTextType(expr.type)) {
        wrapped("j_num", expr, &Emitter::value);
    } else {
        value(expr);
    }
}

void Emitter::whole(const Expr &expr)
{
    if (isIntegerType(expr.type) || expr.type == dbUnknown)
        value(expr);
    else
        wrapped("j_long", expr, &Emitter::number);
}

void Emitter::date(const Expr &expr)
{
    if (expr.type == dbDate || expr.type == dbUnknown) {
        value(expr);
    } else if (isTextType(expr.type)) {
        wrapped("j_cdate", expr, &Emitter::value);
    } else if (isNumberLiteral(expr)) {
        basic::StoredTime time;
        if (!basic::fromSerial(expr.text.toDouble(), time))
            throw EngineError(err::DateOutOfRange);
        const auto stored = basic::writeStored(time);
        m_out += '\'';
        m_out.append(stored.data(), static_cast<qsizetype>(stored.size()));
        m_out += '\'';
    } else {
        wrapped("j_todate", expr, &Emitter::number);
    }
}

void Emitter::currency(const Expr &expr)
{
    if (expr.type == dbCurrency || expr.type == dbUnknown) {
        value(expr);
    } else if (expr.kind == ExprKind::Decimal) {
        m_out += QByteArray::number(scaledDecimal(expr.text));
    } else if (expr.kind == ExprKind::Integer) {
        if (std::llabs(expr.integer) > currencyUnits)
            throw EngineError(err::NumericOverflow);
        m_out += QByteArray::number(expr.integer * 10000);
    } else if (isIntegerType(expr.type)) {
        m_out += '(';
        value(expr);
        m_out += "*10000)";
    } else if (isTextType(expr.type)) {
        wrapped("j_ccur", expr, &Emitter::value);
    } else {
        wrapped("j_cur", expr, &Emitter::number);
    }
}

void Emitter::assigned(const Expr &expr, const ColumnDesign &target)
{
    switch (target.type) {
    case dbText:
    case dbMemo:
        assignedText(expr, target);
        break;
    case dbBoolean:     // holds no Null
        if (isTextType(expr.type))
            wrapped("j_cbool", expr, &Emitter::value);
        else if (expr.kind == ExprKind::Boolean)
            value(expr);
        else
            wrapped("j_bool0", expr, &Emitter::number);
        break;
    case dbByte:
    case dbInteger:
    case dbLong:
        assignedWhole(expr, target.type);
        break;
    case dbSingle:
        wrapped("j_single", expr, &Emitter::number);
        break;
    case dbCurrency:
    case dbDouble:
    case dbDate:
    case dbLongBinary:
    case dbUnknown:
        as(expr, target.type);
        break;
    }
}

void Emitter::assignedText(const Expr &expr, const ColumnDesign &target)
{
    if (expr.kind == ExprKind::Null || (target.type == dbMemo && target.allowZeroLength)) {
        text(expr);
        return;
    }
    if (expr.kind == ExprKind::Text) {
        if (target.type == dbText && target.size > 0 && expr.text.size() > target.size)
            throw EngineError(err::TooLong);
        if (expr.text.isEmpty() && !target.allowZeroLength)
            throw EngineError(err::ZeroLengthText, target.name);
        textLiteral(expr.text);
        return;
    }
    m_out += "j_fit(";
    text(expr);
    m_out += ',' + QByteArray::number(target.type == dbText ? target.size : 0) + (target.allowZeroLength ? ",1," : ",0,");
    textLiteral(target.name);
    m_out += ')';
}

void Emitter::assignedWhole(const Expr &expr, DataType type)
{
    const bool fits = (expr.kind == ExprKind::Integer && type == dbLong && expr.type == dbLong) || expr.type == dbUnknown
        || (expr.kind == ExprKind::Name && expr.type == type);
    if (fits) {
        value(expr);
        return;
    }
    m_out += "j_whole(";
    number(expr);
    m_out += ',' + QByteArray::number(type) + ')';
}

}
