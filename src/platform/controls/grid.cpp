#include "platform/controls/grid.h"

#include "platform/controls/colours.h"
#include "platform/controls/griddelegate.h"
#include "platform/controls/gridparts.h"

#include <QAbstractButton>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <QToolTip>

namespace vorel::controls {

using namespace Qt::StringLiterals;

struct Grid::Private {
    explicit Private(Grid *grid)
        : q(grid), model(new GridModel(grid)), delegate(new GridDelegate(*model, grid)), title(new GridTitle(grid)),
          head(new GridHead(grid)), selectors(new RowSelectors(grid)) {}

    Grid *q;
    GridModel *model;
    GridDelegate *delegate;
    GridTitle *title;
    GridHead *head;
    RowSelectors *selectors;
    QWidget *corner = nullptr;      // between the selectors and the heads
    QMetaObject::Connection rowsChanged, repositioned;
    std::function<QString(qsizetype)> toolTip;
    QString titleText;
    bool following = false;         // the grid is taking over the control's row
    bool leading = false;           // the control is taking over the grid's row

    void setUp()
    {
        q->setModel(model);
        q->setItemDelegate(delegate);
        q->setHorizontalHeader(head);
        q->setVerticalHeader(selectors);
        q->setSelectionBehavior(QAbstractItemView::SelectRows);
        q->setSelectionMode(QAbstractItemView::SingleSelection);
        q->setEditTriggers(QAbstractItemView::NoEditTriggers);
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

        const auto headLines = [this](QPoint where) { emit q->DblClick(std::min(toTwips(where.y()), headLinesTwips)); };
        connect(title, &GridTitle::doubleClicked, q, headLines);
        connect(head, &GridHead::doubleClicked, q, headLines);
        connect(head, &GridHead::sectionClicked, q, &Grid::HeadClick);
        connect(head, &GridHead::userResized, q, &Grid::ColResize);
        connect(selectors, &RowSelectors::heightChanged, q, [this] { q->doItemsLayout(); });
        connect(selectors, &RowSelectors::userResized, q, &Grid::RowResize);
        connect(q, &QAbstractItemView::clicked, q, [this](const QModelIndex &index) { press(index); });
    }

    bool isButton(const QModelIndex &index) const
    {
        return index.isValid() && index.row() < model->rows()
            && model->columns()[static_cast<std::size_t>(index.column())].style == GridColumn::Style::Button;
    }

    void press(const QModelIndex &index)
    {
        if (isButton(index))
            emit q->BtnClick(index.column(), index.row());
    }

    void pressByKey()
    {
        const int row = q->currentIndex().row();
        for (int column = 0; row >= 0 && column < model->columnCount(); ++column) {
            const QModelIndex index = model->index(row, column);
            if (!q->isColumnHidden(column) && isButton(index)) {
                press(index);
                return;
            }
        }
    }

    void placeTitle()
    {
        const bool shown = !title->text().isEmpty();
        const int height = shown ? title->sizeHint().height() : 0;
        const int frame = q->frameWidth();
        title->setGeometry(frame, frame, q->width() - 2 * frame, height);
        title->setVisible(shown);
        title->raise();
        head->setTitleHeight(height);
    }

    int firstVisibleColumn() const
    {
        for (int column = 0; column < model->columnCount(); ++column) {
            if (!q->isColumnHidden(column))
                return column;
        }
        return 0;
    }

    void selectRow(qsizetype row)
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

    qsizetype controlRow() const
    {
        qsizetype row = -1;
        basic::IgnoreErrors([&] {
            DataControl *data = model->control();
            if (!data || !data->hasRows())
                return;
            const dao::Recordset &rows = data->Recordset();
            if (rows.BOF() || rows.EOF_())
                return;
            const dao::Bookmark mark = rows.Bookmark();
            row = rows.AbsolutePosition();
            if (rows.bookmarkAt(row) != mark)
                row = rows.positionOf(mark);
        });
        return row;
    }

    void follow()
    {
        if (leading || following)
            return;
        following = true;
        if (model->isOutdated())        // rows came or went through the control's own recordset
            model->reload();
        selectRow(controlRow());
        following = false;
    }

    // The control's current row becomes the grid's. false: what was typed on its row could not be saved.
    bool lead(qsizetype row)
    {
        DataControl *data = model->control();
        if (!data || following || leading || row < 0 || row >= model->rows() || row == controlRow())
            return true;
        leading = true;
        const bool moved = data->setBookmark(q->getBookmark(row));
        leading = false;
        return moved;
    }

