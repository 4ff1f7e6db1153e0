#include "media/frmDataPath.h"

namespace vorel {

using namespace Qt::StringLiterals;

frmDataPath::frmDataPath(const DataPathCall &call, QWidget *parent) : controls::Form(u"frmDataPath"_s, parent)
{
    setWindowTitle(call.caption);
}

QString ChooseDataPath(const DataPathCall &call)
{
    frmDataPath form(call, call.screen);
    form.ShowModal();
    return call.path;
}

}
