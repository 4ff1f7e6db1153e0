#pragma once

#include <QColor>

// A colour's number as settings and print scripts keep it: blue, green and red from the highest byte down. What lies above
// 24 bits does not count.
namespace vorel::basic {

inline QColor colourOfNumber(quint32 number)
{
    return QColor(static_cast<int>(number & 0xFF), static_cast<int>(number >> 8 & 0xFF), static_cast<int>(number >> 16 & 0xFF));
}

inline quint32 numberOfColour(const QColor &colour)
{
    return static_cast<quint32>(colour.red() | colour.green() << 8 | colour.blue() << 16);
}

}
