#include "session/recordtree.h"

#include "platform/basic/convert.h"
#include "platform/basic/error.h"
#include "platform/basic/text.h"
#include "session/datafiles.h"
#include "session/ini.h"

#include <numeric>

namespace vorel::records {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype manyGroups = 16;        // from here one pass over all rows is faster than a query for each group

QString bracketed(const QString &name)
{
    return u'[' + name + u']';
}

class Reader {
public:
    Reader(const TreeRequest &request, std::vector<TreeNode> &nodes)
        : m_database(openDataFileAt(request.path)), m_reads(m_database), m_table(request.table), m_field(request.field),
          m_leaf(request.leaf.isEmpty() ? request.field : request.leaf), m_names(request.names), m_capitals(namesInCapitals()),
          m_nodes(nodes)
    {
    }

    void pass(char16_t first, char16_t last)
    {
        for (char16_t c = first; c <= last; ++c) {
            const QString character{QChar(c)};
            addGroup(character, u"LEFT$("_s + bracketed(m_field) + u",1)="_s + dao::asTyped(character), m_field);
        }
    }

    void byCategory()
    {
        byValue(u"distinct(CATEGORY)"_s, u"CATEGORY"_s, m_field);
    }

    void byField()
    {
        byValue(u"distinct("_s + m_field + u')', m_field, m_leaf);
    }

private:
    // A query for each value passes over the whole table each time. Where the values are many, one reading in their order
    // gives the same groups. A value with an apostrophe has no group in either: it ends the text of its query.
    void byValue(const QString &what, const QString &by, const QString &ordering)
    {
        QStringList refused;
        const QString filled = from() + bracketed(by) + u"<>''"_s;
        const dao::Recordset values = m_database.CreateSnapshot(u"SELECT "_s + what + filled + u" ORDER BY "_s + bracketed(by) + u';');
        std::vector<qsizetype> sizes;
        dao::Recordset sorted;
        if (values.rowTotal() > manyGroups) {
            sizes = groupSizes(filled, by, values.rowTotal());
            sorted = m_database.OpenRecordset(u"SELECT *"_s + filled + u" ORDER BY "_s + bracketed(by) + u',' + bracketed(ordering) + u';');
        }
        const bool inOneReading = sorted && std::accumulate(sizes.begin(), sizes.end(), qsizetype{0}) == sorted.rowTotal();
        for (qsizetype row = 0, first = 0; row < values.rowTotal(); ++row) {
            const QString value = values.cell(row, 0).text();
            if (value.contains(u'\''))
                refused += u'"' + value + u'"';
            else if (inOneReading)
                addLeaves(value, sorted, first, sizes[static_cast<std::size_t>(row)]);
            else
                addGroup(value, bracketed(by) + u'=' + dao::asTyped(value), ordering);
            if (inOneReading)
                first += sizes[static_cast<std::size_t>(row)];
        }
        if (!refused.isEmpty())
            throw basic::Error(dao::err::QuerySyntax, u"The tree cannot show the records of "_s + refused.join(u", "_s)
                                           + u". Write a grave accent (`) in place of the apostrophe to see them here."_s);
    }

    // Of the groups in their order; none if they are not the ones that were counted on.
    std::vector<qsizetype> groupSizes(const QString &filled, const QString &by, qsizetype expected)
    {
        const dao::Recordset counts = m_database.CreateSnapshot(u"SELECT COUNT(*)"_s + filled + u" GROUP BY "_s + bracketed(by) + u" ORDER BY "_s
                                                                + bracketed(by) + u';');
        std::vector<qsizetype> sizes;
        for (qsizetype row = 0; counts.rowTotal() == expected && row < expected; ++row)
            sizes.push_back(basic::CLng(counts.cell(row, 0)));
        return sizes;
    }

    QString from() const { return u" FROM "_s + bracketed(m_table) + u" WHERE "_s; }

    void addGroup(const QString &text, const QString &condition, const QString &ordering)
    {
        const dao::Recordset rows = m_database.OpenRecordset(u"SELECT *"_s + from() + condition + u" ORDER BY "_s + bracketed(ordering) + u';');
        if (rows.rowTotal() > 0)
            addLeaves(text, rows, 0, rows.rowTotal());
    }

    void addLeaves(const QString &text, const dao::Recordset &rows, qsizetype first, qsizetype count)
    {
        const int id = rows.fieldIndex(u"ID");
        const int name = rows.fieldIndex(m_leaf);
        TreeNode group{.text = text};
        group.children.reserve(static_cast<std::size_t>(count));
        for (qsizetype row = first; row < first + count; ++row) {
            const dao::Value key = rows.cell(row, id);
            if (!key.isNull())      // deleted since the rows were counted
                group.children.push_back({.id = basic::CLng(key), .text = shown(rows.cell(row, name).text())});
        }
        m_nodes.push_back(std::move(group));
    }

    QString shown(const QString &text) const
    {
        return m_capitals ? text.toUpper() : MixedCaseName(text, m_names);
    }

    dao::Database m_database;
    dao::ManyReads m_reads;
    QString m_table, m_field, m_leaf;
    NameCase m_names;
    bool m_capitals;
    std::vector<TreeNode> &m_nodes;
};

}

void readTreeByFirstCharacter(const TreeRequest &request, std::vector<TreeNode> &nodes)
{
    Reader reader(request, nodes);
    reader.pass(u'0', u'9');
    reader.pass(u'A', u'Z');
}

void readTreeByFirstLetter(const TreeRequest &request, std::vector<TreeNode> &nodes)
{
    Reader(request, nodes).pass(u'A', u'Z');
}

void readTreeByCategory(const TreeRequest &request, std::vector<TreeNode> &nodes)
{
    Reader(request, nodes).byCategory();
}

void readTreeByField(const TreeRequest &request, std::vector<TreeNode> &nodes)
{
    Reader(request, nodes).byField();
}

QString MixedCaseName(const QString &text, NameCase names)
{
    QString name = basic::StrConvProper(text);
    if (names == NameCase::Words)
        return name;
    for (const QStringView mark : {u"Mc"_s, u"Mac"_s, u"O'"_s, u"O`"_s, u"-"_s}) {
        const qsizetype at = name.indexOf(mark);
        const qsizetype behind = at + mark.size();
        if (at >= 0 && behind < name.size())
            name[behind] = name[behind].toUpper();
    }
    return name;
}

bool namesInCapitals()
{
    return iniBoolean(GetIniValue(iniSettings, u"ContactsUpperCase"_s, u"True"_s));
}

}
