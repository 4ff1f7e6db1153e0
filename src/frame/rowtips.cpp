#include "frame/rowtips.h"

#include "frame/rowrules.h"
#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/error.h"
#include "platform/basic/format.h"
#include "platform/basic/text.h"
#include "platform/richtext/richtext.h"
#include "reminders/record.h"
#include "session/datetexts.h"
#include "session/sectiondesign.h"
#include "session/shared.h"
#include "session/state.h"

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace vorel {

using basic::Value;

namespace {

constexpr int lineLength = 72;      // characters: tool tips do not wrap by themselves
constexpr int mostLines = 6;        // of one field: tips stay short

using Show = TipLine::Show;

QString shown(const Value &value, Show show)
{
    const QString text = basic::Trim(value.text());
    if (text.isEmpty())
        return {};
    if (show == Show::Money)
        return basic::tryDouble(value) == 0 ? QString() : basic::formatOr(value, state().settings.gNumberFormat);
    if (show == Show::Text)
        return text;
    if (isNoDate(value))
        return {};
    if (!basic::IsDate(value))
        return text;
    const Value date(basic::CDate(value));
    return show == Show::Day ? basic::Format(date, u"dddd ") + displayDate(date) : displayDate(date);
}

// Long texts go over several lines, so that the tip stays on the screen.
QString folded(const QString &text)
{
    QString plain = text;
    plain.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    QStringList lines;
    for (QString rest : plain.split(u'\n')) {
        while (rest.size() > lineLength) {
            const qsizetype blank = rest.lastIndexOf(u' ', lineLength);
            const qsizetype end = blank > 0 ? blank : lineLength;
            lines << rest.left(end);
            rest = rest.mid(blank > 0 ? end + 1 : end);
        }
        lines << rest;
    }
    if (lines.size() > mostLines) {
        lines.resize(mostLines);
        lines.last() += u" ..."_s;
    }
    return lines.join(u'\n');
}

bool hasField(const dao::Recordset &row, const QString &name)
{
    const auto &fields = row.Fields();
    return std::any_of(fields.begin(), fields.end(), [&](const dao::RecordsetField &field) {
        return field.Name.compare(name, Qt::CaseInsensitive) == 0;
    });
}

// What follows the label. A name in which an apostrophe was typed is stored with a grave accent.
QString textOf(const dao::Recordset &row, const TipLine &line, const SectionDesign &section)
{
    QStringList parts;
    for (const QString &field : line.fields) {
        // A field that an old file lacks, or that cannot be read, is left out.
        QString text = shown(row.valueOr(field, {}), line.show);
        if (field == u"APPTIME")
            text = typedTime(text);
        if (!text.isEmpty())
            parts << text;
    }
    const QString text = parts.join(u' ');
    return keepsGraveAccents(section) ? shownApostrophes(text) : text;
}

QString lineOf(const dao::Recordset &row, const TipLine &line, const SectionDesign &section)
{
    const QString text = textOf(row, line, section);
    if (text.isEmpty())
        return {};
    const QString label = line.label.isEmpty() || line.label.endsWith(u' ') ? line.label : line.label + u' ';
    return folded(label + text);
}

// An empty handle: there is no such row, or it is locked by a password of its own.
dao::Recordset openRow(dao::Database &database, const RowTipDesign &tip, qint32 id)
{
    dao::Recordset row = database.OpenRecordset(u"select * from [%1] WHERE [ID]="_s.arg(tip.table) + dao::literal(id), dao::dbOpenSnapshot);
    if (row.EOF_())
        return {};
    const bool isLocked = tip.isLockable && hasField(row, u"PASSWORD"_s) && !basic::Trim(row.Get(u"PASSWORD").text()).isEmpty();
    return isLocked ? dao::Recordset() : row;
}

// " OWING TO:" as a heading of the pane: "Owing to".
QString heading(const QString &label)
{
    QString text = label.trimmed();
    if (text.endsWith(u':'))
        text.chop(1);
    return text.size() < 4 ? text : text.left(1) + text.mid(1).toLower();
}

bool repeats(const dao::Recordset &row)
{
    return basic::valOr(row.Get(u"PeriodMonth").text(), 0) != 0 || basic::valOr(row.Get(u"PeriodDays").text(), 0) != 0
        || !basic::Trim(row.Get(u"WeekNum").text()).isEmpty();
}

QString dayAndDate(const Value &date)
{
    return basic::Format(date, u"ddd ") + displayDate(date);
}

// The dates of a series are rows of their own, held together by their text.
QString datesOfSeries(dao::Database &database, const SectionDesign &section, const dao::Recordset &row)
{
    constexpr qsizetype most = 4;
    const reminders::ReminderDesign &design = reminders::reminderDesign(section.code);
    if (!repeats(row))
        return {};
    const dao::Recordset next = database.CreateSnapshot(
        u"SELECT [DATE] FROM [%1] WHERE [%2]="_s.arg(design.table, design.textField) + dao::literal(row.Get(design.textField))
        + u" AND [DATE]>"_s + dao::literal(row.Get(u"DATE")) + u" ORDER BY [DATE]"_s);
    QStringList dates;
    const qsizetype total = next.rowTotal();
    for (qsizetype i = 0; i < std::min(total, most); ++i)
        dates << dayAndDate(next.cell(i, 0));
    if (total > most)
        dates << u"and %1 more up to %2"_s.arg(total - most).arg(displayDate(next.cell(total - 1, 0)));
    return dates.join(u'\n');
}

// The day on which an event that comes back every year is due next.
QString nextReturn(const dao::Recordset &row)
{
    if (!isYearlyEvent(row.Get(u"SUBJECT").text(), row.Get(u"Recurring")))
        return {};
    const basic::DateTime date = basic::CDate(row.Get(u"DATE")), today = basic::Date();
    basic::DateTime next = basic::DateSerial(today.year(), date.month(), date.day());
    if (next < today)
        next = basic::DateSerial(today.year() + 1, date.month(), date.day());
    return dayAndDate(next);
}

void addReminderLines(std::vector<RecordLine> &lines, dao::Database &database, const SectionDesign &section, const dao::Recordset &row)
{
    const auto add = [&lines](const QString &label, const QString &text) {
        if (!text.isEmpty())
            lines.push_back({label, text});
    };
    if (section.id == SectionId::Bills) {
        add(u"Billed on"_s, shown(row.Get(u"BillingDate"), Show::Date));
        add(u"Paid on"_s, shown(row.Get(u"PaymentDate"), Show::Date));
    }
    if (section.id == SectionId::Events) {
        add(u"Full details"_s, shownApostrophes(basic::Trim(richtext::plainText(row.Get(u"FULLEVENT").text()))));
        add(u"Next"_s, nextReturn(row));
    } else {
        add(u"Next dates"_s, datesOfSeries(database, section, row));
    }
}

// Tip and pane come unasked: a row that cannot be read shows nothing there; the action that opens it says why.
void withRow(dao::Database &database, const SectionDesign &section, qint32 id, const std::function<void(const dao::Recordset &)> &step)
{
    basic::IgnoreErrors([&] {
        if (const dao::Recordset row = openRow(database, *section.rowTip, id))
            step(row);
    });
}

}

QString SetToolTip(dao::Database database, const QString &sectionCode, qint32 id)
{
    const SectionDesign *section = sectionByCode(sectionCode);
    if (!section || !section->rowTip || id == 0)
        return {};
    QStringList lines;
    withRow(database, *section, id, [&](const dao::Recordset &row) {
        for (const TipLine &line : section->rowTip->lines)
            if (const QString text = lineOf(row, line, *section); !text.isEmpty())
                lines << text;
    });
    return lines.join(u'\n');
}

std::vector<RecordLine> recordDetails(dao::Database database, const QString &sectionCode, qint32 id)
{
    const SectionDesign *section = sectionByCode(sectionCode);
    std::vector<RecordLine> lines;
    if (!section || !section->rowTip || id == 0 || !database)
        return lines;
    withRow(database, *section, id, [&](const dao::Recordset &row) {
        for (const TipLine &line : section->rowTip->lines)
            if (const QString text = textOf(row, line, *section); !text.isEmpty())
                lines.push_back({heading(line.label), text});
        if (section->kind == SectionKind::Reminder)
            addReminderLines(lines, database, *section, row);
    });
    return lines;
}

}
