#pragma once

#include "platform/basic/value.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

// Editing in a grid's cells: which cells can be typed into, and the events of a row that is being changed.
namespace vorel::controls {

// The engine's refusal of a row that repeats a unique index, under the number by which a grid reports it.
inline constexpr int duplicateRowError = 16389;

// A column whose cells can be changed. A check column is toggled, any other is typed into.
struct CellEdit {
    QString field;                                      // the column's field in the recordset
    std::function<QStringList()> list = {};             // choices of a drop-down list, asked when it opens; other text may be typed
    QString listName = {};                              // objectName of that list
    bool hasButton = false;                             // a button at the cell's end: Grid::BtnClick
};

// One cell takes another text. What the handler leaves in `text` is taken.
struct CellChange {
    qsizetype row = 0;
    int column = 0;
    QString before, text;                               // a check column's are "-1" and "0"
    basic::Value value = {};                            // where not Null it is taken in place of the text
    bool cancel = false;                                // the cell keeps `before`
};

struct RowUpdate {
    qsizetype row = 0;
    bool isNew = false;
    std::vector<std::pair<QString, basic::Value>> more = {};    // fields to store that are no columns
    bool cancel = false;                                // the row is not written and not left; the handler says why
};

struct UpdateFailure {
    int number = 0;                                     // the engine's, or duplicateRowError
    QString text;
    int column = -1;                                    // that could not take its text, -1 = the row as a whole
    bool answered = false;                              // the handler has informed the user
};

// All may be empty. They run under the trap; one that fails before the write cancels it.
struct EditHandlers {
    std::function<void(CellChange &)> beforeCellChange; // a cell that was typed into is left, changed or not
    std::function<void(int column)> afterCellChange;    // a cell of the row that is edited has another text
    std::function<void(RowUpdate &)> beforeUpdate;
    std::function<void(const RowUpdate &)> afterUpdate; // the row is stored
    std::function<void(qsizetype row)> afterUndo;       // the changes of the row were dropped
    std::function<void(UpdateFailure &)> updateError;   // not answered: the text is shown in a message box
};

}
