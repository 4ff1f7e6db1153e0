#pragma once

#include "platform/basic/clock.h"
#include "platform/basic/error.h"
#include "platform/basic/locale.h"
#include <gtest/gtest.h>

#include <QDateTime>

// A failure shows texts and dates readably.
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(QStringView text, std::ostream *out)
{
    PrintTo(text.toString(), out);
}

namespace vorel::basic {

inline void PrintTo(const DateTime &date, std::ostream *out)
{
    *out << date.toStored().toStdString();
}

// The number of the error that a step ends with, 0 if it passes.
template <class Step>
int errorOf(Step &&step)
{
    return IgnoreErrors([&] { step(); });
}

// Each case begins on an American machine at a known moment.
class BasicTest : public ::testing::Test {
protected:
    void SetUp() override { setRegional(regionalFor(QStringLiteral("en_US"))); }
    void TearDown() override
    {
        setRegional(regionalFor(QStringLiteral("en_US")));
        setClock({});
    }
    static void stopClock(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
    {
        const QDateTime moment(QDate(year, month, day), QTime(hour, minute, second, 900));
        setClock([moment] { return moment; });
    }
};

}
