#include "frame/frmCaddyCells.h"

#include "calendar/picker.h"
#include "frame/frmCaddyLayout.h"
#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/format.h"
#include "platform/basic/prompts.h"
#include "platform/controls/form.h"
#include "reminders/record.h"
#include "session/changes.h"
#include "session/datetexts.h"
#include "session/sectiondesign.h"
#include "session/shared.h"

#include <QAbstractButton>
#include <QScopedValueRollback>
#include <QTimer>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::CellChange;
using controls::CellEdit;
using controls::EditHandlers;
using controls::Grid;
using controls::RowUpdate;
using controls::UpdateFailure;

namespace {

constexpr int appointmentTime = 3, appointmentText = 4;
constexpr int toDoPriority = 2;
constexpr int shopItem = 1, shopStore = 2, shopNumber = 3, shopAmount = 5, shopTotal = 6, shopPick = 7;

qint32 idOf(const Grid &grid, qsizetype row)
{
    return static_cast<qint32>(basic::Val(grid.CellText(idColumn, row)));
}

// The grid shows already what it wrote; whoever else shows these rows reads them anew.
void reportOwnChange(GridPane &pane)
{
    const QScopedValueRollback own(pane.isOwnChange, true);
    Changes::instance().deliver();
}

void rememberRow(GridPane &pane, const RowUpdate &update)
{
    reportOwnChange(pane);
    pane.lastId = idOf(*pane.grid, update.row);
}

QStringList subjects(controls::DataControl &data)
{
    QStringList found;
    dao::Recordset rows = data.Database().CreateSnapshot(u"SELECT [Subject] FROM [Subjects] ORDER BY [Subject]"_s);
    for (; !rows.EOF_(); rows.MoveNext())
        found << rows.Get(u"SUBJECT").text();
    return found;
}

}

CaddyCells::CaddyCells(CaddyControls &c) : m_c(c)
{
    for (GridPane &pane : m_c.reminders())
        openReminderCells(pane);
    Grid *first = m_c.appointments().grid;
    // No alert comes up over an appointment that is just being typed.
    controls::on(first, &Grid::EditBegun, first, [this] { m_c.Timer2->stop(); });
    controls::on(first, &Grid::EditEnded, first, [this] { m_c.Timer2->start(); });
    controls::on(first, &Grid::CellMove, first, [this, first](int from, int to) { capitals(first, from, to); });
    controls::on(m_c.subjects().grid, &Grid::DeleteKey, m_c.subjects().grid, [this] { deleteRow(); });
}

bool CaddyCells::writeRows()
{
    return std::all_of(m_c.panes.begin(), m_c.panes.end(), [](const GridPane &pane) { return pane.grid->UpdateRow(); });
}

void CaddyCells::openReminderCells(GridPane &pane)
{
    std::vector<CellEdit> cells = {{u"DATE"_s, {}, {}, true}};
    if (pane.code == u"A"_s) {
        cells.push_back({u"APPTIME"_s, [] { return reminders::timeList(); }});
        cells.push_back({u"APPOINTMENT"_s});
        cells.push_back({u"MET"_s});
    } else if (pane.code == u"B"_s) {
        cells.push_back({u"BILL"_s});
        cells.push_back({u"AMOUNT"_s});
        cells.push_back({u"PAID"_s});
    } else {
        cells.push_back({u"SUBJECT"_s, [&pane] { return vorel::subjects(*pane.data); }, u"SUBJECTLIST"_s});
        cells.push_back({u"EVENT"_s});
        cells.push_back({u"CARD"_s});
        cells.push_back({u"CARDSENT"_s});
    }
    EditHandlers rules;
    rules.beforeCellChange = [this, &pane](CellChange &change) { changeReminderCell(pane, change); };
    rules.beforeUpdate = [this, &pane](RowUpdate &update) { completeReminder(pane, update); };
    rules.afterUpdate = [&pane](const RowUpdate &update) { rememberRow(pane, update); };
    if (pane.code == u"B"_s)
        rules.updateError = [](UpdateFailure &failure) {
            if (failure.number != controls::duplicateRowError)
                return;
            basic::MsgBox(u"You already have a Bill by that Name\r\nPlease re-enter"_s, {}, basic::Icon::Exclamation);
            failure.answered = true;
        };
    pane.grid->setEditing(std::move(cells), std::move(rules));
    pane.grid->setAllowAddNew(true);
    controls::on(pane.grid, &Grid::DeleteKey, pane.grid, [&pane] { deleteReminder(pane); });
    controls::on(pane.grid, &Grid::BtnClick, pane.grid,
                 [this, &pane](int column, qsizetype row) { pickDate(pane, column, row); });
}

