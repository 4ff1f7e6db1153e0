#include "frame/frmCaddyStrip.h"

#include "frame/frmCaddyInfo.h"
#include "session/sectiondesign.h"
#include "utilities/hints.h"

#include <QAbstractButton>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

void colour(QAbstractButton *panel, const QColor &ground)
{
    QPalette colours = panel->palette();
    colours.setColor(QPalette::Button, ground);
    colours.setColor(QPalette::ButtonText, Qt::black);
    panel->setPalette(colours);
}

}

void CaddyStrip::ScrollMessages()
{
    QString hint = state().settings.gTips ? NextHint() : QString();
    if (hint.endsWith(hintEnd))
        hint.chop(hintEnd.size());              // the line has a row of points of its own before the program's name
    m_c.panInfo->setText(infoLine(hint));
}

void CaddyStrip::CheckForMessages()
{
    m_c.panInfo->setToolTip({});
    const bool any = messagesWait();
    if (any) {
        m_c.panMessages->setText(u"Messages"_s);
        m_c.panMessages->setToolTip(u"Click to View Messages"_s);
        colour(m_c.panMessages, QColor(0, 255, 0));
    }
    m_c.panMessages->setVisible(any);
    ScrollMessages();
}

void CaddyStrip::CheckForBackupFiles()
{
    const bool due = backupsAreDue();
    if (due) {
        m_c.panBackup->setText(u"Backup"_s);
        m_c.panBackup->setToolTip(u"Click to View File Backups"_s);
        colour(m_c.panBackup, QColor(0xff, 0xb0, 0x60));
    }
    m_c.panBackup->setVisible(due);
}

void CaddyStrip::showMessages(MessageView view)
{
    if (!isShown(SectionId::Messages))
        return;
    state().selection.gSqlSection[sectionDesign(SectionId::Messages).code] = messageQuery(view);
    m_screen.GetData();
}

}
