#include "platform/dao/jet/parser.h"

#include <array>

using namespace Qt::StringLiterals;

namespace vorel::dao::jet {

namespace {

constexpr int errorField = 3292;        // field definition
constexpr int errorTable = 3290;        // CREATE TABLE
constexpr int errorIndex = 3291;
constexpr int errorDrop = 3295;
constexpr int errorAlter = 3293;
constexpr int errorConstraint = 3289;

struct TypeName { QStringView word; DataType type; bool counter = false; };
constexpr std::array typeNames = {
    TypeName{u"TEXT", dbText}, TypeName{u"STRING", dbText}, TypeName{u"CHAR", dbText}, TypeName{u"VARCHAR", dbText},
    TypeName{u"ALPHANUMERIC", dbText}, TypeName{u"MEMO", dbMemo}, TypeName{u"LONGTEXT", dbMemo},
    TypeName{u"NOTE", dbMemo}, TypeName{u"LONGCHAR", dbMemo}, TypeName{u"INTEGER", dbLong}, TypeName{u"LONG", dbLong},
    TypeName{u"INT", dbLong}, TypeName{u"INTEGER4", dbLong}, TypeName{u"SHORT", dbInteger},
    TypeName{u"SMALLINT", dbInteger}, TypeName{u"INTEGER2", dbInteger}, TypeName{u"BYTE", dbByte},
    TypeName{u"INTEGER1", dbByte}, TypeName{u"CURRENCY", dbCurrency}, TypeName{u"MONEY", dbCurrency},
    TypeName{u"DATETIME", dbDate}, TypeName{u"DATE", dbDate}, TypeName{u"TIME", dbDate},
    TypeName{u"TIMESTAMP", dbDate}, TypeName{u"BIT", dbBoolean}, TypeName{u"YESNO", dbBoolean},
    TypeName{u"BOOLEAN", dbBoolean}, TypeName{u"LOGICAL", dbBoolean}, TypeName{u"LOGICAL1", dbBoolean},
    TypeName{u"COUNTER", dbLong, true}, TypeName{u"AUTOINCREMENT", dbLong, true}, TypeName{u"DOUBLE", dbDouble},
    TypeName{u"FLOAT", dbDouble}, TypeName{u"NUMBER", dbDouble}, TypeName{u"NUMERIC", dbDouble},
    TypeName{u"FLOAT8", dbDouble}, TypeName{u"IEEEDOUBLE", dbDouble}, TypeName{u"SINGLE", dbSingle},
    TypeName{u"REAL", dbSingle}, TypeName{u"FLOAT4", dbSingle}, TypeName{u"IEEESINGLE", dbSingle},
    TypeName{u"LONGBINARY", dbLongBinary}, TypeName{u"OLEOBJECT", dbLongBinary}, TypeName{u"GENERAL", dbLongBinary}};

}

Statement Parser::createStatement()
{
    next();
    if (acceptWord(u"TABLE"))
        return createTable();
    const bool unique = acceptWord(u"UNIQUE");
    if (acceptWord(u"INDEX"))
        return createIndex(unique);
    throw EngineError(errorTable);
}

Statement Parser::createTable()
{
    Statement statement;
    statement.kind = StatementKind::CreateTable;
    statement.table = expectName(errorTable);
    statement.created.name = statement.table;
    expectSymbol(u'(', errorTable);
    do {
        if (isWord(peek(), u"CONSTRAINT") || (isWord(peek(), u"PRIMARY") && isWord(peek(1), u"KEY")))
            tableConstraint(statement.constraints);
        else
            statement.created.columns.push_back(columnDefinition(statement.constraints));
    } while (acceptSymbol(u','));
    expectSymbol(u')', errorTable);
    if (statement.created.columns.empty())
        throw EngineError(errorTable);
    return statement;
}

ColumnDesign Parser::columnDefinition(std::vector<IndexDesign> &constraints)
{
    ColumnDesign column;
    column.name = expectName(errorField);
    const QString word = expectName(errorField);
    const auto found = std::find_if(typeNames.begin(), typeNames.end(), [&](const TypeName &candidate) {
        return candidate.word.compare(word, Qt::CaseInsensitive) == 0;
    });
    if (found == typeNames.end())
        throw EngineError(errorField);
    column.type = found->type;
    column.autoIncrement = found->counter;
    column.allowZeroLength = false;
    column.size = column.type == dbText ? 255 : 0;
    if (acceptSymbol(u'(')) {
        bool ok = false;
        const int size = next().text.toInt(&ok);
        if (!ok || size < 1 || (column.type == dbText && size > 255))
            throw EngineError(errorField);
        if (column.type == dbText)
            column.size = size;
        if (acceptSymbol(u','))
            next();
        expectSymbol(u')', errorField);
    }
    IndexDesign key;
    while (true) {
        if (acceptWord(u"NOT")) {
            expectWord(u"NULL", errorField);
        } else if (acceptWord(u"CONSTRAINT")) {
            key.name = expectName(errorConstraint);
        } else if (acceptWord(u"UNIQUE")) {
            key.unique = true;
        } else if (acceptWord(u"PRIMARY")) {
            expectWord(u"KEY", errorConstraint);
            key.unique = key.primary = key.disallowNull = true;
        } else {
            break;
        }
    }
    if (key.unique) {
        if (key.name.isEmpty())
            key.name = key.primary ? u"PrimaryKey"_s : column.name;
        key.fields.emplace_back(column.name, false);
        constraints.push_back(key);
    }
    return column;
}

void Parser::tableConstraint(std::vector<IndexDesign> &constraints)
{
    IndexDesign key;
    key.name = u"PrimaryKey"_s;
    if (acceptWord(u"CONSTRAINT"))
        key.name = expectName(errorConstraint);
    if (acceptWord(u"PRIMARY")) {
        expectWord(u"KEY", errorConstraint);
        key.primary = key.disallowNull = true;
    } else {
        expectWord(u"UNIQUE", errorConstraint);
    }
    key.unique = true;
    key.fields = indexFields();
    constraints.push_back(key);
}

std::vector<std::pair<QString, bool>> Parser::indexFields()
{
    std::vector<std::pair<QString, bool>> fields;
    expectSymbol(u'(', errorIndex);
    do {
        const QString name = expectName(errorIndex);
        const bool descending = acceptWord(u"DESC");
        if (!descending)
            acceptWord(u"ASC");
        fields.emplace_back(name, descending);
    } while (acceptSymbol(u','));
    expectSymbol(u')', errorIndex);
    return fields;
}

Statement Parser::createIndex(bool unique)
{
    Statement statement;
    statement.kind = StatementKind::CreateIndex;
    statement.index.name = expectName(errorIndex);
    statement.index.unique = unique;
    expectWord(u"ON", errorIndex);
    statement.table = expectName(errorIndex);
    statement.index.fields = indexFields();
    if (acceptWord(u"WITH")) {
        if (acceptWord(u"PRIMARY")) {
            statement.index.primary = statement.index.unique = statement.index.disallowNull = true;
        } else if (acceptWord(u"DISALLOW")) {
            expectWord(u"NULL", errorIndex);
            statement.index.disallowNull = true;
        } else {
            expectWord(u"IGNORE", errorIndex);
            expectWord(u"NULL", errorIndex);
        }
    }
    return statement;
}

Statement Parser::dropStatement()
{
    next();
    Statement statement;
    if (acceptWord(u"TABLE")) {
        statement.kind = StatementKind::DropTable;
        statement.table = expectName(errorDrop);
        return statement;
    }
    expectWord(u"INDEX", errorDrop);
    statement.kind = StatementKind::DropIndex;
    statement.index.name = expectName(errorDrop);
    expectWord(u"ON", errorDrop);
    statement.table = expectName(errorDrop);
    return statement;
}

Statement Parser::alterStatement()
{
    next();
    Statement statement;
    statement.kind = StatementKind::AlterTable;
    expectWord(u"TABLE", errorAlter);
    statement.table = expectName(errorAlter);
    if (acceptWord(u"ADD")) {
        if (isWord(peek(), u"CONSTRAINT")) {
            tableConstraint(statement.constraints);
            return statement;
        }
        acceptWord(u"COLUMN");
        do
            statement.created.columns.push_back(columnDefinition(statement.constraints));
        while (acceptSymbol(u','));
        return statement;
    }
    expectWord(u"DROP", errorAlter);
    if (acceptWord(u"CONSTRAINT")) {
        statement.index.name = expectName(errorAlter);
        return statement;
    }
    acceptWord(u"COLUMN");
    do
        statement.dropped.append(expectName(errorAlter));
    while (acceptSymbol(u','));
    return statement;
}

}