void CaddyCells::changeReminderCell(const GridPane &pane, CellChange &change)
{
    if (change.column == dateColumn) {
        if (change.text == change.before && !change.text.trimmed().isEmpty())
            return;
        const basic::DateTime day = typedDate(change.text).value_or(basic::Date());
        change.text = displayDate(day);
        change.value = day;
        pane.grid->setEditValue(dayColumn, basic::Format(day, u"ddd"));
    } else if (pane.code == u"A"_s && change.column == appointmentTime && change.text != change.before) {
        change.text = typedTime(change.text);
    } else if (change.text != change.before) {
        change.text = graveApostrophes(change.text);    // the text is a name that queries quote
    }
}

// What every reminder has, whatever was typed: a day, its name, and for an appointment a time.
void CaddyCells::completeReminder(const GridPane &pane, RowUpdate &update)
{
    if (pane.grid->EditText(dateColumn).trimmed().isEmpty()) {
        pane.grid->setEditValue(dateColumn, basic::Date());
        pane.grid->setEditValue(dayColumn, basic::Format(basic::Date(), u"ddd"));
    }
    if (!update.isNew)
        return;
    update.more.emplace_back(u"UsersName"_s, state().settings.gUserName);
    if (pane.code != u"A"_s)
        return;
    if (pane.grid->EditText(appointmentTime).trimmed().isEmpty())
        pane.grid->setEditValue(appointmentTime, basic::Format(basic::Now(), u"hh:mm am/pm"));
    update.more.emplace_back(u"TimeUpdate"_s, true);    // so that the housekeeping leaves the time alone
}

// Going straight from the day to the text puts the text in capitals.
void CaddyCells::capitals(Grid *grid, int from, int to)
{
    if (from != dayColumn || to != appointmentText)
        return;
    const QString text = grid->EditText(appointmentText), upper = text.toUpper();
    if (upper != text)
        grid->ChangeCell(appointmentText, upper);
}

void CaddyCells::pickDate(const GridPane &pane, int column, qsizetype row)
{
    Grid &grid = *pane.grid;
    if (!pane.isReminder() || column != dateColumn)
        return;
    const QRect cell = grid.cellRect(column, row).translated(grid.viewport()->pos());
    const dao::Value stored = grid.CellValue(column, row);
    const auto shown = stored.isDate() && displayDate(stored) == grid.EditText(column)
        ? std::optional(stored.get<basic::DateTime>()) : typedDate(grid.EditText(column));
    const auto day = openDatePickerOnCell(&grid, cell, shown);
    if (!day || grid.currentRow() != row)
        return;
    grid.setEditValue(dateColumn, *day);
    grid.setEditValue(dayColumn, basic::Format(*day, u"ddd"));
}

void CaddyCells::enterSection()
{
    const SectionDesign *section = shownSection();
    const bool isShopping = isShown(SectionId::Shopping);
    m_shopping = {};
    m_c.subjects().panEdit->setText(isShopping ? u"Clear"_s : u"Edit"_s);
    showEditIcon(m_c);
    m_c.subjects().panEdit->setToolTip(isShopping ? u"Clear all check marks"_s : u"Open the selected record"_s);
    if (isShown(SectionId::ToDo))
        openToDo();
    else if (isShopping)
        openShopping();
    else if (isShown(SectionId::Messages))
        openMessages();
    else
        subjects().setEditing({});
    subjects().setAllowAddNew(section && section->list && section->list->isEditedInCells);
}

void CaddyCells::openToDo()
{
    const auto priorities = [] { return QStringList{u"1 - High"_s, u"2 - Normal"_s, u"3 - Low"_s}; };
    EditHandlers rules;
    rules.beforeUpdate = [this](RowUpdate &) {
        if (subjects().EditText(toDoPriority).trimmed().isEmpty())
            subjects().setEditValue(toDoPriority, u"1 - High"_s);
    };
    rules.afterUpdate = [this](const RowUpdate &update) { rememberRow(m_c.subjects(), update); };
    subjects().setEditing({{u"TODO"_s}, {u"PRIORITY"_s, priorities, u"PRIORITYLIST"_s}, {u"ACTIONED"_s}}, std::move(rules));
}

void CaddyCells::openMessages()
{
    EditHandlers rules;
    // A check alone is written as soon as it changes.
    rules.afterUpdate = [this](const RowUpdate &update) { rememberRow(m_c.subjects(), update); };
    subjects().setEditing({{u"READ"_s}}, std::move(rules));
}

