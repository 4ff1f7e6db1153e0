#include "print/addressbook.h"

#include "platform/basic/convert.h"
#include "platform/basic/prompts.h"
#include "print/fittedtext.h"
#include "print/listwriter.h"
#include "print/player.h"
#include "print/report.h"
#include "print/script.h"
#include "session/datafiles.h"
#include "session/datetexts.h"
#include "session/ini.h"
#include "session/shared.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

struct BookBlock {
    QString label;
    std::vector<QStringList> lines;         // fields; those of one line are separated by blanks
};

const std::vector<BookBlock> &bookBlocks()
{
    static const std::vector<BookBlock> blocks{
        {u"Home: "_s, {{u"HOMEADDRESSSTREET"_s}, {u"HOMEADDRESSCITY"_s, u"HOMEADDRESSPOSTALCODE"_s}, {u"HOMEADDRESSCOUNTRY"_s},
                       {u"HOMETELEPHONENUMBER"_s}, {u"HOME2TELEPHONENUMBER"_s}}},
        {u"Birthday: "_s, {{u"BIRTHDAY"_s}}},
        {u"Children: "_s, {{u"CHILDREN"_s}}},
        {u"Web: "_s, {{u"PERSONALHOMEPAGE"_s}}},
        {u"Contact: "_s, {{u"CONTACT"_s}}},
        {u"Business: "_s, {{u"BUSINESSADDRESSSTREET"_s}, {u"BUSINESSADDRESSCITY"_s, u"BUSINESSADDRESSPOSTALCODE"_s},
                           {u"BUSINESSADDRESSCOUNTRY"_s}, {u"BUSINESSTELEPHONENUMBER"_s}, {u"BUSINESS2TELEPHONENUMBER"_s}}},
        {u"Web: "_s, {{u"WEBPAGE"_s}}},
        {u"Mailing: "_s, {{u"MAILINGADDRESSSTREET"_s}, {u"MAILINGADDRESSCITY"_s, u"MAILINGADDRESSPOSTALCODE"_s},
                          {u"MAILINGADDRESSCOUNTRY"_s}}},
        {u"Email: "_s, {{u"EMAIL1ADDRESS"_s}, {u"EMAIL2ADDRESS"_s}}}};
    return blocks;
}

QString fieldText(const dao::Recordset &rows, const QString &field)
{
    const basic::Value value = rows.Get(field);
    if (field == u"BIRTHDAY" && isNoDate(value))
        return {};
    return shownApostrophes(value.text()).trimmed();
}

bool isMarked(const dao::Recordset &rows, QStringView field)
{
    const basic::Value value = rows.Get(field);
    return !value.isNull() && basic::CBool(value);
}

// The texts of a block, blank ones left out; the line ends of a field part lines of their own.
QStringList blockTexts(const dao::Recordset &rows, const BookBlock &block)
{
    QStringList texts;
    for (const QStringList &fields : block.lines) {
        QStringList parts;
        for (const QString &field : fields) {
            if (const QString text = fieldText(rows, field); !text.isEmpty())
                parts << text;
        }
        for (const QString &line : parts.join(u' ').replace(u'\r', u'\n').split(u'\n')) {
            if (!line.trimmed().isEmpty())
                texts << line.trimmed();
        }
    }
    return texts;
}

// A person goes by the name, a business by its company; what is marked private but has no name by the company, too.
QString headingOf(const dao::Recordset &rows)
{
    const QString last = fieldText(rows, u"LASTNAME"_s), first = fieldText(rows, u"FIRSTNAME"_s);
    const QString company = fieldText(rows, u"COMPANYNAME"_s);
    const bool isPrivate = isMarked(rows, u"PRIVATE");
    const QString name = last.isEmpty() || first.isEmpty() ? last + first : last + u", "_s + first;
    if (!company.isEmpty() && (!isPrivate || name.isEmpty()))
        return company;
    return name.isEmpty() ? fieldText(rows, u"SORTNAME"_s) : name;
}

QString letterOf(const dao::Recordset &rows)
{
    const QString name = rows.Get(u"SORTNAME").text().trimmed().normalized(QString::NormalizationForm_D);
    return !name.isEmpty() && name[0].isLetter() ? QString(name[0].toUpper()) : u"#"_s;
}

// How light a colour of the paper is, 0 to 255.
double lightness(quint32 colour)
{
    return 0.299 * (colour & 0xFF) + 0.587 * (colour >> 8 & 0xFF) + 0.114 * (colour >> 16 & 0xFF);
}

class BookWriter {
public:
    BookWriter(bool doubleSided, const AddressBookStyle &style, BookPages pages);
    void write(dao::Recordset &rows);

private:
    static constexpr double barPad = 0.6, barIndent = 1.5, labelGap = 2.5, contactGap = 1.8, letterRule = 1;   // mm
    static constexpr double leastColumn = 40;       // mm of text that margins leave
    static constexpr double letterSize = 1.8;       // of the book's size

    void startPage();
    void makeRoom(int lines, double more = 0);      // lines, and more millimetres
    void setFont(double size, bool bold);
    void writeLetter();
    void writeHeading(const QString &name);
    void writeBlock(const QString &label, const QStringList &lines);
    QStringList blockLines(const dao::Recordset &rows, const BookBlock &block) const;
    void writeContact(const dao::Recordset &rows);

