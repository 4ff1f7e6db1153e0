#include "utilities/infopages.h"

#include "platform/desktop/desktop.h"
#include "session/sectiondesign.h"
#include "utilities/hints.h"

#include <algorithm>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

struct Page {
    QStringView code;
    HelpDesign help;
};

// The pages that belong to no section.
const HelpDesign *pageWithoutSection(QStringView code)
{
    static const Page pages[] = {
        {infoPayBill, {u"\\INFOBILLPAY.RTF"_s, u"accounts"_s, u"Paying bills"_s}},
        {infoAccountsSetup, {u"\\INFOACCOUNTSSETUP.RTF"_s, u"accounts"_s, u"Accounts setup"_s}},
        {infoInvoice, {u"\\INFOINVOICE.RTF"_s, u"accounts"_s, u"Invoices"_s}},
        {infoFilePath, {u"\\INFOFILEPATH.RTF"_s, {}, u"Pictures and file paths"_s}},
    };
    const auto found = std::find_if(std::begin(pages), std::end(pages), [code](const Page &page) { return page.code == code; });
    return found == std::end(pages) ? nullptr : &found->help;
}

HelpDesign pageOf(QStringView code)
{
    const SectionDesign *section = sectionByCode(code);
    if (!section)
        section = sectionByName(code.toString());
    if (section && section->help) {
        HelpDesign help = *section->help;
        if (help.title.isEmpty())
            help.title = section->name;
        return help;
    }
    const HelpDesign *own = pageWithoutSection(code);
    return own ? *own : HelpDesign{u"\\INFOALL.RTF"_s, {}, u"Getting started"_s};
}

}

QString infoPageFile(QStringView code) { return pageOf(code).page; }

QString infoPageTitle(QStringView code) { return pageOf(code).title; }

bool isInfoPageAhead(QStringView code)
{
    const QString needed = pageOf(code).needs;
    return !needed.isEmpty() && !hasFeature(needed);
}

QString findInfoPage(const QString &file)
{
    const QString own = desktop::findResource(file);
    return own.isEmpty() ? desktop::findResource(u"\\info"_s + file) : own;
}

}
