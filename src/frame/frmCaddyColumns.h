#pragma once

#include "frame/gridlayout.h"
#include "platform/controls/grid.h"

#include <QHash>
#include <QObject>

namespace vorel {

// Widths and row heights of the grids as the layout keeps them. A column that the user has set keeps its width; of the others
// none is narrower than its texts, and the column that names the row takes the remaining width, whatever was set.
// Rows are as high as their lines need until the user sets their height.
class CaddyColumns : public QObject {
    Q_OBJECT
public:
    explicit CaddyColumns(GridLayout &sizes);

    struct Plan {
        QString word;                   // of the width keys; "" keeps none
        std::vector<int> numbers;       // by grid column: its number in the width keys, 0 = none
        int wideColumn = -1;            // takes the remaining width, -1 = none
        std::vector<QString> samples = {};      // by grid column: a text that should fit, "" = the head's alone
        int givingColumn = -1;          // shrinks where space is short, -1 = none
        int lines = 1;                  // that a row shows
        std::vector<int> growing = {};  // share the remaining width in proportion; empty: the wide column has it all
    };
    // Sets the grid's columns and their widths.
    void show(controls::Grid *grid, std::vector<controls::GridColumn> columns, Plan plan);
    void apply(controls::Grid *grid);   // widths and height again, after the layout was read again
    void fitColumns(controls::Grid *grid);      // back to the first widths
    std::int16_t rowHeight(controls::Grid *grid) const;     // twips, as to be kept

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void keep(controls::Grid *grid, int column);
    bool isSet(const Plan &plan, int column) const;         // by the user
    void showMenu(controls::Grid *grid, QPoint where);
    int least(const controls::Grid *grid, const Plan &plan, int column) const;
    void fill(controls::Grid *grid);
    void applyHeight(controls::Grid *grid);

    GridLayout &m_sizes;
    QHash<QObject *, Plan> m_plans;             // by grid
    QHash<QObject *, controls::Grid *> m_views; // by viewport
    QHash<QObject *, int> m_heights;            // by grid: the row height that was set last, twips
};

}
