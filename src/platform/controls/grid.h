#pragma once

#include "platform/basic/twips.h"
#include "platform/controls/datacontrol.h"
#include "platform/controls/gridedit.h"

#include <QColor>
#include <QTableView>

// The grid of the main screen: an item model over a recordset, style sets by name, twips for sizes.
namespace vorel::controls {

using basic::twipsPerPixel;                              // the toolkit scales pixels itself
constexpr int toPixels(double twips) { return static_cast<int>(twips / twipsPerPixel + 0.5); }
constexpr int toTwips(int pixels) { return pixels * twipsPerPixel; }
// Where the head lines end in the positions that DblClick reports, whatever their real height on this desktop.
inline constexpr int headLinesTwips = 275;

struct StyleSet {
    QColor back = {};                                   // invalid: the grid's own
    QColor fore = {};
    bool bold = false;
};

struct GridColumn {
    enum class Style { Text, Check, Button };
    QString field;                                      // name in the recordset; "" = computed by the painter alone
    QString caption;                                    // head text
    int width = 1000;                                   // twips
    bool visible = true;
    Style style = Style::Text;
    QString format = {};                                // pattern for Format; "" = the value's text
    Qt::Alignment alignment = Qt::AlignLeft;
};

// What a row-load handler may set for one row before it is painted.
struct RowPaint {
    qsizetype row = 0;
    std::function<dao::Value(int column)> cell;         // the stored value of a grid column
    // By column index of the grid:
    std::vector<QString> text;                          // replaces the shown text where not null
    std::vector<QString> style;                         // a style set's name where not empty
    QString rowStyle;                                   // for all columns that have none of their own
};

class Grid : public QTableView {
    Q_OBJECT
public:
    explicit Grid(QWidget *parent = nullptr);
    ~Grid() override;

    void setDataControl(DataControl *data);
    DataControl *dataControl() const;
    void setColumns(std::vector<GridColumn> columns);
    const std::vector<GridColumn> &columns() const;
    void setTitle(const QString &title);                // the caption line above the column heads
    const QString &title() const;
    void setEmptyText(const QString &text);             // shown in place of the rows while the list is empty
    void setAllowAddNew(bool allow);                    // an empty line after the last row (its ID reads as 0)
    void setRecordSelectors(bool on);

    // Which cells can be changed; none at first. Kept over setColumns, for the columns are known by their fields.
    // A cell opens by typing, F2 or EditCell. Enter writes the row, Tab and Shift+Tab go on to the next cell, Escape drops
    // what was typed in the cell, and the next Escape the row's changes. Whatever leaves the row (a move, a click, another
    // query of the control) writes it first, or stays; a check alone is written at once.
    void setEditing(std::vector<CellEdit> cells, EditHandlers handlers = {});
    void EditCell();                                    // the current cell, or the row's first that can be typed into
    void EditNewRow();                                  // the new-row line's first cell
    bool UpdateRow();                                   // writes what was changed; false: refused, the typing is kept
    void UndoRow();
    void RetakeRow();                                   // the row written last is unsaved again: the store took it back
    bool isRowChanged() const;
    void TakeOpenCell();                // what is typed in the open cell becomes part of the changed row
    // The row that is being changed, else the current one (-1: neither), and its cells as shown. setEditValue changes
    // one without the handlers of a cell, whether or not the column is open to typing.
    qsizetype EditRow() const;
    QString EditText(int column) const;
    dao::Value CellValue(int column, qsizetype row) const;
    void setEditValue(int column, const dao::Value &value);
    void ChangeCell(int column, const QString &text);   // of the current row, as if it were typed
    QRect cellRect(int column, qsizetype row) const;    // on the viewport

    // The set named "" is what all cells without another one take. A set without a fore colour, or with one that cannot
    // be distinguished from its background, is shown in black or white.
    void setStyleSet(const QString &name, const StyleSet &style);
    StyleSet styleSet(const QString &name) const;
    void setRowLoad(std::function<void(RowPaint &)> handler);
    // row -1: the head lines; column -1: the title.
    void setToolTipProvider(std::function<QString(qsizetype row)> provider);
    void setToolTipProvider(std::function<QString(qsizetype row, int column)> provider);
    void setActiveRowStyleSet(const QString &name);     // the style of the current row; "" = none

    // Column widths and row height in twips.
    int columnWidthTwips(int column) const;
    void setColumnWidthTwips(int column, int twips);
    int rowHeightTwips() const;
    void setRowHeightTwips(int twips);

    qsizetype rows() const;                             // without the new-row line
    int VisibleRows() const;
    qsizetype FirstRow() const;
    void MoveFirst();
    dao::Bookmark getBookmark(qsizetype row) const;
    dao::Bookmark Bookmark() const;                     // of the selected row; invalid on the new-row line
    void setBookmark(dao::Bookmark mark);               // selects the row and scrolls it into view
    void Scroll(qsizetype firstRow);
    void setSortMark(int column, bool ascending);       // an arrow in the column's head, until the rows are read again
    void setRedraw(bool on);
    QString CellText(int column, qsizetype row) const;  // as shown; a check column's is "-1" or "0"
    QString CellText(int column) const;                 // of the selected row; "" on the new-row line or with no row
    qsizetype currentRow() const;                       // -1 = none; rows() = the new-row line
    void Requery();                                     // the control's rows changed: repaints, keeps the place if possible
    void Repaint();                                     // calls the row-load handler again for the rows in view

signals:
    void HeadClick(int column);                         // by the mouse, or Ctrl+Shift+S for the current cell's column
    void DblClick(int yTwips);                          // from the grid's top: up to headLinesTwips on the title and the
                                                        // heads, more below them
    void RowChange();                                   // the new row is already current in the data control
    void ColResize(int column);                         // by the user; once, when the mouse is released
    void HeadMenu(QPoint where);                        // on the screen: a right click on the heads, or the menu key
    void RowResize();                                   // likewise: all rows have the new height
    void BtnClick(int column, qsizetype row);           // by the mouse, or F4 and Alt+Down on the row
    void EnterKey();                                    // Return on a row that is not being changed
    void DeleteKey();                                   // on a stored row of a grid that can be edited
    void CellMove(int fromColumn, int toColumn);        // within a row
    void EditBegun();                                   // a cell is open for typing
    void EditEnded();

protected:
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyboardSearch(const QString &) override {}    // the screens have a search box of their own
    bool focusNextPrevChild(bool next) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

}
