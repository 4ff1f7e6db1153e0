#include "platform/desktop/desktop.h"

#include "platform/basic/files.h"

#include <QLockFile>
#include <memory>

namespace vorel::desktop {

using namespace Qt::StringLiterals;

namespace {

struct Claim {
    QString folder;
    std::unique_ptr<QLockFile> lock;
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
    auto lock = std::make_unique<QLockFile>(folder + u"/.vorelreminder.lock"_s);
    // Never stale by age: the program runs for weeks. A lock whose process is gone is taken over all the same.
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0))
        return lock->error() != QLockFile::LockFailedError;
    held = {folder, std::move(lock)};
    return true;
}

void releaseSingleInstance()
{
    claim() = {};
}

}
