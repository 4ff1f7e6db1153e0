#include "session/changes.h"

#include "platform/dao/writes.h"

#include <QMutexLocker>

namespace vorel {

Changes &Changes::instance()
{
    static Changes changes;
    return changes;
}

Changes::Changes()
{
    dao::onRowWritten([this](const char *table) { note(table); });
}

Changes::~Changes()
{
    dao::onRowWritten({});
}

void Changes::note(const char *table)
{
    const QMutexLocker guard(&m_guard);
    if (!m_tables.isEmpty() && m_last == table)
        return;
    m_last = table;
    if (m_tables.isEmpty())
        QMetaObject::invokeMethod(this, &Changes::deliver, Qt::QueuedConnection);
    m_tables.insert(QString::fromUtf8(table).toUpper());
}

void Changes::deliver()
{
    QSet<QString> tables;
    {
        const QMutexLocker guard(&m_guard);
        tables.swap(m_tables);
    }
    for (const QString &table : std::as_const(tables))
        emit changed(table);
}

}
