#include "print/lists.h"

#include "platform/basic/error.h"
#include "print/listwriter.h"
#include "print/printfixture.h"
#include "print/scriptfile.h"
#include "session/datafiles.h"
#include "support/table.h"

#include <QRegularExpression>

namespace vorel {

using namespace Qt::StringLiterals;

class Lists : public test::PrintTest {
protected:
    Lists()
    {
        for (const DataFileEntry &entry : dataFiles())
            state().path(entry.file) = m_folder.path(entry.defaultName.mid(1));
        test::putEmptyFiles(m_folder.path());
        state().settings.gUserName = u"Ann"_s;
        state().period.gSqlAppointments = u"select * from [APPOINTMENTS] ORDER BY [DATE],[APPTIME],[APPOINTMENT]"_s;
        state().period.gSqlBills = u"select * from [BILLS] ORDER BY [DATE],[BILL],[AMOUNT]"_s;
        state().period.gSqlEvents = u"select * from [EVENTS] ORDER BY [DATE],[SUBJECT],[EVENT]"_s;
    }
    static void put(DataFile file, const QStringList &statements)
    {
        dao::Database database = openDataFile(file);
        dao::Transaction all(database);
        for (const QString &sql : statements)
            database.Execute(sql);
        all.Commit();
        database.Close();
    }
    // The same row so many times: "%1" in it is its number, 001 and up.
    static void putMany(DataFile file, const QString &sql, int count)
    {
        QStringList statements;
        for (int row = 1; row <= count; ++row)
            statements << sql.arg(row, 3, 10, QChar(u'0'));
        put(file, statements);
    }
    static QHash<QString, DataFile> files()
    {
        using F = DataFile;
        return {{u"Main"_s, F::Main}, {u"Contacts"_s, F::Contacts}, {u"DataP"_s, F::DataP}, {u"DataJ"_s, F::DataJ}, {u"Books"_s, F::Books},
                {u"Movies"_s, F::Movies}, {u"Music"_s, F::Music}, {u"Notes"_s, F::Notes}};
    }
    static std::function<void()> list(const QString &code)
    {
        const QString query = code == u"A" ? state().period.gSqlAppointments : code == u"B" ? state().period.gSqlBills
                            : code == u"E" ? state().period.gSqlEvents : QString();
        return [code, query] { EXPECT_TRUE(printSectionList(code, query)) << qPrintable(code); };
    }
    void answerShopping(const QString &code)
    {
        if (code == u"H")
            m_prompts.expect(u"Do you want to print preview the list by Store and Item Alphabetically?"_s, basic::Answer::No);
    }
    static void expectShape(const QStringList &script, const QString &shape, const QString &what)
    {
        const QStringList figures = shape.split(u' ');
        printer::Page page(printer::Printer().paper());
        page.setOrientation(figures[0].toInt());
        EXPECT_EQ(script.filter(u"ORIENTATION"_s).value(0), u"ORIENTATION = "_s + figures[0]) << qPrintable(what);
        const auto row = script.indexOf(script.filter(QRegularExpression(u"PRINT.*\"Row"_s)).value(0));
        EXPECT_EQ(parseSetting(script.mid(0, row).filter(u"FONTSIZE"_s).last()), figures[1].toDouble()) << qPrintable(what);
        QList<double> places;
        for (const QString &line : script.filter(QRegularExpression(u"^[LR]PRINT"_s)))
            places << parseTextLine(line, {}).x;
        for (const QString &percent : figures.mid(2))
            EXPECT_TRUE(places.contains(std::floor(percent.toDouble() / 100 * page.ScaleWidth()))) << qPrintable(what + percent);
    }
    // Nothing of a script lies outside the page, and no two texts of a line cover each other.
    static void expectTidy(const QStringList &script, const QString &what)
    {
        printer::Page page(printer::Printer().paper());
        std::map<double, std::vector<std::pair<double, double>>> taken;
        for (const QString &line : script) {
            const QString word = FirstWord(line);
            if (word == u"NEWPAGE")
                taken.clear();
            else if (word == u"FONTNAME")
                page.setFontName(parseQuoted(line));
            else if (word == u"FONTSIZE")
                page.setFontSize(parseSetting(line));
            else if (word == u"FONTBOLD")
                page.setFontBold(line.endsWith(u"TRUE"_s));
            else if (word == u"ORIENTATION")
                page.setOrientation(static_cast<int>(parseSetting(line)));
            if (!word.endsWith(u"PRINT"_s))
                continue;
            const TextLine text = parseTextLine(line, {});
            const double width = page.TextWidth(text.text);
            const double left = text.x - (word == u"RPRINT" ? width : word == u"CPRINT" ? width / 2 : 0);
            EXPECT_GE(left, -1) << qPrintable(what + line.left(80));
            EXPECT_LE(left + width, page.ScaleWidth() + 1) << qPrintable(what + line.left(80));
            EXPECT_LE(text.y + page.TextHeight(u"A"_s), page.ScaleHeight() + 1) << qPrintable(what + line.left(80));
            for (const auto &[from, to] : taken[text.y])
                EXPECT_TRUE(left >= to || left + width <= from) << qPrintable(what + line.left(80));
            taken[text.y].emplace_back(left, left + width);
        }
    }
};

// The shape is the orientation, the size of the body and the columns' places in hundredths of the width; "%1" in the statement that
// adds a row is its number.
TEST_F(Lists, EachOneShowsItsRowsPageByPage)
{
    test::forEachRow("lists", "lists", [this](const test::Row &one) {
        const QString code = one["code"];
        const int rowLimit = one.number("rowLimit");
        putMany(files().value(one["file"]), one["insert"], rowLimit + 1);
        answerShopping(code);
        const QStringList read = pages(list(code));
        ASSERT_EQ(read.size(), 2) << qPrintable(code);
        EXPECT_EQ(read[0].count(u"Row"_s), rowLimit) << qPrintable(code);
        EXPECT_EQ(read[1].count(u"Row"_s), 1) << qPrintable(code);
        const QString wanted[] = {one["title"], one["headings"], one["row"]};
        for (const QString &text : wanted) {
            EXPECT_TRUE(QRegularExpression(u"^ ?"_s + QRegularExpression::escape(text) + u" ?$"_s, QRegularExpression::MultilineOption)
                            .match(read[0]).hasMatch()) << qPrintable(text + u'\n' + read[0].left(400));
        }
        EXPECT_TRUE(read[1].contains(one["headings"])) << qPrintable(code);
        EXPECT_FALSE(read[0].contains(u"LISTED"_s));
        const QString space = QStringList{u"A"_s, u"B"_s, u"E"_s, u"H"_s}.contains(code) ? u" "_s : QString();
        EXPECT_TRUE(read[1].contains(u"NUMBER OF RECORDS LISTED:%1%2"_s.arg(space).arg(rowLimit + 1))) << qPrintable(read[1]);
        EXPECT_TRUE(read[1].contains(u"PAGE:2"_s));
        answerShopping(code);
        expectShape(script(list(code)), one["shape"], code + u" at "_s);
    });
}

TEST_F(Lists, EmptyOnesSaySo)
{
    test::forEachRow("lists", "lists", [this](const test::Row &one) {
        const QString code = one["code"];
        if (code == u"H")
            return;
        const bool isOther = QStringList{u"A"_s, u"B"_s, u"E"_s, u"G"_s}.contains(code);
        m_prompts.expect(isOther ? u"No Records to Preview"_s : u"No Records Applicable for this Report"_s);
        EXPECT_EQ(previewed(list(code)), 0);
        EXPECT_TRUE(m_prompts.isDone()) << qPrintable(code);
        EXPECT_FALSE(QFile::exists(m_folder.path(u"PRINT.TMP"_s)));
    });
    EXPECT_FALSE(printSectionList(u"AB"_s));
    EXPECT_FALSE(printSectionList({}));
}

TEST_F(Lists, HealthVisitsOfOnePerson)
{
    put(DataFile::HowTo, {u"INSERT INTO [HEALTHVISITS] ([ID],[PROFESSION],[PROFESSIONNAME],[LOCATION],[VISITDATE],[REASON],[NOTES]) "
                          "VALUES (4,'Dentist','Dr Lee','Perth','02/03/2026','Check','None')"_s,
                          u"INSERT INTO [HEALTHVISITS] ([ID],[PROFESSION]) VALUES (5,'Other')"_s});
    const QStringList read = pages([] { PrintHealthVisits(4, u"Ann"_s); });
    ASSERT_EQ(read.size(), 1);
    EXPECT_TRUE(read[0].contains(u"DOCTORS VISITS for Ann as at 22/11/2026"_s));
    EXPECT_TRUE(read[0].contains(u"PROFESSION NAME LOCATION VISIT DATE REASON NOTES"_s));
    EXPECT_TRUE(read[0].contains(u"Dentist Dr Lee Perth 02/03/2026 Check None"_s));
    EXPECT_FALSE(read[0].contains(u"Other"_s));
}

TEST_F(Lists, HowToStandsInBlocks)
{
    put(DataFile::HowTo, {u"INSERT INTO [HowTo] ([SUBJECT],[HOWTO],[SOLUTION]) VALUES ('Tap','Mend a drip','"_s
                          + u"Turn the water off, then "_s.repeated(8) + u"\r\nlast step')"_s});
    const QStringList read = pages(list(u"Y"_s));
    ASSERT_EQ(read.size(), 1);
    const QStringList lines = read[0].split(u'\n', Qt::SkipEmptyParts);
    QStringList shown;
    for (const QString &line : lines)
        shown << line.trimmed();
    EXPECT_EQ(shown.first(), u"HOW TO"_s);
    const auto subject = shown.indexOf(u"SUBJECT"_s);
    EXPECT_EQ(shown.mid(subject, 5), (QStringList{u"SUBJECT"_s, u"Tap"_s, u"HOW TO"_s, u"Mend a drip"_s, u"SOLUTION"_s}));
    for (const QString &line : shown.mid(subject + 5, 3))
        EXPECT_LE(line.size(), 80);
    EXPECT_TRUE(shown.contains(u"last step"_s));
}

TEST_F(Lists, NullsKeepTheirPlaceAndNamelessRowsOnlyCount)
{
    put(DataFile::Books, {u"INSERT INTO [BOOKS] ([TITLE],[RATING]) VALUES ('Ann`s tale','Fine')"_s,
                          u"INSERT INTO [BOOKS] ([AUTHOR]) VALUES ('Nobody')"_s,
                          u"INSERT INTO [BOOKS] ([TITLE]) VALUES ('"_s + u"1234567890"_s.repeated(4) + u"')"_s});
    QStringList lines = script(list(u"K"_s)).filter(u"LPRINT"_s);
    EXPECT_EQ(lines.filter(u"Nobody"_s).size(), 0);
    EXPECT_EQ(lines.filter(u"LISTED:3\""_s).size(), 1);
    EXPECT_EQ(lines.filter(u"\"Ann's tale\""_s).size(), 1);
    EXPECT_EQ(lines.filter(u'"' + u"1234567890"_s.repeated(4).left(36) + u'"').size(), 1);
    const QString rating = lines.filter(u"\"RATING\""_s).value(0), fine = lines.filter(u"\"Fine\""_s).value(0);
    EXPECT_EQ(rating.section(u',', 0, 0), fine.section(u',', 0, 0));
}

TEST_F(Lists, TotalsAreExact)
{
    for (int bill = 0; bill < 10; ++bill)
        put(DataFile::Main, {u"INSERT INTO [BILLS] ([DATE],[BILL],[AMOUNT]) VALUES (#11/23/2026#,'B',0.1)"_s});
    put(DataFile::Main, {u"INSERT INTO [BILLS] ([DATE],[BILL],[AMOUNT]) VALUES (#11/23/2026#,'B',-2500.7)"_s,
                         u"INSERT INTO [SHOPPING] ([ITEM],[STORE],[TOTAL],[PICK]) VALUES ('Tea','B',0.7,True)"_s,
                         u"INSERT INTO [SHOPPING] ([ITEM],[STORE],[TOTAL],[PICK]) VALUES ('Rice','C',0.1,True)"_s,
                         u"INSERT INTO [SHOPPING] ([ITEM],[STORE],[TOTAL],[PICK]) VALUES ('Zest','A',9,True)"_s,
                         u"INSERT INTO [SHOPPING] ([ITEM],[TOTAL],[PICK]) VALUES ('Milk',99,False)"_s});
    EXPECT_TRUE(pages(list(u"B"_s)).value(0).contains(u"NUMBER OF RECORDS LISTED: 11 ($2,499.70)"_s));
    for (const bool byStore : {true, false}) {
        m_prompts.expect(u"by Store and Item"_s, byStore ? basic::Answer::Yes : basic::Answer::No);
        const QString page = pages(list(u"H"_s)).value(0);
        EXPECT_TRUE(page.contains(u"NUMBER OF RECORDS LISTED: 3 $9.80"_s)) << qPrintable(page);
        EXPECT_EQ(page.indexOf(u"Zest"_s) < page.indexOf(u"Tea"_s), byStore);
        EXPECT_FALSE(page.contains(u"Milk"_s));
    }
}

TEST_F(Lists, BlankShoppingListIsOffered)
{
    const QString question = u"No Items are marked for Purchase!\r\nDo you wish to print a blank List?"_s;
    put(DataFile::Main, {u"INSERT INTO [SHOPPING] ([ITEM],[STORE],[LASTCOST],[TOTAL],[PICK]) VALUES ('Tea','B',4.4,8.8,False)"_s});
    answerShopping(u"H"_s);
    m_prompts.expect(question, basic::Answer::No);
    EXPECT_EQ(previewed(list(u"H"_s)), 0);
    answerShopping(u"H"_s);
    m_prompts.expect(question, basic::Answer::Yes);
    const QString page = pages(list(u"H"_s)).value(0);
    EXPECT_TRUE(page.contains(u"Tea B"_s));
    EXPECT_FALSE(page.contains(u"4.4"_s) || page.contains(u"8.8"_s));
}

TEST_F(Lists, LongTextsStayInTheirColumns)
{
    const QString endless(10000, u'W'), sentence = u"The quick brown fox jumps over the lazy dog. "_s.repeated(40);
    const QString wide = u"WIDE LETTERS THAT NEED ROOM "_s.repeated(3);
    put(DataFile::Notes, {u"INSERT INTO [NOTES] ([DATE],[NAME],[NOTES]) VALUES (#03/04/2026#,'Ann','"_s + endless + u"')"_s,
                          u"INSERT INTO [NOTES] ([DATE],[NAME],[NOTES]) VALUES (#03/05/2026#,'Ann','"_s + sentence + u"')"_s});
    put(DataFile::Movies, {u"INSERT INTO [MOVIES] ([TITLE],[STARS],[PRODUCER],[DIRECTOR]) VALUES ('Long','"_s + wide + u"','"_s + wide
                           + u"','"_s + wide + u"')"_s});
    put(DataFile::Main, {u"INSERT INTO [INVENTORY] ([ITEM],[SERIALNUM],[LOCATION],[PURCHASEDFROM],[DISPOSEDTO],[COST]) VALUES "
                         "('ITEM WITH A VERY LONG NAME INDEED','"_s + wide + u"','"_s + wide + u"','"_s + wide + u"','"_s + wide
                         + u"',12345678.25)"_s,
                         u"INSERT INTO [EVENTS] ([DATE],[SUBJECT],[EVENT]) VALUES (#11/23/2026#,'BIRTHDAY','"_s + wide + wide + u"')"_s,
                         u"INSERT INTO [TODO] ([TODO],[PRIORITY],[ACTIONED]) VALUES ('"_s + wide + u"','3 - Low',False)"_s});
    for (const QString &code : {u"N"_s, u"V"_s, u"I"_s, u"E"_s, u"G"_s})
        expectTidy(script(list(code)), code + u": "_s);
    const QStringList read = pages(list(u"N"_s));
    EXPECT_GT(read.size(), 1);
    EXPECT_EQ(read.join(QString()).count(u'W'), 10000);
    EXPECT_EQ(read.join(QString()).count(u"jumps"_s), 40);
    for (const QString &page : read)
        EXPECT_TRUE(page.contains(u"DATE NAME NOTE"_s) || page.contains(u"LISTED"_s)) << qPrintable(page.left(200));
}

TEST_F(Lists, WrappedCellsAreBrokenOnce)
{
    put(DataFile::Movies, {u"INSERT INTO [MOVIES] ([TITLE],[PRODUCER]) VALUES ('Long','November Oscar Hotel Hotel Yankee Zulu Mike')"_s});
    put(DataFile::Main, {u"INSERT INTO [BILLS] ([DATE],[BILL],[AMOUNT]) VALUES (#11/23/2026#,"
                         "'FOXTROT WHISKEY QUEBEC UNIFORM MIKE GOLF ROMEO HOTEL CHARLIE KILO',5)"_s});
    // A line is as full as its column allows: the first word of the next one would not have fitted.
    for (const QString &code : {u"V"_s, u"B"_s}) {
        const QString word = code == u"V" ? u"November"_s : u"FOXTROT"_s;
        printer::Page page{printer::Printer().paper()};
        page.setFontName(u"Arial"_s);
        page.setFontSize(code == u"V" ? 8 : 10);
        page.setOrientation(code == u"V" ? 2 : 1);
        const QStringList lines = script(list(code)).filter(u"LPRINT"_s);
        const double x = parseTextLine(lines.filter(word).value(0), {}).x;
        const double room = (code == u"V" ? 0.15 : 0.53) * page.ScaleWidth() - 70;
        QStringList cell;
        for (const QString &line : lines) {
            const TextLine text = parseTextLine(line, {});
            if (text.x == x && (!cell.isEmpty() || text.text.startsWith(word)))
                cell << text.text;
        }
        ASSERT_GE(cell.size(), 2);
        for (qsizetype line = 1; line < cell.size(); ++line)
            EXPECT_GT(page.TextWidth(cell[line - 1] + u' ' + cell[line].section(u' ', 0, 0)), room) << qPrintable(cell[line]);
    }
}

TEST_F(Lists, FiguresAreSetSmallerWhereTheyWouldCoverEachOther)
{
    for (const QString &region : {u"en_US"_s, u"de_DE"_s, u"id_ID"_s}) {
        setRegion(region);
        DetectDateOrder();
        for (const double amount : {1999.99, 12345678.5, 900000000.0}) {
            put(DataFile::Main, {u"DELETE FROM [SHOPPING]"_s,
                                 u"INSERT INTO [SHOPPING] ([ITEM],[STORE],[NUMBER],[LASTCOST],[AMOUNT],[TOTAL],[PICK]) VALUES "
                                 "('Row','Corner',12345,%1,%1,%1,True)"_s.arg(amount, 0, 'f', 2),
                                 u"INSERT INTO [SHOPPING] ([ITEM],[TOTAL],[PICK]) VALUES ('Row 2',3,True)"_s});
            answerShopping(u"H"_s);
            const QStringList lines = script(list(u"H"_s));
            expectTidy(lines, region + u' ');
            const auto second = lines.indexOf(lines.filter(u"\"Row 2\""_s).value(0));
            EXPECT_EQ(parseSetting(lines.mid(0, second).filter(u"FONTSIZE"_s).last()), 12) << "of the next row";
        }
    }
}

TEST_F(Lists, RulesLeaveNoSlivers)
{
    put(DataFile::Main, {u"INSERT INTO [BILLS] ([DATE],[BILL],[AMOUNT]) VALUES (#11/23/2026#,'Gas',5)"_s,
                         u"INSERT INTO [INVENTORY] ([ITEM],[COST]) VALUES ('Saw',5)"_s,
                         u"INSERT INTO [SHOPPING] ([ITEM],[PICK]) VALUES ('Tea',True)"_s});
    for (const QString &code : {u"B"_s, u"I"_s, u"H"_s}) {
        answerShopping(code);
        const QStringList lines = script(list(code));
        printer::Page page(printer::Printer().paper());
        page.setOrientation(lines.filter(u"ORIENTATION"_s).value(0).right(1).toInt());
        std::vector<double> rules;
        for (const QString &line : lines.filter(u"-STEP(0,"_s))
            rules.push_back(parseDrawnLine(line).x1);
        EXPECT_EQ(rules.size(), code == u"B" ? 4u : code == u"I" ? 8u : 6u) << "one a column";
        std::sort(rules.begin(), rules.end());
        for (std::size_t rule = 1; rule < rules.size(); ++rule)
            EXPECT_GT(rules[rule] - rules[rule - 1], 0.05 * page.ScaleWidth()) << qPrintable(code) << rule;
    }
}

TEST_F(Lists, SignsOfSeveralCodesStayWhole)
{
    const QString smiley = u"\U0001F600"_s, family = u"\U0001F468\u200D\U0001F469\u200D\U0001F467"_s;
    const struct { QString text; int most; qsizetype kept; } cases[] = {
        {QString(35, u'x') + smiley, 36, 35}, {QString(34, u'x') + smiley, 36, 36}, {u"ab"_s + family + u"c"_s, 5, 2},
        {u"ae\u0301"_s, 2, 1}, {family, 3, family.size()}, {u"plain"_s, 3, 3}, {u"short"_s, 36, 5}};
    for (const auto &one : cases)
        EXPECT_EQ(wholeCharacters(one.text, one.most), one.kept) << qPrintable(one.text);
    put(DataFile::Books, {u"INSERT INTO [BOOKS] ([TITLE]) VALUES ('"_s + QString(35, u'x') + smiley + u"')"_s});
    EXPECT_EQ(script(list(u"K"_s)).filter(u'"' + QString(35, u'x') + u'"').size(), 1);
}

TEST_F(Lists, LabelsStayWithTheirTexts)
{
    for (int lines = 30; lines < 80; ++lines) {
        put(DataFile::HowTo, {u"DELETE FROM [HowTo]"_s,
                              u"INSERT INTO [HowTo] ([SUBJECT],[HOWTO],[SOLUTION]) VALUES ('A','a','"_s + u"line\r\n"_s.repeated(lines) + u"')"_s,
                              u"INSERT INTO [HowTo] ([SUBJECT],[HOWTO],[SOLUTION]) VALUES ('B','b','last')"_s});
        const QStringList written = script(list(u"Y"_s));
        QString before;
        for (const QString &line : written) {
            if (line == u"NEWPAGE") {
                for (const QString &label : {u"\"SUBJECT\""_s, u"\"HOW TO\""_s, u"\"SOLUTION\""_s})
                    EXPECT_FALSE(before.endsWith(label)) << lines;
            }
            if (line.contains(u"PRINT"_s))
                before = line;
        }
    }
}

// However the rows fill the last page, the closing lines stay together, on it or on one of their own behind a foot line.
TEST_F(Lists, ClosingLinesKeepOffTheEdge)
{
    const QString item = u"AN ITEM THAT TAKES TWO LINES ON THE LIST %1"_s;
    putMany(DataFile::Main, u"INSERT INTO [SHOPPING] ([ITEM],[PICK]) VALUES ('Row "_s + item + u"',True)"_s, 20);
    int moved = 0;
    for (int rows = 21; rows < 30; ++rows) {
        put(DataFile::Main, {u"INSERT INTO [SHOPPING] ([ITEM],[PICK]) VALUES ('Row "_s + item.arg(rows) + u"',True)"_s});
        answerShopping(u"H"_s);
        const QStringList lines = script(list(u"H"_s));
        expectTidy(lines, QString::number(rows));
        const auto lastPage = lines.lastIndexOf(u"NEWPAGE"_s);
        if (lastPage < 0 || !lines.mid(lastPage).filter(u"Row"_s).isEmpty())
            continue;
        ++moved;
        EXPECT_EQ(lines.mid(0, lastPage).filter(u"PAGE: 1      Dated:  11/22/2026"_s).size(), 1);
        EXPECT_EQ(lines.mid(lastPage).filter(u"LISTED: %1"_s.arg(rows)).size(), 1);
        for (const QString &rule : lines.filter(u"-STEP(0,"_s))
            EXPECT_GT(parseDrawnLine(rule).y2, 0) << qPrintable(rule);
    }
    EXPECT_GT(moved, 0);
    // Neither does a text that ends on the page's last lines leave an empty sheet before them.
    for (int words = 300; words < 460; words += 4) {
        put(DataFile::Notes, {u"DELETE FROM [NOTES]"_s, u"INSERT INTO [NOTES] ([DATE],[NAME],[NOTES]) VALUES (#03/04/2026#,'Ann','"_s
                                  + u"A word of the long note. "_s.repeated(words) + u"')"_s});
        EXPECT_FALSE(script(list(u"N"_s)).join(u'\n').contains(u"NEWPAGE\nNEWPAGE"_s)) << words;
    }
}

TEST_F(Lists, OtherScriptsAndRegions)
{
    setRegion(u"de_DE"_s);
    DetectDateOrder();
    put(DataFile::Books, {u"INSERT INTO [BOOKS] ([TITLE],[AUTHOR]) VALUES ('Война и мир','\u05e9\u05dc\u05d5\u05dd \u4f60\u597d')"_s});
    put(DataFile::Main, {u"INSERT INTO [BILLS] ([DATE],[BILL],[AMOUNT]) VALUES (#11/23/2026#,'Gas',1234.5)"_s});
    EXPECT_TRUE(pages(list(u"K"_s)).value(0).contains(u"Война и мир"_s));
    const QStringList lines = script(list(u"B"_s));
    EXPECT_EQ(lines.filter(u"23/11/2026"_s).size(), 1);
    for (const QString &line : lines.filter(u"RPRINT"_s))
        EXPECT_GT(parseTextLine(line, {}).x, 1000) << qPrintable(line);
}

TEST_F(Lists, FileThatIsMissingIsToldAndTheNextListPrints)
{
    QFile::remove(state().path(DataFile::Books));
    EXPECT_NE(test::errorOf(list(u"K"_s)), 0);
    put(DataFile::Main, {u"INSERT INTO [TODO] ([TODO],[ACTIONED]) VALUES ('Go on',False)"_s});
    EXPECT_EQ(previewed(list(u"G"_s)), 1);
}

}
