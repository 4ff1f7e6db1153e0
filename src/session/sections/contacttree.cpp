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
    const bool isPlain = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
    const QString key = basic::RTrim(text);
    return (isPlain ? key : key.normalized(QString::NormalizationForm_D)).toCaseFolded();
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
        for (qsizetype row = 0; row < rows.rowTotal(); ++row) {
            const QString name = rows.cell(row, 1).text();
            const int letter = letterOf(name, wish.trims);
            const dao::Value id = rows.cell(row, 0);
            if (letter < 0 || id.isNull())
                continue;
            std::vector<TreeNode> &leaves = groups[static_cast<std::size_t>(letter)].children;
            if (!leaves.empty() && leaves.back().text.compare(name, Qt::CaseInsensitive) == 0)
                continue;
            leaves.push_back({basic::CLng(id), name, isSet(rows.cell(row, 3)), {}});
            if (!below.isEmpty() && !isSet(rows.cell(row, 2)))
                leaves.back().children = below.value(keyOf(rows.cell(row, 4).text()));
        }
        for (std::size_t at = 0; at < groups.size(); ++at) {
            groups[at].text = QChar(static_cast<char16_t>(u'A' + at));
            if (!groups[at].children.empty())
                nodes.push_back(std::move(groups[at]));
        }
    }

    void byCategory(std::vector<TreeNode> &nodes)
    {
        QHash<QString, std::size_t> places;
        const dao::Recordset values = m_database.CreateSnapshot(
            u"SELECT distinct(CATEGORY) FROM [CONTACTS] WHERE [INVISIBLE]=False ORDER BY [CATEGORY];"_s);
        for (qsizetype row = 0; row < values.rowTotal(); ++row) {
            const QString category = values.cell(row, 0).text();
            if (const QString key = keyOf(category); !places.contains(key)) {       // none and an empty one are the same group
                places.insert(key, nodes.size());
                nodes.push_back({0, shownApostrophes(category)});
            }
        }
        const dao::Recordset rows = m_database.OpenRecordset(
            u"SELECT [ID],[SORTNAME],[NEWIMPORT],[CATEGORY] FROM [Contacts] WHERE [INVISIBLE]=False ORDER BY [SORTNAME];"_s);
        for (qsizetype row = 0; row < rows.rowTotal(); ++row) {
            const dao::Value id = rows.cell(row, 0);
            const auto place = places.constFind(keyOf(rows.cell(row, 3).text()));
            if (!id.isNull() && place != places.constEnd())
                nodes[*place].children.push_back({basic::CLng(id), rows.cell(row, 1).text(), isSet(rows.cell(row, 2))});
        }
    }

private:
    static constexpr std::size_t letterCount = 26;

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