    PrintJob m_job;
    AddressBookStyle m_style;
    bool m_doubleSided, m_eachLetter, m_hasPage = false;
    QString m_letter;
    double m_left = 0, m_width = 0;                 // of the text on this page
    double m_labelWidth = 0, m_lineHeight = 0;
    double m_y = 0;
    int m_lines = 0;                                // on this page
};

BookWriter::BookWriter(bool doubleSided, const AddressBookStyle &style, BookPages pages)
    : m_style(style), m_doubleSided(doubleSided), m_eachLetter(pages == BookPages::EachLetter)
{
    m_style.size = std::clamp(m_style.size, leastBookSize, mostBookSize);
    m_style.linesPerPage = std::max(m_style.linesPerPage, leastBookLines);
    ReportStart(m_job, {m_style.font, m_style.size, printer::Millimetres, printer::Portrait});
    m_job.SetPreviewCaption(u"Address Book"_s);
    const double margins = doubleSided ? 3 : 2;     // the outer one, and the inner one, which is wider on bound pages
    m_style.leftMargin = std::clamp(m_style.leftMargin, 0.0, (m_job.GetScaleWidth() - leastColumn) / margins);
    m_style.topMargin = std::clamp(m_style.topMargin, 0.0, m_job.GetScaleHeight() / 3);
    m_width = m_job.GetScaleWidth() - margins * m_style.leftMargin;
    m_job.SetFontBold(true);
    for (const BookBlock &block : bookBlocks())
        m_labelWidth = std::max(m_labelWidth, m_job.GetTextWidth(block.label) + labelGap);
    m_labelWidth = std::min(m_labelWidth, m_width / 2);
    m_lineHeight = m_job.GetTextHeight(u"A"_s);
}

void BookWriter::setFont(double size, bool bold)
{
    m_job.SetFontSize(size);
    m_job.SetFontBold(bold);
}

// Each page sets its font again, because the preview shows any of them by itself.
void BookWriter::startPage()
{
    m_job.SetFontName(m_style.font);
    setFont(m_style.size, false);
    m_job.SetForeColor(0);
    const bool isShifted = m_doubleSided && !IsOddNumber(m_job.GetPageNumber());
    m_left = m_style.leftMargin * (isShifted ? 2 : 1);
    m_y = m_style.topMargin;
    m_lines = 0;
    if (m_eachLetter)
        writeLetter();
}

void BookWriter::makeRoom(int lines, double more)
{
    const bool isFull = m_lines + lines > m_style.linesPerPage || m_y + lines * m_lineHeight + more > m_job.GetScaleHeight();
    if (!isFull || m_lines == 0)
        return;
    m_job.PrintNewPage();
    startPage();
}

// The letter is at the outer edge over a rule, as the thumb finds it.
void BookWriter::writeLetter()
{
    setFont(m_style.size * letterSize, true);
    const double height = m_job.GetTextHeight(u"A"_s);
    const bool isAtRight = !m_doubleSided || IsOddNumber(m_job.GetPageNumber());
    m_job.SetCurrentY(m_y);
    m_job.PrintField(isAtRight ? m_left + m_width : m_left, isAtRight ? u"R"_s : u"L"_s, m_letter, false);
    m_y += height;
    PrintLineTo(m_job, m_left, m_y, m_width, 0);
    m_y += letterRule + contactGap;
    setFont(m_style.size, false);
}

void BookWriter::writeHeading(const QString &name)
{
    makeRoom(2, 3 * barPad);                                    // never a bar alone at the foot of a page, however long the contact
    m_job.PrintLine(m_left, m_y, u"STEP"_s, m_width, m_lineHeight + 2 * barPad, basic::Value(m_style.headingColour), u"BF"_s);
    m_job.SetFontBold(true);
    m_job.SetForeColor(bookHeadingColour(m_style));
    m_job.SetCurrentY(m_y + barPad);
    m_job.PrintField(m_left + barIndent, u"L"_s, elided(m_job, name, m_width - 2 * barIndent), false);
    m_job.SetForeColor(0);
    m_job.SetFontBold(false);
    m_y += m_lineHeight + 3 * barPad;
    ++m_lines;
}

void BookWriter::writeBlock(const QString &label, const QStringList &lines)
{
    bool isFirst = true;
    for (const QString &line : lines) {
        makeRoom(1);
        if (std::exchange(isFirst, false)) {
            m_job.SetFontBold(true);
            m_job.SetCurrentY(m_y);
            m_job.PrintField(m_left + barIndent, u"L"_s, elided(m_job, label, m_labelWidth), false);
            m_job.SetFontBold(false);
        }
        m_job.SetCurrentY(m_y);
        m_job.PrintField(m_left + barIndent + m_labelWidth, u"L"_s, line, false);
        m_y += m_lineHeight;
        ++m_lines;
    }
}

