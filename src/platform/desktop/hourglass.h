#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace vorel::desktop {

// The waiting pointer, for as long as the object lives.
class Hourglass {
public:
    Hourglass() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Hourglass() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY_MOVE(Hourglass)
};

}
