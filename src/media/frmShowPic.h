#pragma once

class QString;
class QWidget;

namespace vorel {

// Shows a record's picture in the picImage (a controls::PictureBox) of a screen, or a default where the record has none.
// A path whose file has gone is emptied, except on frmDataPath. lblPicInfo1 and lblPicInfo2 of a record screen are
// visible while a default is on show. The screen is known by its objectName.
void ShowPic(QWidget *screen, QString &path);

}
