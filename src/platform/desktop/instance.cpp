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
    bool brokenOff = false;         // the run before this one did not come to its end
};

Claim &claim()
{
    static Claim held;
    return held;
}

const QByteArray running("running\n");

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
    // The content only tells how the last run ended; whatever a stranger put there ends no start.
    const bool brokenOff = !lock->content().isEmpty();
    lock->setContent(running);
    held = {folder, std::move(lock), brokenOff};
    return true;
}

bool lastRunWasBrokenOff()
{
    return claim().brokenOff;
}

void releaseSingleInstance(bool checkNextTime)
{
    if (claim().lock && !checkNextTime)
        claim().lock->setContent({});
    claim() = {};
}

}
