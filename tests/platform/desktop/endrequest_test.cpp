#include "platform/desktop/endrequest.h"

#include <QCoreApplication>
#include <QTest>
#include <csignal>
#include <gtest/gtest.h>

namespace vorel::desktop {

TEST(EndRequests, SignalsOfTheSystemArriveOnTheMessageLoop)
{
    EndRequest request;
    int asked = 0;
    QObject::connect(&request, &EndRequest::Requested, &request, [&] { ++asked; });
    for (const int number : {SIGTERM, SIGHUP}) {
        asked = 0;
        ::raise(number);
        EXPECT_EQ(asked, 0) << "not within the signal handler";
        EXPECT_TRUE(QTest::qWaitFor([&] { return asked == 1; })) << number;
    }
}

}
