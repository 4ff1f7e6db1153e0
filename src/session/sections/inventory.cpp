#include "session/recorddesign.h"

namespace vorel::records {

using enum FieldKind;

namespace {

const std::vector<Field> &inventoryFields()
{
    static const std::vector<Field> fields = {
        {u"cboItem", u"ITEM", List, u"picDetails", u"I&tem"},
        {u"cboCategory", u"CATEGORY", List, u"picDetails", u"&Category"},
        {u"txtMake", u"MAKE", Line, u"picDetails", u"&Make"},
        {u"txtModel", u"MODEL", Line, u"picDetails", u"Mo&del"},
        {u"txtSerialNum", u"SERIALNUM", Line, u"picDetails", u"&Serial #"},
        {u"txtLocation", u"LOCATION", Line, u"picDetails", u"Loc&ation"},
        {u"txtOnLoan", u"ONLOAN", Line, u"picDetails", u"Curr&ently On loan to"},
        {u"txtDatePurchased", u"DATEPURCHASED", Date, u"picPurchase", u"&Date purchased", u"", false, false, u"",
         u"cmdDatePurchased", u"P", true},
        {u"txtPurchasedFrom", u"PURCHASEDFROM", Line, u"picPurchase", u"Purchased &from"},
        {u"txtReceiptNum", u"RECEIPTNUM", Line, u"picPurchase", u"Receipt &#"},
        {u"txtPaymentMethod", u"PAYMENTMETHOD", Line, u"picPurchase", u"Payment &method"},
        {u"txtCost", u"COST", Amount, u"picPurchase", u"&Cost"},
        {u"txtGST", u"GST", Amount, u"picPurchase", u"&GST"},
        {u"txtOtherTax", u"OTHERTAX", Amount, u"picPurchase", u"Other ta&x"},
        {u"txtWarrantyPeriod", u"WARRANTYPERIOD", Digits, u"picPurchase", u"Warrant&y (months)"},
        {u"txtWarrantyExpiryDate", u"WARRANTYEXPIRYDATE", Date, u"picPurchase", u"W&arranty expires", u"", false, false, u"",
         u"cmdCal", u"Y"},
        {u"chkInsured", u"INSURED", Check, u"picOther", u"In&sured"},
        {u"txtInsuredWith", u"INSUREDWITH", Line, u"picOther", u"Insured wit&h", u"", false, false, u"fraInsurance"},
        {u"txtPolicyNum", u"POLICYNUM", Line, u"picOther", u"Polic&y #", u"", false, false, u"fraInsurance"},
        {u"txtInsuredAmount", u"INSUREDAMOUNT", Line, u"picOther", u"&Amount", u"", false, false, u"fraInsurance"},
        {u"txtInsuranceExpiryDate", u"INSURANCEEXPIRYDATE", Line, u"picOther", u"&Expires", u"", false, false, u"fraInsurance"},
        {u"lblPictureFile", u"FILENAME", Picture, u"picOther", u"Picture:", u"lblPicture"},
        {u"txtComments", u"NOTES", Rich, u"picOther", u"No&tes"},
        {u"txtDateDisposed", u"DATEDISPOSED", Date, u"picDisposal", u"&Date disposed", u"", false, false, u"",
         u"cmdDateDisposed", u"D", true},
        {u"txtDisposedTo", u"DISPOSEDTO", Line, u"picDisposal", u"Disposed &to"},
        {u"txtDisposalCost", u"DISPOSALCOST", Amount, u"picDisposal", u"&Amount"},
        {u"lblIDNum", u"ID", Hidden},
    };
    return fields;
}

}

const RecordDesign &inventoryRecord()
{
    static const RecordDesign design = [] {
        RecordDesign made;
        made.letter = u"I";
        made.screen = u"frmInventory";
        made.title = u"Inventory";
        made.file = DataFile::Main;
        made.table = u"INVENTORY";
        made.rows = u"SELECT * FROM [Inventory] ORDER BY [Item]";
        made.dataControl = u"dtaInventoryData";
        made.colourKey = u"AssetBackColour";
        made.pictureKey = u"ShowAssetPic";
        made.picture = u"\\assets.jpg";
        made.chooser = u"Asset Picture";
        made.web = u"https://www.wikipedia.org";
        made.treeField = u"ITEM";
        made.nameControl = made.newFocus = u"cboItem";
        made.emptyNote = u"No items yet.\nNew adds the first one.";
        made.pageFile = u"\\PROFILE.HTML";          // the very file that the page of a profile is written to
        made.pageHeading = u"INVENTORY";
        made.trees = {{u"cmdAll", u"All", u" By first letter ", TreeMode::ByFirstCharacter, u"ITEM"},
                      {u"cmdCategory", u"Category", u" By category ", TreeMode::ByCategory, u"ITEM"}};
        made.panels = {{u"picDetails", u"Details"}, {u"picPurchase", u"Purchase"}, {u"picOther", u"Other"},
                       {u"picDisposal", u"Disposal"}};
        made.groups = {{u"fraInsurance", u"Insurance"}};
        made.fields = inventoryFields();
        made.lists = {{u"cboItem", {}, u"select Distinct(ITEM) from [INVENTORY] ORDER BY [ITEM]  ;"},
                      {u"cboCategory", {}, u"select Distinct(CATEGORY) from [INVENTORY] ORDER BY [CATEGORY]  ;"}};
        made.options = {{u"chkInsured", {u"fraInsurance"}, true}};
        made.newRow = {{u"Item", u""}, {u"Make", u""}, {u"Model", u""}, {u"SerialNum", u""}, {u"Location", u""},
                       {u"DatePurchased", u""}, {u"PurchasedFrom", u""}, {u"Cost", u""}, {u"OnLoan", u""}, {u"FILENAME", u""}};
        made.page = {{u"ITEM", u"cboItem", false}, {u"CATEGORY", u"cboCategory"}, {u"MAKE", u"txtMake"}, {u"MODEL", u"txtModel"},
                     {u"SERIAL #", u"txtSerialNum"}, {u"LOCATION", u"txtLocation"}, {u"DATE PURCHASED", u"txtDatePurchased"},
                     {u"PURCHASED FROM", u"txtPurchasedFrom"}, {u"COST", u"txtCost"},
                     {u"WARRANTY EXPIRES", u"txtWarrantyExpiryDate"}, {u"DATE DISPOSED", u"txtDateDisposed"},
                     {u"DISPOSED TO", u"txtDisposedTo"}, {u"NOTES", u"txtComments"}};
        return made;
    }();
    return design;
}

}
