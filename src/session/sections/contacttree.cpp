#include "session/sections/contacttree.h"

#include "platform/basic/convert.h"
#include "platform/basic/text.h"
#include "platform/dao/jet/collation.h"
#include "session/datafiles.h"
#include "session/shared.h"

#include <QHash>
#include <algorithm>
#include <array>

namespace vorel::records {

using namespace Qt::StringLiterals;

namespace {

// What the engine takes for one text has one key: case and trailing blanks do not count.
QString keyOf(const QString &text)
{
    const bool isPlain = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
    const QString key = basic::RTrim(text);
    return (isPlain ? key : key.normalized(QString::NormalizationForm_D)).toCaseFolded();
}

bool isSet(const dao::Value &value)
{
    return !value.isNull() && basic::CBool(value);
}

using People = QHash<QString, std::vector<TreeNode>>;       // by the key of their company

// The same rows as one query for each letter or category and one for each business, which would pass over the whole table each time:
// the order comes from one query, what the leaves show from one passage in the order of the file.
class Reader {
public:
    explicit Reader(const TreeRequest &request) : m_database(openDataFileAt(request.path)), m_reads(m_database), m_shown(request.shown) {}

    // name: the field that a leaf shows; where: what is wanted of the rows.
    struct Wish { QString name, where; bool trims; bool hasPeople; };
    void byLetter(const Wish &wish, std::vector<TreeNode> &nodes)
    {
        readRows(wish.name, wish.hasPeople ? u",[PRIVATE],[COMPANYNAME],[CONTACT]"_s : QString(), [](Row &row, const auto &cell) {
            row.isPrivate = isSet(cell(3));
            row.company = cell(4).text();
            row.contact = cell(5).text();
        });
        const bool isShown = wish.where.isEmpty() && m_shown;
        const dao::Recordset order = isShown ? m_shown : orderOf(wish.where, wish.name);
        const People below = wish.hasPeople ? people() : People();
        std::array<TreeNode, letterCount> groups;
        for (qsizetype at = 0; at < order.rowTotal(); ++at) {
            const Row *row = rowOf(order.bookmarkAt(at));
            const int letter = row ? letterOf(row->name, wish.trims) : -1;
            if (letter < 0)
                continue;
            std::vector<TreeNode> &leaves = groups[static_cast<std::size_t>(letter)].children;
            if (!leaves.empty() && leaves.back().text.compare(row->name, Qt::CaseInsensitive) == 0)
                continue;
            leaves.push_back({row->id, row->name, row->isNew, {}});
            if (!below.isEmpty() && !row->isPrivate)
                leaves.back().children = below.value(keyOf(row->company));
        }
        for (std::size_t at = 0; at < groups.size(); ++at) {
            groups[at].text = QChar(static_cast<char16_t>(u'A' + at));
            if (!groups[at].children.empty())
                nodes.push_back(std::move(groups[at]));
        }
    }

    void byCategory(std::vector<TreeNode> &nodes)
    {
        readRows(u"SORTNAME"_s, u",[CATEGORY]"_s, [](Row &row, const auto &cell) { row.category = cell(3).text(); });
        QHash<QString, std::size_t> places;             // of the groups; none and an empty one are the same
        const dao::Recordset order = orderOf({}, u"SORTNAME"_s);
        for (qsizetype at = 0; at < order.rowTotal(); ++at) {
            const Row *row = rowOf(order.bookmarkAt(at));
            if (!row)
                continue;
            const QString key = keyOf(row->category);
            auto place = places.constFind(key);
            if (place == places.constEnd()) {
                place = places.insert(key, nodes.size());
                nodes.push_back({0, row->category});
            }
            nodes[*place].children.push_back({row->id, row->name, row->isNew, {}});
        }
        std::sort(nodes.begin(), nodes.end(), [](const TreeNode &a, const TreeNode &b) {
            return dao::jet::compareText(a.text.toStdString(), b.text.toStdString()) < 0;
        });
        for (TreeNode &group : nodes)
            group.text = shownApostrophes(group.text);
    }

private:
    static constexpr std::size_t letterCount = 26;

