#include "platform/controls/colours.h"
#include "platform/controls/grid_p.h"

#include <QAbstractButton>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

namespace vorel::controls {

using namespace Qt::StringLiterals;

Grid::Private::Private(Grid *grid)
    : q(grid), model(new GridModel(grid)), delegate(new GridDelegate(*model, grid)), title(new GridTitle(grid)),
      head(new GridHead(grid)), selectors(new RowSelectors(grid))
{
    model->setTaker([this](const QModelIndex &index, const QString &text) { return take(index, text); });
}

void Grid::Private::setUp()
{
    q->setModel(model);
    q->setItemDelegate(delegate);
    q->setHorizontalHeader(head);
    q->setVerticalHeader(selectors);
    q->setSelectionBehavior(QAbstractItemView::SelectRows);
    q->setSelectionMode(QAbstractItemView::SingleSelection);
    q->setEditTriggers(QAbstractItemView::AnyKeyPressed);
    q->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    q->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    q->setShowGrid(false);      // the delegate draws one thin line below each row
    q->setTabKeyNavigation(false);
    q->setCornerButtonEnabled(false);
    q->setWordWrap(true);
    q->setMouseTracking(true);
    selectors->setRowHeight(q->fontMetrics().height() + cellPadding);
    head->viewport()->installEventFilter(q);
    title->installEventFilter(q);
    corner = q->findChild<QAbstractButton *>({}, Qt::FindDirectChildrenOnly);
    if (corner)
        corner->installEventFilter(q);
    title->hide();
    connectParts();
}

void Grid::Private::connectParts()
{
    const auto headLines = [this](QPoint where) { emit q->DblClick(std::min(toTwips(where.y()), headLinesTwips)); };
    QObject::connect(title, &GridTitle::doubleClicked, q, headLines);
    QObject::connect(head, &GridHead::doubleClicked, q, headLines);
    QObject::connect(delegate, &GridDelegate::opened, q, &Grid::EditBegun);
    QObject::connect(head, &GridHead::sectionClicked, q, &Grid::HeadClick);
    QObject::connect(head, &GridHead::userResized, q, &Grid::ColResize);
    head->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(head, &QWidget::customContextMenuRequested, q,
                     [this](QPoint where) { emit q->HeadMenu(head->viewport()->mapToGlobal(where)); });
    QObject::connect(selectors, &RowSelectors::heightChanged, q, [this] { q->doItemsLayout(); });
    QObject::connect(selectors, &RowSelectors::userResized, q, &Grid::RowResize);
    QObject::connect(q, &QAbstractItemView::clicked, q, [this](const QModelIndex &index) {
        if (isOnBox(index, pressedAt))
            toggle(index);
        else if (hasButtonAt(index, pressedAt))
            press(index);
    });
}

bool Grid::Private::isButton(const QModelIndex &index) const
{
    return index.isValid() && index.row() < model->rows() && model->column(index.column()).style == GridColumn::Style::Button;
}

bool Grid::Private::hasButtonAt(const QModelIndex &index, QPoint where) const
{
    if (isButton(index))
        return true;
    const CellEdit *edit = index.isValid() ? model->edit(index.column()) : nullptr;
    // A click that chooses another row opens no list.
    const bool isMark = edit && (edit->hasButton || (edit->list && pressedRow == index.row()));
    return isMark && canEdit(index) && GridDelegate::endButtonRect(q->visualRect(index)).contains(where);
}

void Grid::Private::press(const QModelIndex &index)
{
    const CellEdit *edit = model->edit(index.column());
    if (!edit || !edit->list) {
        emit q->BtnClick(index.column(), index.row());
        return;
    }
    q->edit(index);
    delegate->openList();
}

// The current cell's own button or list; else the row's first button.
void Grid::Private::pressByKey()
{
    const QModelIndex current = q->currentIndex();
    const CellEdit *edit = canEdit(current) ? model->edit(current.column()) : nullptr;
    if (edit && (edit->hasButton || edit->list)) {
        press(current);
        return;
    }
    for (int column = 0; current.isValid() && column < model->columnCount(); ++column) {
        const QModelIndex index = model->index(current.row(), column);
        if (!q->isColumnHidden(column) && isButton(index)) {
            press(index);
            return;
        }
    }
}

void Grid::Private::placeTitle()
{
    const bool shown = !title->text().isEmpty();
    const int height = shown ? title->sizeHint().height() : 0;
    const int frame = q->frameWidth();
    title->setGeometry(frame, frame, q->width() - 2 * frame, height);
    title->setVisible(shown);
    title->raise();
    head->setTitleHeight(height);
}

// A list that could not be read is not an empty one: it says nothing.
void Grid::Private::paintEmptyText()
{
    const DataControl *data = model->control();
    if (emptyText.isEmpty() || !data || model->rows() > 0 || (!model->control()->Recordset() && !data->DatabaseName().isEmpty()))
        return;
    QRect room = q->viewport()->rect().adjusted(cellPadding, 0, -cellPadding, 0);
    room.setTop(model->rowCount() * selectors->defaultSectionSize());       // below the line for a new row
    QPainter painter(q->viewport());
    painter.setPen(blend(q->palette().color(QPalette::Text), q->palette().color(QPalette::Base), 0.35));
    painter.drawText(room, static_cast<int>(Qt::AlignCenter | Qt::TextWordWrap), emptyText);
}

int Grid::Private::firstVisibleColumn() const
{
    for (int column = 0; column < model->columnCount(); ++column) {
        if (!q->isColumnHidden(column))
            return column;
    }
    return 0;
}

void Grid::Private::selectRow(qsizetype row)
{
    if (row < 0 || row >= model->rowCount()) {
        q->clearSelection();
        q->setCurrentIndex({});
        return;
    }
    const int column = q->currentIndex().isValid() ? q->currentIndex().column() : firstVisibleColumn();
    const int place = q->horizontalScrollBar()->value();
    q->setCurrentIndex(model->index(static_cast<int>(row), column));
    q->horizontalScrollBar()->setValue(place);
}

qsizetype Grid::Private::controlRow() const
{
    DataControl *data = model->control();
    return data && data->Recordset().hasCurrentRow() ? data->Recordset().AbsolutePosition() : -1;
}

void Grid::Private::follow()
{
    if (leading || following)
        return;
    following = true;
    if (model->isOutdated())        // rows came or went through the control's own recordset
        model->reload();
    selectRow(controlRow());
    following = false;
}

bool Grid::Private::lead(qsizetype row)
{
    DataControl *data = model->control();
    if (!data || following || leading || row < 0 || row >= model->rows() || row == controlRow())
        return true;
    leading = true;
    const bool moved = data->setBookmark(q->getBookmark(row));
    leading = false;
    return moved;
}

void Grid::Private::showTip(QHelpEvent *event, qsizetype row, int column, const QModelIndex &index) const
{
    QString text = toolTip ? toolTip(row, column) : QString();
    if (text.isEmpty() && index.isValid()) {
        const QString whole = index.data().toString();
        const int room = q->columnWidth(index.column()) - 2 * cellPadding;
        if (q->fontMetrics().horizontalAdvance(whole) > room)
            text = whole;
    }
    if (Qt::mightBeRichText(text))      // records hold text, never markup
        text = u"<p style='white-space:pre-wrap'>"_s + text.toHtmlEscaped() + u"</p>"_s;
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(event->globalPos(), text, q);
}

}
