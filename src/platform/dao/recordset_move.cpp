#include "platform/dao/recordset_p.h"

#include <algorithm>

namespace vorel::dao {

bool RecordsetPrivate::atStart() const
{
    if (gap)
        return false;
    return position < 0 || (rows() == 0 && buffer.mode != CopyBuffer::Mode::Add);
}

void RecordsetPrivate::requireCurrent() const
{
    if (!hasCurrent())
        throw EngineError(err::NoCurrentRecord);
}

void RecordsetPrivate::moveTo(qsizetype row)
{
    discard();
    gap = false;
    position = std::clamp<qsizetype>(row, -1, rows());
    visited = std::clamp<qsizetype>(position + 1, visited, rows());
    if (atEnd())
        setWalking(false);
}

void RecordsetPrivate::move(qsizetype by)
{
    if (by == 0) {
        discard();
        return;
    }
    if (!gap && ((by > 0 && position >= rows()) || (by < 0 && position < 0) || rows() == 0)) {
        discard();
        throw EngineError(err::NoCurrentRecord);
    }
    // After a deletion `position` is already the row after it.
    moveTo(position + by - (gap && by > 0 ? 1 : 0));
}

// The rows that match, in the order of their numbers.
std::vector<qint64> RecordsetPrivate::matches(QStringView criteria) const
{
    std::vector<qint64> found;
    Statement statement(connection().handle(), jet::translateCriteria(source, criteria, connection().schema()));
    while (statement.step())
        found.push_back(statement.integer(0));
    std::sort(found.begin(), found.end());
    return found;
}

void RecordsetPrivate::find(Find which, QStringView criteria)
{
    discard();
    if (type == dbOpenTable || !keyed)
        throw EngineError(err::NotSupported);
    const std::vector<qint64> found = matches(criteria);
    const bool forward = which == Find::First || which == Find::Next;
    qsizetype row = 0;
    switch (which) {
    case Find::First: row = 0; break;
    case Find::Last: row = rows() - 1; break;
    case Find::Next: row = gap ? position : position + 1; break;
    case Find::Previous: row = position - 1; break;
    }
    const KeyPlaces sought(found);
    qsizetype hit = -1;
    for (; !found.empty() && hit < 0 && row >= 0 && row < rows(); row += forward ? 1 : -1) {
        if (sought.of(keyAt(row)) >= 0)
            hit = row;
    }
    noMatch = hit < 0;
    if (!noMatch)
        moveTo(hit);        // otherwise the row that was current stays
}

}
