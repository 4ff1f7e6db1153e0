#include "records/recordtree.h"

#include "platform/basic/convert.h"
#include "platform/basic/text.h"
#include "session/ini.h"
#include "session/state.h"

#include <numeric>

namespace vorel::records {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype manyGroups = 16;

bool isInventory()
{
    return state().selection.gSection == u"I";
}

// The sections whose records are called by their title, whatever field groups them.
bool isCalledByTitle()
{
    return state().selection.gSection == u"K" || state().selection.gSection == u"R" || state().selection.gSection == u"U";
}

QString bracketed(const QString &name)
{
    return u'[' + name + u']';
}

bool hasField(const dao::Recordset &rows, QStringView name)
{
    for (const dao::RecordsetField &field : rows.Fields()) {
        if (name.compare(field.Name, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

class Reader {
public:
    Reader(const QString &databasePath, QString table, QString field, std::vector<TreeGroup> &groups)
        : m_database(dao::DBEngine::OpenDatabase(databasePath)), m_reads(m_database), m_table(std::move(table)), m_field(std::move(field)),
          m_capitals(namesInCapitals()), m_groups(groups)
    {
    }

    void byFirstCharacter()
    {
        if (m_table.compare(u"INVENTORY", Qt::CaseInsensitive) != 0)
            pass(u'0', u'9');
        pass(u'A', u'Z');
    }

    void byCategory()
    {
        byValue(u"distinct(CATEGORY)"_s, u"CATEGORY"_s, m_field, m_field);
    }

    void byField()
    {
        const QString called = isCalledByTitle() ? u"TITLE"_s : m_field;
        byValue(u"distinct("_s + m_field + u')', m_field, called, called);
    }

private:
    // Titles group by the character; the inventory's things, which have no title, are called by the field.
    void pass(char16_t first, char16_t last)
    {
        for (char16_t c = first; c <= last; ++c) {
            const QString character{QChar(c)};
            addGroup(character, u"LEFT$("_s + bracketed(m_field) + u",1)='"_s + character, m_field, u"TITLE"_s);
        }
    }

    // A query for each value passes over the whole table each time. Where the values are many, one reading in their order
    // gives the same groups; the value with an apostrophe still goes its own way, for its query fails.
    void byValue(const QString &what, const QString &by, const QString &ordering, const QString &called)
    {
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
            if (inOneReading && !value.contains(u'\'')) {
                addLeaves(value, sorted, first, sizes[static_cast<std::size_t>(row)], called);
            } else {
                addGroup(value, bracketed(by) + u"='"_s + value, ordering, called);
            }
            if (inOneReading)
                first += sizes[static_cast<std::size_t>(row)];
        }
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

    // `condition` ends within its text, which the quote closes.
    void addGroup(const QString &text, const QString &condition, const QString &ordering, const QString &called)
    {
        const dao::Recordset rows = m_database.OpenRecordset(u"SELECT *"_s + from() + condition + u"' ORDER BY "_s + bracketed(ordering) + u';');
        if (rows.rowTotal() > 0)
            addLeaves(text, rows, 0, rows.rowTotal(), called);
    }

    void addLeaves(const QString &text, const dao::Recordset &rows, qsizetype first, qsizetype count, const QString &called)
    {
        const int id = rows.fieldIndex(u"ID");
        const int name = rows.fieldIndex(hasField(rows, called) ? called : m_field);
        TreeGroup group{text, {}};
        for (qsizetype row = first; row < first + count; ++row) {
            const dao::Value key = rows.cell(row, id);
            if (!key.isNull())      // deleted since the rows were counted
                group.leaves.push_back({basic::CLng(key), shown(rows.cell(row, name).text())});
        }
        m_groups.push_back(std::move(group));
    }

    QString shown(const QString &text) const
    {
        return m_capitals ? text.toUpper() : MixedCaseName(text);
    }

    dao::Database m_database;
    dao::ManyReads m_reads;
    QString m_table, m_field;
    bool m_capitals;
    std::vector<TreeGroup> &m_groups;
};

}

void readRecordTree(TreeMode mode, const QString &databasePath, const QString &table, const QString &field,
                    std::vector<TreeGroup> &groups)
{
    Reader reader(databasePath, table, field, groups);
    switch (mode) {
    case TreeMode::ByFirstCharacter: return reader.byFirstCharacter();
    case TreeMode::ByCategory: return reader.byCategory();
    case TreeMode::ByField: return reader.byField();
    }
}

std::vector<TreeGroup> recordTreeRows(TreeMode mode, const QString &databasePath, const QString &table, const QString &field)
{
    std::vector<TreeGroup> groups;
    readRecordTree(mode, databasePath, table, field, groups);
    return groups;
}

QString MixedCaseName(const QString &text)
{
    QString name = basic::StrConvProper(text);
    if (isInventory())
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
