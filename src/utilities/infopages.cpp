#include "utilities/infopages.h"

#include "platform/desktop/desktop.h"

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

struct Page {
    QStringView code, file;
};
constexpr Page pages[] = {
    {u"A", u"\\INFOAPPOINTS.RTF"},
    {u"B", u"\\INFOBILLS.RTF"},
    {u"E", u"\\INFOEVENTS.RTF"},
    {u"EX", u"\\INFOBILLENTER.RTF"},
    {infoPayBill, u"\\INFOBILLPAY.RTF"},
    {u"IN", u"\\INFOINCOME.RTF"},
    {u"F", u"\\INFOBACKUP.RTF"},
    {u"I", u"\\INFOASSET.RTF"},
    {u"J", u"\\INFOJOURNAL.RTF"},
    {u"K", u"\\INFOBOOKS.RTF"},
    {u"L", u"\\INFOPROFILE.RTF"},
    {u"M", u"\\INFOMESSAGES.RTF"},
    {u"N", u"\\INFONOTES.RTF"},
    {u"O", u"\\INFOHEALTH.RTF"},
    {u"P", u"\\INFOCONTACTS.RTF"},
    {u"Q", u"\\INFOSPORT.RTF"},
    {u"R", u"\\INFORECIPE.RTF"},
    {u"U", u"\\INFOMUSIC.RTF"},
    {u"V", u"\\INFOMOVIES.RTF"},
    {u"W", u"\\INFOPASSWORDS.RTF"},
    {u"Y", u"\\INFOHOWTO.RTF"},
    {u"Z", u"\\INFOGARDEN.RTF"},
    {u"MV", u"\\INFOVEHICLE.RTF"},
    {infoAccountsSetup, u"\\INFOACCOUNTSSETUP.RTF"},
    {infoInvoice, u"\\INFOINVOICE.RTF"},
    {infoFilePath, u"\\INFOFILEPATH.RTF"},
    // The lists over the contacts.
    {u"T", u"\\INFOCONTACTS.RTF"},
    {u"D", u"\\INFOCONTACTS.RTF"},
    {u"X", u"\\INFOCONTACTS.RTF"},
    {u"C", u"\\INFOCONTACTS.RTF"},
};

}

QString infoPageFile(QStringView code)
{
    for (const Page &page : pages) {
        if (page.code == code)
            return page.file.toString();
    }
    return u"\\INFOALL.RTF"_s;
}

QString findInfoPage(const QString &file)
{
    const QString own = desktop::findResource(file);
    return own.isEmpty() ? desktop::findResource(u"\\info"_s + file) : own;
}

}
