#pragma once

#include <QString>
#include <functional>

namespace vorel {

// Opens a picture in an image editor of this machine, or in whatever the desktop opens it with; nothing is waited for.
// false if nothing could be started.
bool editPicture(const QString &path);
// What does it instead. Empty: the usual way again.
void setPictureEditor(std::function<bool(const QString &path)> editor);

}
