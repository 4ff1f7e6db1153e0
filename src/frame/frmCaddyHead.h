#pragma once

#include "frame/frmCaddyControls.h"

#include <QWidget>

class QBoxLayout;
class QHBoxLayout;

namespace vorel {

// Over the grids: the period and, at its right, the buttons. Where the period's dates would be cut they get a line of their own.
class CaddyHead : public QWidget {
public:
    CaddyHead(QLabel *period, const std::vector<QAbstractButton *> &buttons);

protected:
    bool event(QEvent *event) override;

private:
    QLabel *m_period;
    QBoxLayout *m_lines;
    QHBoxLayout *m_buttons;
};

// At 200 % of a small screen the lists and their buttons need the whole width. What the pane at the right offers is on the menus
// then; what has no entry there gets one.
void fitSmallScreen(CaddyControls &c);

}
