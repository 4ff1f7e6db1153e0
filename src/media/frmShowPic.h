#pragma once

#include <vector>

class QLabel;
class QString;

namespace vorel {

namespace controls {
class PictureBox;
}

// Where a screen shows a record's picture.
struct PictureView {
    controls::PictureBox *image = nullptr;
    std::vector<QLabel *> notes{};      // visible while a default is on show
    bool keepsBroken = false;           // a path whose file no longer exists stays as it is
};

// Shows a record's picture, or a default where the record has none. A path whose file no longer exists is emptied, unless the
// view keeps it; nothing else ever gets into it. section: whose default it is. A large picture comes a moment later:
// PictureBox::Shown.
void ShowPic(const PictureView &view, QString &path, const QString &section);

}
