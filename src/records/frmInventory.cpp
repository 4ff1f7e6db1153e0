#include "records/frmInventory.h"

#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/prompts.h"
#include "records/inventory.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;

void frmInventory::createOwn()
{
    placeBesideTrees(addButton({u"cmdRefresh"_s, {}, u"view-refresh"_s, u" Rebuilds the tree "_s}));
    onClick(u"cmdRefresh"_s, [this] { showTree(design().trees.front()); });
    placeBeside(u"txtWarrantyExpiryDate"_s,
                addButton({u"cmdTransfer"_s, u"> &Events"_s, {}, u" Adds the end of the warranty to Events "_s}));
    onClick(u"cmdTransfer"_s, [this] { cmdTransfer_Click(); });
    on(control<QLineEdit>(u"txtWarrantyPeriod"_s), &QLineEdit::textEdited, handlers(), [this] { txtWarrantyPeriod_Change(); });
    for (const QString &name : {u"lblInitialPurchaseDate"_s, u"lblInitialDisposalDate"_s}) {
        auto *kept = new QLabel(this);
        kept->setObjectName(name);
        kept->hide();
        keep(kept);
    }
}

void frmInventory::rowShown()
{
    setText(u"lblInitialPurchaseDate"_s, text(u"txtDatePurchased"_s));
    setText(u"lblInitialDisposalDate"_s, text(u"txtDateDisposed"_s));
}

void frmInventory::txtWarrantyPeriod_Change()
{
    if (const auto expiry = records::warrantyExpiry(text(u"txtDatePurchased"_s), text(u"txtWarrantyPeriod"_s)))
        setText(u"txtWarrantyExpiryDate"_s, shortDate(*expiry));
}

// The new date is written as the row is found again.
void frmInventory::afterSave()
{
    txtWarrantyPeriod_Change();
}

// A second transfer of the same thing adds nothing.
void frmInventory::cmdTransfer_Click()
{
    const QString shown = text(u"txtWarrantyExpiryDate"_s);
    if (!basic::IsDate(shown)) {
        basic::prompts().beep();
        control<QWidget>(u"txtWarrantyExpiryDate"_s)->setFocus();
        return;
    }
    records::transferWarranty(basic::CDate(shown), text(u"cboItem"_s) + u' ' + text(u"txtMake"_s) + u' ' + text(u"txtModel"_s));
}

}
