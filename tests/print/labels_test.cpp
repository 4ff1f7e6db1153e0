#include "print/labels.h"

#include "print/addressbook.h"
#include "print/envelope.h"
#include "print/output.h"
#include "print/printfixture.h"
#include "print/scriptfile.h"
#include "session/datafiles.h"
#include "session/ini.h"

#include <QRegularExpression>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

constexpr double border = 360;          // twips that the page leaves out

}

using test::Word;
using test::wordsOf;

class Labels : public test::PrintTest {
protected:
    Labels()
    {
        for (const DataFileEntry &entry : dataFiles())
            state().path(entry.file) = m_folder.path(entry.defaultName.mid(1));
        test::putEmptyFiles(m_folder.path());
        state().gIniFile = m_folder.path(u"vorelreminder.ini"_s);
    }
    void usePaper(const QString &name)
    {
        useNoPrinter();
        setRegion(name == u"A4" ? u"de_DE"_s : u"en_US"_s);
    }
    std::vector<Word> words(const std::function<void()> &report)
    {
        const QString path = m_folder.path(u"words.pdf"_s);
        EXPECT_EQ(previewed(report, [&](test::FakePreview &screen) { savePdf(screen.job, path); }), 1) << "no preview";
        return wordsOf(path);
    }
    static void put(const QStringList &statements)
    {
        dao::Database database = openDataFile(DataFile::Contacts);
        dao::Transaction all(database);
        for (const QString &sql : statements)
            database.Execute(sql);
        all.Commit();
        database.Close();
    }
};

TEST_F(Labels, TextsStayWithinTheirCells)
{
    const double tops[] = {692, 2846, 5029, 7184, 9339, 11493, 13653};
    std::vector<QStringList> labels;
    for (int i = 1; i <= 15; ++i) {
        const QString mark = u"L%1"_s.arg(i, 2, 10, QChar(u'0'));
        // The short one, one with every line, one that is far too wide, one without a blank, one that is far too high.
        const QStringList kinds[] = {{mark + u"Short"_s, mark + u"Street"_s},
                                     {mark + u"Name"_s, mark + u"A"_s, mark + u"B"_s, mark + u"C"_s, mark + u"D"_s, mark + u"E"_s},
                                     {mark + u"Long"_s, (mark + u"wide "_s).repeated(25)},
                                     {mark + u"x"_s + u"WM"_s.repeated(60), mark + u"Street"_s},
                                     {mark + u"High"_s, (mark + u"line\r\n"_s).repeated(30), (mark + u"wide "_s).repeated(90)}};
        labels.push_back(kinds[i % 5]);
    }
    for (const QString &paper : {u"A4"_s, u"Letter"_s}) {
        usePaper(paper);
        const double height = printer::localePaper().height;
        std::set<int> seen;
        for (const Word &word : words([&] { PrintLabels(labels); })) {
            const int label = word.text.startsWith(u'L') ? word.text.mid(1, 2).toInt() : 0;
            if (label == 0)             // the rest of a word that was broken
                continue;
            seen.insert(label);
            EXPECT_EQ(word.page, label > 14 ? 2 : 1) << qPrintable(word.text);
            const int place = label > 14 ? 1 : label;
            const std::size_t row = static_cast<std::size_t>((place - 1) / 2);
            const double left = border + (place % 2 == 1 ? 273 : 6113), top = border + tops[row];
            const double right = place % 2 == 1 ? border + 6113 : printer::localePaper().width - border;
            const double bottom = row == 6 ? height - border : border + tops[row + 1];
            EXPECT_TRUE(word.box.left() >= left - 20 && word.box.right() <= right && word.box.top() >= top - 40 && word.box.bottom() <= bottom)
                << qPrintable(paper + word.text) << word.box.left() << ' ' << word.box.top() << ' ' << word.box.right() << ' ' << word.box.bottom();
        }
        EXPECT_EQ(seen.size(), 15u) << qPrintable(paper);
    }
    const QStringList lines = script([&] { PrintLabels(labels); });
    EXPECT_EQ(lines.filter(QString(QChar(0x2026))).size(), 3) << "what does not fit is cut visibly";
    EXPECT_EQ(lines.filter(u"NEWPAGE"_s).size(), 1) << "no page but the second";
}

