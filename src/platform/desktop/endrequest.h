#pragma once

#include <QObject>
#include <memory>

class QSocketNotifier;

namespace vorel::desktop {

// SIGTERM, SIGINT and SIGHUP as a signal on the message loop. One object for the program; it puts the former handlers back
// when it goes.
class EndRequest : public QObject {
    Q_OBJECT
public:
    EndRequest();
    ~EndRequest() override;

signals:
    void Requested();

private:
    void read();

    std::unique_ptr<QSocketNotifier> m_notifier;
};

}
