#include "session/sections/parts.h"

namespace vorel::sections {

SectionDesign bills()
{
    ListColumn bill = wrapped(u"BILL"_s, u"BILL"_s, 15, columnWide);
    bill.roomPercent = 68;
    return {
        .id = SectionId::Bills,
        .name = u"Bills"_s,
        .code = u"B"_s,
        .kind = SectionKind::Reminder,
        .grids = {false, true, false},
        .grid = GridDesign{.word = u"BILLS"_s, .widths = {1500, 500, 3000, 1000, 700}, .styleSet = u"BILLS"_s,
                           .colour = GridColourDesign{u"BillsGridColour"_s, 0xC0FFFF, true},
                           .empty = u"No bills in this period.\nPress New to enter one."_s},
        .button = ButtonDesign{1, u" Bills "_s, u"Bills"_s, u"wallet-open"_s, RailGroup::Reminders, 2,
                               {u"BILLS"_s,
                                {u" Record the bills that you have to pay, and when they fall due."_s,
                                 u" A bill that comes again and again is entered once."_s}}},
        .feature = FeatureDesign{u"Bills"_s, {u"mnuPrintBills"_s, u"mnuDisplayB"_s}},
        .print = PrintDesign{u"mnuPrintBills"_s, u"&Bills"_s,
            {.titleWord = u"BILLS"_s, .isDated = false, .size = 0, .rowLimit = 55,
             .columns = {{.heading = u"DATE"_s, .cell = fieldShortDate(u"DATE"_s), .percent = 1}, bill,
                         rightAligned(u"AMOUNT"_s, fieldFormat(u"AMOUNT"_s, u"currency"_s), 88),
                         {.heading = u"PAID"_s, .cell = yesWhenSet(u"PAID"_s), .percent = 90}},
             .head = ListHead::Block, .countWord = u"NUMBER OF RECORDS LISTED: "_s, .total = fieldSum(u"AMOUNT"_s),
             .totalColumn = 2, .totalFormat = u"currency"_s, .hideEmail = true, .noRows = u"No Records to Preview"_s}},
        .rowTip = RowTipDesign{u"BILLS"_s,
                               {day(u" DATE:"_s, u"DATE"_s), text(u" BILL:"_s, u"BILL"_s), money(u" AMOUNT:"_s, u"AMOUNT"_s),
                                text(u" OWING TO:"_s, u"OwingTo"_s), text(u" WEB:"_s, u"Website"_s)}},
        .help = HelpDesign{u"\\INFOBILLS.RTF"_s},
    };
}

}
