#pragma once

#include <QFile>
#include <QHash>
#include <QStringList>
#include <functional>
#include <gtest/gtest.h>

// Cases kept as text beside the tests of a folder. A file holds tables: "=== name", then the names of its columns, then a row a
// line, all parted by tabs. Cells know \n, \r, \t, \\ and \uXXXX; a file whose first line is bare column names is one table
// whose cells are taken as they stand.
namespace vorel::test {

class Row {
public:
    Row(const QStringList &columns, const QStringList &cells)
    {
        for (qsizetype i = 0; i < columns.size(); ++i)
            m_cells[columns[i].toLatin1()] = cells[i];
    }
    QString operator[](const char *column) const
    {
        EXPECT_TRUE(m_cells.contains(column)) << "no column " << column;
        return m_cells.value(column);
    }
    std::string text(const char *column) const { return (*this)[column].toStdString(); }
    QByteArray bytes(const char *column) const { return (*this)[column].toLatin1(); }
    int number(const char *column, int absent = 0) const
    {
        const QString cell = m_cells.value(column);
        return cell.isEmpty() ? absent : cell.toInt();
    }
    double real(const char *column) const { return (*this)[column].toDouble(); }
    bool flag(const char *column) const { return (*this)[column] == QLatin1String("true"); }

private:
    QHash<QByteArray, QString> m_cells;
};

inline QString withoutEscapes(const QString &cell)
{
    QString plain;
    for (qsizetype i = 0; i < cell.size(); ++i) {
        if (cell[i] != u'\\' || i + 1 == cell.size()) {
            plain += cell[i];
            continue;
        }
        switch (cell[++i].unicode()) {
        case u'n': plain += u'\n'; break;
        case u'r': plain += u'\r'; break;
        case u't': plain += u'\t'; break;
        case u'u': plain += QChar(static_cast<char16_t>(cell.mid(i + 1, 4).toUShort(nullptr, 16))); i += 4; break;
        default: plain += cell[i];
        }
    }
    return plain;
}

inline void forEachRowOf(const QString &path, const QString &table, const std::function<void(const Row &)> &check)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    QStringList columns;
    bool isAsked = false;
    int count = 0;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        QStringList cells = line.split(u'\t');
        const bool isHead = table.isEmpty() ? columns.isEmpty() : line.startsWith(QLatin1String("=== "));
        if (isHead) {
            isAsked = table.isEmpty() || cells.takeFirst().mid(4) == table;
            columns = cells;
            continue;
        }
        if (!isAsked)
            continue;
        SCOPED_TRACE(line.toStdString());
        ASSERT_EQ(cells.size(), columns.size());
        if (!table.isEmpty()) {
            for (QString &cell : cells)
                cell = withoutEscapes(cell);
        }
        ++count;
        check(Row(columns, cells));
    }
    EXPECT_GT(count, 0) << path.toStdString() << " has no rows of " << table.toStdString();
}

#ifdef VOREL_TEST_DATA
inline void forEachRow(const char *file, const char *table, const std::function<void(const Row &)> &check)
{
    forEachRowOf(QStringLiteral(VOREL_TEST_DATA "/") + QLatin1String(file) + QLatin1String(".tsv"), QLatin1String(table), check);
}
#endif

}
