#include "records/frmSectionPanel.h"

#include "platform/controls/colours.h"
#include "platform/controls/layout.h"
#include "platform/controls/recordform.h"

#include <QFormLayout>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

namespace vorel {

namespace layout = controls::layout;

namespace {

constexpr double readableContrast = 7;               // contrast of text that is read, not glanced at

double readableStrength(const QColor &back, const QImage &picture)
{
    const QColor text = controls::blackOrWhiteOn(back);
    const QColor tone = picture.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
    for (const double strength : {0.9, 0.6, 0.4, 0.25, 0.15}) {
        if (controls::contrast(text, controls::blend(back, tone, strength)) >= readableContrast)
            return strength;
    }
    return 0.08;
}

}

SectionPanel::SectionPanel(const QString &name, int columns, QWidget *parent) : QWidget(parent)
{
    setObjectName(name);
    auto *body = new QWidget;
    m_column = new QVBoxLayout(body);
    layout::setMargins(m_column, 2 * layout::unit);
    m_column->setSpacing(2 * layout::unit);
    auto *beside = new QHBoxLayout;
    beside->setSpacing(3 * layout::unit);
    for (int i = 0; i < std::max(1, columns); ++i) {
        m_forms.push_back(controls::RecordForm::createFormLayout());
        beside->addLayout(m_forms.back(), 1);
    }
    m_column->addLayout(beside);
    auto *scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidgetResizable(true);
    scroll->setWidget(body);
    body->setAutoFillBackground(false);
    scroll->viewport()->setAutoFillBackground(false);
    auto *all = new QVBoxLayout(this);
    layout::setMargins(all, 0);
    all->addWidget(scroll);
}

void SectionPanel::setGround(const QColor &back, const QImage &picture)
{
    m_back = back;
    m_picture = picture;
    m_scaled = {};
    m_strength = picture.isNull() ? 0 : readableStrength(back, picture);
    update();
}

void SectionPanel::resizeEvent(QResizeEvent *)
{
    m_scaled = {};
}

void SectionPanel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_back);
    if (m_picture.isNull())
        return;
    if (m_scaled.isNull()) {
        m_scaled = QPixmap::fromImage(m_picture.scaled(size() * devicePixelRatioF(), Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation));
        m_scaled.setDevicePixelRatio(devicePixelRatioF());
    }
    const QSizeF covered = m_scaled.deviceIndependentSize();
    painter.setOpacity(m_strength);         // what it is a picture of is at its lower right
    painter.drawPixmap(QPointF(width() - covered.width(), height() - covered.height()), m_scaled);
}

}
