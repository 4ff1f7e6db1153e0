#include "platform/basic/prompts.h"
#include "platform/controls/grid_p.h"
#include "platform/controls/refusal.h"

#include <QKeyEvent>
#include <QTimer>

// Editing in the cells: what was typed is kept in the model's draft of the row, which is written whole.
namespace vorel::controls {

using namespace Qt::StringLiterals;

namespace {


// An empty text goes in as it is where the design takes it, else as Null.
void setField(dao::Recordset &rows, const QString &field, dao::DataType type, bool isCheck, const dao::Value &value)
{
    const QString text = value.text();
    const bool isText = type == dao::dbText || type == dao::dbMemo;
    if (!value.isText()) {
        rows.Set(field, value);
    } else if (isCheck) {
        rows.Set(field, text == u"-1");
    } else if (!isText && text.trimmed().isEmpty()) {
        rows.Set(field, dao::Value());
    } else {
        try {
            rows.Set(field, text);
        } catch (const basic::Error &e) {
            if (e.number() != dao::err::ZeroLengthText)
                throw;
            rows.Set(field, dao::Value());
        }
    }
}

template <class Handler, class... Args>
bool trapped(const Handler &handler, Args &&...args)
{
    return !handler || basic::Trap([&] { handler(std::forward<Args>(args)...); });
}

}

bool Grid::Private::canEdit(const QModelIndex &index) const
{
    return index.isValid() && model->flags(index).testFlag(Qt::ItemIsEditable);
}

bool Grid::Private::canToggle(const QModelIndex &index) const
{
    return index.isValid() && model->column(index.column()).style == GridColumn::Style::Check
        && model->canChange(index.row(), index.column());
}

bool Grid::Private::isOnBox(const QModelIndex &index, QPoint where) const
{
    return canToggle(index) && GridDelegate::boxRect(q->visualRect(index)).adjusted(-4, -4, 4, 4).contains(where);
}

int Grid::Private::firstEditableColumn() const
{
    for (int column = 0; column < model->columnCount(); ++column) {
        if (!q->isColumnHidden(column) && canEdit(model->index(static_cast<int>(q->currentRow()), column)))
            return column;
    }
    return -1;
}

void Grid::Private::editCell()
{
    if (!q->currentIndex().isValid() && model->isNewRow(model->rows()))
        selectRow(model->rows());
    const int column = canEdit(q->currentIndex()) ? q->currentIndex().column() : firstEditableColumn();
    if (column < 0)
        return;
    q->setCurrentIndex(model->index(q->currentIndex().row(), column));
    q->edit(q->currentIndex());
}

void Grid::Private::closeOpenEditor()
{
    if (QWidget *editor = delegate->openEditor()) {
        movingAway = true;
        q->commitData(editor);
        q->closeEditor(editor, QAbstractItemDelegate::NoHint);
        movingAway = false;
    }
}

// false: a handler would not have it; the cell keeps what it had.
bool Grid::Private::take(const QModelIndex &index, const QString &text)
{
    CellChange change {index.row(), index.column(), model->editText(index.row(), index.column()), text};
    if (!trapped(handlers.beforeCellChange, change) || change.cancel)
        return false;
    if (change.text == change.before && change.value.isNull())
        return true;
    model->putDraft(change.row, change.column, change.value.isNull() ? dao::Value(change.text) : change.value);
    trapped(handlers.afterCellChange, change.column);
    return true;
}

void Grid::Private::toggle(const QModelIndex &index)
{
    if (!leave(index.row()))
        return;
    const bool alone = !model->draft().isOpen();
    const bool isOn = model->isChecked(index.row(), index.column());
    if (!take(index, isOn ? u"0"_s : u"-1"_s) || !alone || model->isNewRow(index.row()))
        return;
    if (!write())
        undo();
}

bool Grid::Private::writeDraft(const RowUpdate &update, UpdateFailure *failure)
{
    const RowDraft draft = model->draft();
    dao::Recordset rows = model->control() ? model->control()->Recordset() : dao::Recordset();
    const bool isNew = !draft.mark.isValid();
    const dao::Bookmark here = rows.hasCurrentRow() ? rows.Bookmark() : dao::Bookmark();
    try {
        if (isNew) {
            rows.AddNew();
        } else {
            if (here != draft.mark)
                rows.setBookmark(draft.mark);
            rows.Edit();
        }
        for (const auto &[column, value] : draft.cells) {
            failure->column = column;
            const bool isCheck = model->column(column).style == GridColumn::Style::Check;
            setField(rows, model->fieldName(column), model->fieldType(column), isCheck, value);
        }
        failure->column = -1;
        for (const auto &[field, value] : update.more)
            rows.Set(field, value);
        rows.Update();
        if (isNew && q->currentRow() == draft.row)
            rows.setBookmark(rows.LastModified());
        else if (!isNew && here.isValid() && here != draft.mark)
            rows.setBookmark(here);
        return true;
    } catch (const basic::Error &e) {
        failure->number = e.number() == dao::err::DuplicateValue ? duplicateRowError : e.number();
        failure->text = failure->column < 0 ? e.text() : refusedCell(rows, draft, failure->column, e);
    }
    rows.dropPending();
    return false;
}

QString Grid::Private::refusedCell(const dao::Recordset &rows, const RowDraft &draft, int column, const basic::Error &error) const
{
    const dao::Value &value = draft.cells.at(column);
    const int field = rows.fieldIndex(model->fieldName(column));
    return refusalText(model->column(column).caption, value.text(), rows.Fields()[static_cast<std::size_t>(field)], value, error);
}

// The row by its longest text, for its name is in another column in each section.
QString Grid::Private::rowName(qsizetype row, int besides) const
{
    QString name;
    for (int column = 0; column < model->columnCount(); ++column) {
        const bool isText = model->fieldType(column) == dao::dbText || model->fieldType(column) == dao::dbMemo;
        if (column == besides || q->isColumnHidden(column) || !isText)
            continue;
        const QString text = model->editText(row, column).simplified();
        if (text.size() > name.size())
            name = text;
    }
    constexpr int longest = 60;
    if (name.isEmpty())
        return u"The row"_s;
    return u"The row \""_s + (name.size() > longest ? name.left(longest) + u"..."_s : name) + u'"';
}

bool Grid::Private::write()
{
    closeOpenEditor();
    if (!model->draft().isOpen())
        return true;
    if (writing)
        return false;
    const QPointer<Grid> alive(q);
    writing = true;
    RowUpdate update {model->draft().row, model->isNewRow(model->draft().row)};
    const bool allowed = trapped(handlers.beforeUpdate, update) && !update.cancel && alive && model->draft().isOpen();
    UpdateFailure failure;
    const bool written = allowed && writeDraft(update, &failure);
    if (!alive)
        return false;
    if (written) {
        lastWritten = model->draft();
        leading = true;             // the row is already current in the control
        model->draftStored();
        if (update.isNew && q->currentRow() == update.row && model->control())
            model->control()->showRow();
        leading = false;
    }
    writing = false;
    if (written)
        trapped(handlers.afterUpdate, update);
    else if (allowed)
        report(failure);
    q->verticalHeader()->viewport()->update();
    return written;
}

void Grid::Private::report(UpdateFailure failure)
{
    const QPointer<Grid> alive(q);
    trapped(handlers.updateError, failure);
    if (!alive)
        return;
    const qsizetype row = model->draft().row;
    if (failure.column >= 0 && row == q->currentRow() && !q->isColumnHidden(failure.column))
        q->setCurrentIndex(model->index(static_cast<int>(row), failure.column));
    if (!failure.answered)
        basic::MsgBox(rowName(row, failure.column) + u" is not saved.\n"_s + failure.text
                          + u"\n\nPress Esc to undo the changes to this row."_s, {}, basic::Icon::Exclamation);
}

void Grid::Private::undo()
{
    const qsizetype row = model->draft().row;
    if (row < 0)
        return;
    model->dropDraft();
    trapped(handlers.afterUndo, row);
    q->verticalHeader()->viewport()->update();
}

bool Grid::Private::leave(qsizetype row)
{
    closeOpenEditor();
    return row == model->draft().row || write();
}

void Grid::Private::comeBack()
{
    if (!model->draft().isOpen())
        return;
    following = true;               // the row is still the control's
    q->setCurrentIndex(model->index(static_cast<int>(model->draft().row), q->currentIndex().column()));
    following = false;
}

bool Grid::Private::step(int direction)
{
    int row = q->currentIndex().row(), column = q->currentIndex().column();
    const int columns = model->columnCount(), rows = model->rowCount();
    for (int tries = 0; tries < 2 * columns; ++tries) {
        column += direction;
        if (column < 0 || column >= columns) {
            row += direction;
            column = direction > 0 ? 0 : columns - 1;
        }
        if (row < 0 || row >= rows)
            return false;
        const QModelIndex next = model->index(row, column);
        if (q->isColumnHidden(column) || !(canEdit(next) || canToggle(next)))
            continue;
        if (!leave(row))
            return true;
        // A row that was written may have moved the new-row line on, never the rows before it.
        q->setCurrentIndex(next);
        if (canEdit(next))
            q->edit(next);
        return true;
    }
    return false;
}

void Grid::Private::finishByEnter()
{
    const bool wasNew = model->isNewRow(model->draft().row);
    if (!write() || !wasNew)
        return;
    selectRow(model->rows());
    if (const int column = firstEditableColumn(); column >= 0)
        q->setCurrentIndex(model->index(q->currentIndex().row(), column));
}

bool Grid::Private::cellKey(const QKeyEvent *event)
{
    const QModelIndex current = q->currentIndex();
    switch (event->key()) {
    case Qt::Key_Space:
        if (!canToggle(current))
            return canEdit(current);        // a blank begins no text
        toggle(current);
        return true;
    case Qt::Key_F2:
        editCell();
        return delegate->openEditor() != nullptr;
    case Qt::Key_Delete:
        if (current.isValid() && !model->isNewRow(current.row()) && q->state() != EditingState)
            emit q->DeleteKey();
        return true;
    case Qt::Key_Escape:
        if (!model->draft().isOpen())
            return false;
        undo();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!model->draft().isOpen())
            return false;
        finishByEnter();
        return true;
    default:
        break;
    }
    // Typing goes into the new-row line wherever its cursor is.
    if (event->text().isEmpty() || !event->text().front().isPrint() || canEdit(current))
        return false;
    if (!current.isValid() && model->isNewRow(model->rows()))
        selectRow(model->rows());
    const int column = model->isNewRow(q->currentRow()) ? firstEditableColumn() : -1;
    if (column >= 0)
        q->setCurrentIndex(model->index(q->currentIndex().row(), column));
    return false;
}

