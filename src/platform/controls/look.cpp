#include "platform/controls/look.h"

#include "platform/controls/colours.h"

#include <QPainter>
#include <QStyleOption>
#include <array>

namespace vorel::controls {

using namespace Qt::StringLiterals;

namespace {

constexpr double lineContrast = 4;     // smoothing takes some of it away
constexpr double groundPart = 0.4;      // how far a placeholder is blended from the text towards its background

struct Colours {
    QColor ground, fill, line, mark;
};

Colours coloursOf(const QStyleOption &option)
{
    const auto group = option.state & QStyle::State_Enabled ? QPalette::Active : QPalette::Disabled;
    const QPalette &palette = option.palette;
    Colours colours;
    colours.ground = palette.color(group, QPalette::Window);
    colours.fill = palette.color(group, QPalette::Base);
    const bool isNear = option.state & (QStyle::State_MouseOver | QStyle::State_HasFocus);
    const QColor towards = isNear ? palette.color(QPalette::Active, QPalette::Highlight) : blackOrWhiteOn(colours.ground);
    colours.line = atLeast(lineContrast, colours.ground, towards);
    colours.mark = atLeast(group == QPalette::Disabled ? leastForControls : leastForText, colours.fill,
                           palette.color(group, QPalette::Text));
    return colours;
}

void drawCheckBox(const QStyleOption &option, QPainter &painter)
{
    const Colours colours = coloursOf(option);
    const QRectF box = QRectF(option.rect).adjusted(1, 1, -1, -1);
    painter.setPen(QPen(colours.line, 1.2));
    painter.setBrush(colours.fill);
    painter.drawRoundedRect(box, 2, 2);
    const auto at = [&](double x, double y) { return box.topLeft() + QPointF(x * box.width(), y * box.height()); };
    painter.setPen(QPen(colours.mark, std::max(1.6, box.width() / 7), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (option.state & QStyle::State_On) {
        const std::array tick {at(0.22, 0.52), at(0.42, 0.72), at(0.78, 0.28)};
        painter.drawPolyline(tick.data(), static_cast<int>(tick.size()));
    } else if (option.state & QStyle::State_NoChange) {
        painter.drawLine(at(0.25, 0.5), at(0.75, 0.5));
    }
}

void drawRadioButton(const QStyleOption &option, QPainter &painter)
{
    const Colours colours = coloursOf(option);
    const QRectF box = QRectF(option.rect).adjusted(1, 1, -1, -1);
    painter.setPen(QPen(colours.line, 1.2));
    painter.setBrush(colours.fill);
    painter.drawEllipse(box);
    if (!(option.state & QStyle::State_On))
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.mark);
    painter.drawEllipse(box.center(), box.width() / 4, box.height() / 4);
}

void drawGroupFrame(const QStyleOption &option, QPainter &painter)
{
    const QColor ground = option.palette.color(QPalette::Window);
    painter.setPen(atLeast(lineContrast, ground, blackOrWhiteOn(ground)));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
}

QPalette::ColorRole groundOf(QPalette::ColorRole text)
{
    switch (text) {
    case QPalette::ButtonText: return QPalette::Button;
    case QPalette::Text: return QPalette::Base;
    case QPalette::HighlightedText: return QPalette::Highlight;
    default: return QPalette::Window;
    }
}

}

QColor atLeast(double wanted, const QColor &ground, const QColor &text)
{
    for (int step = 20; step <= 100; step += 5) {
        const QColor mixed = blend(ground, text, step / 100.0);
        if (contrast(mixed, ground) >= wanted)
            return mixed;
    }
    return blackOrWhiteOn(ground);
}

QColor placeholderOn(const QColor &ground)
{
    return atLeast(leastForText, ground, blend(blackOrWhiteOn(ground), ground, groundPart));
}

void setTextGround(QPalette &palette, const QColor &ground)
{
    palette.setColor(QPalette::Base, ground);
    palette.setColor(QPalette::Text, blackOrWhiteOn(ground));
    palette.setColor(QPalette::PlaceholderText, placeholderOn(ground));
}

LookStyle::LookStyle(const QString &base) : QProxyStyle(base)
{
    m_drawsControls = baseStyle()->name().compare(u"fusion"_s, Qt::CaseInsensitive) == 0;
}

void LookStyle::polish(QPalette &palette)
{
    QProxyStyle::polish(palette);
    palette.setColor(QPalette::PlaceholderText, placeholderOn(palette.color(QPalette::Active, QPalette::Base)));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        const QColor ground = palette.color(QPalette::Disabled, groundOf(role));
        const QColor own = palette.color(QPalette::Disabled, role);
        if (contrast(own, ground) < leastForControls)
            palette.setColor(QPalette::Disabled, role, atLeast(leastForControls, ground, blackOrWhiteOn(ground)));
    }
}

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                              const QWidget *widget) const
{
    const bool isOwn = element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton || element == PE_FrameGroupBox;
    if (!isOwn || !m_drawsControls || !option)
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (element == PE_IndicatorCheckBox)
        drawCheckBox(*option, *painter);
    else if (element == PE_IndicatorRadioButton)
        drawRadioButton(*option, *painter);
    else
        drawGroupFrame(*option, *painter);
    painter->restore();
}

// A screen's own background is not known to the palette of the program, so a disabled label's colour is chosen when it is drawn.
void LookStyle::drawItemText(QPainter *painter, const QRect &place, int flags, const QPalette &palette, bool enabled,
                             const QString &text, QPalette::ColorRole role) const
{
    if (enabled || role == QPalette::NoRole)
        return QProxyStyle::drawItemText(painter, place, flags, palette, enabled, text, role);
    const QColor ground = palette.color(QPalette::Active, groundOf(role)), own = palette.color(QPalette::Disabled, role);
    QPalette readable = palette;
    if (contrast(own, ground) < leastForControls)
        readable.setColor(QPalette::Disabled, role, atLeast(leastForControls, ground, blackOrWhiteOn(ground)));
    QProxyStyle::drawItemText(painter, place, flags, readable, enabled, text, role);
}

}
