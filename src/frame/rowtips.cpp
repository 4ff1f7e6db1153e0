#include "frame/rowtips.h"

#include "platform/basic/convert.h"
#include "platform/basic/error.h"
#include "platform/basic/format.h"
#include "platform/basic/text.h"
#include "session/datetexts.h"
#include "session/sectiondesign.h"

#include <algorithm>

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

QString lineOf(const dao::Recordset &row, const TipLine &line)
{
    QStringList parts;
    for (const QString &field : line.fields) {
        // A field that an old file lacks, or that cannot be read, says nothing.
        if (const QString text = shown(row.valueOr(field, {}), line.show); !text.isEmpty())
            parts << text;
    }
    if (parts.isEmpty())
        return {};
    const QString label = line.label.isEmpty() || line.label.endsWith(u' ') ? line.label : line.label + u' ';
    return folded(label + parts.join(u' '));
}

}

QString SetToolTip(dao::Database database, const QString &sectionCode, qint32 id)
{
    const SectionDesign *section = sectionByCode(sectionCode);
    if (!section || !section->rowTip || id == 0)
        return {};
    const RowTipDesign &tip = *section->rowTip;
    QStringList lines;
    // A tip comes unasked: a row that cannot be read has none.
    basic::IgnoreErrors([&] {
        dao::Recordset row = database.OpenRecordset(u"select * from [%1] WHERE [ID]=%2"_s.arg(tip.table).arg(id), dao::dbOpenSnapshot);
        if (row.EOF_())
            return;
        if (tip.isLockable && hasField(row, u"PASSWORD"_s) && !basic::Trim(row.Get(u"PASSWORD").text()).isEmpty())
            return;
        for (const TipLine &line : tip.lines)
            if (const QString text = lineOf(row, line); !text.isEmpty())
                lines << text;
    });
    return lines.join(u'\n');
}

}
