#include "frame/framefixture.h"
#include "session/ini.h"
#include "platform/basic/error.h"
#include "support/table.h"

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
    test::forEachRow("ini", "numbers", [](const test::Row &row) { EXPECT_EQ(iniInteger(row["text"]), row.number("number")); });
}

TEST_F(IniTest, coloursPassThroughTheLabel)
{
    // What is no colour, or more than one, is the default.
    test::forEachRow("ini", "colours", [this](const test::Row &row) {
        folder.write(u"vorelreminder.ini"_s, "[Settings]\nBooksGridColour=" + row.bytes("stored") + "\n");
        EXPECT_EQ(GetIniColour(u"BooksGridColour"_s, 0x123456), row["colour"].toUInt());
    });
    EXPECT_EQ(GetIniColour(u"MoviesGridColour"_s, 0x123456), 0x123456u);
}

}
