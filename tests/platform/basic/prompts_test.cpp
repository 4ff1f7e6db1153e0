#include "platform/basic/error.h"
#include "platform/basic/prompts.h"
#include "support.h"

#include <stdexcept>

using namespace vorel::basic;
using namespace Qt::StringLiterals;

namespace {

// Notes what was shown and gives the answer that it was told to.
class Recorder : public Prompts {
public:
    Recorder() { setPrompts(this); }
    ~Recorder() override { setPrompts(nullptr); }
    Recorder(const Recorder &) = delete;
    Recorder &operator=(const Recorder &) = delete;

    Answer message(const QString &text, const QString &title, Buttons buttons, Icon) override
    {
        shown << title + u'|' + text;
        lastButtons = buttons;
        return answer;
    }
    QString input(const QString &text, const QString &title, const QString &initial) override
    {
        shown << title + u'|' + text;
        return initial + u"!"_s;
    }
    std::optional<QString> chooseFile(const FileQuestion &) override { return std::nullopt; }
    std::optional<quint32> chooseColour(quint32) override { return std::nullopt; }
    std::optional<QString> chooseFolder(const QString &, const QString &) override { return std::nullopt; }

    QStringList shown;
    Buttons lastButtons = Buttons::OkCancel;
    Answer answer = Answer::Ok;
};

TEST(PromptsTest, WithoutAScreenNothingIsAgreedTo)
{
    ::testing::internal::CaptureStderr();
    Prompts &silent = prompts();
    const struct {
        Buttons buttons;
        Answer answer;
    } cases[] = {
        {Buttons::Ok, Answer::Ok}, {Buttons::OkCancel, Answer::Cancel}, {Buttons::YesNo, Answer::No},
        {Buttons::YesNoCancel, Answer::Cancel}, {Buttons::RetryCancel, Answer::Cancel},
    };
    for (const auto &c : cases)
        EXPECT_EQ(silent.message(u"Delete all?"_s, u"T"_s, c.buttons, Icon::Question), c.answer);
    EXPECT_FALSE(AskYesNo(u"Sure?"_s));
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
    Recorder recorder;
    MsgBox(u"a"_s);
    MsgBox(u"b"_s, u"Own"_s);
    recorder.answer = Answer::Yes;
    EXPECT_TRUE(AskYesNo(u"c"_s));
    EXPECT_EQ(recorder.lastButtons, Buttons::YesNo);
    recorder.answer = Answer::Cancel;
    EXPECT_FALSE(AskYesNo(u"d"_s));
    const QString before = applicationTitle();
    setApplicationTitle(u"Other"_s);
    EXPECT_EQ(InputBox(u"e"_s, {}, u"x"_s), u"x!"_s);
    setApplicationTitle(before);
    EXPECT_EQ(recorder.shown, QStringList({u"Vorel Reminder|a"_s, u"Own|b"_s, u"Vorel Reminder|c"_s,
                                           u"Vorel Reminder|d"_s, u"Other|e"_s}));
}

TEST(PromptsTest, TrapShowsWhatFailed)
{
    Recorder recorder;
    EXPECT_TRUE(Trap([] {}));
    EXPECT_TRUE(recorder.shown.isEmpty());
    EXPECT_FALSE(Trap([] { throw BasicError(13); }));
    EXPECT_FALSE(Trap([] { throw Error(3022, u"Doppelt – schon da"_s); }));
    EXPECT_FALSE(Trap([] { throw std::runtime_error("disk on fire"); }));
    EXPECT_EQ(recorder.shown, QStringList({u"Vorel Reminder|Type mismatch"_s, u"Vorel Reminder|Doppelt – schon da"_s,
                                           u"Vorel Reminder|disk on fire"_s}));
    EXPECT_EQ(recorder.lastButtons, Buttons::Ok);
}

TEST(PromptsTest, IgnoredErrorsTellTheirNumberOnly)
{
    Recorder recorder;
    EXPECT_EQ(IgnoreErrors([] {}), 0);
    EXPECT_EQ(IgnoreErrors([] { throw BasicError(94); }), 94);
    EXPECT_EQ(IgnoreErrors([] { throw Error(3265, {}); }), 3265);
    EXPECT_EQ(IgnoreErrors([] { throw std::runtime_error("x"); }), -1);
    EXPECT_TRUE(recorder.shown.isEmpty());
    EXPECT_THROW(IgnoreErrors([] { throw 1; }), int);
}

TEST(PromptsTest, ErrorsCarryTheirText)
{
    EXPECT_EQ(BasicError(94).text(), u"Invalid use of Null"_s);
    EXPECT_STREQ(BasicError(11).what(), "Division by zero");
    EXPECT_EQ(BasicError(7777).text(), u"Application-defined or object-defined error"_s);
}

}
