#include "frame/rowrules.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/text.h"
#include "session/sectiondesign.h"
#include "session/shared.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vorel {

using basic::Value;
using Kind = RowRule::Kind;

namespace {

// One row under the rules of its section.
class RowReader {
public:
    RowReader(const SectionDesign &section, const std::function<Value(int)> &value) : m_section(section), m_value(value) {}

    int columnOf(const QString &field) const
    {
        for (std::size_t i = 0; i < m_section.list->columns.size(); ++i)
            if (m_section.list->columns[i].field.compare(field, Qt::CaseInsensitive) == 0)
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
    const SectionDesign &m_section;
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

int buttonColumn(const SectionDesign &section)
{
    for (std::size_t i = 0; i < section.list->columns.size(); ++i)
        if (section.list->columns[i].role == SectionColumn::Role::Button)
            return static_cast<int>(i);
    return -1;
}

void apply(const RowRule &rule, const SectionDesign &section, const RowReader &row, RowLook &look)
{
    switch (rule.kind) {
    case Kind::EveryRow:
        look.style = rule.style;
        return;
    case Kind::Flag:
        if (row.isSet(rule.fields[0]))
            look.style = rule.style;
        return;
    case Kind::Overdue:
        if (isOverdue(row, rule))
            look.style = rule.style;
        return;
    case Kind::Picture:
        if (!row.text(rule.fields[0]).isEmpty())
            look.styles.push_back({buttonColumn(section), rule.style});
        return;
    case Kind::Numbers:
        look.texts.push_back({row.columnOf(rule.fields[0]), numberLines(row, rule)});
        return;
    case Kind::Joined:
        if (const QString added = row.text(rule.fields[1]); !added.isEmpty())
            look.texts.push_back({row.columnOf(rule.fields[0]), row.value(rule.fields[0]).text() + u" ["_s + added + u']'});
        return;
    case Kind::Lines:
        look.texts.push_back({row.columnOf(rule.fields[0]), plainLines(row.value(rule.fields[0]).text())});
        return;
    }
}

// Of the columns on show alone: the others hold keys and paths.
void showApostrophes(const SectionDesign &section, const std::function<Value(int)> &value, RowLook &look)
{
    for (RowLook::Cell &cell : look.texts)
        cell.content = shownApostrophes(cell.content);
    for (std::size_t i = 0; i < section.list->columns.size(); ++i) {
        const int column = static_cast<int>(i);
        const auto isBuilt = [column](const RowLook::Cell &cell) { return cell.column == column; };
        if (section.list->columns[i].role != SectionColumn::Role::Shown || std::any_of(look.texts.begin(), look.texts.end(), isBuilt))
            continue;
        if (const QString text = value(column).text(); text.contains(u'`'))
            look.texts.push_back({column, shownApostrophes(text)});
    }
}

}

bool isYearlyEvent(const QString &subject, const basic::Value &recurring)
{
    const QString name = subject.toUpper();
    const bool *everyYear = recurring.tryGet<bool>();
    return name == u"ANNIVERSARY" || name == u"BIRTHDAY" || name == u"HOLIDAY" || (everyYear && *everyYear);
}

RowLook subjectRowLook(const QString &sectionCode, const std::function<Value(int)> &value)
{
    RowLook look;
    const SectionDesign *section = sectionByCode(sectionCode);
    if (!section || !section->list)
        return look;
    const RowReader row(*section, value);
    for (const RowRule &rule : section->list->rules)
        apply(rule, *section, row, look);
    if (keepsGraveAccents(*section))
        showApostrophes(*section, value, look);
    return look;
}

}
