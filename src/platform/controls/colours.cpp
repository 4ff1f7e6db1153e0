#include "platform/controls/colours.h"

#include <algorithm>
#include <cmath>

namespace vorel::controls {

namespace {

constexpr double readableContrast = 3.0;    // the least for large text: colours the user chose are changed no more than that

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &c)
{
    return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
}

}

double contrast(const QColor &first, const QColor &second)
{
    const double a = luminance(first), b = luminance(second);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor blackOrWhiteOn(const QColor &back)
{
    return contrast(Qt::black, back) >= contrast(Qt::white, back) ? QColor(Qt::black) : QColor(Qt::white);
}

QColor readable(const QColor &fore, const QColor &back)
{
    return contrast(fore, back) >= readableContrast ? fore : blackOrWhiteOn(back);
}

QColor blend(const QColor &from, const QColor &to, double part)
{
    const auto mix = [part](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * part)); };
    return QColor(mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue()));
}

QColor hairline(const QPalette &palette)
{
    return blend(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.12);
}

}
