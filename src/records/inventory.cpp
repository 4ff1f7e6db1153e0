#include "records/inventory.h"

#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/error.h"
#include "session/datafiles.h"

namespace vorel::records {

using namespace Qt::StringLiterals;
using basic::DateTime;

std::optional<DateTime> warrantyExpiry(const QString &purchaseDate, const QString &period)
{
    // Asked for at each key: a half-typed value means no warranty yet, not a failure.
    const double months = basic::valOr(period, 0);
    const std::optional<DateTime> bought = basic::IsDate(purchaseDate) ? basic::tryDate(purchaseDate) : std::nullopt;
    return months > 0 && bought ? basic::tryDateAdd(u"m", months, *bought) : std::nullopt;
}

bool transferWarranty(const DateTime &expiry, const QString &eventText)
{
    dao::Database database = openDataFile(DataFile::Main);
    dao::Transaction all(database);
    dao::Recordset events = database.OpenRecordset(
        u"select * from [Events] WHERE UCASE([Subject])='WARRANTY EXPIRED' AND [EVENT]="_s + dao::literal(eventText) + u';');
    if (!events.EOF_())
        return false;
    const int most = events.Fields()[static_cast<std::size_t>(events.fieldIndex(u"EVENT"))].Size;
    if (eventText.size() > most)
        throw basic::Error(dao::err::TooLong, u"The item with its make and model is too long for an event: %1 of %2"_s.arg(eventText.size()).arg(most));
    dao::NewRow(events).set(u"Date", expiry).set(u"Subject", u"Warranty Expired"_s).set(u"EVENT", eventText).save();
    all.Commit();
    return true;
}

QString shownDate(const QString &text)
{
    if (!basic::IsDate(text))
        return text;
    const DateTime date = basic::CDate(text);
    return date.hasDate() ? shortDate(date.dayOnly()) : text;
}

}
