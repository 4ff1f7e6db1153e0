#pragma once

#include "records/frmSection.h"

namespace vorel {

// The music titles, each with its tracks: rows of a table of their own that carry the title's ID.
class frmMusic : public frmSection {
    Q_OBJECT
public:
    explicit frmMusic(QWidget *parent = nullptr) : frmSection(records::musicRecord(), parent) { Load(); }

protected:
    std::vector<records::ViewBlock> pageBlocks() const override;        // with the tracks
};

}
