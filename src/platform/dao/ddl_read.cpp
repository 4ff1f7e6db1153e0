#include "platform/dao/ddl.h"

#include "platform/basic/convert.h"
#include "platform/dao/ddl_tokens.h"

#include <QHash>
#include <QRegularExpression>

namespace vorel::dao::ddl {

using namespace Qt::StringLiterals;

namespace {

// What a CREATE TABLE says of one column beyond what the store reports.
struct ColumnText {
    QString keyName;                    // of its own PRIMARY KEY
    bool refusesZeroLength = false;
    QHash<QString, QString> properties; // from its comments
};

ColumnText readColumn(const std::vector<Token> &item)
{
    ColumnText column;
    QString constraint;
    for (size_t i = 1; i < item.size(); ++i) {
        const Token &token = item[i];
        if (token.kind == Token::Kind::Comment) {
            const qsizetype equals = token.text.indexOf(u'=');
            if (equals > 0)
                column.properties.insert(token.text.left(equals), unescapedComment(QStringView(token.text).mid(equals + 1)));
        } else if (token.is(u"CONSTRAINT") && i + 1 < item.size()) {
            constraint = item[++i].text;
        } else if (token.is(u"PRIMARY")) {
            column.keyName = constraint;
        } else if (token.is(u"CHECK") && constraint.startsWith(u"AllowZeroLength ")) {
            column.refusesZeroLength = true;
        }
    }
    return column;
}

QHash<QString, ColumnText> readColumns(const QString &sql)
{
    QHash<QString, ColumnText> columns;
    for (const auto &item : listItems(tokens(sql))) {
        if (!item.empty() && item.front().isName())
            columns.insert(item.front().text.toLower(), readColumn(item));
    }
    return columns;
}

QString defaultText(const FieldDef &field, const QString &sql)
{
    if (sql.isEmpty() || sql.compare(u"NULL"_s, Qt::CaseInsensitive) == 0)
        return {};
    if (field.Type == dbBoolean)
        return sql == u"0" ? QString() : u"True"_s;
    if (sql.startsWith(u'\'') || sql.startsWith(u'"')) {
        const auto words = tokens(sql);
        return words.empty() ? QString() : words.front().text;
    }
    if (field.Type == dbCurrency) {
        bool ok = false;
        const qint64 scaled = sql.toLongLong(&ok);
        return ok ? basic::CStr(basic::Currency::fromScaled(scaled)) : sql;
    }
    return sql;
}

FieldDef readField(const StoredColumn &stored, const ColumnText &text, bool rowId)
{
    FieldDef field;
    field.Name = stored.name;
    field.Type = typeOf(stored.declaredType, &field.Size);
    if (rowId)
        field.Attributes = dbAutoIncrField;
    field.AllowZeroLength = (field.Type == dbText || field.Type == dbMemo) && !text.refusesZeroLength;
    field.Required = stored.notNull;
    field.DefaultValue = defaultText(field, stored.defaultSql);

    const auto property = [&](const QString &name, const QString &otherwise) {
        return text.properties.value(name, otherwise);
    };
    field.Size = property(u"Size"_s, QString::number(field.Size)).toInt();
    if (text.properties.contains(u"AllowZeroLength"_s))
        field.AllowZeroLength = property(u"AllowZeroLength"_s, {}) == u"True";
    field.DefaultValue = property(u"DefaultValue"_s, field.DefaultValue);
    field.ValidationRule = property(u"ValidationRule"_s, {});
    field.ValidationText = property(u"ValidationText"_s, {});
    return field;
}

// "SUBJECT on SUBJECTS (2)" is the design's index SUBJECT.
QString ownName(const QString &stored)
{
    static const QRegularExpression pattern(u"^(.+) on .+$"_s, QRegularExpression::DotMatchesEverythingOption);
    const auto match = pattern.match(stored);
    return match.hasMatch() ? match.captured(1) : stored;
}

QString fieldName(const TableDef &table, const QString &name)
{
    for (const FieldDef &field : table.Fields) {
        if (field.Name.compare(name, Qt::CaseInsensitive) == 0)
            return field.Name;
    }
    return {};
}

IndexDef readIndex(const TableDef &table, const StoredIndex &stored)
{
    IndexDef index;
    index.Unique = stored.unique;
    if (stored.sql.isEmpty()) {
        index.Name = stored.primary ? u"PrimaryKey"_s : stored.name;
        index.Primary = index.Required = stored.primary;
        index.Fields = stored.columns;
        return index;
    }
    index.Name = ownName(stored.name);
    for (const auto &item : listItems(tokens(stored.sql))) {
        bool found = false;
        for (const Token &token : item) {
            if (token.kind == Token::Kind::Comment) {
                index.Primary |= token.text == u"Primary";
                index.Required |= token.text == u"Required";
            } else if (const QString name = token.isName() ? fieldName(table, token.text) : QString();
                       !name.isEmpty() && !found) {
                index.Fields.append(name);
                found = true;
            }
        }
    }
    return index;
}

}

DataType typeOf(QStringView declared, int *size)
{
    const QString type = declared.trimmed().toString().toUpper();
    const qsizetype bracket = type.indexOf(u'(');
    const QString word = (bracket < 0 ? type : type.left(bracket)).trimmed();
    const int length = bracket < 0 ? 0 : QStringView(type).mid(bracket + 1).split(u')').first().trimmed().toInt();

    static const QHash<QString, DataType> spellings = {
        { u"BOOLEAN_INT"_s, dbBoolean }, { u"BOOLEAN"_s, dbBoolean }, { u"BOOL"_s, dbBoolean }, { u"BIT"_s, dbBoolean },
        { u"TINYINT"_s, dbByte }, { u"BYTE_INT"_s, dbByte }, { u"SMALLINT"_s, dbInteger },
        { u"LONGINT"_s, dbLong }, { u"INTEGER"_s, dbLong }, { u"INT"_s, dbLong },
        { u"CURRENCY_INT"_s, dbCurrency }, { u"FLOAT"_s, dbSingle }, { u"DOUBLE"_s, dbDouble }, { u"REAL"_s, dbDouble },
        { u"DATETEXT"_s, dbDate }, { u"DATETIME"_s, dbDate }, { u"DATE"_s, dbDate }, { u"TIMESTAMP"_s, dbDate },
        { u"LONGTEXT"_s, dbMemo }, { u"TEXT"_s, dbMemo }, { u"BLOB"_s, dbLongBinary },
    };
    DataType result = spellings.value(word, dbUnknown);
    if (result == dbUnknown) {
        // The store's own order of tests.
        const bool characters = word.contains(u"CHAR"_s);
        if (word.contains(u"INT"_s))
            result = dbLong;
        else if (characters && length > 0 && length <= 255)
            result = dbText;
        else if (characters || word.contains(u"CLOB"_s) || word.contains(u"TEXT"_s))
            result = dbMemo;
        else if (word.contains(u"BLOB"_s))
            result = dbLongBinary;
        else
            result = word.isEmpty() ? dbMemo : dbDouble;
    }
    if (size)
        *size = result == dbText ? length : sizeOf(result);
    return result;
}

TableDef readTable(const QString &name, const QString &sql, const std::vector<StoredColumn> &columns,
                   const std::vector<StoredIndex> &indexes)
{
    TableDef table;
    table.Name = name;
    const QHash<QString, ColumnText> texts = readColumns(sql);
    int keyFields = 0;
    for (const StoredColumn &column : columns)
        keyFields += column.keyPosition > 0;
    for (const StoredColumn &column : columns) {
        const ColumnText text = texts.value(column.name.toLower());
        const bool rowId = column.keyPosition == 1 && keyFields == 1
            && column.declaredType.compare(u"INTEGER"_s, Qt::CaseInsensitive) == 0;
        table.Fields.push_back(readField(column, text, rowId));
        if (rowId && !text.keyName.isEmpty())
            table.Indexes.push_back({ text.keyName, { column.name }, true, true, true });
    }
    for (const StoredIndex &index : indexes) {
        if (index.name.startsWith(u'~'))
            table.Helpers.append(readIndex(table, index).Fields);
        else
            table.Indexes.push_back(readIndex(table, index));
    }
    return table;
}

}
