#include "platform/printer/metrics.h"
#include "platform/basic/colournumber.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

namespace vorel::printer {

namespace {

constexpr double hairline = 8;          // twips on paper; on the screen never below one pixel
constexpr double farOutside = 1e6;      // twips; a script may name any place, the painter need not go there

double held(double twips)
{
    return std::isnan(twips) ? 0 : std::clamp(twips, -farOutside, farOutside);
}

QColor colourOf(quint32 number)
{
    if (number & 0x80000000u)
        return Qt::black;               // colours of the desktop's palette mean nothing on paper
    return basic::colourOfNumber(number);
}

// Lines and boxes along the page's edges are drawn on whole pixels, everything else is smoothed.
class Smoothing {
public:
    Smoothing(QPainter *painter, bool on) : m_painter(painter), m_before(painter->testRenderHint(QPainter::Antialiasing))
    {
        painter->setRenderHint(QPainter::Antialiasing, on);
    }
    ~Smoothing() { m_painter->setRenderHint(QPainter::Antialiasing, m_before); }
    Smoothing(const Smoothing &) = delete;
    Smoothing &operator=(const Smoothing &) = delete;
private:
    QPainter *m_painter;
    bool m_before;
};

}

void Page::drawOn(QPainter *painter, double pixelsPerTwip)
{
    m_painter = painter;
    m_pixelsPerTwip = pixelsPerTwip;
    if (!painter)
        return;
    painter->resetTransform();
    painter->scale(pixelsPerTwip, pixelsPerTwip);
    painter->translate(borderX(), borderY());
    painter->setRenderHints(QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    painter->setLayoutDirection(Qt::LeftToRight);
}

std::optional<quint32> Page::modeColour(quint32 colour) const
{
    switch (DrawMode) {
    case 1:
        return 0u;
    case 11:
        return std::nullopt;
    case 16:
        return 0xFFFFFFu;
    default:
        return colour;
    }
}

QPen Page::pen(quint32 colour) const
{
    static constexpr std::array styles{Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen};
    QPen result(colourOf(colour));
    result.setStyle(DrawStyle >= 0 && DrawStyle < 6 ? styles[static_cast<std::size_t>(DrawStyle)] : Qt::SolidLine);
    result.setWidthF(std::max(hairline, 1 / m_pixelsPerTwip) * std::clamp(DrawWidth, 1, 100));
    result.setCapStyle(Qt::FlatCap);
    result.setJoinStyle(Qt::MiterJoin);
    return result;
}

void Page::Print(const QString &text)
{
    QPainter *painter = surface();
    const std::optional<quint32> colour = modeColour(m_foreColor);
    if (!painter || !colour || text.isEmpty())
        return;
    const Metrics &font = metrics();
    const double scale = m_fontSize * twipsPerPoint / referencePixels;
    painter->save();
    painter->translate(held(m_penX), held(m_penY));
    painter->scale(scale, scale);
    QFont drawn = font.font;
    drawn.setUnderline(m_underline);
    painter->setFont(drawn);
    painter->setPen(colourOf(*colour));
    painter->drawText(QPointF(0, font.measure.ascent()), text);
    painter->restore();
}

void Page::Line(double x1, double y1, double x2, double y2, std::optional<quint32> colour, LineShape shape)
{
    const QPointF from(held(x1 * m_unitX), held(y1 * m_unitY));
    const QPointF to(held(x2 * m_unitX), held(y2 * m_unitY));
    setCurrentX(x2);
    setCurrentY(y2);
    QPainter *painter = surface();
    const std::optional<quint32> drawn = modeColour(colour.value_or(m_foreColor));
    if (!painter || !drawn)
        return;
    const Smoothing smoothing(painter, shape == LineShape::Line && from.x() != to.x() && from.y() != to.y());
    painter->setPen(pen(*drawn));
    if (shape == LineShape::Line) {
        painter->drawLine(from, to);
        return;
    }
    painter->setBrush(Qt::NoBrush);
    if (shape == LineShape::FilledBox)
        painter->setBrush(colourOf(*drawn));
    else if (FillStyle == 0)
        painter->setBrush(colourOf(FillColor));
    painter->drawRect(QRectF(from, to).normalized());
}

void Page::Circle(double x, double y, double radius, std::optional<quint32> colour)
{
    setCurrentX(x);
    setCurrentY(y);
    QPainter *painter = surface();
    const std::optional<quint32> drawn = modeColour(colour.value_or(m_foreColor));
    if (!painter || !drawn)
        return;
    const Smoothing smoothing(painter, true);
    painter->setPen(pen(*drawn));
    painter->setBrush(FillStyle == 0 ? QBrush(colourOf(FillColor)) : QBrush(Qt::NoBrush));
    const double twips = std::abs(held(radius * m_unitX));
    painter->drawEllipse(QPointF(held(x * m_unitX), held(y * m_unitY)), twips, twips);
}

void Page::PaintPicture(const QImage &picture, double x, double y, double width, double height)
{
    QPainter *painter = surface();
    if (!painter || picture.isNull())
        return;
    const bool isNatural = width <= 0 || height <= 0;
    const double across = isNatural ? picture.width() * twipsPerPixel : held(width * m_unitX);
    const double down = isNatural ? picture.height() * twipsPerPixel : held(height * m_unitY);
    painter->drawImage(QRectF(held(x * m_unitX), held(y * m_unitY), across, down), picture);
}

}
