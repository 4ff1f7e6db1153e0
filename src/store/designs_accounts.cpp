#include "store/designs.h"

#include "store/designfields.h"

namespace vorel::store {

using dao::FieldDef;
using dao::TableDef;
using namespace design;
using namespace Qt::StringLiterals;

// Payroll's deductions end the table of income: ten names, each with its amount.
static std::vector<FieldDef> withDeductions(std::vector<FieldDef> fields)
{
    for (int number = 1; number <= 10; ++number) {
        fields.push_back(text(u"DeductionName%1"_s.arg(number), 50));
        fields.push_back(money(u"DeductionAmt%1"_s.arg(number)));
    }
    return fields;
}

const std::vector<TableDef> &accountsDesigns()
{
    static const std::vector<TableDef> tables = {
        table(u"Accounts"_s,
              {text(u"IDnum"_s, 10), text(u"Name"_s, 50), text(u"Type"_s, 50)}),
        table(u"Setup"_s,
              {flag(u"ProvTaxSystem"_s), text(u"TAXNAME1"_s, 20), text(u"TAXNAME2"_s, 20), flag(u"GST"_s),
               real(u"GSTDefault"_s), flag(u"PST"_s), real(u"ProvDefault"_s), text(u"Logo"_s, 150),
               flag(u"CashSystem"_s), integer(u"InvoiceTopMargin"_s), flag(u"Lines"_s), flag(u"PrintName"_s),
               text(u"InvoiceHeading"_s, 100), text(u"InvoiceLogo"_s, 150), flag(u"SalesTaxSystem"_s),
               integer(u"OtherStartPercent"_s), text(u"TradingName"_s, 255), text(u"Street"_s, 50),
               text(u"Suburb"_s, 50), text(u"Country"_s, 50), text(u"Postcode"_s, 8), text(u"Phone"_s, 25),
               text(u"Mobile"_s, 25), text(u"Fax"_s, 25), text(u"Email"_s, 100), text(u"ABN"_s, 20),
               text(u"RegistrationNumber"_s, 15), text(u"FiscalMonth"_s, 10)}),
        table(u"Bill"_s,
              {counter(u"ID"_s), longer(u"BillID"_s), longer(u"ContactID"_s), text(u"AccountNumber"_s, 12),
               text(u"AccountType"_s, 50), text(u"AP-Account"_s, 50), text(u"Vendor"_s, 50), date(u"Date"_s),
               text(u"DueDate"_s, 11), text(u"Reference"_s, 50), money(u"Amount"_s), money(u"GST"_s),
               money(u"OtherTax"_s), real(u"OtherTaxRate"_s), real(u"GSTRate"_s), money(u"TotalAmount"_s),
               real(u"Job"_s), real(u"ChequeNumber"_s), flag(u"Paid"_s), date(u"DatePaid"_s),
               text(u"PaymentMethod"_s, 15), real(u"BatchNum"_s), integer(u"Type"_s), money(u"Owing"_s),
               real(u"InvoiceNumber"_s), text(u"TaxSystem"_s, 1), memo(u"Memo"_s), longer(u"VEHICLEID"_s)}),
        table(u"Income"_s, withDeductions(
              {counter(u"ID"_s), longer(u"IncomeID"_s), longer(u"ContactID"_s), text(u"AccountNumber"_s, 12),
               text(u"AccountType"_s, 50), text(u"AP-Account"_s, 50), text(u"Vendor"_s, 50), date(u"Date"_s),
               date(u"Due"_s), text(u"Reference"_s, 50), money(u"Amount"_s), money(u"GST"_s), money(u"OtherTax"_s),
               real(u"OtherTaxRate"_s), real(u"GSTRate"_s), money(u"TotalAmount"_s), real(u"Job"_s),
               real(u"ChequeNumber"_s), flag(u"Paid"_s), date(u"DatePaid"_s), text(u"PaymentMethod"_s, 15),
               real(u"BatchNum"_s), integer(u"Type"_s), money(u"Owing"_s), real(u"InvoiceNumber"_s),
               text(u"TaxSystem"_s, 1), memo(u"Memo"_s)})),
        table(u"tblInvoiceDetails"_s,
              {counter(u"ID"_s), longer(u"InvoiceNumber"_s), text(u"AccountNumber"_s, 12), date(u"Date"_s),
               money(u"Total"_s), money(u"AmountPaid"_s), money(u"PrePaid"_s), money(u"Discount"_s), money(u"Owing"_s),
               money(u"AmountApplied"_s), money(u"LabourAmount"_s), money(u"FreightAmount"_s), money(u"ItemGST"_s),
               money(u"ItemProvTax"_s), money(u"OtherGST"_s), money(u"OtherTax"_s), money(u"CostOfGoods"_s),
               text(u"Message"_s, 100), text(u"DateShipped"_s, 10), text(u"Telephone"_s, 20), text(u"Email"_s, 80),
               text(u"OrderNumber"_s, 20), text(u"Carrier"_s, 20), text(u"Terms"_s, 10), text(u"SalesPerson"_s, 20),
               date(u"DatePaid"_s), text(u"Name"_s, 100), text(u"Attention"_s, 50), text(u"Street"_s, 50),
               text(u"Suburb"_s, 50), text(u"State"_s, 25), text(u"Country"_s, 50), text(u"Postcode"_s, 8),
               longer(u"ContactID"_s), memo(u"LabourDescription"_s), text(u"AP-Account"_s, 50),
               text(u"EnteredBy"_s, 30), text(u"CustOrderNum"_s, 20), text(u"DeliverTo"_s, 216),
               text(u"TaxSystem"_s, 1), flag(u"Credit"_s), flag(u"Paid"_s), flag(u"InvoiceStatus"_s), flag(u"Quote"_s),
               flag(u"Invisible"_s), flag(u"ServiceInvoice"_s), flag(u"Include"_s), flag(u"Finalised"_s),
               longer(u"IDNUM"_s)}),
        table(u"tblInvoiceTransactions"_s,
              {text(u"ProductCode"_s, 50), text(u"ProductName"_s, 100), text(u"Description"_s, 100),
               text(u"SerialNum"_s, 50), text(u"ExpiryDate"_s, 10), real(u"Quantity"_s), real(u"Rate"_s),
               text(u"Username"_s, 40), money(u"Amount"_s), text(u"AccountNumber"_s, 12), real(u"InvoiceNumber"_s),
               longer(u"RecordNumber"_s), real(u"ItemGST"_s), real(u"ItemProvTax"_s), text(u"GSTCode"_s, 10),
               money(u"GSTRate"_s), money(u"ProvTaxRate"_s), money(u"SalesTax"_s), integer(u"ToStock"_s),
               integer(u"FromStock"_s), flag(u"InvoiceStatus"_s), money(u"CostOfGoods"_s), money(u"ExTaxPrice"_s),
               date(u"Date"_s), flag(u"Quote"_s), text(u"UserID"_s, 12), text(u"FileName"_s, 130),
               real(u"FileReferenceNum"_s)}),
        table(u"Payments"_s,
              {longer(u"ID"_s), date(u"Date"_s), text(u"AccountNumber"_s, 12), text(u"Vendor"_s, 50),
               text(u"Reference"_s, 50), money(u"Amount"_s), text(u"PaymentMethod"_s, 15), real(u"ChequeNumber"_s),
               real(u"BatchNum"_s), integer(u"Type"_s), longer(u"IDNUM"_s)}),
        table(u"Receipts"_s,
              {longer(u"ID"_s), date(u"Date"_s), text(u"AccountNumber"_s, 12), text(u"Vendor"_s, 50),
               text(u"Reference"_s, 50), money(u"Amount"_s), text(u"PaymentMethod"_s, 15), real(u"ChequeNumber"_s),
               integer(u"Type"_s)}),
    };
    return tables;
}

}
