#include "media/frmShowPic.h"

#include "media/pictures.h"
#include "platform/controls/picturebox.h"

#include <QLabel>

namespace vorel {

void ShowPic(const PictureView &view, QString &path, const QString &section)
{
    controls::PictureBox &image = *view.image;
    const PictureChoice choice = choosePicture(path, section, view.keepsBroken);
    if (image.path() != choice.file)
        image.clear();                  // no record is shown with another's picture, not even for a moment
    if (!choice.file.isEmpty())
        image.showFile(choice.file);
    image.setVisible(true);
    for (QLabel *note : view.notes) {
        if (choice.isDefault) {
            QPalette colours = note->palette();
            colours.setColor(QPalette::WindowText, QColor(QRgb(defaultNoteColour(choice.file))));
            note->setPalette(colours);
        }
        note->setVisible(choice.isDefault);
    }
}

}
