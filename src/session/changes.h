#pragma once

#include <QMutex>
#include <QObject>
#include <QSet>
#include <string>

namespace vorel {

// Notifies those who show rows that the program has written some: once a table, however many of its rows, when the program
// next waits for events. What another program writes is not reported. One object for the program, first asked for on the
// thread of the screens.
class Changes : public QObject {
    Q_OBJECT
public:
    static Changes &instance();
    ~Changes() override;
    void deliver();                             // what waits to be reported, at once

signals:
    void changed(const QString &table);         // in capital letters

private:
    Changes();
    void note(const char *table);

    QMutex m_guard;
    QSet<QString> m_tables;
    std::string m_last;                         // many rows of one table are written in a run
};

}