    void showTip(QHelpEvent *event, qsizetype row, const QModelIndex &index) const
    {
        QString text = toolTip ? toolTip(row) : QString();
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
};

Grid::Grid(QWidget *parent) : QTableView(parent), d(std::make_unique<Private>(this))
{
    d->setUp();
}

// The base's destructor still sends events: none of them may reach what is gone.
Grid::~Grid()
{
    d->head->viewport()->removeEventFilter(this);
    d->title->removeEventFilter(this);
    if (d->corner)
        d->corner->removeEventFilter(this);
    disconnect(d->rowsChanged);
    disconnect(d->repositioned);
}

void Grid::setDataControl(DataControl *control)
{
    disconnect(d->rowsChanged);
    disconnect(d->repositioned);
    d->model->setControl(control);
    if (!control)
        return;
    d->rowsChanged = connect(control, &DataControl::RowsChanged, this, &Grid::Requery);
    d->repositioned = connect(control, &DataControl::Reposition, this, [this] { d->follow(); });
    d->follow();
}

DataControl *Grid::dataControl() const
{
    return d->model->control();
}

void Grid::setColumns(std::vector<GridColumn> columns)
{
    d->model->setColumns(std::move(columns));
    int index = 0;
    for (const GridColumn &column : d->model->columns()) {
        setColumnHidden(index, !column.visible);
        QTableView::setColumnWidth(index, toPixels(column.width));
        ++index;
    }
    d->follow();
}

const std::vector<GridColumn> &Grid::columns() const
{
    return d->model->columns();
}

void Grid::setTitle(const QString &title)
{
    if (title == d->title->text())
        return;
    d->titleText = title;
    d->title->setText(title);
    setAccessibleName(title);
    d->placeTitle();
}

const QString &Grid::title() const
{
    return d->titleText;
}

void Grid::setAllowAddNew(bool allow)
{
    d->model->setAllowAddNew(allow);
    d->follow();
}

void Grid::setRecordSelectors(bool on)
{
    d->selectors->setVisible(on);
}

void Grid::setStyleSet(const QString &name, const StyleSet &style)
{
    d->model->setStyleSet(name, style);
    if (name.isEmpty()) {
        QPalette area = viewport()->palette();
        area.setColor(QPalette::Base, style.back.isValid() ? style.back : palette().color(QPalette::Base));
        viewport()->setPalette(area);
    }
    viewport()->update();
}

StyleSet Grid::styleSet(const QString &name) const
{
    return d->model->styleSet(name);
}

void Grid::setRowLoad(std::function<void(RowPaint &)> handler)
{
    d->model->setRowLoad(std::move(handler));
}

void Grid::setToolTipProvider(std::function<QString(qsizetype)> provider)
{
    d->toolTip = std::move(provider);
}

void Grid::setActiveRowStyleSet(const QString &name)
{
    d->delegate->setActiveStyle(name);
    viewport()->update();
}

int Grid::columnWidthTwips(int column) const
{
    return toTwips(columnWidth(column));
}

void Grid::setColumnWidthTwips(int column, int twips)
{
    setColumnWidth(column, toPixels(twips));
}

int Grid::rowHeightTwips() const
{
    return toTwips(d->selectors->defaultSectionSize());
}

void Grid::setRowHeightTwips(int twips)
{
    d->selectors->setRowHeight(toPixels(twips));
}

qsizetype Grid::rows() const
{
    return d->model->rows();
}

int Grid::VisibleRows() const
{
    return viewport()->height() / std::max(1, d->selectors->defaultSectionSize());
}

qsizetype Grid::FirstRow() const
{
    return std::max(0, rowAt(0));
}

void Grid::MoveFirst()
{
    if (rows() > 0)
        d->selectRow(0);
}

dao::Bookmark Grid::getBookmark(qsizetype row) const
{
    dao::Bookmark mark;
    if (row >= 0 && row < rows() && dataControl())
        basic::IgnoreErrors([&] { mark = dataControl()->Recordset().bookmarkAt(row); });
    return mark;
}

dao::Bookmark Grid::Bookmark() const
{
    return getBookmark(currentRow());
}

void Grid::setBookmark(dao::Bookmark mark)
{
    qsizetype row = -1;
    basic::IgnoreErrors([&] {
        if (dataControl() && dataControl()->Recordset() && mark.isValid())
            row = dataControl()->Recordset().positionOf(mark);
    });
    if (row < 0)
        return;
    d->selectRow(row);
    scrollTo(currentIndex());
}

void Grid::Scroll(qsizetype firstRow)
{
    if (d->model->rowCount() == 0)
        return;
    const auto row = static_cast<int>(std::clamp<qsizetype>(firstRow, 0, d->model->rowCount() - 1));
    verticalScrollBar()->setValue(row * d->selectors->defaultSectionSize());
}

void Grid::setRedraw(bool on)
{
    setUpdatesEnabled(on);
}

QString Grid::CellText(int column, qsizetype row) const
{
    return d->model->shownText(row, column);
}

QString Grid::CellText(int column) const
{
    return CellText(column, currentRow());
}

qsizetype Grid::currentRow() const
{
    return currentIndex().row();
}

void Grid::Requery()
{
    const int place = verticalScrollBar()->value();
    d->model->reload();
    verticalScrollBar()->setValue(place);
    d->follow();
}

void Grid::Repaint()
{
    d->model->forgetRows();
}

void Grid::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    if (!d || current.row() == previous.row())
        return;
    d->selectors->viewport()->update();
    const QPointer<Grid> alive(this);
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
        d->showTip(static_cast<QHelpEvent *>(event), -1, {});
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

void Grid::mouseDoubleClickEvent(QMouseEvent *event)
{
    QTableView::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton || d->isButton(indexAt(event->pos())))
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

bool Grid::viewportEvent(QEvent *event)
{
    if (d && event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const QModelIndex index = indexAt(help->pos());
        if (index.isValid())
            d->showTip(static_cast<QHelpEvent *>(event), index.row(), index);
        else
            QToolTip::hideText();
        return true;
    }
    return QTableView::viewportEvent(event);
}

}
