#include "frame/framefixture.h"
#include "session/ini.h"
#include "platform/basic/error.h"

using namespace Qt::StringLiterals;

namespace vorel {

using IniTest = test::FrameTest;

TEST_F(IniTest, valuesComeBackOnOneLine)
{
    const std::pair<QString, QString> cases[] = {
        {u"1 High Street\r\nPerth"_s, u"1 High Street  Perth"_s},
        {u"a\nb\rc"_s, u"a b c"_s},
        {u"plain = text"_s, u"plain = text"_s},
    };
    for (auto [value, shown] : cases) {
        PutIniValue(iniSettings, u"EnvelopeReturnAddress"_s, value);
        EXPECT_EQ(value, shown);        // the caller's variable loses its line ends too
        EXPECT_EQ(GetIniValue(iniSettings, u"EnvelopeReturnAddress"_s, {}), shown);
    }
    EXPECT_EQ(GetIniValue(iniFeatures, u"EnvelopeReturnAddress"_s, u"other section"_s), u"other section"_s);
}

TEST_F(IniTest, valueThatCannotBeWrittenIsAnError)
{
    state().gIniFile = folder.path(u"missing/folder/vorelreminder.ini"_s);
    try {
        PutIniValue(iniSettings, u"Key"_s, u"1"_s);
        FAIL() << "written into a missing folder";
    } catch (const basic::Error &error) {
        EXPECT_TRUE(error.text().contains(u"vorelreminder.ini"_s)) << error.text();
    }
}

TEST_F(IniTest, booleansAndNumbersInText)
{
    for (const QString &text : {u"True"_s, u"true"_s, u"TRUE"_s, u"1"_s, u"-1"_s})
        EXPECT_TRUE(iniBoolean(text)) << text;
    for (const QString &text : {u"False"_s, u"0"_s, u""_s, u"yes"_s, u"50.5%"_s})
        EXPECT_FALSE(iniBoolean(text)) << text;
    const std::pair<QString, int> numbers[] = {{u"3"_s, 3},        {u"2.5"_s, 2},        {u" 7 days"_s, 7}, {u"x"_s, 0},
                                               {u"99999"_s, 32767}, {u"-99999"_s, -32768}, {u"50.5%"_s, 0}};
    for (const auto &[text, number] : numbers)
        EXPECT_EQ(iniInteger(text), number) << text;
}

TEST_F(IniTest, coloursPassThroughTheLabel)
{
    const struct { QByteArray stored; quint32 colour; } cases[] = {
        {"255", 0xFF},
        {"&HC0C0FF", 0xC0C0FF},
        {"&HFFFF&", 0xFFFF},
        {"-2147483633", 0x8000000F},        // a system colour
        {"0", 0},
        {"16777216", 0x123456},             // more than a colour: the default
        {"-1", 0x123456},
        {"mauve", 0x123456},
        {"16777215", 0xFFFFFF},
        {"99999999999999999999", 0x123456},
    };
    for (const auto &c : cases) {
        folder.write(u"vorelreminder.ini"_s, "[Settings]\nBooksGridColour=" + c.stored + "\n");
        EXPECT_EQ(GetIniColour(u"BooksGridColour"_s, 0x123456), c.colour) << c.stored.constData();
    }
    EXPECT_EQ(GetIniColour(u"MoviesGridColour"_s, 0x123456), 0x123456u);
}

}
