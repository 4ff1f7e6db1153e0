#pragma once

#include "frame/frmCaddyControls.h"
#include "frame/shopping.h"

namespace vorel {

// Editing in the cells of the main screen's grids: which cells can be changed, and the rules of each grid.
class CaddyCells {
public:
    explicit CaddyCells(CaddyControls &c);

    void enterSection();                // SUBJECTGRID shows another section
    bool writeRows();                   // see MainScreen
    void ClearShoppingChecks();

private:
    controls::Grid &subjects() const { return *m_c.subjects().grid; }

    void openReminderCells(GridPane &pane);
    void changeReminderCell(const GridPane &pane, controls::CellChange &change);
    void completeReminder(const GridPane &pane, controls::RowUpdate &update);
    void capitals(controls::Grid *grid, int from, int to);
    void pickDate(const GridPane &pane, int column, qsizetype row);

    controls::EditHandlers shoppingHandlers();
    void openToDo();
    void openShopping();
    void openMessages();
    void countShoppingRow(qsizetype row);       // by its cells as shown
    void showShoppingTotal();
    static void deleteReminder(GridPane &pane);
    void deleteRow();

    CaddyControls &m_c;
    ShoppingVariables m_shopping;
};

}
