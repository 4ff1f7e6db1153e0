#include "contacts/infocard.h"

#include "contacts/contactevents.h"
#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/format.h"
#include "print/listwriter.h"
#include "print/player.h"
#include "print/report.h"
#include "print/script.h"
#include "session/datetexts.h"
#include "session/shared.h"

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

struct CardSource {
    QString category;
    QStringList fields;                 // the first that has content counts
    QString prefix{};
};

const std::vector<CardSource> &cardSources()
{
    static const std::vector<CardSource> sources{
        {u"HOME"_s, {u"HOMETELEPHONENUMBER"_s, u"HOME2TELEPHONENUMBER"_s, u"OTHERTELEPHONENUMBER"_s}, u"HOME: "_s},
        {u"WORK"_s, {u"BUSINESSTELEPHONENUMBER"_s, u"BUSINESS2TELEPHONENUMBER"_s}, u"WORK: "_s},
        {u"FAX"_s, {u"HOMEFAXNUMBER"_s, u"BUSINESSFAXNUMBER"_s, u"OTHERFAXNUMBER"_s}, u"FAX: "_s},
        {u"MOBILE"_s, {u"MOBILETELEPHONENUMBER"_s}, u"MOBILE: "_s},
        {u"EMAIL - 1"_s, {u"EMAIL1ADDRESS"_s}, u"EMAIL: "_s},
        {u"EMAIL - 2"_s, {u"EMAIL2ADDRESS"_s}, u"EMAIL: "_s},
        {u"EMAIL - 3"_s, {u"EMAIL3ADDRESS"_s}, u"EMAIL: "_s}};
    return sources;
}

QString oneLine(const basic::Value &value)
{
    return value.text().simplified();
}

// The address of the home; without one, that of the business, then the postal one. Never parts of two.
void addAddress(const dao::Recordset &row, std::vector<CardItem> &items)
{
    static const std::pair<QString, QString> parts[] = {{u"STREET"_s, u"STREET"_s}, {u"CITY"_s, u"CITY"_s}, {u"STATE/PROVINCE"_s, u"STATE"_s},
                                                        {u"ZIPCODE"_s, u"POSTALCODE"_s}, {u"COUNTRY"_s, u"COUNTRY"_s}};
    for (const QString &kind : {u"HOME"_s, u"BUSINESS"_s, u"MAILING"_s}) {
        std::vector<CardItem> found;
        for (const auto &[category, part] : parts) {
            if (const QString text = oneLine(row.Get(kind + u"ADDRESS"_s + part)); !text.isEmpty())
                found.push_back({category, text});
        }
        if (!found.empty()) {
            items = std::move(found);
            return;
        }
    }
}

QString birthdayOf(const dao::Recordset &row)
{
    const basic::Value kept = row.Get(u"BIRTHDAY");
    if (const std::optional<basic::DateTime> day = contacts::contactDay(kept.text().trimmed()))
        return basic::Format(basic::Value(*day), u"dd/mm/yyyy");
    return isNoDate(kept) ? QString() : oneLine(kept);
}

// Millimetres. The card is as large as those of a bank.
constexpr double cardWidth = 86, cardHeight = 54, cardPad = 3, columnGap = 3;
constexpr int cardsAcross = 2, columnsOnCard = 2;
constexpr int cutColour = 0x909090;
constexpr double cardSize = 6;          // points
constexpr double entryGap = 0.35;       // of a line

class CardWriter {
public:
    explicit CardWriter(PrintJob &job);
    void write(const CardEntry &entry);

private:
    double columnWidth() const { return (cardWidth - 2 * cardPad - (columnsOnCard - 1) * columnGap) / columnsOnCard; }
    void startPage();
    void openCard();
    void nextColumn();

    PrintJob &m_job;
    double m_line = 0;                  // height
    int m_cardsDown = 1;
    int m_card = -1, m_column = 0;      // on this sheet
    double m_left = 0, m_top = 0;       // of the card
    double m_y = 0;                     // within the column
};

CardWriter::CardWriter(PrintJob &job) : m_job(job)
{
    startPage();
    m_line = job.GetTextHeight(u"A"_s);
    m_cardsDown = std::max(1, static_cast<int>(job.GetScaleHeight() / cardHeight));
    openCard();
}

