#include "platform/basic/clock.h"

#include "platform/basic/calendar.h"
#include <random>

namespace vorel::basic {

namespace {

std::function<QDateTime()> &source()
{
    static std::function<QDateTime()> clock;
    return clock;
}

std::mt19937 &generator()
{
    static std::mt19937 engine{std::random_device{}()};
    return engine;
}

}

DateTime Now()
{
    return DateTime::fromQDateTime(source() ? source()() : QDateTime::currentDateTime());
}

DateTime Date()
{
    return Now().dayOnly();
}

DateTime Time()
{
    return detail::serialOf(0, detail::momentOf(Now()).seconds);
}

void setClock(std::function<QDateTime()> clock)
{
    source() = std::move(clock);
}

double Rnd()
{
    return static_cast<double>(generator()() & 0xFFFFFFFFU) / 4294967296.0;
}

void setRandomSeed(quint32 seed)
{
    generator().seed(seed);
}

}
