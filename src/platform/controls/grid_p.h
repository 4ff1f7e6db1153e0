#pragma once

#include "platform/controls/grid.h"
#include "platform/controls/griddelegate.h"
#include "platform/controls/gridparts.h"

class QHelpEvent;

// What the grid keeps to itself, shared by the files that it is made of.
namespace vorel::controls {

struct Grid::Private {
    explicit Private(Grid *grid);

    Grid *q;
    GridModel *model;
    GridDelegate *delegate;
    GridTitle *title;
    GridHead *head;
    RowSelectors *selectors;
    QWidget *corner = nullptr;      // between the selectors and the heads
    std::unique_ptr<QObject> link;  // the context of the control's signals, and the owner of the writer there
    std::function<QString(qsizetype, int)> toolTip;
    QString titleText;
    QString emptyText;              // "" = nothing is said of an empty list
    bool following = false;         // the grid is taking over the control's row
    bool leading = false;           // the control is taking over the grid's row

    void setUp();
    void connectParts();
    void placeTitle();
    void paintEmptyText();
    int firstVisibleColumn() const;
    void selectRow(qsizetype row);
    qsizetype controlRow() const;
    void follow();
    // The control's current row becomes the grid's. false: what was typed on its row could not be saved.
    bool lead(qsizetype row);
    void showTip(QHelpEvent *event, qsizetype row, int column, const QModelIndex &index) const;

    // Buttons.
    bool isButton(const QModelIndex &index) const;                      // a button column's cell
    bool hasButtonAt(const QModelIndex &index, QPoint where) const;     // or the button or list mark at a cell's end
    void press(const QModelIndex &index);
    void pressByKey();

    // Editing (gridediting.cpp). The row's changes are kept in the model's draft until they are written.
    EditHandlers handlers;
    QPoint pressedAt;               // in the viewport
    qsizetype pressedRow = -1;      // the row that was current before the press
    RowDraft lastWritten;           // for RetakeRow
    bool writing = false;
    bool movingAway = false;        // the current cell is changing: its editor closes for that reason alone

    bool canEdit(const QModelIndex &index) const;                       // typed into
    bool canToggle(const QModelIndex &index) const;
    bool isOnBox(const QModelIndex &index, QPoint where) const;         // of a check cell that can be toggled
    int firstEditableColumn() const;                                    // -1 = none
    void editCell();
    void closeOpenEditor();         // takes what was typed
    bool take(const QModelIndex &index, const QString &text);
    void toggle(const QModelIndex &index);
    bool write();                   // true: nothing is left to write
    bool writeDraft(const RowUpdate &update, UpdateFailure *failure);
    QString refusedCell(const dao::Recordset &rows, const RowDraft &draft, int column, const basic::Error &error) const;
    QString rowName(qsizetype row, int besides) const;                  // "The row \"RENT\""
    void report(UpdateFailure failure);
    void undo();
    bool leave(qsizetype row);      // before the cursor goes to that row; false: it has to stay
    void comeBack();                // to the row that could not be written
    bool step(int direction);       // to the next cell that can be changed; false: there is none
    void finishByEnter();
    bool editKey(QKeyEvent *event); // true: answered
    bool cellKey(const QKeyEvent *event);
};

}
