#include "platform/controls/picturebox.h"

#include "platform/desktop/picturefile.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyleOption>
#include <QThreadPool>
#include <atomic>

namespace vorel::controls {

namespace {

// Decoded somewhat larger than most boxes are, so that a window may grow without a second decoding.
constexpr QSize usualBounds(1280, 1024);

// Two at a time: a third large picture waits, and is most often obsolete when its turn comes.
QThreadPool &pool()
{
    static QThreadPool *const threads = [] {
        auto *created = new QThreadPool;
        created->setMaxThreadCount(2);
        qAddPostRoutine([] {
            pool().clear();
            pool().waitForDone();
        });
        return created;
    }();
    return *threads;
}

}

struct PictureBox::Private {
    QString path, unreadableText = QStringLiteral("This picture cannot be shown.");
    QSize size;
    QPixmap pixmap, fitted;
    bool decoding = false, unreadable = false;
    // The number of the latest request: a decoding for any other is stale. Shared with the threads.
    std::shared_ptr<std::atomic<quint64>> wanted = std::make_shared<std::atomic<quint64>>(0);

    void drop()
    {
        ++*wanted;
        decoding = unreadable = false;
        size = {};
        pixmap = fitted = {};
    }
};

PictureBox::PictureBox(const QString &name, QWidget *parent) : QWidget(parent), d(std::make_unique<Private>())
{
    setObjectName(name);
    setFocusPolicy(Qt::StrongFocus);
}

PictureBox::~PictureBox()
{
    ++*d->wanted;
}

void PictureBox::showFile(const QString &path)
{
    d->path = path;
    decode();
}

void PictureBox::decode()
{
    const quint64 token = ++*d->wanted;
    d->decoding = true;
    const QSize bounds = (size() * devicePixelRatioF()).expandedTo(usualBounds);
    const desktop::PictureFile file = desktop::inspectPicture(d->path);
    if (!file.large) {
        const desktop::Picture picture = file.size.isValid() ? desktop::readPicture(d->path, bounds) : desktop::Picture();
        return take(token, picture.image, picture.size);
    }
    pool().start([token, bounds, path = d->path, wanted = d->wanted, box = QPointer(this)] {
        if (*wanted != token)
            return;
        const desktop::Picture picture = desktop::readPicture(path, bounds);
        // The box may go at any moment, so the result is handed over on its own thread and looked at there.
        QMetaObject::invokeMethod(QCoreApplication::instance(), [token, picture, box] {
            if (box)
                box->take(token, picture.image, picture.size);
        }, Qt::QueuedConnection);
    });
}

void PictureBox::take(quint64 token, const QImage &image, QSize size)
{
    if (*d->wanted != token)
        return;
    d->decoding = false;
    d->pixmap = QPixmap::fromImage(image);
    d->fitted = {};
    d->size = d->pixmap.isNull() ? QSize() : size;
    d->unreadable = d->pixmap.isNull() && !d->path.isEmpty();
    update();
    emit Shown(isShown());
}

void PictureBox::clear()
{
    d->path.clear();
    d->drop();
    update();
}

const QString &PictureBox::path() const
{
    return d->path;
}

QSize PictureBox::pictureSize() const
{
    return d->size;
}

bool PictureBox::isShown() const
{
    return !d->pixmap.isNull();
}

bool PictureBox::isDecoding() const
{
    return d->decoding;
}

void PictureBox::setUnreadableText(const QString &text)
{
    d->unreadableText = text;
    update();
}

void PictureBox::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (isShown()) {
        paintPicture(painter);
    } else if (d->unreadable) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(rect(), static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextWordWrap), d->unreadableText);
    }
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
}

void PictureBox::paintPicture(QPainter &painter)
{
    const double ratio = devicePixelRatioF();
    const QSize pixels = d->pixmap.size().scaled(size() * ratio, Qt::KeepAspectRatio).expandedTo({1, 1});
    if (d->fitted.size() != pixels)
        d->fitted = d->pixmap.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QSizeF shown = QSizeF(pixels) / ratio;
    painter.drawPixmap(QRectF(QPointF((width() - shown.width()) / 2, (height() - shown.height()) / 2), shown), d->fitted,
                       QRectF(QPointF(), QSizeF(pixels)));
}

void PictureBox::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit Clicked();
}

void PictureBox::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space)
        emit Clicked();
    else
        QWidget::keyPressEvent(event);
}

void PictureBox::resizeEvent(QResizeEvent *)
{
    // A picture that was decoded for a smaller box is asked for again; until it comes the coarser one stays.
    const QSize fitting = d->size.scaled(size() * devicePixelRatioF(), Qt::KeepAspectRatio).boundedTo(d->size);
    if (isShown() && !d->decoding && d->pixmap.width() + 1 < fitting.width())
        decode();
    update();
}

}
