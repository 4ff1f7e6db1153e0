#include "frame/frmCaddyEdit.h"

#include "frame/frmCaddyPicture.h"
#include "frame/frmCaddyScreens.h"
#include "frame/frmLater.h"
#include "frame/rowtips.h"
#include "media/pictures.h"
#include "platform/basic/convert.h"
#include "platform/basic/files.h"
#include "platform/basic/prompts.h"
#include "platform/controls/form.h"
#include "reminders/frmRecord.h"
#include "session/sectiondesign.h"

#include <QApplication>
#include <QLineEdit>
#include <QTimer>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::Grid;

namespace {

// Val of the row's ID: 0 on the new-row line and without a row.
qint32 selectedId(const controls::Grid *grid)
{
    return static_cast<qint32>(basic::Val(grid->CellText(idColumn)));
}

bool isEditedInCells()
{
    const SectionDesign *section = shownSection();
    return section && section->list && section->list->isEditedInCells;
}

}

CaddyEdit::CaddyEdit(CaddyControls &c, MainScreen &screen, QWidget *window)
    : m_c(c), m_screen(screen), m_window(window)
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) {
        for (const GridPane &pane : m_c.reminders())
            if (now == pane.grid)
                m_lastUsed = &pane;
        const auto *grid = qobject_cast<controls::Grid *>(now);
        if (grid && grid == activeGrid())
            emit activeGridChanged(activeGrid());
    });
}

void CaddyEdit::editReminder(GridPane &pane)
{
    if (m_screen.writeRows())
        openReminder(pane, {pane.code, selectedId(pane.grid), {}}, m_window);
}

void CaddyEdit::EditRow(GridPane &pane, qint32 id)
{
    if (m_screen.writeRows())
        openReminder(pane, {pane.code, id, {}}, m_window);
}

void CaddyEdit::openCall(const RecordCall &call, QWidget *over)
{
    if (GridPane *pane = m_c.reminder(call.section); pane && hasFile() && m_screen.writeRows())
        openReminder(*pane, call, over);
}

void CaddyEdit::openReminder(GridPane &pane, const RecordCall &call, QWidget *over)
{
    pane.lastId = call.id;
    stopTimers();
    basic::Trap([&] { pane.lastId = showReminder(pane, call, over).lastId; });
    startTimers();
    showLast(pane);
}

// The row that the record screen was left on.
void CaddyEdit::showLast(GridPane &pane)
{
    if (pane.isShown() && pane.data->hasRows() && pane.data->FindFirst(u"ID="_s + dao::literal(pane.lastId)))
        pane.grid->setBookmark(pane.data->Recordset().Bookmark());
}

// A row that the period on show does not hold is opened among all rows.
RecordOutcome CaddyEdit::showReminder(const GridPane &pane, const RecordCall &call, QWidget *over)
{
    frmRecord record(pane.code, over);
    controls::DataControl &rows = record.dtaData();
    if (call.id == 0) {
        rows.setRecordSource(pane.newRowSource);
        record.AddNewRecord({}, call.day);
    } else {
        rows.setRecordSource(state().period.*pane.sql);
        rows.Refresh();
        const QString criteria = u"ID = %1"_s.arg(call.id);
        if (!rows.FindFirst(criteria)) {
            rows.setRecordSource(pane.newRowSource);
            rows.Refresh();
            rows.FindFirst(criteria);
        }
    }
    record.ShowModal();
    return record.outcome();
}

// The reminder grid that New works on: the section's own; where several are on show, the one used last.
GridPane *CaddyEdit::currentReminder() const
{
    if (GridPane *own = m_c.reminder(state().selection.gSection))
        return own;
    for (GridPane &pane : m_c.reminders())
        if (&pane == m_lastUsed && !pane.grid->isHidden())
            return &pane;
    return m_c.firstShown();
}

// The record screen of the section on show. Two sections have none: their rows are edited in the grid.
void CaddyEdit::openSubject(qint32 id)
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_c.TimerMessages->stop();
    m_screen.UpdateRowHeight();
    GridPane &subjects = m_c.subjects();
    subjects.lastId = id;
    const SectionDesign *section = shownSection();
    if (section && section->screen) {
        const QString &code = section->screen->opensAs ? sectionDesign(*section->screen->opensAs).code : section->code;
        stopTimers();
        if (const RecordScreen *screen = recordScreen(section->screen->name))
            basic::Trap([&] { subjects.lastId = screen->open({code, id}, m_window).lastId; });
        else
            showLater(u"The record screen of "_s + section->name);
    }
    basic::Trap([&] { showLast(subjects); });
    m_c.txtSearch->clear();
    startTimers();
}

void CaddyEdit::ShowEdit()
{
    if (!m_screen.writeRows())
        return;
    Grid *grid = m_c.subjects().grid;
    const qint32 id = selectedId(grid);
    const int column = grid->currentIndex().column();
    const bool isEditedHere = isEditedInCells() && !grid->isHidden();
    openSubject(id);
    if (!isEditedHere)
        return;
    grid->setFocus();
    if (id == 0) {
        grid->EditNewRow();
        return;
    }
    grid->setCurrentIndex(grid->currentIndex().siblingAtColumn(column));
    grid->EditCell();
}

