#include "session/state.h"

#include "platform/basic/format.h"

namespace vorel {

using basic::Value;

State &state()
{
    static State s;
    return s;
}

QString displayDate(const Value &date)
{
    return basic::Format(date, state().gDateDisplay);
}

QString shortDate(const Value &date)
{
    return basic::Format(date, state().gDateShort);
}

QString sqlDate(basic::DateTime date)
{
    return date.date().toString(u"MM/dd/yyyy");
}

}
