#include "records/recordtree.h"

namespace vorel::records {

std::vector<TreeGroup> RecordTreeRows(TreeMode, const QString &, const QString &, const QString &)
{
    return {};
}

QString MixedCaseName(const QString &text)
{
    return text;
}

}
