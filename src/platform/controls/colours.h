#pragma once

#include <QColor>
#include <QPalette>

// Colours that a user chose for one palette, kept readable in any.
namespace vorel::controls {

// Between 1 (the same) and 21 (black on white).
double contrast(const QColor &first, const QColor &second);
// Black or white, whichever reads better on the colour.
QColor blackOrWhiteOn(const QColor &back);
// The fore colour itself where it can be read on the back; else the better of black and white.
QColor readable(const QColor &fore, const QColor &back);
// Part of the way from one colour to the other, 0..1.
QColor blend(const QColor &from, const QColor &to, double part);
// A thin line that parts without shouting.
QColor hairline(const QPalette &palette);

}