QStringList BookWriter::blockLines(const dao::Recordset &rows, const BookBlock &block) const
{
    QStringList lines;
    for (const QString &text : blockTexts(rows, block))
        lines += fitLines(m_job, text, m_width - m_labelWidth - 2 * barIndent);
    return lines;
}

void BookWriter::writeContact(const dao::Recordset &rows)
{
    const QString letter = m_eachLetter ? letterOf(rows) : QString();
    if (!m_hasPage || letter != m_letter) {
        if (std::exchange(m_hasPage, true))
            m_job.PrintNewPage();
        m_letter = letter;
        startPage();
    }
    std::vector<QStringList> blocks;
    int lines = 1;                                  // the bar
    for (const BookBlock &block : bookBlocks()) {
        blocks.push_back(blockLines(rows, block));
        lines += static_cast<int>(blocks.back().size());
    }
    if (lines <= m_style.linesPerPage)
        makeRoom(lines, 3 * barPad);                            // a contact that a page can hold is not split
    writeHeading(headingOf(rows));
    for (std::size_t i = 0; i < blocks.size(); ++i)
        writeBlock(bookBlocks()[i].label, blocks[i]);
    m_y += contactGap;
}

void BookWriter::write(dao::Recordset &rows)
{
    for (; !rows.EOF_(); rows.MoveNext())
        writeContact(rows);
    m_job.PrintEndDoc();
}

// A number of the configuration file; one that cannot be read or is out of range is as if it were missing.
double kept(const QString &key, double usual, double least, double most)
{
    bool isNumber = false;
    const double number = GetIniValue(iniSettings, key, {}).trimmed().toDouble(&isNumber);
    return isNumber && number >= least && number <= most ? number : usual;
}

int keptWhole(const QString &key, int usual, int least, int most)
{
    return static_cast<int>(std::lround(kept(key, usual, least, most)));
}

}

quint32 bookHeadingColour(const AddressBookStyle &style)
{
    constexpr double leastDifference = 60;
    const double bar = lightness(printer::QBColor(style.headingColour));
    const quint32 text = printer::QBColor(style.headingFontColour);
    if (std::abs(lightness(text) - bar) >= leastDifference)
        return text;
    return printer::QBColor(bar < 128 ? 15 : 0);
}

AddressBookStyle addressBookStyle()
{
    AddressBookStyle style;
    const QString font = GetIniValue(iniSettings, u"AddressBookFont"_s, style.font).trimmed();
    if (!font.isEmpty())
        style.font = font;
    style.size = kept(u"AddressBookSize"_s, 10, leastBookSize, mostBookSize);
    style.linesPerPage = keptWhole(u"AddressLinesPerPage"_s, 50, leastBookLines, mostBookLines);
    style.topMargin = kept(u"AddressTopMargin"_s, 5, 0, mostBookMargin);
    style.leftMargin = kept(u"AddressLeftMargin"_s, 5, 0, mostBookMargin);
    style.headingColour = keptWhole(u"AddressHeadingColor"_s, 14, 0, 15);
    style.headingFontColour = keptWhole(u"AddressHeadingFontColor"_s, 0, 0, 15);
    return style;
}

void keepAddressBookStyle(const AddressBookStyle &style)
{
    const auto put = [](const QString &key, const QString &text) { PutIniValue(iniSettings, key, QString(text)); };
    put(u"AddressBookFont"_s, style.font);
    put(u"AddressBookSize"_s, scriptNumber(style.size));
    put(u"AddressLinesPerPage"_s, QString::number(style.linesPerPage));
    put(u"AddressTopMargin"_s, scriptNumber(style.topMargin));
    put(u"AddressLeftMargin"_s, scriptNumber(style.leftMargin));
    put(u"AddressHeadingColor"_s, QString::number(style.headingColour));
    put(u"AddressHeadingFontColor"_s, QString::number(style.headingFontColour));
}

void PrintAddressBook(bool doubleSided, const AddressBookStyle &style, BookPages pages)
{
    if (!PrinterReady())
        return;
    const Hourglass hourglass;
    dao::Database database = openDataFile(DataFile::Contacts);
    dao::Recordset rows = database.OpenRecordset(u"Select * from [Contacts] WHERE [PRINTADDRESSBOOK]=True order by [SORTNAME]"_s);
    if (rows.rowTotal() < 1) {
        showHourglass(false);
        basic::MsgBox(u"No Records Applicable for this Report"_s, {}, basic::Icon::Information);
        return;
    }
    BookWriter(doubleSided, style, pages).write(rows);
}

int markForAddressBook(bool all)
{
    const Hourglass hourglass;
    dao::Database database = openDataFile(DataFile::Contacts);
    dao::Transaction whole(database);
    dao::Recordset rows = database.OpenRecordset(u"SELECT * FROM CONTACTS WHERE [INVISIBLE]=False;"_s);
    int count = 0;
    for (; !rows.EOF_(); rows.MoveNext(), ++count) {
        const bool marked = all || isMarked(rows, u"PRINT");
        if (isMarked(rows, u"PRINTADDRESSBOOK") == marked)
            continue;
        rows.Edit();
        rows.Set(u"PRINTADDRESSBOOK", basic::Value(marked));
        rows.Update();
    }
    whole.Commit();
    return count;
}

}
