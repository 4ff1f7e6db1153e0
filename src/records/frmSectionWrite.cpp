#include "records/frmSection.h"

#include "platform/basic/colournumber.h"
#include "platform/basic/prompts.h"
#include "records/frmRecordTree.h"
#include "session/ini.h"

#include <QComboBox>

// What writes: a new row, a save, a delete, the colour, the road out.
namespace vorel {

using namespace Qt::StringLiterals;
using records::TreeMode;

void frmSection::AddNewRecord(const QString &)
{
    if (!m_data->Leave())
        return;
    if (!m_data->Recordset())
        m_data->Refresh();
    if (!m_data->Recordset() || !m_data->setBookmark(records::addRow(m_data->Recordset(), m_design)))
        return;
    m_new = true;
    AllowInput();
    ShowInfo(1);
    control<QWidget>(m_design.newFocus.toString())->setFocus();
}

// A number is kept of a copy of the user's own alone.
void frmSection::beforeSave()
{
    if (m_design.copyCheck.isEmpty())
        return;
    const QString number = m_design.copyNumber.toString();
    if (!ticked(m_design.copyCheck.toString()))
        setText(number, {});
    else if (text(number).trimmed().isEmpty())
        setText(number, u"N/A"_s);
}

void frmSection::cmdUpdate_Click()
{
    if (!m_data->hasRows())
        return;
    const QString id = text(u"lblIDNum"_s);
    beforeSave();
    if (!m_data->UpdateRecord())
        return;
    dao::DBEngine::Idle(dao::dbRefreshCache);
    if (std::exchange(m_new, false))
        showTree(TreeMode::ByFirstCharacter, m_design.treeField.toString());
    afterSave();
    FillLists();
    m_data->FindFirst(u"ID="_s + id);
}

// The tree turns to the first characters, whatever its keys show.
void frmSection::cmdDelete_Click()
{
    const auto wished = basic::prompts().message(u"Do you want to Delete this Record ?"_s, u"Question?"_s, basic::Buttons::YesNo,
                                                 basic::Icon::Critical);
    if (wished != basic::Answer::Yes)
        return;
    if (m_data->hasRows()) {
        m_data->revert();                   // what was typed goes with the row
        dao::Recordset &rows = m_data->Recordset();
        const qsizetype here = rows.AbsolutePosition();
        dao::Transaction all(m_data->Database());
        deleteChildren(m_data->Database(), currentId());
        rows.Delete();
        all.Commit();
        m_data->Refresh();
        if (const qsizetype left = m_data->hasRows() ? m_data->Recordset().rowTotal() : 0; left > 0)
            m_data->setBookmark(m_data->Recordset().bookmarkAt(std::min(here, left - 1)));
    }
    AllowInput();
    showTree(TreeMode::ByFirstCharacter, m_design.treeField.toString());
}

void frmSection::cmdColor_Click()
{
    const QColor now = palette().color(QPalette::Window);
    const auto chosen = basic::prompts().chooseColour(now.rgb() & 0xFFFFFF);
    if (!chosen)
        return;
    m_back = QColor::fromRgb(*chosen);
    GetColours();
    PutIniValue(iniSettings, m_design.colourKey.toString(), QString::number(basic::numberOfColour(m_back)));
    m_tree->setFocus();
    if (m_data->hasRows())
        m_data->FindFirst(u"ID="_s + text(u"lblIDNum"_s));
}

bool frmSection::QueryUnload()
{
    return m_data->Leave();
}

}
