#include "platform/basic/convert.h"
#include "platform/basic/text.h"
#include "records/sectionscreen.h"
#include "session/sections/contacttree.h"
#include "session/shared.h"

#include <random>

// The trees of the contacts against the query of each letter, category and business.
namespace vorel {

using namespace Qt::StringLiterals;
using records::TreeNode;

class ContactTree : public test::SectionScreen {
protected:
    static QStringList lines(const std::vector<TreeNode> &nodes, const QString &indent = {})
    {
        QStringList all;
        for (const TreeNode &node : nodes)
            all << u"%1%2#%3%4"_s.arg(indent, node.text).arg(node.id).arg(node.marked ? u"!"_s : QString()) << lines(node.children, indent + u"  "_s);
        return all;
    }
    static std::vector<TreeNode> read(records::TreeReader reader)
    {
        std::vector<TreeNode> nodes;
        reader({.path = state().path(DataFile::Contacts), .table = {}, .field = {}, .leaf = {}}, nodes);
        return nodes;
    }
    // The rows of one query as leaves; a name that repeats the one before it is left out.
    std::vector<TreeNode> leaves(const QString &sql, const QString &name, bool hasPeople, bool dropsRepeated = true)
    {
        std::vector<TreeNode> found;
        for (dao::Recordset rows = m_file.OpenRecordset(sql); !rows.EOF_(); rows.MoveNext()) {
            const QString text = rows.Get(name).text();
            if (dropsRepeated && !found.empty() && found.back().text.toUpper() == text.toUpper())
                continue;
            found.push_back({basic::CLng(rows.Get(u"ID")), text, basic::Val(rows.Get(u"NEWIMPORT").text()) != 0, {}});
            if (!hasPeople || basic::CBool(rows.Get(u"PRIVATE")))
                continue;
            dao::Recordset people = m_file.OpenRecordset(u"SELECT [COMPANYNAME],[ID],[CONTACT] FROM [Contacts] WHERE [CONTACT]<>'' AND [COMPANYNAME]="_s
                                                         + dao::literal(rows.Get(u"COMPANYNAME").text()) + u" ORDER BY [CONTACT];"_s);
            for (; !people.EOF_(); people.MoveNext())
                found.back().children.push_back({basic::CLng(people.Get(u"ID")), u"-   "_s + people.Get(u"CONTACT").text()});
        }
        return found;
    }
    std::vector<TreeNode> byLetter(const QString &first, const QString &also, const QString &name, bool hasPeople)
    {
        std::vector<TreeNode> groups;
        for (char16_t c = u'A'; c <= u'Z'; ++c) {
            TreeNode group{0, QChar(c), false,
                           leaves(u"SELECT [ID],[SORTNAME],[COMPANYNAME],[PRIVATE],[NEWIMPORT] FROM [Contacts] WHERE LEFT$("_s + first + u",1)='"_s
                                      + QChar(c) + u"' AND "_s + also + u"[INVISIBLE]=False ORDER BY ["_s + name + u"];"_s, name, hasPeople)};
            if (!group.children.empty())
                groups.push_back(std::move(group));
        }
        return groups;
    }
    dao::Database m_file = dao::DBEngine::OpenDatabase(state().path(DataFile::Contacts));
};

TEST_F(ContactTree, OneReadingGivesWhatTheQueriesGive)
{
    const QStringList names{u"smith, Jo"_s, u"Smith, JO"_s, u"  adams"_s, u"O`Hara"_s, u"émile"_s, u"Emile"_s, u"7 seas"_s, u" "_s, u""_s, u"'t Hooft"_s,
                            u"zoë"_s, u"\u212Aelvin"_s, u"\u017Fmith"_s, u"\u0130zmir"_s, u"-dash"_s, u"ñandú"_s, u"e\u0301tude"_s, u"Ångström"_s};
    const QStringList companies{u"Mill"_s, u"MILL "_s, u"Bob's mill"_s, u" Ox"_s, {}, u"Élan"_s, u"Elan"_s};
    const QStringList categories{u"Friends"_s, u"FRIENDS"_s, u"children`s"_s, u"Work"_s, {}};
    std::mt19937 chance(13);
    {
        dao::Transaction all(m_file);
        dao::Recordset rows = m_file.OpenRecordset(u"Contacts"_s);
        for (int i = 0; i < 300; ++i) {
            const auto pick = [&](const QStringList &from) { return from[static_cast<qsizetype>(chance() % static_cast<unsigned>(from.size()))]; };
            const bool isPrivate = chance() % 2;
            dao::NewRow(rows)
                .set(u"SORTNAME", pick(names) + (chance() % 3 ? QString() : QString::number(i % 9))).set(u"COMPANYNAME", pick(companies))
                .set(u"CONTACT", chance() % 3 ? QString() : u"Person %1"_s.arg(i % 5)).set(u"CATEGORY", pick(categories))
                .set(u"PRIVATE", isPrivate).set(u"INVISIBLE", chance() % 8 == 0).set(u"NEWIMPORT", chance() % 5 ? 0 : 1).save();
        }
        all.Commit();
    }
    EXPECT_EQ(lines(read(records::readContacts)), lines(byLetter(u"TRIM$([SORTNAME])"_s, {}, u"SORTNAME"_s, true)));
    EXPECT_EQ(lines(read(records::readBusinesses)), lines(byLetter(u"TRIM$([COMPANYNAME])"_s, u"[PRIVATE]=False AND "_s, u"COMPANYNAME"_s, true)));
    EXPECT_EQ(lines(read(records::readPrivateContacts)), lines(byLetter(u"[SORTNAME]"_s, u"[PRIVATE]=True AND "_s, u"SORTNAME"_s, false)));

    std::vector<TreeNode> groups;
    dao::Recordset values = m_file.OpenRecordset(u"SELECT distinct(CATEGORY) FROM [CONTACTS] WHERE [INVISIBLE]=False ORDER BY [CATEGORY];"_s);
    for (; !values.EOF_(); values.MoveNext()) {
        const QString value = values.Get(0).text();
        groups.push_back({0, shownApostrophes(value), false,
                          leaves(u"SELECT * FROM [Contacts] WHERE [CATEGORY]="_s + dao::literal(value) + u" AND [INVISIBLE]=False ORDER BY [SORTNAME];"_s,
                                 u"SORTNAME"_s, false, false)});
    }
    std::vector<TreeNode> shown = read(records::readContactCategories);
    EXPECT_EQ(shown.size(), 4U);
    for (std::size_t i = 0; i < shown.size() && i < groups.size(); ++i) {       // a group may be written in any of its cases
        EXPECT_EQ(shown[i].text.toUpper(), groups[i].text.toUpper());
        EXPECT_EQ(lines(shown[i].children), lines(groups[i].children));
    }
}

}