void CardWriter::startPage()
{
    m_job.SetFontName(u"Arial"_s);
    m_job.SetFontSize(cardSize);
    m_job.SetFontBold(false);
}

// The cards share their edges: cut out as one strip they fold into a booklet.
void CardWriter::openCard()
{
    if (++m_card == cardsAcross * m_cardsDown) {
        m_job.PrintNewPage();
        startPage();
        m_card = 0;
    }
    m_left = (m_job.GetScaleWidth() - cardsAcross * cardWidth) / 2 + m_card % cardsAcross * cardWidth;
    m_top = m_card / cardsAcross * cardHeight;
    m_job.PrintLine(m_left, m_top, u"STEP"_s, cardWidth, cardHeight, basic::Value(cutColour), u"B"_s);
    m_column = 0;
    m_y = 0;
}

void CardWriter::nextColumn()
{
    m_y = 0;
    if (++m_column == columnsOnCard)
        openCard();
}

// An entry stays together, unless it is longer than a column.
void CardWriter::write(const CardEntry &entry)
{
    struct Line { QString text; bool isName; };
    std::vector<Line> lines;
    m_job.device().setFontBold(true);
    for (const QString &text : fitLines(m_job, entry.name, columnWidth()))
        lines.push_back({text, true});
    m_job.device().setFontBold(false);
    for (const QString &item : entry.lines)
        for (const QString &text : fitLines(m_job, item, columnWidth()))
            lines.push_back({text, false});
    const double room = cardHeight - 2 * cardPad;
    const double height = static_cast<double>(lines.size()) * m_line;
    if (m_y > 0 && m_y + height > room && height <= room)
        nextColumn();
    bool isBold = false;
    for (const Line &line : lines) {
        if (m_y + m_line > room)
            nextColumn();
        if (line.isName != isBold)
            m_job.SetFontBold(isBold = line.isName);
        m_job.SetCurrentY(m_top + cardPad + m_y);
        m_job.PrintField(m_left + cardPad + m_column * (columnWidth() + columnGap), u"L"_s, line.text, false);
        m_y += m_line;
    }
    if (isBold)
        m_job.SetFontBold(false);
    m_y += entryGap * m_line;
}

}

QString CardItem::line() const
{
    if (category == u"BIRTHDATE")
        return u"BIRTHDAY: "_s + data;
    for (const CardSource &source : cardSources())
        if (source.category == category)
            return source.prefix + data;
    return data;
}

QStringList cardContacts(dao::Database &database)
{
    dao::Recordset rows = database.OpenRecordset(u"select [SORTNAME] from [CONTACTS] where [INVISIBLE]=False ORDER BY [SORTNAME];"_s);
    QStringList names;
    for (; !rows.EOF_(); rows.MoveNext())
        names << rows.Get(0).text();
    return names;
}

CardContact cardContact(dao::Database &database, const QString &sortName, int same)
{
    dao::Recordset row = database.OpenRecordset(u"select * from [CONTACTS] WHERE [SORTNAME]="_s + dao::literal(sortName) + u';');
    for (; same > 0 && !row.EOF_(); --same)
        row.MoveNext();
    if (row.EOF_())
        return {};
    std::vector<CardItem> items;
    addAddress(row, items);
    if (const QString birthday = birthdayOf(row); !birthday.isEmpty())
        items.push_back({u"BIRTHDATE"_s, birthday});
    for (const CardSource &source : cardSources()) {
        for (const QString &field : source.fields) {
            if (const QString text = oneLine(row.Get(field)); !text.isEmpty()) {
                items.push_back({source.category, text});
                break;
            }
        }
    }
    return {basic::CLng(row.Get(u"ID")), std::move(items)};
}

void printInfoCard(const std::vector<CardEntry> &entries)
{
    if (entries.empty() || !PrinterReady())
        return;
    const Hourglass hourglass;
    PrintJob job;
    ReportStart(job, {u"Arial"_s, cardSize, printer::Millimetres, printer::Portrait});
    job.SetPreviewCaption(u"Address and Phone Card"_s);
    if (job.device().hasHardware())
        job.SetPrintTarget(u"PRINTER"_s);
    CardWriter writer(job);
    for (const CardEntry &entry : entries)
        writer.write({shownApostrophes(entry.name), entry.lines});
    job.PrintEndDoc();
}

}
