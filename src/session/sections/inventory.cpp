#include "session/sections/collections.h"
#include "session/sections/parts.h"

namespace vorel::records {

using namespace Qt::StringLiterals;
using enum FieldKind;

namespace {

// The fields of one panel, or of a group on it.
void add(std::vector<Field> &fields, const QString &panel, std::vector<Field> more, const QString &group = {})
{
    for (Field &field : more) {
        field.panel = panel;
        field.group = group;
        fields.push_back(std::move(field));
    }
}

std::vector<Field> inventoryFields()
{
    std::vector<Field> fields;
    add(fields, u"picDetails"_s, {
        {.control = u"cboItem"_s, .field = u"ITEM"_s, .kind = List, .label = u"I&tem"_s},
        {.control = u"cboCategory"_s, .field = u"CATEGORY"_s, .kind = List, .label = u"&Category"_s},
        {.control = u"txtMake"_s, .field = u"MAKE"_s, .label = u"&Make"_s},
        {.control = u"txtModel"_s, .field = u"MODEL"_s, .label = u"Mo&del"_s},
        {.control = u"txtSerialNum"_s, .field = u"SERIALNUM"_s, .label = u"&Serial #"_s},
        {.control = u"txtLocation"_s, .field = u"LOCATION"_s, .label = u"Loc&ation"_s},
        {.control = u"txtOnLoan"_s, .field = u"ONLOAN"_s, .label = u"Curr&ently On loan to"_s}});
    add(fields, u"picPurchase"_s, {
        {.control = u"txtDatePurchased"_s, .field = u"DATEPURCHASED"_s, .kind = Date, .label = u"&Date purchased"_s,
         .rules = FieldRule::DoubleClick, .button = u"cmdDatePurchased"_s},
        {.control = u"txtPurchasedFrom"_s, .field = u"PURCHASEDFROM"_s, .label = u"Purchased &from"_s},
        {.control = u"txtReceiptNum"_s, .field = u"RECEIPTNUM"_s, .label = u"Receipt &#"_s},
        {.control = u"txtPaymentMethod"_s, .field = u"PAYMENTMETHOD"_s, .label = u"Payment &method"_s},
        {.control = u"txtCost"_s, .field = u"COST"_s, .kind = Amount, .label = u"&Cost"_s},
        {.control = u"txtGST"_s, .field = u"GST"_s, .kind = Amount, .label = u"&GST"_s},
        {.control = u"txtOtherTax"_s, .field = u"OTHERTAX"_s, .kind = Amount, .label = u"Other ta&x"_s},
        {.control = u"txtWarrantyPeriod"_s, .field = u"WARRANTYPERIOD"_s, .kind = Digits, .label = u"Warrant&y (months)"_s},
        {.control = u"txtWarrantyExpiryDate"_s, .field = u"WARRANTYEXPIRYDATE"_s, .kind = Date, .label = u"W&arranty expires"_s,
         .rules = FieldRule::DoubleClick, .button = u"cmdCal"_s}});
    add(fields, u"picOther"_s, {{.control = u"chkInsured"_s, .field = u"INSURED"_s, .kind = Check, .label = u"In&sured"_s}});
    add(fields, u"picOther"_s, {
        {.control = u"txtInsuredWith"_s, .field = u"INSUREDWITH"_s, .label = u"Insured wit&h"_s},
        {.control = u"txtPolicyNum"_s, .field = u"POLICYNUM"_s, .label = u"Polic&y #"_s},
        {.control = u"txtInsuredAmount"_s, .field = u"INSUREDAMOUNT"_s, .label = u"&Amount"_s},
        {.control = u"txtInsuranceExpiryDate"_s, .field = u"INSURANCEEXPIRYDATE"_s, .kind = Date, .label = u"&Expires"_s,
         .rules = FieldRule::DoubleClick, .button = u"cmdInsuranceExpiryDate"_s}}, u"fraInsurance"_s);
    add(fields, u"picOther"_s, {
        {.control = u"lblPictureFile"_s, .field = u"FILENAME"_s, .kind = Path, .label = u"Picture"_s, .labelName = u"lblPicture"_s},
        {.control = u"txtComments"_s, .field = u"NOTES"_s, .kind = Rich, .label = u"No&tes"_s}});
    add(fields, u"picDisposal"_s, {
        {.control = u"txtDateDisposed"_s, .field = u"DATEDISPOSED"_s, .kind = Date, .label = u"&Date disposed"_s,
         .rules = FieldRule::DoubleClick, .button = u"cmdDateDisposed"_s},
        {.control = u"txtDisposedTo"_s, .field = u"DISPOSEDTO"_s, .label = u"Disposed &to"_s},
        {.control = u"txtDisposalCost"_s, .field = u"DISPOSALCOST"_s, .kind = Amount, .label = u"&Amount"_s}});
    add(fields, {}, {{.control = u"lblIDNum"_s, .field = u"ID"_s, .kind = Hidden}});
    return fields;
}

}

const RecordDesign &inventoryRecord()
{
    static const RecordDesign design{
        .letter = u"I"_s, .screen = u"frmInventory"_s, .title = u"Inventory"_s,
        .file = DataFile::Main, .table = u"INVENTORY"_s, .rows = u"SELECT * FROM [Inventory] ORDER BY [Item]"_s,
        .dataControl = u"dtaInventoryData"_s,
        .colourKey = u"AssetBackColour"_s, .pictureKey = u"ShowAssetPic"_s, .picture = u"\\assets.jpg"_s,
        .web = u"https://www.wikipedia.org"_s,
        .nameControl = u"cboItem"_s, .newFocus = u"cboItem"_s, .emptyNote = u"No items yet.\nNew adds the first one."_s,
        .pageFile = u"\\PROFILE.HTML"_s,            // the very file that the page of a profile is written to
        .pageHeading = u"INVENTORY"_s,
        .names = NameCase::Words,
        .trees = {{u"cmdAll"_s, u"All"_s, u" By first letter "_s, readTreeByFirstLetter, u"ITEM"_s, u"ITEM"_s}, categoryButton(u"ITEM"_s)},
        .panels = {{u"picDetails"_s, u"Details"_s}, {u"picPurchase"_s, u"Purchase"_s}, {u"picOther"_s, u"Other"_s},
                   {u"picDisposal"_s, u"Disposal"_s}},
        .groups = {{u"fraInsurance"_s, u"Insurance"_s}},
        .fields = inventoryFields(),
        .lists = {{{u"cboItem"_s}, {}, u"select Distinct(ITEM) from [INVENTORY] ORDER BY [ITEM]  ;"_s},
                  {{u"cboCategory"_s}, {}, u"select Distinct(CATEGORY) from [INVENTORY] ORDER BY [CATEGORY]  ;"_s}},
        .options = {{u"chkInsured"_s, {u"fraInsurance"_s}, true}},
        .newRow = {{u"Item"_s}, {u"Make"_s}, {u"Model"_s}, {u"SerialNum"_s}, {u"Location"_s}, {u"DatePurchased"_s},
                   {u"PurchasedFrom"_s}, {u"Cost"_s}, {u"OnLoan"_s}, {u"FILENAME"_s}},
        .page = {{u"ITEM"_s, u"cboItem"_s, false}, {u"CATEGORY"_s, u"cboCategory"_s}, {u"MAKE"_s, u"txtMake"_s},
                 {u"MODEL"_s, u"txtModel"_s}, {u"SERIAL #"_s, u"txtSerialNum"_s}, {u"LOCATION"_s, u"txtLocation"_s},
                 {u"DATE PURCHASED"_s, u"txtDatePurchased"_s}, {u"PURCHASED FROM"_s, u"txtPurchasedFrom"_s}, {u"COST"_s, u"txtCost"_s},
                 {u"WARRANTY EXPIRES"_s, u"txtWarrantyExpiryDate"_s}, {u"DATE DISPOSED"_s, u"txtDateDisposed"_s},
                 {u"DISPOSED TO"_s, u"txtDisposedTo"_s}, {u"NOTES"_s, u"txtComments"_s}},
    };
    return design;
}

}

