#include "platform/dao/jet/jetstore.h"

#include <QFile>
#include <sqlcipher/sqlite3.h>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace vorel::dao;
using namespace vorel::dao::jet;

namespace {

const QHash<QString, DataType> typeNames = {
    {u"boolean"_s, dbBoolean}, {u"byte"_s, dbByte}, {u"integer"_s, dbInteger}, {u"long"_s, dbLong}, {u"auto"_s, dbLong},
    {u"currency"_s, dbCurrency}, {u"single"_s, dbSingle}, {u"double"_s, dbDouble}, {u"date"_s, dbDate},
    {u"text"_s, dbText}, {u"memo"_s, dbMemo}};

bool isText(const ColumnDesign &column) { return column.type == dbText || column.type == dbMemo; }

QByteArray affinity(const ColumnDesign &column)
{
    if (column.autoIncrement)
        return "INTEGER PRIMARY KEY";
    const bool real = column.type == dbSingle || column.type == dbDouble;
    return isText(column) || column.type == dbDate ? "TEXT" : real ? "REAL" : "INTEGER";
}

QByteArray sample(const ColumnDesign &column, int row)
{
    if (row == 0 && (isText(column) || column.type == dbDate))
        return "NULL";
    if (isText(column))
        return "'" + column.name.toUtf8() + QByteArray::number(3 - row) + "'";
    if (column.type == dbDate)
        return "'2024-02-1" + QByteArray::number(row) + " 00:00:00'";
    if (column.type == dbBoolean)
        return row % 2 == 0 ? "-1" : "0";
    return QByteArray::number(column.type == dbCurrency ? row * 1000 + 1 : row + 1);
}

}

JetStore::JetStore()
{
    if (sqlite3_open(":memory:", &m_connection) != SQLITE_OK)
        throw std::runtime_error("no database");
    registerFunctions(m_connection);
}

JetStore::~JetStore()
{
    sqlite3_close_v2(m_connection);
}

void JetStore::add(const TableDesign &design)
{
    QByteArray sql = "CREATE TABLE \"" + design.name.toUtf8() + "\" (";
    for (const ColumnDesign &column : design.columns)
        sql += '"' + column.name.toUtf8() + "\" " + affinity(column) + ',';
    sql.back() = ')';
    raw(sql);
    m_tables.insert(design.name.toLower(), std::make_shared<TableDesign>(design));
}

void JetStore::add(const QString &table, const QString &fields)
{
    TableDesign design{table, {}};
    for (const QString &field : fields.split(u", "_s)) {
        const QStringList words = field.split(u' ');
        ColumnDesign column{.name = words[0], .type = typeNames[words[1]], .autoIncrement = words[1] == u"auto"_s};
        column.size = words.size() > 2 ? words[2].toInt() : 0;
        column.allowZeroLength = words.size() < 4;
        design.columns.push_back(column);
    }
    add(design);
}

const TableDesign *JetStore::table(QStringView name) const
{
    return m_tables.value(name.toString().toLower()).get();
}

QStringList JetStore::names() const
{
    return m_tables.keys();
}

Translation JetStore::translated(const QString &text) const
{
    return translate(text, *this);
}

JetStore::Rows JetStore::run(const QString &text)
{
    return raw(translated(text).sql);
}

JetStore::Rows JetStore::raw(const QByteArray &sql, std::initializer_list<qint64> bound)
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(m_connection, sql.constData(), -1, &statement, nullptr) != SQLITE_OK)
        throw std::runtime_error(std::string(sqlite3_errmsg(m_connection)) + " in " + sql.toStdString());
    const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> guard(statement, sqlite3_finalize);
    int parameter = 0;
    for (const qint64 value : bound)
        sqlite3_bind_int64(statement, ++parameter, value);
    Rows rows;
    int result = SQLITE_ROW;
    while ((result = sqlite3_step(statement)) == SQLITE_ROW) {
        QStringList row;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, i));
            row << (text ? QString::fromUtf8(text) : u"<null>"_s);
        }
        rows << row;
    }
    if (result != SQLITE_DONE) {
        throwFunctionError(sqlite3_errmsg(m_connection));
        throw std::runtime_error(std::string(sqlite3_errmsg(m_connection)) + " in " + sql.toStdString());
    }
    return rows;
}

int JetStore::changes() const
{
    return sqlite3_changes(m_connection);
}

QString JetStore::failure(const QString &text)
{
    try {
        run(text);
        return {};
    } catch (const EngineError &error) {
        return QString::number(error.number()) + u' ' + error.text();
    }
}

QList<QStringList> readTable(const QString &name)
{
    QFile file(QStringLiteral(VOREL_TEST_DATA "/") + name);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("missing " + name.toStdString());
    QList<QStringList> rows;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    for (const QString &line : lines.mid(1))
        rows << line.split(u'\t');
    return rows;
}

QHash<QString, std::shared_ptr<JetStore>> designedStores()
{
    QHash<QString, std::shared_ptr<JetStore>> stores;
    QList<std::pair<QString, TableDesign>> designs;
    for (const QStringList &row : readTable(u"designs.tsv"_s)) {
        if (designs.isEmpty() || designs.back().first != row[0] || designs.back().second.name != row[1])
            designs << std::pair(row[0], TableDesign{row[1], {}});
        designs.back().second.columns.push_back({.name = row[2], .type = typeNames[row[3].mid(2).toLower()],
                                                 .size = row[4].toInt(), .autoIncrement = row[5] == u"auto"_s});
    }
    for (const auto &[file, design] : designs) {
        if (!stores.contains(file))
            stores[file] = std::make_shared<JetStore>();
        stores[file]->add(design);
        for (int row = 0; row < 3; ++row) {
            QByteArray values;
            for (const ColumnDesign &column : design.columns)
                values += sample(column, row) + ',';
            values.chop(1);
            stores[file]->raw("INSERT INTO \"" + design.name.toUtf8() + "\" VALUES (" + values + ')');
        }
    }
    return stores;
}
