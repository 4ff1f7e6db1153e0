#pragma once

#include "platform/controls/grid.h"
#include "platform/controls/gridedit.h"

#include <QAbstractTableModel>
#include <QHash>
#include <map>

namespace vorel::controls {

// What was changed in one row and is not written yet.
struct RowDraft {
    qsizetype row = -1;                                 // -1 = none
    dao::Bookmark mark;                                 // invalid for the new-row line
    std::map<int, dao::Value> cells;                    // by grid column, texts as typed; a check column's are "-1" and "0"
    bool isOpen() const { return row >= 0; }
};

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
    void setEdits(std::vector<CellEdit> edits);         // the columns that can be changed
    const CellEdit *edit(int column) const;             // nullptr: that column is read only
    bool hasEdits() const { return !m_edits.empty(); }
    bool canChange(qsizetype row, int column) const;
    void setTaker(std::function<bool(const QModelIndex &, const QString &)> taker) { m_taker = std::move(taker); }
    void reload();
    bool isOutdated() const;                            // the recordset has another number of rows by now
    void forgetRows();                                  // the row-load handler is called again

    qsizetype rows() const { return m_rows; }
    bool isNewRow(qsizetype row) const { return m_hasNewLine && row == m_rows; }
    dao::DataType fieldType(int column) const;          // dbText for a computed column
    const QString &fieldName(int column) const { return m_columns[static_cast<std::size_t>(column)].field; }
    dao::Value value(qsizetype row, int column) const;
    QString shownText(qsizetype row, int column) const;
    QString editText(qsizetype row, int column) const;  // as it is typed: the painter's own text plays no part
    bool isChecked(qsizetype row, int column) const;
    const RowDraft &draft() const { return m_draft; }
    void putDraft(qsizetype row, int column, const dao::Value &value);
    void dropDraft();
    void retakeDraft(const RowDraft &draft);            // written, and taken back by the store: typing again
    void draftStored();                                 // the draft is in the recordset now
    QString styleName(qsizetype row, int column) const; // the cell's, else the row's, else ""
    QString rowStyleName(qsizetype row) const;          // "" = none

    void setStyleSet(const QString &name, const StyleSet &style) { m_styles[name.toUpper()] = style; }
    StyleSet styleSet(const QString &name) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    const RowPaint &paint(qsizetype row) const;
    qsizetype countRows() const;
    const dao::Value *drafted(qsizetype row, int column) const;
    void forgetRow(qsizetype row);
    void placeDraft();

    QPointer<DataControl> m_data;
    std::vector<GridColumn> m_columns;
    std::vector<int> m_fields;                          // by grid column: the recordset's column, -1 = none
    std::function<void(RowPaint &)> m_rowLoad;
    std::map<QString, StyleSet> m_styles;
    mutable QHash<qsizetype, RowPaint> m_paint;
    qsizetype m_rows = 0;
    std::vector<CellEdit> m_edits;
    std::function<bool(const QModelIndex &, const QString &)> m_taker;
    RowDraft m_draft;
    bool m_allowAddNew = false, m_hasNewLine = false, m_isUpdatable = false;
};

}
