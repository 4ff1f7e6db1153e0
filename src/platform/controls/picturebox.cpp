#include "platform/controls/picturebox.h"

#include "platform/basic/files.h"

#include <QImageReader>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace vorel::controls {

struct PictureBox::Private {
    QString path;
    QSize size;
    QPixmap pixmap;
};

PictureBox::PictureBox(const QString &name, QWidget *parent) : QWidget(parent), d(std::make_unique<Private>())
{
    setObjectName(name);
    setFocusPolicy(Qt::StrongFocus);
}

PictureBox::~PictureBox() = default;

void PictureBox::showFile(const QString &path)
{
    d->path = path;
    QImageReader reader(basic::realPath(path));
    reader.setAutoTransform(true);
    d->pixmap = QPixmap::fromImage(reader.read());
    d->size = d->pixmap.isNull() ? QSize() : d->pixmap.size();
    update();
    emit Shown(isShown());
}

void PictureBox::clear()
{
    d->path.clear();
    d->size = {};
    d->pixmap = {};
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

void PictureBox::paintEvent(QPaintEvent *)
{
    if (d->pixmap.isNull())
        return;
    QPainter painter(this);
    const QSize fitted = d->pixmap.size().scaled(size(), Qt::KeepAspectRatio);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QRect(QPoint((width() - fitted.width()) / 2, (height() - fitted.height()) / 2), fitted), d->pixmap);
}

void PictureBox::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit Clicked();
}

void PictureBox::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Space)
        emit Clicked();
    else
        QWidget::keyPressEvent(event);
}

void PictureBox::resizeEvent(QResizeEvent *)
{
    update();
}

}
