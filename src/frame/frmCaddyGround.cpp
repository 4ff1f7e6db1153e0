#include "frame/frmCaddyGround.h"

#include "platform/desktop/picturefile.h"

#include <QPainter>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

constexpr double veil = 0.72;           // of the background's colour over the picture
constexpr int largestSide = 2560;       // a camera's picture is read no larger than a screen shows it

}

CaddyGround::CaddyGround(QWidget *parent) : QWidget(parent)
{
    setObjectName(u"Page"_s);
}

void CaddyGround::setPicture(const QString &file)
{
    m_picture = {};
    m_fitted = {};
    if (!file.isEmpty())
        m_picture = desktop::readPicture(file, {largestSide, largestSide}).image;
    update();
}

void CaddyGround::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_fitted = {};
}

void CaddyGround::paintEvent(QPaintEvent *event)
{
    if (m_picture.isNull())
        return QWidget::paintEvent(event);
    if (m_fitted.isNull()) {
        const double ratio = devicePixelRatioF();
        m_fitted = QPixmap::fromImage(m_picture.scaled(size() * ratio, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation));
        m_fitted.setDevicePixelRatio(ratio);
    }
    QPainter painter(this);
    const QSizeF fitted = m_fitted.deviceIndependentSize();
    painter.drawPixmap(QPointF((width() - fitted.width()) / 2, (height() - fitted.height()) / 2), m_fitted);
    QColor ground = palette().color(QPalette::Window);
    ground.setAlphaF(static_cast<float>(veil));
    painter.fillRect(rect(), ground);
}

}
