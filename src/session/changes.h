#pragma once

#include <QObject>

namespace vorel {

// Notifies those who show rows that others have changed them. One object for the program.
class Changes : public QObject {
    Q_OBJECT
public:
    static Changes &instance();

signals:
    void changed(const QString &table);
};

}
