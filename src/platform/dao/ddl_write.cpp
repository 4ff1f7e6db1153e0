#include "platform/dao/ddl.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/dao/ddl_tokens.h"
#include "platform/dao/sqlite.h"

namespace vorel::dao::ddl {

using namespace Qt::StringLiterals;

namespace {

QByteArray spelling(const FieldDef &field)
{
    switch (field.Type) {
    case dbBoolean: return "BOOLEAN_INT";
    case dbByte: return "TINYINT";
    case dbInteger: return "SMALLINT";
    case dbLong: return "LONGINT";
    case dbCurrency: return "CURRENCY_INT";
    case dbSingle: return "FLOAT";
    case dbDouble: return "DOUBLE";
    case dbDate: return "DATETEXT";
    case dbText: return "VARCHAR(" + QByteArray::number(field.Size > 0 ? field.Size : 255) + ')';
    case dbLongBinary: return "BLOB";
    case dbMemo: return "LONGTEXT";
    case dbUnknown: break;
    }
    throw EngineError(err::InvalidProperty);
}

QByteArray defaultSql(const FieldDef &field)
{
    // A Boolean is never Null, also where another tool adds the row.
    if (field.Type == dbBoolean)
        return defaultValue(field) == Value(true) ? " DEFAULT -1" : " DEFAULT 0";
    if (field.Type == dbDate || field.Type == dbLongBinary || field.DefaultValue.isEmpty())
        return {};
    const Value value = defaultValue(field);
    if (value.isNull())
        return {};
    if (value.isText())
        return " DEFAULT " + sqlText(value.get<QString>());
    if (const auto *money = value.tryGet<basic::Currency>())
        return " DEFAULT " + QByteArray::number(money->scaled());
    return " DEFAULT " + QByteArray::number(basic::CDbl(value), 'g', 17);
}

QByteArray comment(const char *property, const QString &value)
{
    return QByteArray(" /* ") + property + '=' + escapedComment(value) + " */";
}

// What the SQL alone does not give back goes into comments.
QByteArray comments(const FieldDef &wanted, const FieldDef &read)
{
    QByteArray text;
    if (wanted.Size != read.Size)
        text += comment("Size", QString::number(wanted.Size));
    if (wanted.AllowZeroLength != read.AllowZeroLength)
        text += comment("AllowZeroLength", wanted.AllowZeroLength ? u"True"_s : u"False"_s);
    if (wanted.DefaultValue != read.DefaultValue)
        text += comment("DefaultValue", wanted.DefaultValue);
    if (!wanted.ValidationRule.isEmpty())
        text += comment("ValidationRule", wanted.ValidationRule);
    if (!wanted.ValidationText.isEmpty())
        text += comment("ValidationText", wanted.ValidationText);
    return text;
}

const IndexDef *rowIdIndex(const TableDef &design)
{
    for (const IndexDef &index : design.Indexes) {
        if (isRowId(design, index))
            return &index;
    }
    return nullptr;
}

QByteArray autoIncrement(const TableDef &design, const FieldDef &field)
{
    const IndexDef *index = rowIdIndex(design);
    QByteArray sql = "INTEGER";
    if (index)
        sql += " CONSTRAINT " + quoted(index->Name);
    sql += " PRIMARY KEY AUTOINCREMENT";
    return field.Required ? sql + " NOT NULL" : sql;
}

QByteArray column(const TableDef &design, const FieldDef &field)
{
    const QByteArray name = quoted(field.Name);
    const bool counter = (field.Attributes & dbAutoIncrField) != 0;
    QByteArray definition = name + ' ';
    if (counter) {
        definition += autoIncrement(design, field);
    } else {
        definition += spelling(field);
        if (field.Required)
            definition += " NOT NULL";
        definition += defaultSql(field);
        if ((field.Type == dbText || field.Type == dbMemo) && !field.AllowZeroLength)
            definition += " CONSTRAINT " + quoted(u"AllowZeroLength "_s + field.Name) + " CHECK (" + name + " <> '')";
    }
    StoredColumn stored;
    stored.name = field.Name;
    stored.declaredType = counter ? u"INTEGER"_s : QString::fromLatin1(spelling(field));
    stored.notNull = field.Required;
    stored.keyPosition = counter ? 1 : 0;
    stored.defaultSql = QString::fromUtf8(defaultSql(field)).mid(9);
    const TableDef read = readTable(design.Name, u"CREATE TABLE x ("_s + QString::fromUtf8(definition) + u')', { stored }, {});
    return definition + comments(field, read.Fields.front());
}

void checkFields(const TableDef &design)
{
    if (design.Name.isEmpty() || design.Fields.empty())
        throw EngineError(err::InvalidProperty);
    int counters = 0;
    QStringList names;
    for (const FieldDef &field : design.Fields) {
        if (field.Name.isEmpty() || names.contains(field.Name, Qt::CaseInsensitive))
            throw EngineError(field.Name.isEmpty() ? err::InvalidProperty : err::FieldDefinedTwice);
        names.append(field.Name);
        if (field.Attributes & dbAutoIncrField)
            ++counters;
    }
    if (counters > 1)
        throw EngineError(err::InvalidProperty);
    QStringList indexes;
    for (const IndexDef &index : design.Indexes) {
        if (indexes.contains(index.Name, Qt::CaseInsensitive))
            throw EngineError(err::IndexExists);
        indexes.append(index.Name);
    }
}

QString freeName(const QString &base, const std::function<bool(const QString &)> &takenName)
{
    QString name = base;
    for (int number = 2; takenName(name); ++number)
        name = base + u" (%1)"_s.arg(number);
    return name;
}

const FieldDef &fieldOf(const TableDef &design, const QString &name)
{
    for (const FieldDef &field : design.Fields) {
        if (field.Name.compare(name, Qt::CaseInsensitive) == 0)
            return field;
    }
    throw EngineError(err::FieldNotFound, name);
}

}

QByteArray createTable(const TableDef &design)
{
    checkFields(design);
    QByteArrayList parts;
    for (const FieldDef &field : design.Fields)
        parts.append("\n  " + column(design, field));
    for (const IndexDef &index : design.Indexes) {
        if (isRowId(design, index) || !(index.Primary || index.Required))
            continue;
        QByteArrayList tests;
        for (const QString &name : index.Fields)
            tests.append(quoted(fieldOf(design, name).Name) + " IS NOT NULL");
        parts.append("\n  CONSTRAINT " + quoted(u"Required "_s + index.Name) + " CHECK (" + tests.join(" AND ") + ')');
    }
    return "CREATE TABLE " + quoted(design.Name) + " (" + parts.join(",") + "\n)";
}

// Text compares without regard to case and trailing blanks, in terms that every SQLite tool knows.
QByteArray createIndex(const TableDef &design, const IndexDef &index, const std::function<bool(const QString &)> &takenName)
{
    if (index.Name.isEmpty() || index.Fields.isEmpty())
        throw EngineError(err::InvalidProperty);
    const bool unique = index.Unique || index.Primary;
    QByteArray sql = unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ";
    sql += quoted(freeName(index.Name + u" on "_s + design.Name, takenName)) + " ON " + quoted(design.Name) + " (";
    if (index.Primary)
        sql += "/* Primary */ ";
    if (index.Required)
        sql += "/* Required */ ";
    QByteArrayList keys;
    for (const QString &name : index.Fields) {
        const FieldDef &field = fieldOf(design, name);
        const bool text = field.Type == dbText || field.Type == dbMemo;
        keys.append(text ? "rtrim(" + quoted(field.Name) + ") COLLATE NOCASE" : quoted(field.Name));
    }
    return sql + keys.join(", ") + ')';
}

QByteArray createHelper(const TableDef &design, const QString &field, const std::function<bool(const QString &)> &takenName)
{
    const FieldDef &found = fieldOf(design, field);
    return "CREATE INDEX " + quoted(freeName(u'~' + found.Name + u" on "_s + design.Name, takenName)) + " ON "
        + quoted(design.Name) + " (" + quoted(found.Name) + ')';
}

bool isRowId(const TableDef &design, const IndexDef &index)
{
    return index.Fields.size() == 1 && (fieldOf(design, index.Fields.front()).Attributes & dbAutoIncrField) && index.Primary;
}

int sizeOf(DataType type)
{
    switch (type) {
    case dbBoolean:
    case dbByte: return 1;
    case dbInteger: return 2;
    case dbLong:
    case dbSingle: return 4;
    case dbCurrency:
    case dbDouble:
    case dbDate: return 8;
    default: return 0;
    }
}

Value defaultValue(const FieldDef &field)
{
    if (field.Type == dbBoolean) {
        const QString word = field.DefaultValue.trimmed().toLower();
        return word == u"true" || word == u"yes" || word == u"on" || word.toDouble() != 0.0;
    }
    QString text = field.DefaultValue;
    if (text.isEmpty() || text.compare(u"Null"_s, Qt::CaseInsensitive) == 0)
        return {};
    if (text.startsWith(u'='))
        text = text.mid(1);
    if (text.size() > 1 && (text.front() == u'"' || text.front() == u'\'') && text.back() == text.front()) {
        const QString quote(text.front());
        text = text.mid(1, text.size() - 2).replace(quote + quote, quote);
    }
    const QString call = text.toLower();
    if (field.Type == dbDate && (call == u"date()" || call == u"now()" || call == u"time()"))
        return call == u"date()" ? basic::Date() : call == u"now()" ? basic::Now() : basic::Time();
    try {
        switch (field.Type) {
        case dbByte: return basic::CByte(text);
        case dbInteger: return basic::CInt(text);
        case dbLong: return basic::CLng(text);
        case dbCurrency: return basic::CCur(text);
        case dbSingle: return basic::CSng(text);
        case dbDouble: return basic::CDbl(text);
        case dbDate: return basic::CDate(text);
        case dbLongBinary: return {};
        default: return text;
        }
    } catch (const basic::Error &) {
        return {};      // a default that does not fit the field is left out
    }
}

}