TEST_F(Labels, StartAtAnyPlaceOfTheSheet)
{
    const auto firstPlace = [&](int start) {
        const QStringList lines = script([&] { PrintLabels({{u"Ann"_s}, {u"Bob"_s}}, start); });
        const TextLine text = parseTextLine(lines.filter(u"\"Ann\""_s).value(0), {});
        return std::tuple(text.x, text.y, lines.filter(u"NEWPAGE"_s).size());
    };
    const struct { int start; double x, y; int turns; } cases[] = {
        {1, 273, 692, 0}, {2, 6113, 692, 0}, {7, 273, 7184, 0}, {14, 6113, 13653, 1}, {15, 6113, 13653, 1}, {0, 6113, 13653, 1}};
    for (const auto &one : cases)
        EXPECT_EQ(firstPlace(one.start), std::tuple(one.x, one.y, one.turns)) << one.start;
    const std::pair<QString, int> typed[] = {{u"1"_s, 1}, {u" 14 "_s, 14}, {u"15"_s, 14}, {u"0"_s, 14}, {u"-3"_s, 14}, {u"x"_s, 14}, {u""_s, 14}};
    for (const auto &[text, number] : typed)
        EXPECT_EQ(labelStart(text), number) << qPrintable(text);
    EXPECT_TRUE(script([&] { PrintLabels(std::vector<QStringList>(14, {u"Ann"_s})); }).filter(u"NEWPAGE"_s).isEmpty());
    const QStringList gap = script([&] { PrintLabels({{u"Ann"_s}, {u" "_s, u"nameless"_s}, {u"Bob"_s}}); });
    EXPECT_EQ(parseTextLine(gap.filter(u"Bob"_s).value(0), {}).y, 2846) << "a label without a name leaves its place free";
    EXPECT_TRUE(gap.filter(u"nameless"_s).isEmpty());
    m_prompts.expect(u"No Selected Labels to Print"_s);
    EXPECT_EQ(previewed([] { PrintLabels({{u" "_s, u"nowhere"_s}}); }), 0);
}

TEST_F(Labels, EnvelopesHoldBothAddresses)
{
    const QStringList to{u"ToAnn O'Brien"_s, (u"Tostreet "_s).repeated(30), u"Tocity 6000"_s}, from{u"FromBob"_s, (u"Fromstreet "_s).repeated(9)};
    const struct { QString name; double width, height; } sizes[] = {
        {u"DL"_s, 220, 110}, {u"C5"_s, 229, 162}, {u"#10"_s, 9.5 * 25.4, 4.125 * 25.4}};
    ASSERT_EQ(envelopeSizes().size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        const EnvelopeSize &size = envelopeSizes()[i];
        EXPECT_EQ(size.name, sizes[i].name);
        const double millimetre = 1440 / 25.4, width = sizes[i].width * millimetre, height = sizes[i].height * millimetre;
        QRectF toBox, fromBox;
        int pages = 0;
        for (const Word &word : words([&] { printEnvelopes({to, {}, {u"ToEve"_s}}, from, size); })) {
            pages = std::max(pages, word.page);
            (word.text.startsWith(u"From") ? fromBox : toBox) |= word.box;
        }
        EXPECT_EQ(pages, 2) << "an empty address has no envelope";
        EXPECT_TRUE(QRectF(0.4 * width, 0.4 * height, 0.6 * width - 10 * millimetre, 0.6 * height - 16 * millimetre).contains(toBox))
            << qPrintable(size.name) << toBox.left() << ' ' << toBox.top() << ' ' << toBox.right() << ' ' << toBox.bottom();
        EXPECT_TRUE(QRectF(0, 0, 0.45 * width, toBox.top()).contains(fromBox)) << qPrintable(size.name);
    }
    m_prompts.expect(u"There is no address to print."_s);
    EXPECT_EQ(previewed([] { printEnvelope({u" "_s}); }), 0);
}

TEST_F(Labels, SenderAndSizeAreKept)
{
    setRegion(u"de_DE"_s);
    EXPECT_EQ(envelopeSize().name, u"DL"_s);
    setRegion(u"en_US"_s);
    EXPECT_EQ(envelopeSize().name, u"#10"_s);
    keepEnvelopeSize(u"C5"_s);
    EXPECT_EQ(envelopeSize().name, u"C5"_s);
    keepEnvelopeSize(u"B4"_s);
    EXPECT_EQ(envelopeSize().name, u"#10"_s) << "a size that is not offered";
    keepReturnAddress(u"Bob  Smith\n\n1 High Street\r\nPerth"_s);
    EXPECT_EQ(returnAddress(), (QStringList{u"Bob Smith"_s, u"1 High Street"_s, u"Perth"_s}));
    const std::pair<PostalAddress, QStringList> addresses[] = {
        {{u"Ann"_s, {}, u"1 High St"_s, u"Perth"_s, u"WA"_s, u"6000"_s, u"Australia"_s},
         {u"Ann"_s, u"1 High St"_s, u"Perth WA 6000"_s, u"Australia"_s}},
        {{u"Ann"_s, u"12"_s, u"1 High St"_s, {}, {}, u"6000"_s, {}}, {u"Ann"_s, u"PO BOX 12"_s, u"6000"_s}},
        {{u"Ann"_s, u"PO Box 12"_s, {}, u"Perth"_s, {}, {}, {}}, {u"Ann"_s, u"PO Box 12"_s, u"Perth"_s}},
        {{u"Ann"_s}, {u"Ann"_s}}};
    for (const auto &[address, lines] : addresses)
        EXPECT_EQ(addressLines(address), lines);
}

