#include "session/later.h"

#include "platform/basic/prompts.h"

namespace vorel {

using namespace Qt::StringLiterals;

void showLater(const QString &name)
{
    basic::MsgBox(u"%1 is not part of this version yet."_s.arg(name.trimmed()), {}, basic::Icon::Information);
}

}
