#include "platform/desktop/busnotifier.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFile>

namespace vorel::desktop {

using namespace Qt::StringLiterals;

namespace {

const QString &service()
{
    static const QString name = u"org.freedesktop.Notifications"_s;
    return name;
}

const QString &path()
{
    static const QString name = u"/org/freedesktop/Notifications"_s;
    return name;
}

// Without one of these no session bus exists, and merely asking the library might start one.
bool sessionBusExists()
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")
        || QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/bus"_s);
}

}

BusNotifier::BusNotifier(QString busAddress, int timeoutMilliseconds)
    : m_address(std::move(busAddress)), m_timeout(timeoutMilliseconds),
      m_busName(u"vorel-notices-%1"_s.arg(reinterpret_cast<quintptr>(this))) {}

BusNotifier::~BusNotifier()
{
    if (m_bus)
        QDBusConnection::disconnectFromBus(m_busName);
}

// A connection of its own: nothing else of the program waits for its messages.
bool BusNotifier::connectToBus()
{
    if (m_bus)
        return m_bus->isConnected();
    if (m_address.isEmpty() && !sessionBusExists())
        return false;
    m_bus = m_address.isEmpty() ? QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_busName)
                                : QDBusConnection::connectToBus(m_address, m_busName);
    if (!m_bus->isConnected())
        return false;
    // From any sender: watching the service's name would ask the bus and wait.
    m_bus->connect({}, path(), service(), u"ActionInvoked"_s, this, SLOT(ActionInvoked(uint, QString)));
    m_bus->connect({}, path(), service(), u"NotificationClosed"_s, this, SLOT(NotificationClosed(uint, uint)));
    return true;
}

void BusNotifier::show(const Notice &notice)
{
    if (!connectToBus())
        return;
    uint replaced = 0;
    for (auto shown = m_shown.cbegin(); shown != m_shown.cend(); ++shown)
        if (shown->key == notice.key)
            replaced = shown.key();
    const QVariantMap hints{{u"urgency"_s, QVariant::fromValue<uchar>(notice.urgent ? 2 : 1)},
                            {u"desktop-entry"_s, u"org.vorel.Reminder"_s},
                            {u"category"_s, u"presence"_s}};
    // "default" is a click on the notice itself; the second one is a button where a service shows only buttons.
    const QStringList actions{u"default"_s, u"Open"_s, u"open"_s, u"Open"_s};
    QDBusMessage call = QDBusMessage::createMethodCall(service(), path(), service(), u"Notify"_s);
    call << QCoreApplication::applicationName() << replaced << u"org.vorel.Reminder"_s << notice.title
         << notice.body.toHtmlEscaped() << actions << hints << -1;
    ++m_pending;
    auto *watcher = new QDBusPendingCallWatcher(m_bus->asyncCall(call, m_timeout), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, notice](QDBusPendingCallWatcher *done) {
        takeReply(notice, done);
    });
}

void BusNotifier::takeReply(const Notice &notice, QDBusPendingCallWatcher *call)
{
    --m_pending;
    const QDBusPendingReply<uint> reply = *call;
    if (!reply.isError())
        m_shown.insert(reply.value(), notice);
    call->deleteLater();
}

void BusNotifier::ActionInvoked(uint id, const QString &)
{
    const Notice notice = m_shown.value(id);
    if (notice.opened)
        notice.opened();
}

void BusNotifier::NotificationClosed(uint id, uint)
{
    m_shown.remove(id);
}

}
