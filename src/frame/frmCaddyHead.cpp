#include "frame/frmCaddyHead.h"

#include "frame/frmCaddyPicture.h"
#include "platform/controls/form.h"
#include "platform/controls/layout.h"

#include <QAbstractButton>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::layout::unit;

CaddyHead::CaddyHead(QLabel *period, const std::vector<QAbstractButton *> &buttons)
    : m_period(period), m_lines(new QBoxLayout(QBoxLayout::LeftToRight, this)), m_buttons(new QHBoxLayout)
{
    m_lines->setContentsMargins(0, 0, 0, 0);
    m_lines->setSpacing(unit);
    m_lines->addWidget(period, 1);
    m_buttons->setSpacing(unit);
    m_buttons->addStretch();                // at the right also where no period is on show
    for (QAbstractButton *button : buttons)
        m_buttons->addWidget(button);
    m_lines->addLayout(m_buttons);
}

bool CaddyHead::event(QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) {
        constexpr int roomForTwoLines = 480;        // a lower window needs its height for the grids
        const bool fits = m_period->isHidden() || window()->height() < roomForTwoLines
            || m_period->sizeHint().width() + unit + m_buttons->sizeHint().width() <= width();
        m_lines->setDirection(fits ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    }
    return QWidget::event(event);
}

void fitSmallScreen(CaddyControls &c)
{
    c.picDetails->parentWidget()->hide();
    QFont bold = c.panPeriod->parentWidget()->font();
    bold.setBold(true);
    c.panPeriod->setFont(bold);
    for (QAbstractButton *button : {c.panNew, c.panes[0].panEdit, c.panes[1].panEdit, c.panes[2].panEdit, c.panes[3].panEdit})
        button->setIconSize({0, 0});
    for (QAbstractButton *button : {c.panNew, c.panes[1].panEdit, c.panes[2].panEdit, c.panes[3].panEdit})
        button->setMaximumWidth(button->fontMetrics().horizontalAdvance(button->text()) + 3 * unit);
    QMenu *menu = c.menus.at(u"mnuTools"_s);
    menu->addSeparator();
    for (const char16_t *name : {u"cmdEmail", u"cmdBackground", u"cmdColor", u"cmdWallpaper", u"cmdPopUpCloser"}) {
        QAbstractButton *tool = c.tools.at(QString::fromUtf16(name));
        QAction *entry = menu->addAction(tool->accessibleName());
        controls::on(entry, &QAction::triggered, menu, [tool] { tool->click(); });
        controls::on(menu, &QMenu::aboutToShow, entry, [tool, entry] { entry->setEnabled(tool->isEnabled()); });
    }
}

}
