#include "utilities/infopages.h"

#include "platform/desktop/desktop.h"
#include "utilities/hints.h"

#include <algorithm>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

struct Page {
    QStringView code, file, title;
    QStringView feature;                // that it describes; "" where the program has all of it
};
constexpr Page pages[] = {
    {u"A", u"\\INFOAPPOINTS.RTF", u"Appointments", {}},
    {u"B", u"\\INFOBILLS.RTF", u"Bills", {}},
    {u"E", u"\\INFOEVENTS.RTF", u"Events", {}},
    {u"EX", u"\\INFOBILLENTER.RTF", u"Expenses", u"accounts"},
    {infoPayBill, u"\\INFOBILLPAY.RTF", u"Paying bills", u"accounts"},
    {u"IN", u"\\INFOINCOME.RTF", u"Income", u"accounts"},
    {u"F", u"\\INFOBACKUP.RTF", u"File Backup", u"backup"},
    {u"G", u"\\INFOTODO.RTF", u"To Do", {}},
    {u"H", u"\\INFOSHOPPING.RTF", u"Shopping", {}},
    {u"I", u"\\INFOASSET.RTF", u"Inventory", {}},
    {u"J", u"\\INFOJOURNAL.RTF", u"Journal", u"admin"},
    {u"K", u"\\INFOBOOKS.RTF", u"Books", {}},
    {u"L", u"\\INFOPROFILE.RTF", u"Profile", u"profile"},
    {u"M", u"\\INFOMESSAGES.RTF", u"Messages", {}},
    {u"N", u"\\INFONOTES.RTF", u"Notes", u"notes"},
    {u"O", u"\\INFOHEALTH.RTF", u"Health", u"health"},
    {u"P", u"\\INFOCONTACTS.RTF", u"Contacts", u"contacts"},
    {u"Q", u"\\INFOSPORT.RTF", u"Golf", u"sport"},
    {u"R", u"\\INFORECIPE.RTF", u"Recipes", u"recipes"},
    {u"U", u"\\INFOMUSIC.RTF", u"Music", {}},
    {u"V", u"\\INFOMOVIES.RTF", u"Movies", {}},
    {u"W", u"\\INFOPASSWORDS.RTF", u"Passwords", u"admin"},
    {u"Y", u"\\INFOHOWTO.RTF", u"How To", u"howto"},
    {u"Z", u"\\INFOGARDEN.RTF", u"Gardening", u"garden"},
    {u"MV", u"\\INFOVEHICLE.RTF", u"Vehicle", u"vehicle"},
    {infoAccountsSetup, u"\\INFOACCOUNTSSETUP.RTF", u"Accounts setup", u"accounts"},
    {infoInvoice, u"\\INFOINVOICE.RTF", u"Invoices", u"accounts"},
    {infoFilePath, u"\\INFOFILEPATH.RTF", u"Pictures and file paths", {}},
    {infoCalculator, u"\\INFOCALCULATOR.RTF", u"Calculator", {}},
    // The lists over the contacts.
    {u"T", u"\\INFOCONTACTS.RTF", u"Contacts", u"contacts"},
    {u"D", u"\\INFOCONTACTS.RTF", u"Contacts", u"contacts"},
    {u"X", u"\\INFOCONTACTS.RTF", u"Contacts", u"contacts"},
    {u"C", u"\\INFOCONTACTS.RTF", u"Contacts", u"contacts"},
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
    return pageOf(code).file.toString();
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
