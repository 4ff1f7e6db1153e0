#pragma once

#include <QString>

// Which page of help belongs to what.
namespace vorel {

// What has a page but no section code of its own.
inline constexpr QStringView infoAll = u"All", infoPayBill = u"PAYBILL", infoAccountsSetup = u"ACCOUNTSSETUP",
                             infoInvoice = u"INVOICE", infoFilePath = u"FILEPATH", infoCalculator = u"CALCULATOR", infoCalendar = u"CALENDAR";

// The page's resource name, e.g. "\INFOBOOKS.RTF", for the code or the name of a section, or one of the above. What has
// no page of its own gives the general one.
QString infoPageFile(QStringView code);
// What the page is about, for the screen's title: "Books".
QString infoPageTitle(QStringView code);
// The page describes screens that the program does not have yet.
bool isInfoPageAhead(QStringView code);
// Where such a file is: in the program folder, else among the pages that came with the program. "" if nowhere.
QString findInfoPage(const QString &file);

}
