#include "records/viewpage.h"

namespace vorel::records {

QString ViewPageText(const ViewPage &)
{
    return {};
}

void ShowViewPage(const ViewPage &)
{
}

}
