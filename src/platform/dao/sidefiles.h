#pragma once

#include <QString>

// The journals that a broken-off write leaves beside a file. The store plays such a journal into whatever file stands
// there, also into one that took the place of its own, whose rows it would destroy.
namespace vorel::dao::sidefiles {

// Sets aside a journal that does not belong to the file. To be called before the file is opened, while no connection of
// this process uses it. Costs nothing without a journal. 3051 if the folder cannot be written.
void setForeignAside(const QString &path, const QString &password);
// Sets aside whatever lies beside the file.
void setAllAside(const QString &path);

}