TEST_F(Labels, BookPrintsTheBlocksThatHaveContent)
{
    put({u"INSERT INTO [Contacts] ([LASTNAME],[FIRSTNAME],[SORTNAME],[PRIVATE],[HOMEADDRESSSTREET],[HOMEADDRESSCITY],[HOMEADDRESSPOSTALCODE],"
         "[HOMETELEPHONENUMBER],[BIRTHDAY],[CHILDREN],[EMAIL2ADDRESS],[PRINTADDRESSBOOK]) VALUES ('O`BRIEN','Ann','O`BRIEN, Ann',True,"
         "'1 High St','Perth','6000','9555 1','24/12/1950','Tom and Eve','ann@example.org',True)"_s,
         u"INSERT INTO [Contacts] ([LASTNAME],[COMPANYNAME],[SORTNAME],[PRIVATE],[BUSINESSADDRESSCITY],[CONTACT],[WEBPAGE],[BIRTHDAY],"
         "[PRINTADDRESSBOOK]) VALUES ('ACME','ACME','ACME',False,'Sydney','Eve Stone','www.example.com','01/01/4501',True)"_s,
         u"INSERT INTO [Contacts] ([LASTNAME],[FIRSTNAME],[SORTNAME],[PRIVATE],[BIRTHDAY]) VALUES ('Not','Marked','NOT',True,'24/12/1950')"_s});
    const QString page = pages([] { PrintAddressBook(true, {.headingColour = 14}); }).value(0);
    for (const QString &text : {u"O'BRIEN, Ann"_s, u"Home: 1 High St"_s, u"Perth 6000"_s, u"9555 1"_s, u"Birthday: 24/12/1950"_s,
                                u"Children: Tom and Eve"_s, u"Email: ann@example.org"_s, u"Contact: Eve Stone"_s, u"Business: Sydney"_s,
                                u"Web: www.example.com"_s})
        EXPECT_EQ(page.count(text), 1) << qPrintable(text) << qPrintable(page);
    for (const QString &text : {u"4501"_s, u"Mailing"_s, u"Not, Marked"_s})
        EXPECT_FALSE(page.contains(text)) << qPrintable(text);
    EXPECT_EQ(page.count(u"Business"_s), 1) << "no block without content";
    EXPECT_LT(page.indexOf(u"ACME"_s), page.indexOf(u"O'BRIEN"_s));
    put({u"UPDATE [Contacts] SET [PRINTADDRESSBOOK]=False"_s});
    m_prompts.expect(u"No Records Applicable for this Report"_s);
    EXPECT_EQ(previewed([] { PrintAddressBook(true); }), 0);
}

TEST_F(Labels, BookPagesFollowTheSettings)
{
    QStringList rows;
    for (int i = 0; i < 60; ++i)
        rows << u"INSERT INTO [Contacts] ([LASTNAME],[SORTNAME],[PRIVATE],[HOMETELEPHONENUMBER],[PRINTADDRESSBOOK]) VALUES ('%1NAME%2','%1NAME%2',"
                "True,'9555 %2',True)"_s.arg(QChar(u'A' + i / 20)).arg(i, 3, 10, QChar(u'0'));
    put(rows);
    // 120 lines, a bar and a number for each contact.
    const struct { bool doubleSided; AddressBookStyle style; BookPages pages; QList<double> lefts; } cases[] = {
        {false, {.linesPerPage = 50, .leftMargin = 5}, BookPages::Filled, {5, 5, 5}},
        {false, {.linesPerPage = 25, .leftMargin = 5}, BookPages::Filled, {5, 5, 5, 5, 5}},
        {true, {}, BookPages::Filled, {14, 28, 14}},
        {true, {.linesPerPage = 40, .leftMargin = 10}, BookPages::Filled, {10, 20, 10}},
        {false, {.linesPerPage = 100, .leftMargin = 7}, BookPages::EachLetter, {7, 7, 7}},
        {true, {.size = 20, .linesPerPage = 200, .leftMargin = 1e6}, BookPages::EachLetter, {}}};
    for (const auto &one : cases) {
        const QStringList lines = script([&] { PrintAddressBook(one.doubleSided, one.style, one.pages); });
        QList<double> lefts;
        bool isNewPage = true;
        int texts = 0, mostTexts = 0;
        for (const QString &line : lines) {
            if (line == u"NEWPAGE") {
                isNewPage = true;
                texts = 0;
            } else if (line.startsWith(u"LINE") && line.endsWith(u"BF")) {
                const DrawnLine bar = parseDrawnLine(line);
                if (std::exchange(isNewPage, false))
                    lefts << bar.x1;
                EXPECT_TRUE(bar.step && bar.x1 >= 0 && bar.x2 >= 39 && bar.x1 + bar.x2 <= 216 - 12.7 + 0.1) << qPrintable(line);
            } else if (line.contains(u"NAME0"_s) || line.contains(u"\"9555"_s)) {
                EXPECT_FALSE(isNewPage) << "a contact is split: " << qPrintable(line);
                mostTexts = std::max(mostTexts, ++texts);
            }
        }
        EXPECT_LE(mostTexts, one.style.linesPerPage);
        EXPECT_EQ(lines.filter(u"\"9555"_s).size(), 60) << "nothing is lost between the pages";
        if (!one.lefts.isEmpty()) {
            EXPECT_EQ(lefts, one.lefts);
        }
        if (one.pages == BookPages::EachLetter) {
            EXPECT_EQ(lines.filter(QRegularExpression(u"\"[ABC]\"$"_s)).size(), lines.count(u"NEWPAGE"_s) + 1) << "a letter on each page";
        }
    }
}