bool Grid::Private::editKey(QKeyEvent *event)
{
    static const QList<int> rowKeys {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
    const Qt::KeyboardModifiers held = event->modifiers() & ~Qt::KeypadModifier;
    if (event->key() == Qt::Key_S && held == (Qt::ControlModifier | Qt::ShiftModifier)) {
        if (q->currentIndex().isValid())
            emit q->HeadClick(q->currentIndex().column());
        return true;
    }
    if (!model->hasEdits())
        return false;
    // An open cell sees to its keys itself, after the line has had its say.
    if (delegate->openEditor() && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
        return true;
    if (rowKeys.contains(event->key()) && !(held & Qt::AltModifier))
        return !write();
    return (held == Qt::NoModifier || held == Qt::ShiftModifier) && cellKey(event);
}

void Grid::setEditing(std::vector<CellEdit> cells, EditHandlers handlers)
{
    UpdateRow();
    d->model->dropDraft();
    d->handlers = std::move(handlers);
    d->model->setEdits(std::move(cells));
}

void Grid::EditCell()
{
    d->editCell();
}

void Grid::EditNewRow()
{
    if (!UpdateRow() || !d->model->isNewRow(d->model->rows()))
        return;
    d->selectRow(d->model->rows());
    if (const int column = d->firstEditableColumn(); column >= 0)
        setCurrentIndex(d->model->index(currentIndex().row(), column));
    scrollTo(currentIndex());
    d->editCell();
}

bool Grid::UpdateRow()
{
    return d->write();
}

void Grid::UndoRow()
{
    if (QWidget *editor = d->delegate->openEditor())
        QTableView::closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
    d->undo();
}

void Grid::RetakeRow()
{
    DataControl *control = d->model->control();
    if (!control)
        return;
    control->Refresh(true);
    d->model->retakeDraft(d->lastWritten);
    verticalHeader()->viewport()->update();
}

bool Grid::isRowChanged() const
{
    return d->model->draft().isOpen();
}

void Grid::TakeOpenCell()
{
    d->closeOpenEditor();
}

qsizetype Grid::EditRow() const
{
    return isRowChanged() ? d->model->draft().row : currentRow();
}

QString Grid::EditText(int column) const
{
    return d->model->editText(EditRow(), column);
}

dao::Value Grid::CellValue(int column, qsizetype row) const
{
    return d->model->value(row, column);
}

void Grid::setEditValue(int column, const dao::Value &value)
{
    const qsizetype row = EditRow();
    const bool hasField = column >= 0 && column < d->model->columnCount() && !d->model->fieldName(column).isEmpty();
    if (row >= 0 && hasField && d->model->value(row, column) != value)
        d->model->putDraft(row, column, value);
}

void Grid::ChangeCell(int column, const QString &text)
{
    const QModelIndex index = d->model->index(currentIndex().row(), column);
    if (index.isValid() && d->leave(index.row()))
        d->take(index, text);
}

QRect Grid::cellRect(int column, qsizetype row) const
{
    return visualRect(d->model->index(static_cast<int>(row), column));
}

void Grid::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    const bool byItself = !d->movingAway;
    QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    d->delegate->forgetEditor(editor);
    emit EditEnded();
    verticalHeader()->viewport()->update();
    if (!byItself)
        return;
    if (hint == QAbstractItemDelegate::EditNextItem)
        d->step(1);
    else if (hint == QAbstractItemDelegate::EditPreviousItem)
        d->step(-1);
    else if (hint == QAbstractItemDelegate::SubmitModelCache)
        d->finishByEnter();
}

// Within a row that is being changed Tab goes from cell to cell, from a check to the next text too.
bool Grid::focusNextPrevChild(bool next)
{
    if (d->model->draft().isOpen() && d->step(next ? 1 : -1))
        return true;
    return QTableView::focusNextPrevChild(next);
}

}
