#pragma once

#include "frame/frmCaddyControls.h"

namespace vorel {

// The search box, and the sorting by a click on a column head.
class CaddySearch {
public:
    explicit CaddySearch(CaddyControls &c) : m_c(c) {}

    controls::Grid *searchGrid() const;         // the grid that the search box works on
    void textChanged();                         // from the first row on
    void next();                                // from the row after the last hit on
    void GridSearch(controls::Grid *grid);
    void showPlaceholder();                     // names what is searched, readable in each palette
    void forgetRows();                          // the rows changed: the next search begins at the first

    // Sorts the grid of a section code by the remembered column, asking for one if none is remembered.
    void SortData(const QString &code);
    void HeadClick(controls::Grid *grid, int column);

private:
    void alternateEventOrder();

    CaddyControls &m_c;
    qsizetype m_start = 0;
    QString m_sortColumn;
    std::map<const controls::Grid *, bool> m_ascending;
};

}
