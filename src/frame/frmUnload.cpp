#include "frame/frmUnload.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

namespace vorel {

void unloadScreens(const QStringList &names)
{
    std::vector<QPointer<QWidget>> open;
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window->isVisible() && names.contains(window->objectName()))
            open.emplace_back(window);
    for (const QPointer<QWidget> &window : open)
        if (window)
            window->close();
}

}
