#pragma once

#include "platform/controls/grid.h"

#include <QAbstractTableModel>
#include <QHash>
#include <map>

namespace vorel::controls {

// The rows of a data control, asked for as they are shown; what the row-load handler said of a row is kept until the
// next reload.
class GridModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit GridModel(QObject *parent) : QAbstractTableModel(parent) {}

    void setControl(DataControl *data);
    DataControl *control() const { return m_data; }
    void setColumns(std::vector<GridColumn> columns);
    const std::vector<GridColumn> &columns() const { return m_columns; }
    GridColumn &column(int index) { return m_columns[static_cast<std::size_t>(index)]; }
    void setAllowAddNew(bool allow);
    void setRowLoad(std::function<void(RowPaint &)> handler);
    void reload();
    bool isOutdated() const;                            // the recordset has another number of rows by now
    void forgetRows();                                  // the row-load handler is asked anew

    qsizetype rows() const { return m_rows; }
    bool isNewRow(qsizetype row) const { return m_allowAddNew && row == m_rows; }
    dao::Value value(qsizetype row, int column) const;
    QString shownText(qsizetype row, int column) const;
    bool isChecked(qsizetype row, int column) const;
    QString styleName(qsizetype row, int column) const; // the cell's, else the row's, else ""

    void setStyleSet(const QString &name, const StyleSet &style) { m_styles[name.toUpper()] = style; }
    StyleSet styleSet(const QString &name) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const RowPaint &paint(qsizetype row) const;
    qsizetype countRows() const;

    QPointer<DataControl> m_data;
    std::vector<GridColumn> m_columns;
    std::vector<int> m_fields;                          // by grid column: the recordset's column, -1 = none
    std::function<void(RowPaint &)> m_rowLoad;
    std::map<QString, StyleSet> m_styles;
    mutable QHash<qsizetype, RowPaint> m_paint;
    qsizetype m_rows = 0;
    bool m_allowAddNew = false;
};

}
