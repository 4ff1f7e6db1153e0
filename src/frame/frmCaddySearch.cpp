#include "frame/frmCaddySearch.h"

#include "platform/basic/prompts.h"
#include "platform/basic/text.h"
#include "platform/controls/colours.h"
#include "platform/desktop/hourglass.h"
#include "session/sections.h"

#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::Grid;

namespace {

// The recordset's text that is compared, as an expression.
QString searchedText(const dao::Recordset &rows, const GridPane &pane)
{
    const auto bracketed = [](const QString &name) { return u'[' + name + u']'; };
    if (pane.isReminder())
        return bracketed(pane.grid->columns()[static_cast<std::size_t>(pane.textColumn)].field);
    if (const SectionDesign *section = shownSection(); section && section->list && !section->list->searched.isEmpty()) {
        QStringList joined;
        for (const QString &field : section->list->searched)
            joined << bracketed(field);
        return joined.join(u" & "_s);
    }
    for (const dao::RecordsetField &field : rows.Fields())
        if ((field.Type == dao::dbText || field.Type == dao::dbMemo) && !field.SourceField.isEmpty())
            return bracketed(field.Name);
    return {};
}

// One character is looked for at the beginning, more of them anywhere, with the wildcards of Like.
QString searchPattern(const QString &upper)
{
    QString pattern = upper.size() == 1 ? upper + u'*' : u'*' + upper + u'*';
    if (upper.size() == 1 && u"*?#["_s.contains(upper))
        pattern = u'[' + upper + u"]*"_s;
    // Names are stored with a grave accent where an apostrophe was typed.
    return dao::literal(pattern.replace(u'\'', u"['`]"_s));
}

// The engine looks, so that a long list is not carried here row by row. Invalid: no row from that one on.
dao::Bookmark firstHit(const dao::Recordset &rows, const QString &criteria, qsizetype from)
{
    dao::Recordset look = rows.Clone();
    if (from > 0) {
        look.setBookmark(rows.bookmarkAt(from - 1));
        look.FindNext(criteria);
    } else {
        look.FindFirst(criteria);
    }
    return look.NoMatch() ? dao::Bookmark() : look.Bookmark();
}

}

Grid *CaddySearch::searchGrid() const
{
    const QString &code = state().selection.gSection;
    if (const GridPane *own = m_c.reminder(code))
        return own->grid;
    if (!m_c.subjects().grid->isHidden())
        return m_c.subjects().grid;
    const GridPane *first = m_c.firstShown();
    return first ? first->grid : m_c.appointments().grid;
}

void CaddySearch::textChanged()
{
    m_start = 0;
    GridSearch(searchGrid());
}

void CaddySearch::next()
{
    GridSearch(searchGrid());
}

void CaddySearch::showPlaceholder()
{
    const GridPane &pane = m_c.paneOf(searchGrid());
    const SectionDesign *section = sectionByCode(pane.sectionCode());
    m_c.txtSearch->setPlaceholderText(section ? u"Search "_s + section->name.toLower() : u"Search"_s);
    QPalette colours = QGuiApplication::palette();
    colours.setColor(QPalette::PlaceholderText,
                     controls::blend(colours.color(QPalette::Text), colours.color(QPalette::Base), 0.4));
    m_c.txtSearch->setPalette(colours);
}

void CaddySearch::forgetRows()
{
    m_start = 0;
}

void CaddySearch::GridSearch(Grid *grid)
{
    grid->setActiveRowStyleSet({});
    m_c.lblNotFound->hide();
    const QString wanted = basic::Trim(m_c.txtSearch->text()).toUpper();
    const dao::Recordset rows = grid->dataControl()->Recordset();
    if (wanted.isEmpty())
        return;
    m_c.lblNotFound->show();
    if (!rows || rows.rowTotal() == 0)
        return;
    dao::Bookmark hit;
    // A pattern that is still being typed ("[a") is not the user's mistake: it finds nothing yet.
    basic::IgnoreErrors([&] {
        const QString text = searchedText(rows, m_c.paneOf(grid));
        hit = firstHit(rows, text + u" Like "_s + searchPattern(wanted), std::min(m_start, rows.rowTotal()));
    });
    m_start = 0;
    if (!hit.isValid())
        return;
    m_c.lblNotFound->hide();
    grid->setBookmark(hit);
    grid->setActiveRowStyleSet(u"SEARCH"_s);
    m_start = rows.positionOf(hit) + 1;
}

void CaddySearch::SortData(const QString &code)
{
    const GridPane *reminder = m_c.reminder(code);
    controls::DataControl *data = reminder ? reminder->data : m_c.subjects().data;
    if (!data->UpdateRecord())
        return;
    dao::Recordset rows = data->Recordset();
    if (!rows)
        return;
    if (rows.Type() == dao::dbOpenTable) {
        basic::prompts().beep();
        basic::MsgBox(u"You Cannot Sort a Table Recordset!"_s, {}, basic::Icon::Exclamation);
        return;
    }
    QString column = m_sortColumn;
    if (column.isEmpty())
        column = basic::InputBox(u"Enter Sort Column:"_s);
    if (column.isEmpty())
        return;
    const desktop::Hourglass busy;
    // A column that does not exist, typed into the box, leaves the rows as they are: that is the rule of every sort.
    basic::IgnoreErrors([&] {
        rows.setSort(column);
        data->setRecordset(rows.OpenRecordset(dao::dbOpenDynaset));
    });
}

void CaddySearch::HeadClick(Grid *grid, int column)
{
    const dao::Recordset &rows = grid->dataControl()->Recordset();
    const auto at = static_cast<std::size_t>(column);
    if (!grid->UpdateRow())
        return;
    if (!rows || rows.Type() == dao::dbOpenTable || column < 0 || at >= grid->columns().size())
        return;
    if (grid == m_c.events().grid && column == dateColumn) {
        alternateEventOrder();
        return;
    }
    const QString field = grid->columns()[at].field;
    if (field.isEmpty())
        return;
    bool &ascending = m_ascending[grid];
    ascending = !ascending;
    m_sortColumn = u'[' + field + (ascending ? u"]"_s : u"] desc"_s);
    SortData(m_c.paneOf(grid).sectionCode());
    m_sortColumn.clear();
    grid->setSortMark(column, ascending);
}

// The events are ordered either by date or, for anniversaries, by day and month.
void CaddySearch::alternateEventOrder()
{
    ShownPeriod &period = state().period;
    const QString byDay = u"DAY([DATE]),MONTH([DATE])"_s;
    ReminderQuery events = period.events;
    events.order = events.order == byDay ? u"[DATE],[SUBJECT],[EVENT]"_s : byDay;
    period.setQueries(period.appointments, period.bills, events);
    m_c.events().data->setRecordSource(period.gSqlEvents);
    m_c.events().data->Refresh();
}

}
