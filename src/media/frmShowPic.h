#pragma once

class QString;
class QWidget;

namespace vorel {

// Shows a record's picture in the picImage (a controls::PictureBox) of a screen, or a default where the record has none.
// A path whose file no longer exists is emptied, except on frmDataPath; nothing else ever gets into it. lblPicInfo1 and lblPicInfo2
// of a record screen are visible while a default is on show. The screen is known by its objectName; section: whose default
// it is, "" = the screen's own or else the section in view. A large picture comes a moment later: PictureBox::Shown.
void ShowPic(QWidget *screen, QString &path, const QString &section);
void ShowPic(QWidget *screen, QString &path);

}
