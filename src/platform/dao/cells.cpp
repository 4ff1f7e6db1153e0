#include "platform/dao/cells.h"

#include "platform/basic/convert.h"
#include "platform/basic/storedtime.h"

#include <cstring>
#include <limits>

namespace vorel::dao {

using namespace Qt::StringLiterals;

namespace {

Value dateOf(const char *text, int length)
{
    basic::StoredTime time;
    if (!basic::readStored({ text, static_cast<size_t>(length) }, time))
        return {};
    return basic::dateTimeOf(time);
}

// Most texts are short and plain.
QString textOf(const char *content, int length)
{
    QString text(length, Qt::Uninitialized);
    QChar *out = text.data();
    unsigned char all = 0;
    for (int i = 0; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(content[i]);
        all |= byte;
        out[i] = QLatin1Char(content[i]);
    }
    return all < 0x80 ? text : QString::fromUtf8(content, length);
}

template <class T> bool fits(qint64 number)
{
    return number >= std::numeric_limits<T>::min() && number <= std::numeric_limits<T>::max();
}

// A number that is wider than its field's type (a file from elsewhere) is still shown.
Value wholeNumber(DataType type, qint64 number)
{
    if (type == dbByte && fits<std::uint8_t>(number))
        return static_cast<std::uint8_t>(number);
    if (type == dbInteger && fits<std::int16_t>(number))
        return static_cast<std::int16_t>(number);
    if (fits<std::int32_t>(number))
        return static_cast<std::int32_t>(number);
    return static_cast<double>(number);
}

Value fromInteger(DataType type, qint64 number)
{
    switch (type) {
    case dbBoolean: return number != 0;
    case dbCurrency: return basic::Currency::fromScaled(number);
    case dbSingle: return static_cast<float>(number);
    case dbDouble: return static_cast<double>(number);
    case dbDate: return basic::DateTime(static_cast<double>(number));
    case dbText:
    case dbMemo: return QString::number(number);
    case dbLongBinary: return QByteArray::number(number);
    default: return wholeNumber(type, number);
    }
}

Value fromReal(DataType type, double number)
{
    switch (type) {
    case dbBoolean: return number != 0.0;
    case dbCurrency:
        if (std::abs(number) > 9.2e18)
            return number;
        return basic::Currency::fromScaled(qRound64(number));
    case dbSingle: return static_cast<float>(number);
    case dbDate: return basic::DateTime(number);
    case dbText:
    case dbMemo: return basic::CStr(Value(number));
    default: return number;
    }
}

}

void CellBlock::start(int columns)
{
    m_columns = columns;
    m_cells.clear();
    m_present.clear();
    m_content.clear();          // keeps its room
}

void CellBlock::appendRow(sqlite3_stmt *statement, int firstColumn)
{
    const size_t start = m_cells.size();
    m_cells.resize(start + static_cast<size_t>(m_columns));
    Cell *cell = m_cells.data() + start;
    for (int i = 0; i < m_columns; ++i, ++cell) {
        sqlite3_value *value = sqlite3_column_value(statement, firstColumn + i);
        cell->kind = sqlite3_value_type(value);
        if (cell->kind == SQLITE_INTEGER) {
            cell->integer = sqlite3_value_int64(value);
        } else if (cell->kind == SQLITE_FLOAT) {
            cell->real = sqlite3_value_double(value);
        } else if (cell->kind != SQLITE_NULL) {
            const void *content = cell->kind == SQLITE_TEXT ? sqlite3_value_text(value) : sqlite3_value_blob(value);
            cell->offset = m_content.size();
            cell->length = sqlite3_value_bytes(value);
            if (cell->length > 0)
                m_content.append(static_cast<const char *>(content), static_cast<size_t>(cell->length));
        }
    }
    m_present.push_back(true);
}

void CellBlock::appendMissing()
{
    m_cells.resize(m_cells.size() + static_cast<size_t>(m_columns));
    m_present.push_back(false);
}

Value CellBlock::value(qsizetype row, int column, DataType type) const
{
    const Cell &cell = m_cells[static_cast<size_t>(row * m_columns + column)];
    const bool stored = cell.kind == SQLITE_TEXT || cell.kind == SQLITE_BLOB;
    const char *content = m_content.data() + (stored ? cell.offset : 0);
    switch (cell.kind) {
    case SQLITE_INTEGER:
        return fromInteger(type, cell.integer);
    case SQLITE_FLOAT:
        return fromReal(type, cell.real);
    case SQLITE_TEXT:
        if (type == dbDate)
            return dateOf(content, cell.length);
        if (type == dbLongBinary)
            return QByteArray(content, cell.length);
        return textOf(content, cell.length);
    case SQLITE_BLOB:
        if (type == dbText || type == dbMemo)
            return QString::fromUtf8(content, cell.length);
        return QByteArray(content, cell.length);
    default:
        return type == dbBoolean ? Value(false) : Value();
    }
}

namespace {

Value textAssigned(const FieldRules &field, const Value &value)
{
    if (value.type() == basic::ValueType::Binary)
        throw EngineError(err::Conversion);
    QString text = value.isText() ? value.get<QString>() : basic::CStr(value);
    if (field.type == dbText && field.size > 0 && text.size() > field.size)
        throw EngineError(err::TooLong);
    if (text.isEmpty() && !field.allowZeroLength)
        throw EngineError(err::ZeroLengthText, field.name);
    return text.isNull() ? QString(u""_s) : text;
}

Value converted(DataType type, const Value &value)
{
    switch (type) {
    case dbBoolean: return basic::CBool(value);
    case dbByte: return basic::CByte(value);
    case dbInteger: return basic::CInt(value);
    case dbLong: return basic::CLng(value);
    case dbCurrency: return basic::CCur(value);
    case dbSingle: return basic::CSng(value);
    case dbDouble: return basic::CDbl(value);
    case dbDate: return basic::CDate(value);
    default: return value;
    }
}

}

Value assigned(const FieldRules &field, const Value &value)
{
    if (value.isNull())
        return field.type == dbBoolean ? Value(false) : Value();
    if (field.type == dbText || field.type == dbMemo)
        return textAssigned(field, value);
    const bool binary = value.type() == basic::ValueType::Binary;
    if (field.type == dbLongBinary) {
        if (binary)
            return value;
        if (value.isText())
            return value.get<QString>().toUtf8();
        throw EngineError(err::Conversion);
    }
    if (binary)
        throw EngineError(err::Conversion);
    try {
        return converted(field.type, value);
    } catch (const basic::Error &) {
        throw EngineError(err::Conversion);
    }
}

}
