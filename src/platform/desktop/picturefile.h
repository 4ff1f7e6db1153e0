#pragma once

#include <QImage>
#include <QString>

// Picture files, read so that neither their size nor their damage can hurt the program. Any thread.
namespace vorel::desktop {

struct PictureFile {
    QSize size;             // pixels, turned as its camera says; invalid: no picture, or one that is too large to be read
    bool large = false;     // its decoding may be felt
};

// What the file's header says, without decoding pixels.
PictureFile inspectPicture(const QString &path);

struct Picture {
    QImage image;           // turned as its camera says, at most as large as asked for
    QSize size;             // pixels of the picture in the file, turned
};

// The picture, scaled down while it is decoded to fit the bounds; never scaled up. A null image: it cannot be shown.
Picture readPicture(const QString &path, QSize bounds);

}
