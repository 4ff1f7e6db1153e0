#include "session/sections/contacttree.h"

#include "platform/basic/convert.h"
#include "platform/basic/text.h"
#include "session/datafiles.h"
#include "session/shared.h"

#include <QHash>
#include <array>

namespace vorel::records {

using namespace Qt::StringLiterals;

namespace {

// What the engine takes for one text has one key: case and trailing blanks do not count.
QString keyOf(const QString &text)
{
    return basic::RTrim(text).normalized(QString::NormalizationForm_D).toCaseFolded();
}

bool isSet(const dao::Value &value)
{
    return !value.isNull() && basic::CBool(value);
}

using People = QHash<QString, std::vector<TreeNode>>;       // by the key of their company

// The same rows as one query for each letter or category and one for each business, read in their order at once: a query a leaf
// would pass over the whole table each time.
class Reader {
public:
    explicit Reader(const TreeRequest &request) : m_database(openDataFileAt(request.path)), m_reads(m_database) {}

    People people()
    {
        People all;
        const dao::Recordset rows = m_database.OpenRecordset(
            u"SELECT [COMPANYNAME],[ID],[CONTACT] FROM [Contacts] WHERE [CONTACT]<>'' ORDER BY [CONTACT];"_s);
        for (qsizetype row = 0; row < rows.rowTotal(); ++row) {
            const dao::Value id = rows.cell(row, 1);
            if (!id.isNull())           // deleted since the rows were counted
                all[keyOf(rows.cell(row, 0).text())].push_back({basic::CLng(id), u"-   "_s + rows.cell(row, 2).text()});
        }
        return all;
    }

    // name: the field that a leaf shows; where: what is wanted of the rows.
    struct Wish { QString name, where; bool trims; bool hasPeople; };
    void byLetter(const Wish &wish, std::vector<TreeNode> &nodes)
    {
        const People below = wish.hasPeople ? people() : People();
        const dao::Recordset rows = m_database.OpenRecordset(
            u"SELECT [ID],["_s + wish.name + u"],[PRIVATE],[NEWIMPORT],[COMPANYNAME] FROM [Contacts] WHERE "_s + wish.where
            + u"[INVISIBLE]=False ORDER BY ["_s + wish.name + u"];"_s);
        std::array<TreeNode, letterCount> groups;
        std::array<QString, letterCount> before;
        for (qsizetype row = 0; row < rows.rowTotal(); ++row) {
            const QString name = rows.cell(row, 1).text();
            const int letter = letterOf(wish.trims ? basic::LTrim(name) : name);
            const dao::Value id = rows.cell(row, 0);
            if (letter < 0 || id.isNull())
                continue;
            const auto at = static_cast<std::size_t>(letter);
            if (QString capitals = name.toUpper(); groups[at].children.empty() || capitals != before[at]) {
                TreeNode leaf{basic::CLng(id), name, isSet(rows.cell(row, 3)), {}};
                if (!below.isEmpty() && !isSet(rows.cell(row, 2)))
                    leaf.children = below.value(keyOf(rows.cell(row, 4).text()));
                groups[at].children.push_back(std::move(leaf));
                before[at] = std::move(capitals);
            }
        }
        for (std::size_t at = 0; at < groups.size(); ++at) {
            groups[at].text = QChar(static_cast<char16_t>(u'A' + at));
            if (!groups[at].children.empty())
                nodes.push_back(std::move(groups[at]));
        }
    }

    void byCategory(std::vector<TreeNode> &nodes)
    {
        const dao::Recordset rows = m_database.OpenRecordset(
            u"SELECT [ID],[SORTNAME],[NEWIMPORT],[CATEGORY] FROM [Contacts] WHERE [INVISIBLE]=False ORDER BY [CATEGORY],[SORTNAME];"_s);
        QString before;
        for (qsizetype row = 0; row < rows.rowTotal(); ++row) {
            const dao::Value id = rows.cell(row, 0);
            if (id.isNull())
                continue;
            const QString category = rows.cell(row, 3).text();
            if (QString key = keyOf(category); nodes.empty() || key != before) {
                nodes.push_back({0, shownApostrophes(category)});
                before = std::move(key);
            }
            nodes.back().children.push_back({basic::CLng(id), rows.cell(row, 1).text(), isSet(rows.cell(row, 2))});
        }
    }

private:
    static constexpr std::size_t letterCount = 26;

    // -1 for a name that begins with anything else. An accent makes another letter.
    static int letterOf(const QString &name)
    {
        if (name.isEmpty())
            return -1;
        const QString first = name.left(1).normalized(QString::NormalizationForm_D).toCaseFolded();
        const char16_t c = first.size() == 1 ? first.at(0).unicode() : u'\0';
        return c >= u'a' && c <= u'z' ? c - u'a' : -1;
    }

    dao::Database m_database;
    dao::ManyReads m_reads;
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
