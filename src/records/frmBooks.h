#pragma once

#include "records/frmSection.h"

namespace vorel {

class frmBooks : public frmSection {
    Q_OBJECT
public:
    explicit frmBooks(QWidget *parent = nullptr) : frmSection(records::booksRecord(), parent) { Load(); }
};

}