EditHandlers CaddyCells::shoppingHandlers()
{
    EditHandlers rules;
    rules.afterCellChange = [this](int) {
        Grid &grid = subjects();
        const qsizetype row = grid.EditRow();
        grid.setEditValue(shopTotal, rowTotal(grid.CellValue(shopNumber, row), grid.CellValue(shopAmount, row)));
        countShoppingRow(row);
    };
    rules.beforeUpdate = [this](RowUpdate &update) {
        const QString item = subjects().EditText(shopItem);
        if (update.isNew && !item.trimmed().isEmpty() && isOnShoppingList(m_c.subjects().data->Database(), item)) {
            basic::MsgBox(u"This item has been entered already !"_s, {}, basic::Icon::Exclamation);
            update.cancel = true;
        }
    };
    rules.afterUpdate = [this](const RowUpdate &update) {
        Grid &grid = subjects();
        rememberRow(m_c.subjects(), update);
        m_shopping.remove(0);
        m_shopping.addStore(grid.CellText(shopStore, update.row));
        countShoppingRow(update.row);
    };
    rules.afterUndo = [this](qsizetype row) {
        m_shopping.remove(0);
        if (row < subjects().rows())
            countShoppingRow(row);
        showShoppingTotal();
    };
    return rules;
}

void CaddyCells::openShopping()
{
    subjects().setEditing({{u"ITEM"_s},
                           {u"STORE"_s, [this] { return m_shopping.stores; }, u"STORELIST"_s},
                           {u"NUMBER"_s},
                           {u"LASTCOST"_s},
                           {u"AMOUNT"_s},
                           {u"PICK"_s}},
                          shoppingHandlers());
    if (m_c.subjects().data->Recordset())        // the file may be that of the section before
        m_shopping = FillShoppingVariables(m_c.subjects().data->Database());
    showShoppingTotal();
}

void CaddyCells::countShoppingRow(qsizetype row)
{
    const Grid &grid = subjects();
    const dao::Value total = grid.CellValue(shopTotal, row);
    m_shopping.put(idOf(grid, row), total.isNumber() ? basic::CDbl(total) : 0, grid.CellText(shopPick, row) == u"-1");
    showShoppingTotal();
}

void CaddyCells::showShoppingTotal()
{
    subjects().setTitle(shoppingTitle(TotalShopping(m_shopping)));
}

void CaddyCells::ClearShoppingChecks()
{
    if (!isShown(SectionId::Shopping) || !writeRows() || !m_c.subjects().data->Database())
        return;
    vorel::ClearShoppingChecks(m_c.subjects().data->Database(), m_c.subjects().data->Recordset(), m_shopping);
    reportOwnChange(m_c.subjects());
    m_c.subjects().data->showRow();
    subjects().Repaint();
    showShoppingTotal();
}

// As on the record screen the other dates of a repeated text can go with the row; here the user sees them and is asked.
void CaddyCells::deleteReminder(GridPane &pane)
{
    Grid &grid = *pane.grid;
    if (!grid.UpdateRow() || !grid.Bookmark().isValid())
        return;
    if (!basic::askYesNo(u"Do you want to Delete this Record ?"_s, u"Question?"_s) || !grid.Bookmark().isValid())
        return;
    const qsizetype row = grid.currentRow();
    const qint32 id = idOf(grid, row);
    const qint32 next = idOf(grid, row + 1 < grid.rows() ? row + 1 : row - 1);
    const reminders::ReminderDesign &design = reminders::reminderDesign(pane.code);
    dao::Database &file = pane.data->Database();
    const int others = reminders::otherDates(file, design, id);
    const bool whole = others > 0
        && basic::askYesNo(u"Rows of the same text on other dates: %1.\r\nDo you want to delete them too?"_s.arg(others),
                           u"Question?"_s);
    reminders::deleteRow(file, design, id, whole);
    Changes::instance().deliver();
    if (next != 0 && pane.data->hasRows() && pane.data->FindFirst(u"ID="_s + dao::literal(next)))
        grid.setBookmark(pane.data->Recordset().Bookmark());
}

// To Do and Shopping have no screen of their own on which a row could be deleted.
void CaddyCells::deleteRow()
{
    const SectionDesign *section = shownSection();
    Grid &grid = subjects();
    if (!section || !section->list || !section->list->isEditedInCells || !grid.UpdateRow() || !grid.Bookmark().isValid())
        return;
    if (!basic::askYesNo(u"Do you want to Delete this Record ?"_s, u"Question?"_s) || !grid.Bookmark().isValid())
        return;
    const qint32 id = idOf(grid, grid.currentRow());
    m_c.subjects().data->Recordset().Delete();
    m_c.subjects().data->MoveNext();
    reportOwnChange(m_c.subjects());
    if (section->id != SectionId::Shopping)
        return;
    m_shopping.remove(id);
    showShoppingTotal();
}

}
