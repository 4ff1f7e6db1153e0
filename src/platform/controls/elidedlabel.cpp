#include "platform/controls/elidedlabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace vorel::controls {

ElidedLabel::ElidedLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QSize ElidedLabel::minimumSizeHint() const
{
    constexpr int leastCharacters = 4;
    const QSize whole = QLabel::minimumSizeHint();
    return {std::min(whole.width(), leastCharacters * fontMetrics().averageCharWidth()), whole.height()};
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        if (fontMetrics().horizontalAdvance(text()) > contentsRect().width() - 2 * margin())
            QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), text(), this);
        return true;
    }
    return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const QRect room = contentsRect().adjusted(margin(), 0, -margin(), 0);
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width()));
}

}
