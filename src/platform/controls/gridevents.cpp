#include "platform/controls/colours.h"
#include "platform/controls/grid_p.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>
#include <QToolTip>

namespace vorel::controls {

void Grid::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    if (!d) {
        QTableView::currentChanged(current, previous);
        return;
    }
    d->movingAway = true;
    QTableView::currentChanged(current, previous);
    d->movingAway = false;
    if (current.row() == previous.row()) {
        if (current.isValid() && previous.isValid())
            emit CellMove(previous.column(), current.column());
        return;
    }
    d->selectors->viewport()->update();
    const QPointer<Grid> alive(this);
    if (!d->following && !d->leave(current.row())) {
        if (alive)
            QTimer::singleShot(0, this, [this] { d->comeBack(); });
        return;
    }
    if (!d->lead(current.row())) {
        // Not from inside the change of selection that is still under way.
        if (alive)
            QTimer::singleShot(0, this, [this] { d->follow(); });
        return;
    }
    if (alive)
        emit RowChange();
}

bool Grid::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ToolTip && (watched == d->title || watched == d->head->viewport())) {
        auto *help = static_cast<QHelpEvent *>(event);
        d->showTip(help, -1, watched == d->title ? -1 : d->head->logicalIndexAt(help->pos()), {});
        return true;
    }
    if (event->type() == QEvent::Paint && watched == d->corner) {
        QPainter painter(d->corner);
        painter.fillRect(d->corner->rect(), headBack(palette()));
        painter.setPen(hairline(palette()));
        painter.drawLine(d->corner->rect().bottomLeft(), d->corner->rect().bottomRight());
        return true;
    }
    return QTableView::eventFilter(watched, event);
}

void Grid::keyPressEvent(QKeyEvent *event)
{
    const bool alone = event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier;
    const int key = event->key();
    if (d->editKey(event)) {
        event->accept();
        return;
    }
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && alone) {
        if (currentRow() >= 0)
            emit EnterKey();
    } else if ((key == Qt::Key_Home || key == Qt::Key_End) && alone) {
        d->selectRow(key == Qt::Key_Home ? 0 : d->model->rowCount() - 1);
    } else if ((key == Qt::Key_F4 && alone) || (key == Qt::Key_Down && event->modifiers() == Qt::AltModifier)) {
        d->pressByKey();
    } else {
        QTableView::keyPressEvent(event);
        return;
    }
    event->accept();
}

void Grid::mousePressEvent(QMouseEvent *event)
{
    d->pressedAt = event->pos();
    d->pressedRow = currentRow();
    const QModelIndex index = indexAt(event->pos());
    if (index.isValid() && !d->leave(index.row())) {
        event->accept();
        return;
    }
    QTableView::mousePressEvent(event);
}

void Grid::mouseDoubleClickEvent(QMouseEvent *event)
{
    d->pressedAt = event->pos();
    const QModelIndex index = indexAt(event->pos());
    QTableView::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton || d->hasButtonAt(index, event->pos()) || d->isOnBox(index, event->pos()))
        return;
    emit DblClick(std::max(toTwips(viewport()->mapTo(this, event->pos()).y()), headLinesTwips + 1));
}

void Grid::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    d->placeTitle();
}

void Grid::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (d && (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange))
        d->placeTitle();
}

// The mouse has the heads for it; by the keyboard their menu opens from the list.
void Grid::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard)
        emit HeadMenu(d->head->viewport()->mapToGlobal(d->head->viewport()->rect().bottomLeft()));
    else
        QTableView::contextMenuEvent(event);
}

void Grid::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    d->paintEmptyText();
}

bool Grid::viewportEvent(QEvent *event)
{
    if (d && event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const QModelIndex index = indexAt(help->pos());
        if (index.isValid())
            d->showTip(static_cast<QHelpEvent *>(event), index.row(), index.column(), index);
        else
            QToolTip::hideText();
        return true;
    }
    return QTableView::viewportEvent(event);
}

}
