#include "media/frmShowPic.h"

#include "media/pictures.h"
#include "platform/controls/picturebox.h"
#include "session/sectiondesign.h"

#include <QLabel>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

void showNote(QWidget *screen, const PictureChoice &choice)
{
    if (!sectionByScreen(screen->objectName()))
        return;
    for (const QString &name : {u"lblPicInfo1"_s, u"lblPicInfo2"_s}) {
        auto *note = screen->findChild<QLabel *>(name);
        if (!note)
            continue;
        if (choice.isDefault) {
            QPalette colours = note->palette();
            colours.setColor(QPalette::WindowText, QColor(QRgb(defaultNoteColour(choice.file))));
            note->setPalette(colours);
        }
        note->setVisible(choice.isDefault);
    }
}

}

void ShowPic(QWidget *screen, QString &path, const QString &section)
{
    auto *image = screen->findChild<controls::PictureBox *>(u"picImage"_s);
    if (!image)
        return;
    const PictureChoice choice = choosePicture(path, section, screen->objectName() == u"frmDataPath");
    if (image->path() != choice.file)
        image->clear();                 // no record is shown with another's picture, not even for a moment
    if (!choice.file.isEmpty())
        image->showFile(choice.file);
    image->setVisible(true);
    showNote(screen, choice);
}

void ShowPic(QWidget *screen, QString &path)
{
    const SectionDesign *own = sectionByScreen(screen->objectName());
    ShowPic(screen, path, own ? own->code : state().selection.gSection);
}

}
