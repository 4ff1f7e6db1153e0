#include "frame/framefixture.h"
#include "frame/gridlayout.h"
#include "session/ini.h"

using namespace Qt::StringLiterals;

namespace vorel {

class GridLayoutTest : public test::FrameTest {
protected:
    QString stored(const QString &key) { return GetIniValue(iniSettings, key, u"(none)"_s); }
    GridLayout restarted()
    {
        GridLayout layout;
        LoadGridSettings(layout);
        return layout;
    }
};

TEST_F(GridLayoutTest, defaultsOfAFreshFile)
{
    const GridLayout layout = restarted();
    EXPECT_EQ(layout.width(u"EVENTS"_s, 4), 3300);
    EXPECT_EQ(layout.width(u"PHONE"_s, 7), 1200);
    EXPECT_EQ(layout.width(u"PHONE"_s, 8), 0);
    EXPECT_EQ(layout.width(u"NOWHERE"_s, 1), 0);
    EXPECT_EQ(layout.rowHeight(u"BUSINESS"_s), 270);
    EXPECT_EQ(layout.defaultColour, u"16777215"_s);
    EXPECT_EQ(layout.editColour, u"65535"_s);
    EXPECT_EQ(layout.fontName, u"Arial"_s);
    EXPECT_EQ(stored(u"GridFontName"_s), u"(none)"_s);      // reading a fresh file writes nothing
    EXPECT_EQ(stored(u"BOOKSCOL1WIDTH"_s), u"(none)"_s);
}

TEST_F(GridLayoutTest, widthsAndHeightsSurviveARestart)
{
    GridLayout layout = restarted();
    layout.setWidth(u"BOOKS"_s, 3, 1234);
    layout.setWidth(u"APPS"_s, 4, 1300.5);
    layout.setRowHeight(u"BUSINESS"_s, 300);
    layout.setRowHeight(u"CHRISTMAS"_s, 310);
    layout.setRowHeight(u"VEHICLE"_s, 320);
    SaveGridSettings(layout, 290);
    EXPECT_EQ(stored(u"APPSCOL4WIDTH"_s), u"1300.5"_s);
    EXPECT_EQ(stored(u"BUSCATSROWHEIGHT"_s), u"300"_s);
    EXPECT_EQ(stored(u"CARDSROWHEIGHT"_s), u"310"_s);
    EXPECT_EQ(stored(u"BUSINESSROWHEIGHT"_s), u"(none)"_s);
    EXPECT_EQ(stored(u"SUBJECTSROWHEIGHT"_s), u"290"_s);
    const GridLayout again = restarted();
    for (const GridWord &row : gridWords()) {
        for (int column = 1; column <= static_cast<int>(row.widths.size()); ++column)
            EXPECT_EQ(again.width(row.word, column), layout.width(row.word, column)) << row.word << column;
        EXPECT_EQ(again.rowHeight(row.word), layout.rowHeight(row.word)) << row.word;
    }
}

TEST_F(GridLayoutTest, keysThatReaderAndWriterDoNotShare)
{
    GridLayout layout = restarted();
    for (const auto &[word, column] : {std::pair{u"MUSIC"_s, 1}, {u"GARDEN"_s, 3}, {u"RECIPE"_s, 3}, {u"HEALTH"_s, 2}})
        layout.setWidth(word, column, 777);
    SaveGridSettings(layout, 270);
    EXPECT_EQ(stored(u"MUSICSCOL1WIDTH"_s), u"777"_s);
    EXPECT_EQ(stored(u"MUSICCOL1WIDTH"_s), u"(none)"_s);
    EXPECT_EQ(stored(u"GARDENCOL3WIDTH"_s), u"(none)"_s);
    EXPECT_EQ(stored(u"RECIPECOL3WIDTH"_s), u"(none)"_s);
    EXPECT_EQ(stored(u"HEALTHCOL2WIDTH"_s), u"777"_s);
    const GridLayout again = restarted();
    EXPECT_EQ(again.width(u"MUSIC"_s, 1), 2000);
    EXPECT_EQ(again.width(u"GARDEN"_s, 3), 1000);
    EXPECT_NE(again.width(u"HEALTH"_s, 2), 777);
    // A file that has them is read.
    folder.write(u"vorelreminder.ini"_s, "[Settings]\nMUSICCOL1WIDTH=888\nGARDENCOL3WIDTH=889\n");
    EXPECT_EQ(restarted().width(u"MUSIC"_s, 1), 888);
    EXPECT_EQ(restarted().width(u"GARDEN"_s, 3), 889);
}

TEST_F(GridLayoutTest, damagedValues)
{
    folder.write(u"vorelreminder.ini"_s,
                 "[Settings]\nBOOKSCOL1WIDTH=wide\nBOOKSCOL2WIDTH=-5\nBOOKSCOL3WIDTH=99999999\nBOOKSROWHEIGHT=\n"
                 "GridFontSize=10.6\nDefaultColour=none\nSetupPicture=/nowhere/picture.jpg\n");
    const GridLayout layout = restarted();
    EXPECT_EQ(layout.width(u"BOOKS"_s, 1), 2000);
    EXPECT_EQ(layout.width(u"BOOKS"_s, 2), 0);
    EXPECT_EQ(layout.width(u"BOOKS"_s, 3), 32767);
    EXPECT_EQ(layout.rowHeight(u"BOOKS"_s), 270);
    EXPECT_EQ(layout.fontSize, 11);
    EXPECT_EQ(stored(u"GridFontSize"_s), u"11"_s);
    EXPECT_EQ(layout.setupPicture, QString());
    const QString picture = folder.write(u"behind.jpg"_s, "");
    folder.write(u"vorelreminder.ini"_s, "[Settings]\nSetupPicture=/gone/behind.jpg\n");
    EXPECT_EQ(restarted().setupPicture, picture) << "written before the folder moved";
    folder.write(u"vorelreminder.ini"_s, "[Settings]\nGridFontSize=-3\n");
    EXPECT_EQ(restarted().fontSize, 9);
}

TEST_F(GridLayoutTest, coloursOfTheGrids)
{
    folder.write(u"vorelreminder.ini"_s, "[Settings]\nBooksGridColour=255\nEditColour=128\n");
    GridLayout layout = restarted();
    EXPECT_EQ(layout.colours.size(), 18u);
    EXPECT_EQ(layout.colours[u"BooksGridColour"_s], 255u);
    EXPECT_EQ(layout.editColour, u"128"_s);
    layout.colours[u"MoviesGridColour"_s] = 512;
    SaveGridSettings(layout, 270);
    EXPECT_EQ(restarted().colours[u"MoviesGridColour"_s], 512u);
    EXPECT_EQ(restarted().colours[u"BooksGridColour"_s], 255u);
}

TEST_F(GridLayoutTest, rowHeightsGoToTheSectionOnShow)
{
    const RowHeights heights{101, 102, 103, 104};
    const struct { QString code; std::map<QString, std::int16_t> changed; } cases[] = {
        {u"All"_s, {{u"APPS"_s, 101}, {u"BILLS"_s, 102}, {u"EVENTS"_s, 103}}},
        {u"A"_s, {{u"APPS"_s, 101}}},
        {u"B"_s, {{u"BILLS"_s, 102}}},
        {u"E"_s, {{u"EVENTS"_s, 103}}},
        {u"K"_s, {{u"BOOKS"_s, 104}}},
        {u"D"_s, {{u"BUSINESS"_s, 104}}},
        {u"MV"_s, {{u"VEHICLE"_s, 104}}},
        {u"AB"_s, {}},
        {{}, {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.code.toStdString());
        GridLayout layout;
        state().selection.gSection = c.code;
        UpdateRowHeight(layout, heights);
        for (const GridWord &row : gridWords()) {
            const auto found = c.changed.find(row.word);
            EXPECT_EQ(layout.rowHeight(row.word), found == c.changed.end() ? 270 : found->second) << row.word;
        }
    }
}

}
