#pragma once

#include <QString>

// Which page of help belongs to what.
namespace vorel {

// Pages that stand for no section code.
inline constexpr QStringView infoAll = u"All", infoPayBill = u"PAYBILL", infoAccountsSetup = u"ACCOUNTSSETUP",
                             infoInvoice = u"INVOICE", infoFilePath = u"FILEPATH", infoCalculator = u"CALCULATOR";

// The page's resource name, e.g. "\INFOBOOKS.RTF", for a section code or one of the names above. A view that has no page
// of its own gives that of the section it shows, else the general hints.
QString infoPageFile(QStringView code);
// What the page is about, for the screen's title: "Books".
QString infoPageTitle(QStringView code);
// The page describes screens that the program does not have yet.
bool isInfoPageAhead(QStringView code);
// Where such a file is: in the program folder, else among the pages that came with the program. "" if nowhere.
QString findInfoPage(const QString &file);

}
