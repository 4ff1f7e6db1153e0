#include "session/state.h"

#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/error.h"
#include "platform/basic/format.h"
#include "platform/basic/text.h"

namespace vorel {

using namespace Qt::StringLiterals;
using basic::Value;

State &state()
{
    static State s;
    return s;
}

QString displayDate(const Value &date)
{
    return basic::Format(date, state().settings.gDateDisplay);
}

QString shortDate(const Value &date)
{
    return basic::Format(date, state().settings.gDateShort);
}

QString sqlDate(basic::DateTime date)
{
    return date.date().toString(u"MM/dd/yyyy");
}

void DetectDateOrder()
{
    const std::optional<basic::DateTime> date = basic::tryDate(u"2/7/2000"_s);
    const bool dayFirst = date && basic::DatePart(u"d", *date) == 2;    // any other answer is month first
    State &s = state();
    s.settings.gDateShort = dayFirst ? u"dd/mm/yyyy"_s : u"mm/dd/yyyy"_s;
    s.settings.gDateLong = dayFirst ? u"dd mmm yyyy"_s : u"mmm dd yyyy"_s;
    s.settings.gDateTimeLong = s.settings.gDateLong + u" hh:mm am/pm"_s;
}

void ShownPeriod::setQueries(ReminderQuery ofAppointments, ReminderQuery ofBills, ReminderQuery ofEvents)
{
    appointments = std::move(ofAppointments);
    bills = std::move(ofBills);
    events = std::move(ofEvents);
    gSqlAppointments = appointments.text();
    gSqlBills = bills.text();
    gSqlEvents = events.text();
}

}
