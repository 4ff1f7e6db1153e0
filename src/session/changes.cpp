#include "session/changes.h"

namespace vorel {

Changes &Changes::instance()
{
    static Changes changes;
    return changes;
}

}