void CaddyEdit::NewRecord()
{
    if (!m_screen.writeRows())
        return;
    GridPane *reminder = currentReminder();
    if (reminder && !reminder->grid->isHidden()) {
        openReminder(*reminder, {reminder->code, 0, {}}, m_window);
        m_c.txtSearch->clear();
        return;
    }
    openSubject(0);
    if (!m_c.subjects().grid->isHidden() && isEditedInCells()) {
        m_c.subjects().grid->setFocus();
        m_c.subjects().grid->EditNewRow();
    }
}

void CaddyEdit::stopTimers()
{
    m_c.Timer2->stop();
    m_c.TimerMessages->stop();
}

void CaddyEdit::startTimers()
{
    m_c.Timer2->start();
    if (state().settings.gNetwork)
        m_c.TimerMessages->start();
}

// Without its main file the program runs on, but there is nothing to store a reminder in.
bool CaddyEdit::hasFile() const
{
    const SectionDesign *section = shownSection();
    const bool inMain = !section || section->kind == SectionKind::Reminder || section->file == DataFile::Main;
    if (!inMain || state().mainFile != MainFileAccess::None)
        return true;
    basic::MsgBox(u"There is no main data file, so no record can be stored.\r\nRestart the program and let it create a new one."_s,
                  {}, basic::Icon::Exclamation);
    return false;
}

void CaddyEdit::panNew_Click()
{
    if (!hasFile())
        return;
    if (basic::askYesNo(u"Create a New Blank Record?"_s))
        NewRecord();
}

// A row with a picture shows it in the pane at the right; for one without, its screen is where a picture is chosen.
void CaddyEdit::subjectButton(qsizetype row)
{
    const Grid *grid = m_c.subjects().grid;
    const std::vector<controls::GridColumn> &columns = grid->columns();
    QString file;
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (columns[i].field.compare(u"FILENAME"_s, Qt::CaseInsensitive) == 0)
            file = grid->CellText(static_cast<int>(i), row).trimmed();
    if (pictureFile(file).isEmpty())
        ShowEdit();
    else
        showDetails();
}

void CaddyEdit::editSearched()
{
    if (!m_c.subjects().grid->isHidden())
        ShowEdit();
    else if (GridPane *own = m_c.reminder(state().selection.gSection))
        editReminder(*own);
    else if (GridPane *first = m_c.firstShown())
        editReminder(*first);
}

// In the head lines a double click turns between this grid alone and all three; below them it opens the row.
void CaddyEdit::DblClick(GridPane &pane, int yTwips)
{
    if (yTwips > controls::headLinesTwips)
        editReminder(pane);
    else
        m_screen.DisplayCategory(state().selection.gSection == pane.code ? u"All"_s : pane.sectionName);
}

QString CaddyEdit::toolTip(const GridPane &pane, qsizetype row, int column) const
{
    if (row >= 0)
        return {};
    if (pane.code == u"E"_s && column == dateColumn)
        return u" Click the DATE Heading to display the Events in either Day or Date Order "_s;
    return state().selection.gSection == pane.code ? u" Double Click Here for All Display "_s : u" Double Click Here for Full Display "_s;
}

controls::Grid *CaddyEdit::activeGrid() const
{
    if (!m_c.subjects().grid->isHidden())
        return m_c.subjects().grid;
    const GridPane *reminder = currentReminder();
    return reminder ? reminder->grid : nullptr;
}

void CaddyEdit::showDetails()
{
    const controls::Grid *grid = activeGrid();
    if (!grid)
        return;
    QStringList labels, texts;
    QString file;
    const qsizetype row = grid->currentRow();
    const std::vector<controls::GridColumn> &columns = grid->columns();
    for (std::size_t i = 0; i < columns.size() && row >= 0 && row < grid->rows(); ++i) {
        const QString text = grid->CellText(static_cast<int>(i), row).trimmed();
        if (columns[i].field.compare(u"FILENAME"_s, Qt::CaseInsensitive) == 0 && !isShown(SectionId::FileBackup)) {
            file = text;
        } else if (columns[i].visible && columns[i].style == controls::GridColumn::Style::Text && !text.isEmpty()) {
            labels << columns[i].caption;
            texts << text;
        }
    }
    // The record holds more than the list's columns.
    const std::vector<RecordLine> record = row >= 0 && row < grid->rows()
        ? recordDetails(grid->dataControl()->Database(), m_c.paneOf(grid).sectionCode(), selectedId(grid)) : std::vector<RecordLine>();
    if (!record.empty()) {
        labels.clear();
        texts.clear();
    }
    for (const RecordLine &line : record) {
        labels << line.label;
        texts << line.text;
    }
    m_c.picDetails->showPicture(file);
    m_c.picDetails->showDetails(labels, texts);
}

}
