#pragma once

#include "records/frmSection.h"

namespace vorel {

// The household's things: purchase, warranty, insurance, disposal.
class frmInventory : public frmSection {
    Q_OBJECT
public:
    explicit frmInventory(QWidget *parent = nullptr) : frmSection(records::inventoryRecord(), parent) { Load(); }

protected:
    void createOwn() override;
    void rowShown() override;
    void afterSave() override;

private:
    void txtWarrantyPeriod_Change();
    void cmdTransfer_Click();
};

}
