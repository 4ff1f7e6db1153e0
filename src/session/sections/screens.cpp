#include "session/sections/parts.h"

namespace vorel::sections {

// What the rail and the menus open in place of a section, or beside it.

SectionDesign income()
{
    return {
        .id = SectionId::Income,
        .name = u"Income"_s,
        .code = u"IN"_s,
        .kind = SectionKind::Action,
        .button = ButtonDesign{23, u" Income  "_s, u" Record all of your Income "_s, u"taxes-finances"_s, RailGroup::Money, 0,
                               {u"INCOME"_s, {u" Record all of your income, and print the reports for your tax return."_s}}},
        // Income and Expenses share a switch.
        .feature = FeatureDesign{u"Accounts"_s, {u"cmdInvoice"_s, u"mnuInvoice"_s}},
        .help = HelpDesign{u"\\INFOINCOME.RTF"_s, u"accounts"_s},
    };
}

SectionDesign expenses()
{
    return {
        .id = SectionId::Expenses,
        .name = u"Expenses"_s,
        .code = u"EX"_s,
        .kind = SectionKind::Action,
        .button = ButtonDesign{24, u" Expenses "_s, u" Record all of your expenses "_s, u"view-bank"_s, RailGroup::Money, 1,
                               {u"EXPENSES"_s, {u" Record all of your expenses, and pay the bills that are due."_s}}},
        .feature = FeatureDesign{u"Accounts"_s},
        .help = HelpDesign{u"\\INFOBILLENTER.RTF"_s, u"accounts"_s},
    };
}

SectionDesign calculator()
{
    return {.id = SectionId::Calculator, .name = u"Calculator"_s, .kind = SectionKind::Action,
            .help = HelpDesign{u"\\INFOCALCULATOR.RTF"_s}};
}

SectionDesign calendar()
{
    return {.id = SectionId::Calendar, .name = u"Calendar"_s, .kind = SectionKind::Action,
            .feature = FeatureDesign{u"Calendar"_s, {u"cmdCalendar"_s, u"mnuCalendar"_s, u"picMonth"_s}},
            .pictures = PicturesDesign{u"CalendarPictures"_s, {{u"Calendar Picture"_s}, {u"Cal Pic"_s}, {u"CalcPic"_s}}},
            .help = HelpDesign{u"\\INFOCALENDAR.RTF"_s}};
}

SectionDesign help()
{
    return {.id = SectionId::Help, .name = u"Help"_s, .kind = SectionKind::Action};
}

}
