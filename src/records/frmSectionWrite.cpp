#include "records/frmSection.h"

#include "platform/basic/colournumber.h"
#include "platform/basic/convert.h"
#include "platform/basic/prompts.h"
#include "records/frmPictureSet.h"
#include "records/frmRecordTree.h"
#include "session/ini.h"

#include <QTabBar>

// What writes: a new row, a save, a delete, the colour.
namespace vorel {

using namespace Qt::StringLiterals;

void frmSection::newClicked(int tab)
{
    if (m_pictures && m_design.panels[static_cast<std::size_t>(tab - 1)].name == m_design.picturePanel)
        m_pictures->addSet();
    else
        AddNewRecord();
}

void frmSection::AddNewRecord(const QString &)
{
    controls::DataControl &current = dtaData();
    if (!current.Leave())
        return;
    if (!current.Recordset())
        current.Refresh();
    if (!current.Recordset() || !current.setBookmark(records::addRow(current.Recordset(), m_design)))
        return;
    m_new = true;
    AllowInput();
    ShowInfo(1);
    control<QWidget>(m_design.newFocus)->setFocus();
}

// A number is kept of a copy of the user's own alone.
void frmSection::keepCopyNumber()
{
    if (m_design.copyCheck.isEmpty())
        return;
    if (!ticked(m_design.copyCheck))
        setText(m_design.copyNumber, {});
    else if (text(m_design.copyNumber).trimmed().isEmpty())
        setText(m_design.copyNumber, u"N/A"_s);
}

void frmSection::cmdUpdate_Click()
{
    if (!dtaData().hasRows() || !prepareSave())
        return;
    const qint32 id = currentId();
    keepCopyNumber();
    if (!dtaData().UpdateRecord())
        return;
    dao::DBEngine::Idle(dao::dbRefreshCache);
    const bool first = std::exchange(m_new, false);
    if (m_design.rebuild == records::TreeRebuild::OnEverySave)
        rebuildTree();
    else if (first && m_tree)
        showTree(m_design.trees.front());
    afterSave();
    FillLists();
    if (dtaData().FindFirst(u"ID="_s + dao::literal(id)))
        showState(u"Saved"_s);
}

// The next record in the order on show, behind the last one the one before; or the one before from the start.
qint32 frmSection::neighbourId() const
{
    dao::Recordset &rows = const_cast<frmSection *>(this)->dtaData().Recordset();
    const int id = rows.fieldIndex(u"ID");
    const qsizetype here = rows.AbsolutePosition();
    const auto firstOf = [&](qsizetype row, int step) {
        for (; row >= 0 && row < rows.rowTotal(); row += step) {
            if (const dao::Value value = rows.cell(row, id); !value.isNull())      // Null: deleted by another process
                return static_cast<qint32>(basic::CLng(value));
        }
        return 0;
    };
    const int way = m_design.deleteGoesBack ? -1 : 1;
    const qint32 found = firstOf(here + way, way);
    return found != 0 ? found : firstOf(here - way, -way);
}

void frmSection::cmdDelete_Click()
{
    const auto answer = basic::prompts().message(u"Do you want to Delete this Record ?"_s, u"Question?"_s, basic::Buttons::YesNo,
                                                 basic::Icon::Critical);
    if (answer != basic::Answer::Yes)
        return;
    if (dtaData().hasRows()) {
        dtaData().revert();                 // the edits are discarded with the row
        const qint32 id = currentId(), neighbour = neighbourId();
        beforeDelete();
        dao::Transaction all(dtaData().Database());
        records::deleteChildren(dtaData().Database(), m_design, id, text(m_design.nameControl));
        dtaData().Recordset().Delete();
        all.Commit();
        dtaData().Refresh();
        if (neighbour != 0)
            dtaData().FindFirst(u"ID="_s + dao::literal(neighbour));
        afterDelete(id);
    }
    AllowInput();
    if (m_design.treeAfterDelete == records::TreeAfterDelete::SameMode)
        rebuildTree();
    else if (m_tree)
        showTree(m_design.trees.front());   // whatever the buttons show
}

void frmSection::cmdColor_Click()
{
    const QColor now = palette().color(QPalette::Window);
    const auto chosen = basic::prompts().chooseColour(now.rgb() & 0xFFFFFF);
    if (!chosen)
        return;
    m_back = QColor::fromRgb(*chosen);
    GetColours();
    PutIniValue(iniSettings, m_design.colourKey, QString::number(basic::numberOfColour(m_back)));
    if (m_tree)
        m_tree->setFocus();
    if (dtaData().hasRows())
        dtaData().FindFirst(u"ID="_s + dao::literal(currentId()));
}

}
