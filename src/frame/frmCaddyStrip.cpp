#include "frame/frmCaddyStrip.h"

#include "platform/basic/clock.h"
#include "platform/basic/format.h"

#include <QAbstractButton>
#include <QLabel>

namespace vorel {

using namespace Qt::StringLiterals;

void CaddyStrip::Timer2_Timer()
{
    m_c.lblTime->setText(basic::Format(basic::Now(), u"hh:mm AM/PM"));
}

void CaddyStrip::ScrollMessages()
{
    m_c.panInfo->setText(state().gProductTitle + u"  Version "_s + QStringLiteral(VOREL_VERSION));
}

void CaddyStrip::CheckForMessages()
{
    m_c.panInfo->setToolTip({});
    if (!state().gMainDb)
        return;
    dao::Recordset waiting = state().gMainDb.CreateSnapshot(
        u"select * FROM [Messages] WHERE [Read]=False AND [To]='%1';"_s.arg(state().gUserName));
    dao::DBEngine::Idle(dao::dbRefreshCache);
    const bool any = waiting.rowTotal() > 0;
    waiting.Close();
    if (any) {
        m_c.panMessages->setText(u"Messages"_s);
        m_c.panMessages->setToolTip(u"Click to View Messages"_s);
        QPalette green = m_c.panMessages->palette();
        green.setColor(QPalette::Button, QColor(0, 255, 0));
        green.setColor(QPalette::ButtonText, Qt::black);
        m_c.panMessages->setPalette(green);
    }
    m_c.panMessages->setVisible(any);
    ScrollMessages();
}

}
