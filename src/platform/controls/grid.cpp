#include "platform/controls/grid_p.h"

#include <QScrollBar>

namespace vorel::controls {

Grid::Grid(QWidget *parent) : QTableView(parent), d(std::make_unique<Private>(this))
{
    d->setUp();
}

// The connections to the control end with the private part, before the base is destroyed.
Grid::~Grid() = default;

void Grid::setDataControl(DataControl *control)
{
    d->link = std::make_unique<QObject>();
    d->model->setControl(control);
    if (!control)
        return;
    control->addRowWriter(d->link.get(), [this] { return UpdateRow(); });
    connect(control, &DataControl::RowsChanged, d->link.get(), [this] { Requery(); });
    connect(control, &DataControl::Reposition, d->link.get(), [this] { d->follow(); });
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

void Grid::setEmptyText(const QString &text)
{
    d->emptyText = text;
    viewport()->update();
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
    d->toolTip = [provider = std::move(provider)](qsizetype row, int) { return provider(row); };
}

void Grid::setToolTipProvider(std::function<QString(qsizetype, int)> provider)
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
    return row >= 0 && row < rows() && dataControl() ? dataControl()->Recordset().bookmarkAt(row) : dao::Bookmark();
}

dao::Bookmark Grid::Bookmark() const
{
    return getBookmark(currentRow());
}

void Grid::setBookmark(dao::Bookmark mark)
{
    const qsizetype row = dataControl() ? dataControl()->Recordset().positionOf(mark) : -1;
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

void Grid::setSortMark(int column, bool ascending)
{
    d->head->setSortIndicator(column, ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    d->head->setSortIndicatorShown(true);
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
    d->head->setSortIndicatorShown(false);
    verticalScrollBar()->setValue(place);
    d->follow();
    setAccessibleDescription(rows() == 0 ? d->emptyText : QString());
}

void Grid::Repaint()
{
    d->model->forgetRows();
}

}
