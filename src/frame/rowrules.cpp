#include "frame/rowrules.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/text.h"
#include "session/sections.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vorel {

using basic::Value;

namespace {

enum class Rule {
    EveryRow,       // the row in the style
    Flag,           // the row in the style while `fields[0]` is set
    Overdue,        // the row in the style when more days have gone by since `fields[0]` than the limit in the others says
    Picture,        // the button column in the style while `fields[0]` is not blank
    Numbers,        // the cell `fields[0]` lists the telephone numbers of the other fields, a line each
    Joined,         // `fields[1]` is added to the cell `fields[0]`
    Lines           // the cell `fields[0]` shows its lines without the empty ones and without a stray quote before a label
};

struct RowRule {
    QString codes;          // blank-separated
    Rule rule;
    QString style;
    QStringList fields;
    QString label;          // Numbers: the letter before the colon
};

const std::vector<RowRule> &rules()
{
    static const std::vector<RowRule> table{
        {u"C"_s, Rule::EveryRow, u"XMAS"_s, {}, {}},
        {u"X"_s, Rule::EveryRow, u"WHITE"_s, {}, {}},
        {u"C"_s, Rule::Lines, {}, {u"ADDRESS"_s}, {}},
        {u"X"_s, Rule::Lines, {}, {u"PHONENUM"_s}, {}},
        {u"D"_s, Rule::Numbers, {},
         {u"' '"_s, u"BUSINESSTELEPHONENUMBER"_s, u"BUSINESS2TELEPHONENUMBER"_s, u"MOBILETELEPHONENUMBER"_s}, u"B"_s},
        {u"T"_s, Rule::Numbers, {},
         {u"' '"_s, u"HOMETELEPHONENUMBER"_s, u"HOME2TELEPHONENUMBER"_s, u"MOBILETELEPHONENUMBER"_s}, u"H"_s},
        {u"F"_s, Rule::Overdue, u"REDALERT"_s, {u"LASTBACKUPDATE"_s, u"DAYS"_s, u"BACKUPAFTERDAYS"_s}, {}},
        {u"G"_s, Rule::Flag, u"HILITE"_s, {u"ACTIONED"_s}, {}},
        {u"H"_s, Rule::Flag, u"HILITE"_s, {u"PICK"_s}, {}},
        {u"I K L MV O Q R U V Z P"_s, Rule::Picture, u"PICTURE"_s, {u"FILENAME"_s}, {}},
        {u"P"_s, Rule::Flag, u"PURPLE"_s, {u"NEWIMPORT"_s}, {}},
        {u"P"_s, Rule::Joined, {}, {u"SORTNAME"_s, u"CONTACT"_s}, {}},
    };
    return table;
}

// One row under the rules of its section.
class RowReader {
public:
    RowReader(const Section &section, const std::function<Value(int)> &value) : m_section(section), m_value(value) {}

    int columnOf(const QString &field) const
    {
        for (std::size_t i = 0; i < m_section.columns.size(); ++i)
            if (m_section.columns[i].field.compare(field, Qt::CaseInsensitive) == 0)
                return static_cast<int>(i);
        return -1;
    }
    Value value(const QString &field) const
    {
        const int column = columnOf(field);
        return column < 0 ? Value() : m_value(column);
    }
    QString text(const QString &field) const { return basic::Trim(value(field).text()); }
    bool isSet(const QString &field) const
    {
        const Value stored = value(field);
        if (const bool *flag = stored.tryGet<bool>())
            return *flag;
        return stored.isNumber() ? basic::CDbl(stored) != 0 : stored.text().trimmed() == u"-1";
    }

private:
    const Section &m_section;
    const std::function<Value(int)> &m_value;
};

// A row whose own DAYS were never set goes by the days after which the user is reminded.
bool isOverdue(const RowReader &row, const RowRule &rule)
{
    const Value last = row.value(rule.fields[0]);
    const basic::DateTime *date = last.tryGet<basic::DateTime>();
    if (!date)
        return false;
    double limit = basic::Val(row.text(rule.fields[1]));
    if (limit == 0)
        limit = basic::Val(row.text(rule.fields[2]));
    return basic::DateDiff(u"d", *date, basic::Date()) > limit;
}

// A single number needs no figure: "B :  555", but "B1 :  555" and "B2 :  556" for two of them; the second keeps its own.
QString numberLines(const RowReader &row, const RowRule &rule)
{
    const QString first = row.text(rule.fields[1]), second = row.text(rule.fields[2]), mobile = row.text(rule.fields[3]);
    const bool both = !first.isEmpty() && !second.isEmpty();
    QStringList lines;
    const auto add = [&lines](const QString &label, const QString &number) {
        if (!number.isEmpty())
            lines << label + u" :  "_s + number;
    };
    add(both ? rule.label + u'1' : rule.label, first);
    add(rule.label + u'2', second);
    add(u"M/C"_s, mobile);
    return lines.join(u"\r\n"_s);
}

QString plainLines(QString text)
{
    QStringList lines;
    for (QString line : text.remove(u'\r').split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(u'\''))
            line.remove(0, 1);
        if (const QString plain = line.trimmed(); !plain.isEmpty())
            lines << plain;
    }
    return lines.join(u"\r\n"_s);
}

int buttonColumn(const Section &section)
{
    for (std::size_t i = 0; i < section.columns.size(); ++i)
        if (section.columns[i].role == SectionColumn::Role::Button)
            return static_cast<int>(i);
    return -1;
}

void apply(const RowRule &rule, const Section &section, const RowReader &row, RowLook &look)
{
    switch (rule.rule) {
    case Rule::EveryRow:
        look.style = rule.style;
        return;
    case Rule::Flag:
        if (row.isSet(rule.fields[0]))
            look.style = rule.style;
        return;
    case Rule::Overdue:
        if (isOverdue(row, rule))
            look.style = rule.style;
        return;
    case Rule::Picture:
        if (!row.text(rule.fields[0]).isEmpty())
            look.styles.push_back({buttonColumn(section), rule.style});
        return;
    case Rule::Numbers:
        look.texts.push_back({row.columnOf(rule.fields[0]), numberLines(row, rule)});
        return;
    case Rule::Joined:
        if (const QString added = row.text(rule.fields[1]); !added.isEmpty())
            look.texts.push_back({row.columnOf(rule.fields[0]), row.value(rule.fields[0]).text() + u" ["_s + added + u']'});
        return;
    case Rule::Lines:
        look.texts.push_back({row.columnOf(rule.fields[0]), plainLines(row.value(rule.fields[0]).text())});
        return;
    }
}

}

RowLook subjectRowLook(const QString &sectionCode, const std::function<Value(int)> &value)
{
    RowLook look;
    const Section *section = sectionByCode(sectionCode);
    if (!section || section->kind != SectionKind::Grid)
        return look;
    const RowReader row(*section, value);
    for (const RowRule &rule : rules())
        if (rule.codes.split(u' ').contains(sectionCode))
            apply(rule, *section, row, look);
    return look;
}

int linesOfRow(const QString &sectionCode)
{
    static const std::pair<QString, int> lines[] = {{u"X"_s, 4}, {u"C"_s, 3}, {u"D"_s, 3}, {u"T"_s, 3}};
    const auto found = std::find_if(std::begin(lines), std::end(lines), [&](const auto &one) { return one.first == sectionCode; });
    return found == std::end(lines) ? 1 : found->second;
}

}
