#pragma once

#include <QString>

namespace vorel {

// The query of a reminder grid by its parts. What narrows or orders it changes a part and renders the text again; no text
// is ever searched for its clauses.
struct ReminderQuery {
    QString from;               // "select * from BILLS"
    QString period = {};        // condition of the period on show, "" = all rows
    QString order = {};         // what follows ORDER BY, "" = the store's own order
    QString narrowing = {};     // condition that holds for each row beside the period's, "" = none

    QString text() const
    {
        const bool both = !period.isEmpty() && !narrowing.isEmpty();
        const QString where = both ? QStringLiteral("(%1) and %2").arg(period, narrowing) : period + narrowing;
        return from + (where.isEmpty() ? QString() : QStringLiteral(" where ") + where)
            + (order.isEmpty() ? QString() : QStringLiteral(" ORDER BY ") + order);
    }
};

}
