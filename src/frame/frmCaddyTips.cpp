#include "frame/frmCaddyTips.h"

#include "frame/buttontips.h"
#include "frame/frmCaddyPicture.h"
#include "frame/frmCaddyRail.h"
#include "session/sections.h"

#include <QEvent>

namespace vorel {

CaddyTips::CaddyTips(CaddyControls &c, std::function<void()> goBack)
    : m_c(c), m_goBack(std::move(goBack))
{
    for (const SectionDesign *section : categoryButtons())
        m_c.rail->button(section->button->index)->installEventFilter(this);
    for (const auto &[name, button] : m_c.tools)
        button->installEventFilter(this);
}

bool CaddyTips::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Leave && m_shown) {
        m_shown = false;
        m_goBack();
    } else if (event->type() == QEvent::Enter && state().settings.gTips) {
        ButtonTip tip = toolTip(watched->objectName());
        for (const SectionDesign *section : categoryButtons())
            if (m_c.rail->button(section->button->index) == watched)
                tip = section->button->tip;
        if (!tip.heading.isEmpty()) {
            m_c.picDetails->showTip(tip.heading, tip.lines);
            m_shown = true;
        }
    }
    return QObject::eventFilter(watched, event);
}

}
