#include "platform/basic/error.h"
#include "platform/basic/prompts.h"
#include "support.h"
#include "support/scriptedprompts.h"

#include <stdexcept>

using namespace vorel::basic;
using namespace Qt::StringLiterals;

namespace {

// What was shown, with its title.
QStringList shownBy(const vorel::test::ScriptedPrompts &user)
{
    QStringList lines;
    for (const auto &one : user.shown())
        lines << one.title + u'|' + one.text;
    return lines;
}

TEST(PromptsTest, WithoutAScreenNothingIsAgreedTo)
{
    ::testing::internal::CaptureStderr();
    Prompts &silent = prompts();
    const struct { Buttons buttons; Answer answer; } cases[] = {
        {Buttons::Ok, Answer::Ok}, {Buttons::OkCancel, Answer::Cancel}, {Buttons::YesNo, Answer::No},
        {Buttons::YesNoCancel, Answer::Cancel}, {Buttons::RetryCancel, Answer::Cancel},
    };
    for (const auto &c : cases)
        EXPECT_EQ(silent.message(u"Delete all?"_s, u"T"_s, c.buttons, Icon::Question), c.answer);
    EXPECT_FALSE(askYesNo(u"Sure?"_s));
    EXPECT_EQ(InputBox(u"Name?"_s, {}, u"me"_s), QString());
    EXPECT_FALSE(silent.chooseFile({}).has_value());
    EXPECT_FALSE(silent.chooseFolder({}, {}).has_value());
    EXPECT_FALSE(silent.chooseColour(0).has_value());
    MsgBox(u"Gone wrong"_s);
    const std::string printed = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(printed.find("Vorel Reminder: Gone wrong"), std::string::npos) << printed;
}

TEST(PromptsTest, AnEmptyTitleIsTheProducts)
{
    vorel::test::ScriptedPrompts user;
    user.expect(u"a"_s);
    user.expect(u"b"_s);
    user.expect(u"c"_s, Answer::Yes);
    user.expect(u"d"_s, Answer::No);
    user.expectInput(u"e"_s, u"x!"_s);
    MsgBox(u"a"_s);
    MsgBox(u"b"_s, u"Own"_s);
    EXPECT_TRUE(askYesNo(u"c"_s));
    EXPECT_FALSE(askYesNo(u"d"_s));
    const QString before = applicationTitle();
    setApplicationTitle(u"Other"_s);
    EXPECT_EQ(InputBox(u"e"_s, {}, u"x"_s), u"x!"_s);
    setApplicationTitle(before);
    EXPECT_EQ(shownBy(user), QStringList({u"Vorel Reminder|a"_s, u"Own|b"_s, u"Vorel Reminder|c"_s, u"Vorel Reminder|d"_s,
                                          u"Other|e"_s}));
    EXPECT_EQ(user.shown()[2].buttons, Buttons::YesNo);
}

TEST(PromptsTest, TrapShowsWhatFailed)
{
    vorel::test::ScriptedPrompts user;
    EXPECT_TRUE(Trap([] {}));
    EXPECT_TRUE(user.shown().empty());
    for (const QString &text : {u"Type mismatch"_s, u"Doppelt – schon da"_s, u"disk on fire"_s})
        user.expect(text);
    EXPECT_FALSE(Trap([] { throw BasicError(13); }));
    EXPECT_FALSE(Trap([] { throw Error(3022, u"Doppelt – schon da"_s); }));
    EXPECT_FALSE(Trap([] { throw std::runtime_error("disk on fire"); }));
    EXPECT_EQ(shownBy(user), QStringList({u"Vorel Reminder|Type mismatch"_s, u"Vorel Reminder|Doppelt – schon da"_s,
                                          u"Vorel Reminder|disk on fire"_s}));
    EXPECT_EQ(user.shown().back().buttons, Buttons::Ok);
}

TEST(PromptsTest, IgnoredErrorsTellTheirNumberOnly)
{
    const vorel::test::ScriptedPrompts user;
    EXPECT_EQ(IgnoreErrors([] {}), 0);
    EXPECT_EQ(IgnoreErrors([] { throw BasicError(94); }), 94);
    EXPECT_EQ(IgnoreErrors([] { throw Error(3265, {}); }), 3265);
    EXPECT_THROW(IgnoreErrors([] { throw std::bad_alloc(); }), std::bad_alloc);     // no failure that is expected
    EXPECT_TRUE(user.shown().empty());
    EXPECT_THROW(IgnoreErrors([] { throw 1; }), int);
}

TEST(PromptsTest, ErrorsCarryTheirText)
{
    EXPECT_EQ(BasicError(94).text(), u"Invalid use of Null"_s);
    EXPECT_STREQ(BasicError(11).what(), "Division by zero");
    EXPECT_EQ(BasicError(7777).text(), u"Application-defined or object-defined error"_s);
}

}
