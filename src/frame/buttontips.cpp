#include "frame/buttontips.h"

#include <map>

using namespace Qt::StringLiterals;

namespace vorel {

ButtonTip toolTip(const QString &buttonName)
{
    static const std::map<QString, ButtonTip> tips{
        {u"cmdCalculator"_s,
         {u"CALCULATOR"_s,
          {u" Standard calculation with provision for your favourite picture."_s, u" It also converts measures and weights."_s}}},
        {u"cmdCalendar"_s, {u"CALENDAR"_s, {u" See a month at a glance, and print it with pictures of your own."_s}}},
        {u"cmdInvoice"_s, {u"INVOICES"_s, {u" Write an invoice, and follow what your customers owe you."_s}}},
        {u"cmdEmail"_s, {u"EMAIL"_s, {u" Click to launch your email client software."_s}}},
        {u"cmdSticky"_s, {u"STICKY NOTES"_s, {u" Click to put a short note on your desktop."_s}}},
        {u"cmdInfo"_s, {u"INFORMATION"_s, {u" Click to read how the section on the screen is used."_s}}},
        {u"cmdBackground"_s,
         {u"SCREEN BACKGROUND PICTURES"_s,
          {u" Click this button to change the background of this screen"_s, u" You can remove it on the Setup screen."_s}}},
        {u"cmdWallpaper"_s, {u"WALLPAPER"_s, {u" Click to change the picture of your desktop from time to time."_s}}},
        {u"cmdPopUpCloser"_s, {u"POP-UP REMINDERS"_s, {u" Click to close the pop-up reminders of your appointments."_s}}},
    };
    const auto found = tips.find(buttonName);
    return found == tips.end() ? ButtonTip{} : found->second;
}

}
