#include "utilities/infopages.h"

#include "platform/desktop/desktop.h"
#include "session/sectiondesign.h"
#include "utilities/hints.h"

#include <algorithm>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

struct Page {
    QStringView code, file, title;
    QStringView feature;                // that it describes; "" where the program has all of it
};
// The file of a section's page is named by its design.
constexpr Page pages[] = {
    {u"A", {}, u"Appointments", {}},
    {u"B", {}, u"Bills", {}},
    {u"E", {}, u"Events", {}},
    {u"EX", {}, u"Expenses", u"accounts"},
    {infoPayBill, u"\\INFOBILLPAY.RTF", u"Paying bills", u"accounts"},
    {u"IN", {}, u"Income", u"accounts"},
    {u"F", {}, u"File Backup", u"backup"},
    {u"G", {}, u"To Do", {}},
    {u"H", {}, u"Shopping", {}},
    {u"I", {}, u"Inventory", {}},
    {u"J", {}, u"Journal", u"admin"},
    {u"K", {}, u"Books", {}},
    {u"L", {}, u"Profile", u"profile"},
    {u"M", {}, u"Messages", {}},
    {u"N", {}, u"Notes", u"notes"},
    {u"O", {}, u"Health", u"health"},
    {u"P", {}, u"Contacts", u"contacts"},
    {u"Q", {}, u"Golf", u"sport"},
    {u"R", {}, u"Recipes", u"recipes"},
    {u"U", {}, u"Music", {}},
    {u"V", {}, u"Movies", {}},
    {u"W", {}, u"Passwords", u"admin"},
    {u"Y", {}, u"How To", u"howto"},
    {u"Z", {}, u"Gardening", u"garden"},
    {u"MV", {}, u"Vehicle", u"vehicle"},
    {infoAccountsSetup, u"\\INFOACCOUNTSSETUP.RTF", u"Accounts setup", u"accounts"},
    {infoInvoice, u"\\INFOINVOICE.RTF", u"Invoices", u"accounts"},
    {infoFilePath, u"\\INFOFILEPATH.RTF", u"Pictures and file paths", {}},
    {infoCalculator, u"\\INFOCALCULATOR.RTF", u"Calculator", {}},
    // The lists over the contacts.
    {u"T", {}, u"Contacts", u"contacts"},
    {u"D", {}, u"Contacts", u"contacts"},
    {u"X", {}, u"Contacts", u"contacts"},
    {u"C", {}, u"Contacts", u"contacts"},
};
constexpr Page general{infoAll, u"\\INFOALL.RTF", u"Getting started", {}};

const Page &pageOf(QStringView code)
{
    const auto found = std::find_if(std::begin(pages), std::end(pages), [code](const Page &page) { return page.code == code; });
    return found == std::end(pages) ? general : *found;
}

}

QString infoPageFile(QStringView code)
{
    const SectionDesign *section = sectionByCode(code);
    return section && !section->helpPage.isEmpty() ? section->helpPage : pageOf(code).file.toString();
}

QString infoPageTitle(QStringView code)
{
    return pageOf(code).title.toString();
}

bool isInfoPageAhead(QStringView code)
{
    const QStringView feature = pageOf(code).feature;
    return !feature.isEmpty() && !hasFeature(feature);
}

QString findInfoPage(const QString &file)
{
    const QString own = desktop::findResource(file);
    return own.isEmpty() ? desktop::findResource(u"\\info"_s + file) : own;
}

}
