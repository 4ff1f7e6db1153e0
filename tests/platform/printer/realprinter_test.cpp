#include "platform/printer/realprinter.h"

#include <gtest/gtest.h>

namespace vorel::printer {

using namespace Qt::StringLiterals;

TEST(RealPrinter, OneThatIsNotThereIsNone)
{
    EXPECT_EQ(desktopPrinter(u"no such printer"_s), nullptr);
}

// Whatever is set up on the machine: its page can be measured, and is asked for no paper.
TEST(RealPrinter, DefaultHasAPage)
{
    const std::shared_ptr<Hardware> hardware = desktopPrinter({});
    Printer printer(hardware);
    EXPECT_EQ(printer.hasHardware(), hardware != nullptr);
    EXPECT_GT(printer.ScaleWidth(), 1440);
    EXPECT_GT(printer.ScaleHeight(), 1440);
    EXPECT_LT(printer.ScaleWidth(), printer.Width());
}

}
