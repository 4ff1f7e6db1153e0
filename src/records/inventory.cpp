#include "records/inventory.h"

#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/error.h"
#include "session/state.h"

namespace vorel::records {

using namespace Qt::StringLiterals;
using basic::DateTime;

std::optional<DateTime> warrantyExpiry(const QString &purchaseDate, const QString &period)
{
    std::optional<DateTime> expiry;
    // Asked for at each key: what is still half typed is no warranty, not a failure.
    basic::IgnoreErrors([&] {
        const double months = basic::Val(period);
        if (months > 0 && basic::IsDate(purchaseDate))
            expiry = basic::DateAdd(u"m", months, basic::CDate(purchaseDate));
    });
    return expiry;
}

bool transferWarranty(const DateTime &expiry, const QString &eventText)
{
    dao::Database database = dao::DBEngine::OpenDatabase(state().path(DataFile::Main));
    dao::Transaction all(database);
    dao::Recordset events = database.OpenRecordset(
        u"select * from [Events] WHERE UCASE([Subject])='WARRANTY EXPIRED' AND [EVENT]='"_s + eventText + u"';"_s);
    if (!events.EOF_())
        return false;
    events.AddNew();
    events.Set(u"Date", expiry);
    events.Set(u"Subject", u"Warranty Expired"_s);
    events.Set(u"EVENT", eventText);
    events.Update();
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