    struct Row {
        qint64 key = 0;
        qint32 id = 0;
        bool isPrivate = false, isNew = false;
        QString name{}, company{}, contact{}, category{};
    };

    dao::Recordset orderOf(const QString &where, const QString &name)
    {
        return m_database.OpenRecordset(u"SELECT [ID] FROM [Contacts] WHERE "_s + where + u"[INVISIBLE]=False ORDER BY ["_s + name + u"];"_s);
    }

    // more: further columns, from the fourth, which `take` puts into the row.
    template <class Take> void readRows(const QString &name, const QString &more, const Take &take)
    {
        const dao::Recordset rows = m_database.OpenRecordset(u"SELECT [ID],["_s + name + u"],[NEWIMPORT]"_s + more + u" FROM [Contacts];"_s);
        m_rows.reserve(static_cast<std::size_t>(rows.rowTotal()));
        for (qsizetype at = 0; at < rows.rowTotal(); ++at) {
            const auto cell = [&](int column) { return rows.cell(at, column); };
            const dao::Value id = cell(0);
            if (id.isNull())            // deleted since the rows were counted
                continue;
            Row &row = m_rows.emplace_back(Row{.key = rows.bookmarkAt(at).key(), .id = basic::CLng(id), .isNew = isSet(cell(2)), .name = cell(1).text()});
            if (!more.isEmpty())
                take(row, cell);
        }
        const auto byKey = [](const Row &a, const Row &b) { return a.key < b.key; };
        if (!std::is_sorted(m_rows.begin(), m_rows.end(), byKey))
            std::sort(m_rows.begin(), m_rows.end(), byKey);
    }

    const Row *rowOf(dao::Bookmark mark) const
    {
        const auto found = std::lower_bound(m_rows.begin(), m_rows.end(), mark.key(), [](const Row &row, qint64 key) { return row.key < key; });
        return found != m_rows.end() && found->key == mark.key() ? &*found : nullptr;
    }

    // Whether they are put away or not.
    People people() const
    {
        People all;
        for (const Row &row : m_rows)
            if (!basic::RTrim(row.contact).isEmpty())
                all[keyOf(row.company)].push_back({row.id, u"-   "_s + row.contact});
        for (std::vector<TreeNode> &company : all)
            std::stable_sort(company.begin(), company.end(), [](const TreeNode &a, const TreeNode &b) {
                return dao::jet::compareText(a.text.toStdString(), b.text.toStdString()) < 0;
            });
        return all;
    }

    // -1 for a name that begins with anything else. An accent makes another letter.
    static int letterOf(const QString &name, bool trims)
    {
        qsizetype at = 0;
        while (trims && at < name.size() && name.at(at) == u' ')
            ++at;
        if (at == name.size())
            return -1;
        if (const char16_t c = name.at(at).unicode(); c < 0x80)
            return c >= u'a' && c <= u'z' ? c - u'a' : c >= u'A' && c <= u'Z' ? c - u'A' : -1;
        const QString first = name.mid(at, 1).normalized(QString::NormalizationForm_D).toCaseFolded();
        const char16_t c = first.size() == 1 ? first.at(0).unicode() : u'\0';
        return c >= u'a' && c <= u'z' ? c - u'a' : -1;
    }

    dao::Database m_database;
    dao::ManyReads m_reads;
    dao::Recordset m_shown;
    std::vector<Row> m_rows;            // by their keys
};

}

void readContacts(const TreeRequest &request, std::vector<TreeNode> &nodes)
{
    Reader(request).byLetter({u"SORTNAME"_s, {}, true, true}, nodes);
}

void readBusinesses(const TreeRequest &request, std::vector<TreeNode> &nodes)
{
    Reader(request).byLetter({u"COMPANYNAME"_s, u"[PRIVATE]=False AND "_s, true, true}, nodes);
}

void readPrivateContacts(const TreeRequest &request, std::vector<TreeNode> &nodes)
{
    Reader(request).byLetter({u"SORTNAME"_s, u"[PRIVATE]=True AND "_s, false, false}, nodes);
}

void readContactCategories(const TreeRequest &request, std::vector<TreeNode> &nodes)
{
    Reader(request).byCategory(nodes);
}

}
