#include "session/sections/parts.h"

namespace vorel::sections {

namespace {

SectionColumn price(const QString &field, const QString &title)
{
    SectionColumn column = shown(field, title);
    column.isMoney = true;
    return column;
}

ListReport list()
{
    const QString currency = u"currency"_s;
    ListColumn store = column(u"STORE"_s, 41);
    store.roomPercent = 63;
    // The caller that prints composes the query: by item or by store, marked or all.
    return {.titleWord = u"SHOPPING LIST as at "_s, .size = 12, .rowLimit = 45,
            .columns = {column(u"ITEM"_s, 1, 37), store, rightAligned(u"NO."_s, fieldFormat(u"NUMBER"_s, {}), 70),
                        rightAligned(u"LAST"_s, fieldFormat(u"LASTCOST"_s, currency), 78),
                        rightAligned(u"AMOUNT"_s, fieldFormat(u"AMOUNT"_s, currency), 86),
                        rightAligned(u"TOTAL"_s, fieldFormat(u"TOTAL"_s, currency), 96)},
            .countWord = u"NUMBER OF RECORDS LISTED: "_s, .total = fieldSum(u"TOTAL"_s), .totalColumn = 5, .totalFormat = currency};
}

}

SectionDesign shopping()
{
    return {
        .id = SectionId::Shopping,
        .name = u"Shopping"_s,
        .code = u"H"_s,
        .refreshesReminders = false,
        .list = ListDesign{
            .title = u"SHOPPING LIST"_s,
            .query = u"SELECT [ID],[ITEM],[STORE],[NUMBER],[LASTCOST],[AMOUNT],[TOTAL],[PICK] FROM [SHOPPING] ORDER BY [ITEM]"_s,
            .columns = {hidden(u"ID"_s), shown(u"ITEM"_s), shown(u"STORE"_s), shown(u"NUMBER"_s, u"NO."_s),
                        price(u"LASTCOST"_s, u"LAST"_s), price(u"AMOUNT"_s, u"AMT"_s), price(u"TOTAL"_s, u"TOTAL"_s),
                        shown(u"PICK"_s, u"BUY"_s)},
            .growing = {u"ITEM"_s, u"STORE"_s},
            .rules = {{.kind = RowRule::Kind::Flag, .style = u"HILITE"_s, .fields = {u"PICK"_s}}},
            .isEditedInCells = true},
        .grid = GridDesign{.word = u"SHOPPING"_s, .widths = {2000, 1500, 1000, 1000, 1000, 1000, 600}, .styleSet = u"SHOPPING"_s,
                           .colour = GridColourDesign{u"ShoppingGridColour"_s},
                           .empty = u"The shopping list is empty.\nType an item into the first line."_s},
        .button = ButtonDesign{14, u" Shopping  "_s, u" Shopping List "_s, u"view-list-text"_s, RailGroup::Lists, 1,
                               {u"SHOPPING"_s, {u" Tick what you need to buy; the title shows what it will cost."_s}}},
        .feature = FeatureDesign{u"Shopping"_s, {u"mnuPrintShoppingList"_s}},
        .print = PrintDesign{u"mnuPrintShoppingList"_s, u"&Shopping List"_s, sections::list()},
        .rowTip = RowTipDesign{u"SHOPPING"_s,
                               {text(u" ITEM:"_s, u"ITEM"_s), text(u" STORE:"_s, u"STORE"_s), text(u" NUMBER:"_s, u"NUMBER"_s),
                                money(u" LAST COST:"_s, u"LASTCOST"_s), money(u" AMOUNT:"_s, u"AMOUNT"_s),
                                money(u" TOTAL:"_s, u"TOTAL"_s)}},
        .help = HelpDesign{u"\\INFOSHOPPING.RTF"_s},
    };
}

}
