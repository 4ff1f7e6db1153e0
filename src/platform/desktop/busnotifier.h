#pragma once

#include "platform/desktop/notify.h"

#include <QDBusConnection>
#include <QHash>
#include <QObject>
#include <optional>

class QDBusPendingCallWatcher;

namespace vorel::desktop {

// The desktop's notification service (org.freedesktop.Notifications). Every call is asynchronous: a service that is not
// there, fails or hangs changes nothing for the program.
class BusNotifier : public QObject, public Notifier {
    Q_OBJECT
public:
    // busAddress: "" for the session's own bus, to which it connects at the first notice.
    explicit BusNotifier(QString busAddress = {}, int timeoutMilliseconds = 5000);
    ~BusNotifier() override;

    void show(const Notice &notice) override;
    int pending() const { return m_pending; }           // calls without an answer yet

private slots:
    void ActionInvoked(uint id, const QString &action);
    void NotificationClosed(uint id, uint reason);

private:
    bool connectToBus();
    void takeReply(const Notice &notice, QDBusPendingCallWatcher *call);

    QString m_address;
    int m_timeout;
    std::optional<QDBusConnection> m_bus;
    QString m_busName;
    QHash<uint, Notice> m_shown;            // by the service's number
    int m_pending = 0;
};

}
