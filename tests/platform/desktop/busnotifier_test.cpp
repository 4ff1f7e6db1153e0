#include "platform/desktop/busnotifier.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vorel::desktop;

namespace {

// Stands for the desktop's notification service on a bus of the test's own.
class Service : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    enum class Mood { Answers, Hangs, Fails };

    Service(const QString &address, Mood mood) : m_bus(QDBusConnection::connectToBus(address, u"test-service"_s)), m_mood(mood)
    {
        m_bus.registerObject(u"/org/freedesktop/Notifications"_s, this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(u"org.freedesktop.Notifications"_s);
    }
    ~Service() override { QDBusConnection::disconnectFromBus(u"test-service"_s); }

    void tell(const QString &signal, const QVariantList &values)
    {
        QDBusMessage message = QDBusMessage::createSignal(u"/org/freedesktop/Notifications"_s,
                                                          u"org.freedesktop.Notifications"_s, signal);
        message.setArguments(values);
        m_bus.send(message);
    }
    QStringList calls;

public slots:
    uint Notify(const QString &, uint replaced, const QString &, const QString &title, const QString &body, const QStringList &actions,
                const QVariantMap &hints, int)
    {
        calls << u"%1|%2|%3|%4|%5"_s.arg(replaced).arg(title, body, actions.value(0)).arg(hints[u"urgency"_s].toInt());
        if (m_mood == Mood::Hangs)
            setDelayedReply(true);
        else if (m_mood == Mood::Fails)
            sendErrorReply(QDBusError::Failed, u"no"_s);
        return replaced ? replaced : 40 + static_cast<uint>(calls.size());
    }

private:
    QDBusConnection m_bus;
    Mood m_mood;
};

class Bus : public testing::Test {
protected:
    void SetUp() override
    {
        const QString program = QStandardPaths::findExecutable(u"dbus-daemon"_s);
        if (program.isEmpty())
            GTEST_SKIP() << "no dbus-daemon";
        m_daemon.start(program, {u"--session"_s, u"--nofork"_s, u"--nopidfile"_s, u"--print-address=1"_s,
                                 u"--address=unix:dir="_s + m_folder.path()});
        ASSERT_TRUE(m_daemon.waitForStarted());
        while (!m_daemon.canReadLine())
            ASSERT_TRUE(m_daemon.waitForReadyRead(10000));
        address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
    void TearDown() override
    {
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }
    template <class Condition> static bool comes(Condition condition) { return QTest::qWaitFor(condition, 10000); }

    QString address;
    QStringList opened;
    Notice notice(int key, bool urgent = false)
    {
        return {key, u"Reminder"_s, u"Tom & <Ann>"_s, urgent, [this, key] { opened << QString::number(key); }};
    }

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
};

}

TEST_F(Bus, ShowsReplacesAndOpens)
{
    Service service(address, Service::Mood::Answers);
    BusNotifier notifier(address);
    notifier.show(notice(1));
    notifier.show(notice(2));
    ASSERT_TRUE(comes([&] { return notifier.pending() == 0; }));
    notifier.show(notice(1, true));
    ASSERT_TRUE(comes([&] { return notifier.pending() == 0; }));
    EXPECT_EQ(service.calls, (QStringList{u"0|Reminder|Tom &amp; &lt;Ann&gt;|default|1"_s, u"0|Reminder|Tom &amp; &lt;Ann&gt;|default|1"_s,
                                          u"41|Reminder|Tom &amp; &lt;Ann&gt;|default|2"_s}));
    service.tell(u"ActionInvoked"_s, {999u, u"default"_s});
    service.tell(u"ActionInvoked"_s, {42u, u"default"_s});
    service.tell(u"NotificationClosed"_s, {42u, 2u});
    service.tell(u"ActionInvoked"_s, {42u, u"default"_s});
    service.tell(u"ActionInvoked"_s, {41u, u"open"_s});
    ASSERT_TRUE(comes([&] { return opened.size() >= 2; }));
    EXPECT_EQ(opened, (QStringList{u"2"_s, u"1"_s}));
}

TEST_F(Bus, ServiceThatHangsOrFailsOrIsNotThere)
{
    {
        Service service(address, Service::Mood::Hangs);
        BusNotifier notifier(address, 50);
        notifier.show(notice(1));
        EXPECT_EQ(notifier.pending(), 1) << "nobody waited";
        EXPECT_TRUE(comes([&] { return notifier.pending() == 0; }));
        EXPECT_EQ(service.calls.size(), 1);
    }
    {
        Service service(address, Service::Mood::Fails);
        BusNotifier notifier(address);
        notifier.show(notice(1));
        EXPECT_TRUE(comes([&] { return notifier.pending() == 0; }));
    }
    BusNotifier notifier(address);
    notifier.show(notice(1));
    EXPECT_TRUE(comes([&] { return notifier.pending() == 0; }));
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(Bus, EndsWhileACallIsOnItsWay)
{
    Service service(address, Service::Mood::Hangs);
    {
        BusNotifier notifier(address);
        notifier.show(notice(1));
    }
    EXPECT_TRUE(comes([&] { return service.calls.size() == 1; }));
}

TEST(Notices, WithoutABusNothingHappens)
{
    BusNotifier notifier(u"unix:path=/nowhere/bus"_s);
    setNotifier(&notifier);
    Notify({1, u"Reminder"_s, u"Text"_s});
    setNotifier(nullptr);
    Notify({1, u"Reminder"_s, u"Text"_s});
    EXPECT_EQ(notifier.pending(), 0);
}

#include "busnotifier_test.moc"