namespace vorel::sections {

SectionDesign inventory()
{
    ListColumn purchasedFrom = column(u"PURCHASED FROM"_s, u"PURCHASEDFROM"_s, 57, 30);
    purchasedFrom.roomPercent = 69;
    return {
        .id = SectionId::Inventory,
        .name = u"Inventory"_s,
        .code = u"I"_s,
        .list = ListDesign{
            .title = u"INVENTORY"_s,
            .query = u"SELECT [ID],[Item],[SerialNum],[Location],' ' as PBUT,[FILENAME] FROM [Inventory] ORDER BY [Item]"_s,
            .columns = {hidden(u"ID"_s), shown(u"Item"_s, u"ITEM"_s), shown(u"SerialNum"_s, u"SERIAL #"_s),
                        shown(u"Location"_s, u"LOCATION"_s), button(), hidden(u"FILENAME"_s)},
            .rules = {pictureRule()}},
        .grid = GridDesign{.word = u"INVENTORY"_s, .widths = {2000, 2000, 2000}, .styleSet = u"INVENTORY"_s,
                           .colour = GridColourDesign{u"InventoryGridColour"_s}, .empty = u"No items yet.\nPress New to enter the first one."_s},
        .button = ButtonDesign{12, u"Inventory "_s, u" Asset Inventory "_s, u"box"_s, RailGroup::Household, 0,
                               {u"INVENTORY"_s,
                                {u" Record what you own, what it cost, where it is and how it is insured."_s,
                                 u" A picture of each item helps if you ever have to make a claim."_s}}},
        .feature = FeatureDesign{u"Inventory"_s, {u"mnuPrintInventory"_s}},
        .print = PrintDesign{u"mnuPrintInventory"_s, u"&Inventory"_s,
            {.titleWord = u"INVENTORY as at "_s, .query = u"Select * from [Inventory] order by [Item]"_s, .orientation = 2,
             .columns = {column(u"ITEM"_s, 1, 36), column(u"SERIAL#"_s, u"SERIALNUM"_s, 26), column(u"LOCATION"_s, 37, 30),
                         column(u"DATE PURCHASED"_s, u"DATEPURCHASED"_s, 48), purchasedFrom,
                         rightAligned(u"COST"_s, fieldFormat(u"COST"_s, u"currency"_s), 76),
                         column(u"DATE DISPOSED"_s, u"DATEDISPOSED"_s, 78), column(u"DISPOSED TO"_s, u"DISPOSEDTO"_s, 87, 30)}}},
        .rowTip = RowTipDesign{u"INVENTORY"_s,
                               {text(u" ITEM:"_s, u"ITEM"_s), text(u" MAKE:"_s, u"MAKE"_s), text(u" MODEL:"_s, u"MODEL"_s),
                                text(u" SERIAL #:"_s, u"SERIALNUM"_s), text(u" LOCATION:"_s, u"LOCATION"_s),
                                text(u" CATEGORY:"_s, u"CATEGORY"_s), date(u" PURCHASED:"_s, u"DATEPURCHASED"_s),
                                text(u" FROM:"_s, u"PURCHASEDFROM"_s), money(u" COST:"_s, u"COST"_s),
                                date(u" WARRANTY UNTIL:"_s, u"WARRANTYEXPIRYDATE"_s), text(u" ON LOAN TO:"_s, u"ONLOAN"_s),
                                text(u" NOTES:"_s, u"NOTES"_s)}},
        .screen = RecordScreenDesign{.name = u"frmInventory"_s, .record = records::inventoryRecord},
        .pictures = PicturesDesign{u"AssetPictures"_s, {{u"Asset Picture"_s}}},
        .help = HelpDesign{u"\\INFOASSET.RTF"_s},
    };
}

}
