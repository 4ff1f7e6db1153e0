#pragma once

#include "frame/frmCaddyColumns.h"
#include "frame/frmCaddyControls.h"

namespace vorel {

// How the grids look: their columns, their style sets, and what a row's content makes of its cells.
class CaddyPainting {
public:
    CaddyPainting(CaddyControls &c, GridLayout &sizes, CaddyColumns &columns);

    void showReminderColumns();         // the three grids' columns; again when the date or money format changed
    void applyLayout();                 // fonts, colours and sizes after the settings were read
    void DefaultMenu();                 // record selectors and bold type, as set
    void applyPalette();                // the style sets that follow the palette
    void markActive(const controls::Grid *active);
    void showGround();                  // the general grid in the colour of the section on show
    void setWarning(qint32 id) { m_warning = id; }

private:
    void paintAppointment(controls::RowPaint &row) const;
    void paintBill(controls::RowPaint &row) const;
    void paintEvent(controls::RowPaint &row) const;
    void paintSubject(controls::RowPaint &row) const;
    void applyColours(controls::Grid *grid);
    controls::StyleSet defaultGround() const;

    CaddyControls &m_c;
    GridLayout &m_sizes;
    CaddyColumns &m_columns;
    qint32 m_warning = 0;               // the appointment whose alert was raised
};

// The sixteen classic colours, by the index that ScreenFontColour keeps; anything else is black.
QColor screenFontColour(quint32 index);

}
