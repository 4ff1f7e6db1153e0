#pragma once

#include "records/frmSection.h"

namespace vorel {

namespace controls {
class Grid;
}

// The music titles, each with its tracks: rows of a table of their own that carry the title's ID.
class frmMusic : public frmSection {
    Q_OBJECT
public:
    explicit frmMusic(QWidget *parent = nullptr) : frmSection(records::musicRecord(), parent) { Load(); }
    ~frmMusic() override;

protected:
    void createOwn() override;
    void rowShown() override;
    void deleteChildren(dao::Database &database, qint32 id) override;
    std::vector<records::ViewBlock> pageBlocks() const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void deleteTrack();
    void sizeTrackColumn();

    controls::DataControl *dtaTracks = nullptr;
    controls::Grid *grdTracks = nullptr;
};

}