TEST_F(Labels, BookColoursStayReadable)
{
    put({u"INSERT INTO [Contacts] ([LASTNAME],[SORTNAME],[PRIVATE],[PRINTADDRESSBOOK]) VALUES ('Ann','Ann',True,True)"_s});
    const struct { int bar, text; quint32 shown; } cases[] = {
        {14, 0, 0}, {1, 15, 0xFFFFFF}, {15, 9, 0xFF0000}, {0, 0, 0xFFFFFF}, {15, 15, 0}, {14, 15, 0}};
    for (const auto &one : cases) {
        const QStringList lines = script([&] { PrintAddressBook(false, {.headingColour = one.bar, .headingFontColour = one.text}); });
        const auto name = lines.indexOf(lines.filter(u"\"Ann\""_s).value(0));
        EXPECT_EQ(parseDrawnLine(lines.filter(u"BF"_s).value(0)).colour, one.bar);
        EXPECT_EQ(parseSetting(lines.mid(0, name).filter(u"FORECOLOR"_s).last()), one.shown) << one.bar << ' ' << one.text;
    }
}

TEST_F(Labels, BookSettingsKeepTheirDefaults)
{
    const AddressBookStyle usual{.linesPerPage = 50, .leftMargin = 5, .headingColour = 14};
    EXPECT_EQ(addressBookStyle(), usual);
    const AddressBookStyle own{u"Courier New"_s, 12.5, 30, 0, 20, 15, 9};
    keepAddressBookStyle(own);
    EXPECT_EQ(addressBookStyle(), own);
    for (const QString &key : {u"AddressBookSize"_s, u"AddressLinesPerPage"_s, u"AddressTopMargin"_s, u"AddressLeftMargin"_s,
                               u"AddressHeadingColor"_s, u"AddressHeadingFontColor"_s})
        PutIniValue(iniSettings, key, key.endsWith(u"Color") ? u"16"_s : key.endsWith(u"Page") ? u"abc"_s : u"-1"_s);
    PutIniValue(iniSettings, u"AddressBookFont"_s, u" "_s);
    EXPECT_EQ(addressBookStyle(), usual);
}

TEST_F(Labels, MarkingForTheBook)
{
    put({u"INSERT INTO [Contacts] ([SORTNAME],[PRINT],[PRINTADDRESSBOOK],[INVISIBLE]) VALUES ('Plain',False,True,False)"_s,
         u"INSERT INTO [Contacts] ([SORTNAME],[PRINT],[PRINTADDRESSBOOK],[INVISIBLE]) VALUES ('Printed',True,False,False)"_s,
         u"INSERT INTO [Contacts] ([SORTNAME],[PRINT],[PRINTADDRESSBOOK],[INVISIBLE]) VALUES ('Away',False,True,True)"_s});
    const auto marked = [] {
        dao::Database database = openDataFile(DataFile::Contacts);
        dao::Recordset rows = database.OpenRecordset(u"select [SORTNAME] from [CONTACTS] where [PRINTADDRESSBOOK]=True order by [SORTNAME]"_s);
        QStringList names;
        for (; !rows.EOF_(); rows.MoveNext())
            names << rows.Get(0).text();
        return names;
    };
    EXPECT_EQ(markForAddressBook(true), 2);
    EXPECT_EQ(marked(), (QStringList{u"Away"_s, u"Plain"_s, u"Printed"_s}));
    EXPECT_EQ(markForAddressBook(false), 2);
    EXPECT_EQ(marked(), (QStringList{u"Away"_s, u"Printed"_s}));
}

}
