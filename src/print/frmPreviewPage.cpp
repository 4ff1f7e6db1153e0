#include "print/frmPreviewPage.h"

#include <QPaintEvent>

namespace vorel {

using namespace Qt::StringLiterals;

PreviewPageBox::PreviewPageBox(QWidget *parent) : QWidget(parent), m_page({})
{
    setObjectName(u"Page"_s);
    setAccessibleName(tr("Page"));
    setAttribute(Qt::WA_OpaquePaintEvent);
}

PreviewPageBox::~PreviewPageBox()
{
    finish();
}

void PreviewPageBox::sizeToPage()
{
    const QSizeF pixels(m_page.Width() / printer::twipsPerPixel, m_page.Height() / printer::twipsPerPixel);
    const QSize dots = pixels.toSize().expandedTo({1, 1});
    if (dots == size() && m_image.size() == dots * devicePixelRatioF())
        return;                     // what is drawn stays: a letter is sent with the picture of this page
    const bool isDrawing = m_painter.isActive();
    finish();
    resize(dots);
    m_image = QImage(size() * devicePixelRatioF(), QImage::Format_RGB32);
    m_image.fill(Qt::white);
    if (isDrawing)
        begin();
}

void PreviewPageBox::begin()
{
    m_painter.begin(&m_image);
    m_page.drawOn(&m_painter, devicePixelRatioF() / printer::twipsPerPixel);
}

void PreviewPageBox::clear()
{
    finish();
    m_image.fill(Qt::white);
    begin();
}

void PreviewPageBox::finish()
{
    m_page.drawOn(nullptr, 1);
    if (m_painter.isActive())
        m_painter.end();
}

void PreviewPageBox::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.drawImage(rect(), m_image);
    painter.setPen(Qt::gray);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}
