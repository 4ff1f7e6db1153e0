#pragma once

#include "records/frmSection.h"

namespace vorel {

class frmMovies : public frmSection {
    Q_OBJECT
public:
    explicit frmMovies(QWidget *parent = nullptr) : frmSection(records::moviesRecord(), parent) { Load(); }

protected:
    void afterSave() override { ShowPic(); }
};

}
