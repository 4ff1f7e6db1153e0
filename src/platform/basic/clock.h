#pragma once

#include "platform/basic/value.h"
#include <functional>

// The one place that is asked for the time and for chance. A test sets both.
namespace vorel::basic {

DateTime Now();
DateTime Date();        // today at midnight
DateTime Time();        // the time of day on day 0
void setClock(std::function<QDateTime()> clock);    // empty: the machine's clock again
double Rnd();           // 0 <= x < 1
void setRandomSeed(quint32 seed);

}
