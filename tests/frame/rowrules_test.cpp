#include "frame/framefixture.h"
#include "frame/rowrules.h"
#include "session/sectiondesign.h"

#include <map>

using namespace Qt::StringLiterals;

namespace vorel {

using basic::Value;

class RowRulesTest : public test::FrameTest {
protected:
    // The look of a row of the section with these fields; all others are Null.
    static RowLook look(const QString &code, const std::map<QString, Value> &fields)
    {
        const SectionDesign *section = sectionByCode(code);
        return subjectRowLook(code, [&](int column) {
            const auto found = fields.find(section->list->columns[static_cast<std::size_t>(column)].field.toUpper());
            return found == fields.end() ? Value() : found->second;
        });
    }
    static Value day(int year, int month, int number) { return basic::DateTime::fromParts(year, month, number); }
};

TEST_F(RowRulesTest, styleOfTheRow)
{
    clock.set(QDate(2026, 11, 22));
    const Value days(std::int16_t{7}), none(std::int16_t{0});
    const struct { QString code; std::map<QString, Value> fields; QString style; } cases[] = {
        {u"C"_s, {}, u"XMAS"_s},
        {u"X"_s, {}, u"WHITE"_s},
        {u"G"_s, {{u"ACTIONED"_s, Value(true)}}, u"HILITE"_s},
        {u"G"_s, {{u"ACTIONED"_s, Value(false)}}, {}},
        {u"H"_s, {{u"PICK"_s, Value(true)}}, u"HILITE"_s},
        {u"H"_s, {{u"PICK"_s, Value(u"-1"_s)}}, u"HILITE"_s},
        {u"H"_s, {{u"PICK"_s, Value()}}, {}},
        {u"P"_s, {{u"NEWIMPORT"_s, Value(std::int16_t{1})}}, u"PURPLE"_s},
        {u"P"_s, {{u"NEWIMPORT"_s, none}}, {}},
        {u"F"_s, {{u"LASTBACKUPDATE"_s, day(2026, 11, 14)}, {u"DAYS"_s, days}}, u"REDALERT"_s},
        {u"F"_s, {{u"LASTBACKUPDATE"_s, day(2026, 11, 15)}, {u"DAYS"_s, days}}, {}},        // seven days are not past seven
        {u"F"_s, {{u"LASTBACKUPDATE"_s, day(2026, 11, 14)}, {u"DAYS"_s, none}, {u"BACKUPAFTERDAYS"_s, Value(std::int16_t{30})}}, {}},
        {u"F"_s, {{u"LASTBACKUPDATE"_s, day(2026, 11, 21)}, {u"DAYS"_s, none}}, u"REDALERT"_s},
        {u"F"_s, {{u"DAYS"_s, days}}, {}},                                                   // never backed up
        {u"N"_s, {}, {}},
        {u"A"_s, {}, {}},
    };
    for (const auto &one : cases)
        EXPECT_EQ(look(one.code, one.fields).style, one.style) << one.code << one.fields.size();
}

TEST_F(RowRulesTest, pictureOnTheButtonOfEachSectionThatHasOne)
{
    for (const SectionDesign &section : sectionDesigns()) {
        if (!section.list)
            continue;
        int button = -1;
        for (std::size_t i = 0; i < section.list->columns.size(); ++i)
            if (section.list->columns[i].role == SectionColumn::Role::Button)
                button = static_cast<int>(i);
        const auto with = look(section.code, {{u"FILENAME"_s, Value(u"a.jpg"_s)}});
        const auto blank = look(section.code, {{u"FILENAME"_s, Value(u"  "_s)}});
        const std::vector<RowLook::Cell> expected = button < 0 ? std::vector<RowLook::Cell>{}
                                                               : std::vector<RowLook::Cell>{{button, u"PICTURE"_s}};
        EXPECT_EQ(with.styles, expected) << section.name;
        EXPECT_TRUE(blank.styles.empty()) << section.name;
    }
}

TEST_F(RowRulesTest, cellsThatAreBuiltFromTheRow)
{
    const QString b1 = u"BUSINESSTELEPHONENUMBER"_s, b2 = u"BUSINESS2TELEPHONENUMBER"_s, mobile = u"MOBILETELEPHONENUMBER"_s;
    const struct { QString code; std::map<QString, Value> fields; int column; QString text; } cases[] = {
        {u"D"_s, {{b1, Value(u"1"_s)}}, 4, u"B :  1"_s},
        {u"D"_s, {{b1, Value(u"1"_s)}, {b2, Value(u"2"_s)}, {mobile, Value(u"3"_s)}}, 4, u"B1 :  1\r\nB2 :  2\r\nM/C :  3"_s},
        {u"D"_s, {{b1, Value(u"1"_s)}, {b2, Value(u" "_s)}, {mobile, Value(u"3"_s)}}, 4, u"B :  1\r\nM/C :  3"_s},
        {u"T"_s, {{u"HOMETELEPHONENUMBER"_s, Value(u"1"_s)}, {u"HOME2TELEPHONENUMBER"_s, Value(u"2"_s)}}, 2, u"H1 :  1\r\nH2 :  2"_s},
        {u"T"_s, {{mobile, Value(u"3"_s)}}, 2, u"M/C :  3"_s},
        {u"D"_s, {{b2, Value(u"2"_s)}}, 4, u"B2 :  2"_s},
        {u"P"_s, {{u"SORTNAME"_s, Value(u"ACME"_s)}, {u"CONTACT"_s, Value(u"Ann"_s)}}, 1, u"ACME [Ann]"_s},
        {u"X"_s, {{u"PHONENUM"_s, Value(u"\r\n'Work: 1\r\n'Pager: 2\r\n"_s)}}, 2, u"Work: 1\r\nPager: 2"_s},
        {u"P"_s, {{u"SORTNAME"_s, Value(u"O`BRIEN"_s)}, {u"CONTACT"_s, Value(u"Ann"_s)}}, 1, u"O'BRIEN [Ann]"_s},
        {u"K"_s, {{u"AUTHOR"_s, Value(u"Flann O`Brien"_s)}, {u"FILENAME"_s, Value(u"a`b.jpg"_s)}}, 3, u"Flann O'Brien"_s},
        {u"C"_s, {{u"ADDRESS"_s, Value(u"1 High St\r\n   \r\nPeru"_s)}}, 2, u"1 High St\r\nPeru"_s},
    };
    for (const auto &one : cases)
        EXPECT_EQ(look(one.code, one.fields).texts, (std::vector<RowLook::Cell>{{one.column, one.text}})) << one.code;
    EXPECT_TRUE(look(u"P"_s, {{u"SORTNAME"_s, Value(u"ACME"_s)}}).texts.empty());
    EXPECT_TRUE(look(u"I"_s, {{u"ITEM"_s, Value(u"A `B` switch"_s)}}).texts.empty()) << "no names that queries quote: shown as stored";
}

}
