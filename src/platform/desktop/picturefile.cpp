#include "platform/desktop/picturefile.h"

#include "platform/basic/files.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace vorel::desktop {

namespace {

// No camera produces more; larger claims are treated as hostile.
constexpr qint64 mostPixels = 400'000'000;
// A progressive JPEG file is held whole while it is decoded, however small it is wanted.
constexpr qint64 mostProgressivePixels = 50'000'000;
// Formats that cannot be scaled while they are decoded are held whole in four bytes a pixel.
constexpr qint64 mostWholePixels = 60'000'000;
// Up to here a picture is decoded in a few hundredths of a second, on the screen's own thread.
constexpr qint64 quickPixels = 1'500'000, quickBytes = 4'000'000;

// Walks the segments up to the frame header, whose marker gives the kind.
bool isProgressiveJpeg(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.read(2) != QByteArray("\xFF\xD8", 2))
        return false;
    for (;;) {
        const QByteArray head = file.read(4);
        if (head.size() < 4 || static_cast<uchar>(head[0]) != 0xFF)
            return false;
        const int mark = static_cast<uchar>(head[1]);
        const int length = static_cast<uchar>(head[2]) << 8 | static_cast<uchar>(head[3]);
        const bool frameHeader = mark >= 0xC0 && mark <= 0xCF && mark != 0xC4 && mark != 0xC8 && mark != 0xCC;
        if (frameHeader)
            return mark != 0xC0 && mark != 0xC1;
        if (length < 2 || file.skip(length - 2) != length - 2)
            return false;
    }
}

bool isAffordable(const QString &path, const QImageReader &reader, QSize size)
{
    const qint64 pixels = qint64{size.width()} * size.height();
    if (reader.format() != "jpeg")
        return pixels <= mostWholePixels;
    return pixels <= mostPixels && (pixels <= mostProgressivePixels || !isProgressiveJpeg(path));
}

// The raster formats, by how their files begin, whatever the file is called. Others are never given to a decoder: drawings
// (SVG) take time and memory without limit, however small their file.
QByteArray formatOf(const QString &path)
{
    struct Start {
        QByteArrayView bytes;
        const char *format;
    };
    static constexpr Start starts[] = {
        {"\xFF\xD8\xFF", "jpeg"}, {"GIF8", "gif"}, {"BM", "bmp"}, {"\x89PNG\r\n\x1A\n", "png"},
    };
    QFile file(path);
    // A pipe or a device would never end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray begin = file.read(12);
    if (begin.startsWith("RIFF") && begin.endsWith("WEBP"))
        return "webp";
    for (const Start &known : starts)
        if (begin.startsWith(known.bytes))
            return known.format;
    return {};
}

// A GIF file is decoded to the size of its screen, whatever the reader reports of its first frame.
QSize gifScreen(const QString &path)
{
    QFile file(path);
    const QByteArray head = file.open(QIODevice::ReadOnly) ? file.read(10) : QByteArray();
    const auto number = [&](int at) { return static_cast<uchar>(head[at]) | static_cast<uchar>(head[at + 1]) << 8; };
    return head.size() < 10 ? QSize() : QSize(number(6), number(8));
}

// A format whose header gives no size is not one that records hold.
QSize affordableSize(const QString &path, QImageReader &reader)
{
    const QSize frame = reader.size();
    const QSize size = reader.format() == "gif" && !frame.isEmpty() ? gifScreen(path) : frame;
    return !size.isEmpty() && isAffordable(path, reader, size) ? size : QSize();
}

}

PictureFile inspectPicture(const QString &path)
{
    const QString file = basic::realPath(path);
    const QByteArray format = formatOf(file);
    if (format.isEmpty())
        return {};
    QImageReader reader(file, format);
    reader.setAutoDetectImageFormat(false);
    const QSize size = affordableSize(file, reader);
    if (!size.isValid())
        return {};
    const bool onItsSide = reader.transformation() & QImageIOHandler::TransformationRotate90;
    return {onItsSide ? size.transposed() : size, qint64{size.width()} * size.height() > quickPixels || QFileInfo(file).size() > quickBytes};
}

Picture readPicture(const QString &path, QSize bounds)
{
    const QString file = basic::realPath(path);
    const QByteArray format = formatOf(file);
    if (format.isEmpty())
        return {};
    QImageReader reader(file, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize stored = affordableSize(file, reader);
    if (!stored.isValid())
        return {};
    const bool onItsSide = reader.transformation() & QImageIOHandler::TransformationRotate90;
    const QSize room = onItsSide ? bounds.transposed() : bounds;
    if (stored.width() > room.width() || stored.height() > room.height())
        reader.setScaledSize(stored.scaled(room, Qt::KeepAspectRatio).expandedTo({1, 1}));
    Picture read;
    if (!reader.read(&read.image))
        return {};
    read.size = onItsSide ? stored.transposed() : stored;
    return read;
}

}
