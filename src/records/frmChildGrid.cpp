#include "records/frmChildGrid.h"

#include "platform/basic/prompts.h"
#include "platform/controls/form.h"
#include "platform/controls/layout.h"

#include <QLabel>
#include <QVBoxLayout>

namespace vorel {

using namespace Qt::StringLiterals;

ChildGridView::ChildGridView(const records::ChildGrid &design, const QString &path, controls::DataControl *parent, QWidget *panel)
    : QWidget(panel), m_design(design), m_data(new controls::DataControl(this)), m_grid(new controls::Grid(this))
{
    m_data->setObjectName(design.dataControl);
    m_data->setConnect(u"Access"_s);
    m_data->setDatabaseName(path);
    m_grid->setObjectName(design.control);
    m_grid->setAccessibleName(design.spoken);
    m_grid->setDataControl(m_data);
    createColumns();
    // A row that is being typed belongs to the record that is left: it is written with it, or keeps it.
    parent->addRowWriter(this, [this] { return m_grid->UpdateRow(); }, [this] { m_grid->UndoRow(); },
                         [this] {
                             m_grid->TakeOpenCell();        // the row and the cell still open are stored in one transaction
                             return m_grid->isRowChanged();
                         },
                         [this] { m_grid->RetakeRow(); });
    controls::on(m_grid, &controls::Grid::EnterKey, this, [this] { m_grid->EditCell(); });
    if (design.deletes)
        controls::on(m_grid, &controls::Grid::DeleteKey, this, [this] { deleteRow(); });

    auto *column = new QVBoxLayout(this);
    controls::layout::setMargins(column, 0);
    column->setSpacing(2 * controls::layout::unit);
    column->addWidget(m_grid, 1);
    if (!design.note.isEmpty()) {
        auto *note = new QLabel(design.note, this);
        note->setWordWrap(true);
        column->addWidget(note);
    }
}

void ChildGridView::createColumns()
{
    std::vector<controls::GridColumn> columns;
    std::vector<controls::CellEdit> cells;
    for (const records::ChildColumn &wanted : m_design.columns) {
        controls::GridColumn column;
        column.field = wanted.field;
        column.caption = wanted.caption;
        column.format = wanted.format;
        if (wanted.width > 0)
            column.width = wanted.width;
        columns.push_back(column);
        cells.push_back({wanted.field});
    }
    m_grid->setColumns(std::move(columns));
    controls::EditHandlers rules;
    rules.beforeUpdate = [this](controls::RowUpdate &update) {
        if (update.isNew)
            update.more.emplace_back(m_design.key, keyValue());
    };
    rules.afterUpdate = [this](const controls::RowUpdate &) { emit rowsChanged(); };
    m_grid->setEditing(std::move(cells), std::move(rules));
}

basic::Value ChildGridView::keyValue() const
{
    return m_design.keyControl == u"lblIDNum" ? basic::Value(m_key.toInt()) : basic::Value(m_key);
}

void ChildGridView::showRowsOf(const QString &key)
{
    m_key = key;
    m_data->setRecordSource(key.isEmpty() ? QString() : m_design.rows + dao::literal(keyValue()) + m_design.order);
    m_data->Refresh();
    m_grid->setAllowAddNew(!key.isEmpty());
    sizeColumns();
}

void ChildGridView::sizeColumns()
{
    int rest = controls::toTwips(m_grid->width());
    for (const records::ChildColumn &column : m_design.columns)
        rest -= column.width;
    int index = 0;
    for (const records::ChildColumn &column : m_design.columns) {
        if (column.width == 0)
            m_grid->setColumnWidthTwips(index, std::max(column.margin, rest - column.margin));
        ++index;
    }
}

void ChildGridView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    sizeColumns();
}

void ChildGridView::deleteRow()
{
    const qsizetype row = m_grid->currentRow();
    if (row < 0 || row >= m_grid->rows() || !basic::askYesNo(u"Do you want to Delete this Record ?"_s, u"Question?"_s))
        return;
    dao::Recordset &rows = m_data->Recordset();
    rows.setBookmark(rows.bookmarkAt(row));
    rows.Delete();
    m_data->Refresh();
    emit rowsChanged();
}

}
