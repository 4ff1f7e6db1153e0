#include "records/frmMusic.h"

#include "platform/basic/prompts.h"
#include "platform/controls/grid.h"
#include "platform/controls/layout.h"
#include "records/frmSectionPanel.h"

#include <QLabel>
#include <QVBoxLayout>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;

frmMusic::~frmMusic()
{
     
    grdTracks->disconnect(this);
    grdTracks->removeEventFilter(this);
}

void frmMusic::createOwn()
{
    dtaTracks = new controls::DataControl(this);
    dtaTracks->setObjectName(u"dtaTracks"_s);
    dtaTracks->setConnect(u"Access"_s);
    dtaTracks->setDatabaseName(state().path(design().file));
    grdTracks = new controls::Grid(this);
    grdTracks->setObjectName(u"grdTracks"_s);
    grdTracks->setAccessibleName(u"Tracks"_s);
    grdTracks->setDataControl(dtaTracks);
    controls::GridColumn track;
    track.field = u"TRACK"_s;
    track.caption = u"TRACK"_s;
    grdTracks->setColumns({track});
    controls::EditHandlers rules;
    rules.beforeUpdate = [this](controls::RowUpdate &update) {
        if (update.isNew)
            update.more.emplace_back(u"ID"_s, basic::Value(currentId()));
    };
    grdTracks->setEditing({{u"TRACK"_s}}, std::move(rules));
    keep(grdTracks);
    // A track that is being typed belongs to the row that is left: it is written with it, or keeps it.
    dtaData().addRowWriter(grdTracks, [this] { return grdTracks->UpdateRow(); }, [this] { grdTracks->UndoRow(); });

    QVBoxLayout *column = panel(u"picTracks"_s)->column();
    delete column->takeAt(column->count() - 1);     // the stretch of a panel without a box that grows
    auto *note = new QLabel(u"Type a track into the last line; Delete removes the one it stands on."_s);
    note->setWordWrap(true);
    column->addWidget(grdTracks, 1);
    column->addWidget(note);
    grdTracks->installEventFilter(this);
    on(grdTracks, &controls::Grid::DeleteKey, this, [this] { deleteTrack(); });
    on(grdTracks, &controls::Grid::EnterKey, this, [this] { grdTracks->EditCell(); });
}

void frmMusic::rowShown()
{
    const qint32 id = currentId();
    dtaTracks->setRecordSource(id == 0 ? QString() : u"Select * FROM [TRACKS] WHERE [ID]="_s + QString::number(id));
    dtaTracks->Refresh();
    grdTracks->setAllowAddNew(id != 0);
    sizeTrackColumn();
}

void frmMusic::sizeTrackColumn()
{
    constexpr int margin = 700;             // twips
    grdTracks->setColumnWidthTwips(0, std::max(margin, controls::toTwips(grdTracks->width()) - margin));
}

bool frmMusic::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == grdTracks && event->type() == QEvent::Resize)
        sizeTrackColumn();
    return frmSection::eventFilter(watched, event);
}

void frmMusic::deleteTrack()
{
    const qsizetype row = grdTracks->currentRow();
    if (row < 0 || row >= grdTracks->rows() || !basic::askYesNo(u"Do you want to Delete this Record ?"_s, u"Question?"_s))
        return;
    dao::Recordset &rows = dtaTracks->Recordset();
    rows.setBookmark(rows.bookmarkAt(row));
    rows.Delete();
    dtaTracks->Refresh();
}

void frmMusic::deleteChildren(dao::Database &database, qint32 id)
{
    database.Execute(u"DELETE * FROM [TRACKS] WHERE [ID]="_s + QString::number(id) + u';');
}

std::vector<records::ViewBlock> frmMusic::pageBlocks() const
{
    std::vector<records::ViewBlock> blocks = frmSection::pageBlocks();
    const QStringList tracks = records::Tracks(state().path(design().file), currentId());
    if (!tracks.isEmpty())
        blocks.push_back({u"TRACKS"_s, tracks.join(u"\r\n"_s), true, true});
    return blocks;
}

}
