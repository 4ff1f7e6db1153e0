#pragma once

#include <QString>
#include <functional>

// A word to the user through the desktop, wherever the user looks at the moment.
namespace vorel::desktop {

struct Notice {
    int key = 0;                            // a notice takes the place of the earlier one of its key
    QString title;
    QString body;                           // plain text
    bool urgent = false;
    std::function<void()> opened = {};      // the user clicked it
};

class Notifier {
public:
    virtual ~Notifier() = default;
    virtual void show(const Notice &notice) = 0;        // never waits, never fails
};

// What Notify goes through. Not owned; nullptr: nothing happens.
void setNotifier(Notifier *notifier);
void Notify(const Notice &notice);

}
