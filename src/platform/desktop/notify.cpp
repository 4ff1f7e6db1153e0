#include "platform/desktop/notify.h"

namespace vorel::desktop {

namespace {

Notifier *chosen = nullptr;

}

void setNotifier(Notifier *notifier)
{
    chosen = notifier;
}

void Notify(const Notice &notice)
{
    if (chosen)
        chosen->show(notice);
}

}
