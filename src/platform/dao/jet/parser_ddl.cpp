#include "platform/dao/jet/parser.h"

#include <array>

using namespace Qt::StringLiterals;

namespace vorel::dao::jet {

namespace {

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
    throw EngineError(err::CreateTableSyntax);
}

Statement Parser::createTable()
{
    Statement statement;
    statement.kind = StatementKind::CreateTable;
    statement.table = expectName(err::CreateTableSyntax);
    statement.created.name = statement.table;
    expectSymbol(u'(', err::CreateTableSyntax);
    do {
        if (isWord(peek(), u"CONSTRAINT") || (isWord(peek(), u"PRIMARY") && isWord(peek(1), u"KEY")))
            tableConstraint(statement.constraints);
        else
            statement.created.columns.push_back(columnDefinition(statement.constraints));
    } while (acceptSymbol(u','));
    expectSymbol(u')', err::CreateTableSyntax);
    if (statement.created.columns.empty())
        throw EngineError(err::CreateTableSyntax);
    return statement;
}

ColumnDesign Parser::columnDefinition(std::vector<IndexDesign> &constraints)
{
    ColumnDesign column;
    column.name = expectName(err::FieldSyntax);
    const QString word = expectName(err::FieldSyntax);
    const auto found = std::find_if(typeNames.begin(), typeNames.end(), [&](const TypeName &candidate) {
        return candidate.word.compare(word, Qt::CaseInsensitive) == 0;
    });
    if (found == typeNames.end())
        throw EngineError(err::FieldSyntax);
    column.type = found->type;
    column.autoIncrement = found->counter;
    column.allowZeroLength = false;
    column.size = column.type == dbText ? 255 : 0;
    if (acceptSymbol(u'(')) {
        bool ok = false;
        const int size = next().text.toInt(&ok);
        if (!ok || size < 1 || (column.type == dbText && size > 255))
            throw EngineError(err::FieldSyntax);
        if (column.type == dbText)
            column.size = size;
        if (acceptSymbol(u','))
            next();
        expectSymbol(u')', err::FieldSyntax);
    }
    IndexDesign key;
    while (true) {
        if (acceptWord(u"NOT")) {
            expectWord(u"NULL", err::FieldSyntax);
        } else if (acceptWord(u"CONSTRAINT")) {
            key.name = expectName(err::ConstraintSyntax);
        } else if (acceptWord(u"UNIQUE")) {
            key.unique = true;
        } else if (acceptWord(u"PRIMARY")) {
            expectWord(u"KEY", err::ConstraintSyntax);
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
        key.name = expectName(err::ConstraintSyntax);
    if (acceptWord(u"PRIMARY")) {
        expectWord(u"KEY", err::ConstraintSyntax);
        key.primary = key.disallowNull = true;
    } else {
        expectWord(u"UNIQUE", err::ConstraintSyntax);
    }
    key.unique = true;
    key.fields = indexFields();
    constraints.push_back(key);
}

std::vector<std::pair<QString, bool>> Parser::indexFields()
{
    std::vector<std::pair<QString, bool>> fields;
    expectSymbol(u'(', err::CreateIndexSyntax);
    do {
        const QString name = expectName(err::CreateIndexSyntax);
        const bool descending = acceptWord(u"DESC");
        if (!descending)
            acceptWord(u"ASC");
        fields.emplace_back(name, descending);
    } while (acceptSymbol(u','));
    expectSymbol(u')', err::CreateIndexSyntax);
    return fields;
}

Statement Parser::createIndex(bool unique)
{
    Statement statement;
    statement.kind = StatementKind::CreateIndex;
    statement.index.name = expectName(err::CreateIndexSyntax);
    statement.index.unique = unique;
    expectWord(u"ON", err::CreateIndexSyntax);
    statement.table = expectName(err::CreateIndexSyntax);
    statement.index.fields = indexFields();
    if (acceptWord(u"WITH")) {
        if (acceptWord(u"PRIMARY")) {
            statement.index.primary = statement.index.unique = statement.index.disallowNull = true;
        } else if (acceptWord(u"DISALLOW")) {
            expectWord(u"NULL", err::CreateIndexSyntax);
            statement.index.disallowNull = true;
        } else {
            expectWord(u"IGNORE", err::CreateIndexSyntax);
            expectWord(u"NULL", err::CreateIndexSyntax);
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
        statement.table = expectName(err::DropSyntax);
        return statement;
    }
    expectWord(u"INDEX", err::DropSyntax);
    statement.kind = StatementKind::DropIndex;
    statement.index.name = expectName(err::DropSyntax);
    expectWord(u"ON", err::DropSyntax);
    statement.table = expectName(err::DropSyntax);
    return statement;
}

Statement Parser::alterStatement()
{
    next();
    Statement statement;
    statement.kind = StatementKind::AlterTable;
    expectWord(u"TABLE", err::AlterTableSyntax);
    statement.table = expectName(err::AlterTableSyntax);
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
    expectWord(u"DROP", err::AlterTableSyntax);
    if (acceptWord(u"CONSTRAINT")) {
        statement.index.name = expectName(err::AlterTableSyntax);
        return statement;
    }
    acceptWord(u"COLUMN");
    do
        statement.dropped.append(expectName(err::AlterTableSyntax));
    while (acceptSymbol(u','));
    return statement;
}

}
