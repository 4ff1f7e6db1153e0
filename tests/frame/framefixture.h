#pragma once

#include "frame/startup.h"
#include "platform/basic/locale.h"
#include "session/state.h"
#include "support/testfolder.h"

#include <ostream>

namespace vorel::test {

// A program folder, a clock, a fresh state, and regional settings that the test may exchange.
class FrameTest : public ::testing::Test {
protected:
    FrameTest() { use(QStringLiteral("en_AU")); }
    ~FrameTest() override
    {
        state() = State{};
        basic::setRegional(m_before);
    }
    // A program that has just started on a machine with these settings.
    void use(const QString &locale)
    {
        basic::setRegional(basic::regionalFor(locale));
        state() = State{};
        state().gIniFile = folder.path(QStringLiteral("vorelreminder.ini"));
        DetectDateOrder();
    }

    TestFolder folder;
    TestClock clock;

private:
    basic::Regional m_before = basic::regional();
};

}

// Texts in the messages of failed tests.
inline std::ostream &operator<<(std::ostream &out, const QString &text)
{
    return out << '"' << text.toStdString() << '"';
}
