#include "frame/frmCaddyInfo.h"

#include "platform/controls/layout.h"

#include <QPainter>
#include <QStyle>
#include <QTimerEvent>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

using controls::layout::unit;
constexpr int stepTime = 40;            // ms a pixel
constexpr int restSteps = 50;           // at the line's head, before it starts
constexpr int gap = 8 * unit;           // between the line's end and its next head

}

InfoPanel::InfoPanel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setMargin(unit / 2);
}

void InfoPanel::setWarning(bool warning)
{
    if (m_warning == warning)
        return;
    m_warning = warning;
    setAccessibleDescription(warning ? u"An appointment is due"_s : QString());
    update();
}

QSize InfoPanel::minimumSizeHint() const
{
    return {10 * unit, QLabel::minimumSizeHint().height()};
}

int InfoPanel::overhang() const
{
    return fontMetrics().horizontalAdvance(text()) - contentsRect().width() + 2 * unit;
}

// Rolls only where somebody can see it.
void InfoPanel::roll()
{
    if (text() != m_shown) {
        m_shown = text();
        m_offset = -restSteps;
    }
    const bool animated = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
    const bool wanted = animated && isVisible() && isActiveWindow() && !underMouse() && overhang() > 0;
    if (wanted && !m_timer.isActive())
        m_timer.start(stepTime, this);
    else if (!wanted)
        m_timer.stop();
    if (overhang() <= 0 || !animated)
        m_offset = -restSteps;
}

void InfoPanel::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_timer.timerId())
        return QLabel::timerEvent(event);
    if (++m_offset > fontMetrics().horizontalAdvance(text()) + gap)
        m_offset = -restSteps;
    update();
    roll();
}

bool InfoPanel::event(QEvent *event)
{
    const bool handled = QLabel::event(event);
    switch (event->type()) {
    case QEvent::Enter:
    case QEvent::Leave:
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::Resize:
        roll();
        break;
    default:
        break;
    }
    return handled;
}

void InfoPanel::paintEvent(QPaintEvent *)
{
    roll();
    QPainter painter(this);
    const QRect room = contentsRect().adjusted(unit, 0, -unit, 0);
    painter.setPen(palette().color(foregroundRole()));
    if (m_timer.isActive() || m_offset > 0) {
        const int width = fontMetrics().horizontalAdvance(text());
        painter.setClipRect(room);
        for (const int left : {room.left() - std::max(0, m_offset), room.left() - std::max(0, m_offset) + width + gap})
            painter.drawText(QRect(left, room.top(), width + 1, room.height()), Qt::AlignLeft | Qt::AlignVCenter, text());
        painter.setClipping(false);
    } else {
        painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_warning ? QPen(QColor(0xd0, 0x28, 0x20), 2) : QPen(palette().color(QPalette::Mid), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
}

void SignalButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ground = palette().color(QPalette::Button), words = palette().color(QPalette::ButtonText);
    painter.setBrush(isDown() ? ground.darker(115) : ground);
    painter.setPen(QPen(hasFocus() ? words : ground.darker(140), hasFocus() ? 2 : 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
    painter.setPen(words);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
}

}
