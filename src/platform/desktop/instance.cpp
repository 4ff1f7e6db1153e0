#include "platform/desktop/desktop.h"

#include "platform/basic/files.h"
#include "platform/desktop/systemlock.h"

#include <memory>

namespace vorel::desktop {

using namespace Qt::StringLiterals;

namespace {

struct Claim {
    QString folder;
    std::unique_ptr<SystemLock> lock;
    QByteArray note;                // of the run before this one
};

Claim &claim()
{
    static Claim held;
    return held;
}

}

bool claimSingleInstance()
{
    const QString folder = basic::programFolder();
    Claim &held = claim();
    if (held.lock && held.folder == folder)
        return true;
    auto lock = std::make_unique<SystemLock>(folder + u"/.vorelreminder.lock"_s, SystemLock::Kind::File);
    if (lock->isTaken())
        return false;
    // The content only says how the last run ended; foreign content never prevents a start.
    const QByteArray note = lock->content();
    lock->setContent(runningNote);
    held = {folder, std::move(lock), note};
    return true;
}

bool holdsInstance()
{
    return claim().lock && claim().lock->isHeld();
}

QByteArray lastRunNote()
{
    return claim().note;
}

void releaseSingleInstance(const QByteArray &note)
{
    if (claim().lock)
        claim().lock->setContent(note);
    claim() = {};
}

}
