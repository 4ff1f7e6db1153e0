#include "frame/frmCaddyPainting.h"

#include "frame/rowrules.h"
#include "media/pictures.h"
#include "platform/basic/clock.h"
#include "platform/basic/colournumber.h"
#include "platform/basic/dates.h"
#include "platform/basic/files.h"
#include "platform/basic/format.h"
#include "platform/controls/colours.h"
#include "session/datetexts.h"
#include "session/ini.h"
#include "session/sections.h"
#include "session/shared.h"

#include <QGuiApplication>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::Grid;
using controls::GridColumn;
using controls::RowPaint;

namespace {

constexpr int appointmentTime = 3;
constexpr int eventSubject = 3, eventFile = 5, eventRecurring = 9;

std::vector<GridColumn> appointmentColumns()
{
    const QString dates = state().settings.gDateDisplay;
    return {{u"ID"_s, u"ID"_s, 0, false},
            {u"DATE"_s, u"DATE"_s, 1500, true, GridColumn::Style::Text, dates},
            {u"DAY"_s, u"DAY"_s, 500},
            {u"APPTIME"_s, u"TIME"_s, 1000},
            {u"APPOINTMENT"_s, u"APPOINTMENT"_s, 1300},
            {u"MET"_s, u"MET"_s, 550, true, GridColumn::Style::Check}};
}

std::vector<GridColumn> billColumns()
{
    const QString dates = state().settings.gDateDisplay, money = state().settings.gNumberFormat;
    return {{u"ID"_s, u"ID"_s, 0, false},
            {u"DATE"_s, u"DATE"_s, 1500, true, GridColumn::Style::Text, dates},
            {u"DAY"_s, u"DAY"_s, 500},
            {u"BILL"_s, u"BILL"_s, 3000},
            {u"AMOUNT"_s, u"AMOUNT"_s, 1000, true, GridColumn::Style::Text, money, Qt::AlignRight},
            {u"PAID"_s, u"PAID"_s, 700, true, GridColumn::Style::Check}};
}

std::vector<GridColumn> eventColumns()
{
    const QString dates = state().settings.gDateDisplay;
    return {{u"ID"_s, u"ID"_s, 0, false},
            {u"DATE"_s, u"DATE"_s, 1300, true, GridColumn::Style::Text, dates},
            {u"DAY"_s, u"DAY"_s, 510},
            {u"SUBJECT"_s, u"SUBJECT"_s, 1600},
            {u"EVENT"_s, u"DETAILS"_s, 3300},
            {u"FILENAME"_s, u"FILENAME"_s, 3000},
            {u"CARD"_s, u"Send"_s, 500, true, GridColumn::Style::Check},
            {u"CARDSENT"_s, u"Sent"_s, 510, true, GridColumn::Style::Check},
            {u"CARDPURCHASED"_s, u"Bought"_s, 0, false, GridColumn::Style::Check},
            {u"RECURRING"_s, u"RECURRING"_s, 0, false, GridColumn::Style::Check}};
}

void setCell(std::vector<QString> &cells, int column, const QString &text)
{
    const auto at = static_cast<std::size_t>(column);
    if (cells.size() <= at)
        cells.resize(at + 1);
    cells[at] = text;
}

void styleCells(RowPaint &row, int first, int last, const QString &style)
{
    for (int column = first; column <= last; ++column)
        setCell(row.style, column, style);
}

bool isToday(const basic::Value &date)
{
    const QString &format = state().settings.gDateDisplay;
    return basic::Format(date, format) == basic::Format(basic::Date(), format);
}

void paintDay(RowPaint &row, const basic::Value &date)
{
    setCell(row.text, dayColumn, basic::Format(date, u"ddd"));
    if (isToday(date))
        styleCells(row, 1, 5, u"TODAY"_s);
}

// A name in which an apostrophe was typed is stored with a grave accent.
void showApostrophes(RowPaint &row, int column)
{
    if (const QString text = row.cell(column).text(); text.contains(u'`'))
        setCell(row.text, column, shownApostrophes(text));
}

}

QColor screenFontColour(quint32 index)
{
    constexpr std::array<QRgb, 16> colours = {0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000, 0xc0c0c0,
                                              0x808080, 0x0000ff, 0x00ff00, 0x00ffff, 0xff0000, 0xff00ff, 0xffff00, 0xffffff};
    return QColor(index < colours.size() ? colours[index] : colours[0]);
}

CaddyPainting::CaddyPainting(CaddyControls &c, GridLayout &sizes, CaddyColumns &columns)
    : m_c(c), m_sizes(sizes), m_columns(columns)
{
    m_c.appointments().grid->setRowLoad([this](RowPaint &row) { paintAppointment(row); });
    m_c.bills().grid->setRowLoad([this](RowPaint &row) { paintBill(row); });
    m_c.events().grid->setRowLoad([this](RowPaint &row) { paintEvent(row); });
    m_c.subjects().grid->setRowLoad([this](RowPaint &row) { paintSubject(row); });
    applyPalette();
}

void CaddyPainting::showReminderColumns()
{
    const std::vector<int> five = {0, 1, 2, 3, 4, 5};
    const QString date = basic::Format(basic::DateSerial(2028, 12, 28), state().settings.gDateDisplay), day = u"Wed"_s;
    m_columns.show(m_c.appointments().grid, appointmentColumns(),
                   {u"APPS"_s, five, m_c.appointments().textColumn, {{}, date, day, u"00:00 Am"_s}});
    m_columns.show(m_c.bills().grid, billColumns(), {u"BILLS"_s, five, m_c.bills().textColumn, {{}, date, day}});
    m_columns.show(m_c.events().grid, eventColumns(),
                   {u"EVENTS"_s, {0, 1, 2, 3, 4, 5, 6, 7, 0, 0}, m_c.events().textColumn, {{}, date, day, u"ANNIVERSARY"_s}, eventFile});
}

void CaddyPainting::applyLayout()
{
    QFont font(m_sizes.fontName);
    font.setPointSize(std::clamp(m_sizes.fontSize, 6, 36));
    for (const GridPane &pane : m_c.panes) {
        Grid *grid = pane.grid;
        font.setBold(grid->font().bold());
        grid->setFont(font);
    }
    applyPalette();
    showReminderColumns();
}

void CaddyPainting::DefaultMenu()
{
    const bool selectors = iniBoolean(GetIniValue(iniSettings, u"Selectors"_s, u"True"_s));
    const bool bold = iniBoolean(GetIniValue(iniSettings, u"FontBold"_s, u"True"_s));
    for (const GridPane &pane : m_c.panes) {
        Grid *grid = pane.grid;
        grid->setRecordSelectors(selectors);
        QFont font = grid->font();
        font.setBold(bold);
        grid->setFont(font);
        m_columns.apply(grid);
    }
}

// Of several grids on show one has the keyboard: only its row is highlighted in full.
void CaddyPainting::markActive(const Grid *active)
{
    const QPalette system = QGuiApplication::palette();
    const QColor base = system.color(QPalette::Base);
    for (const GridPane &pane : m_c.panes) {
        Grid *grid = pane.grid;
        QPalette colours = grid->palette();
        const QColor ground = grid == active ? system.color(QPalette::Highlight)
                                             : controls::blend(base, system.color(QPalette::Highlight), 0.22);
        if (colours.color(QPalette::Active, QPalette::Highlight) == ground)
            continue;
        colours.setColor(QPalette::Highlight, ground);
        colours.setColor(QPalette::HighlightedText, controls::readable(system.color(QPalette::HighlightedText), ground));
        grid->setPalette(colours);
    }
}

// What the grids' own design gives: quiet tints of the palette's background, so that they read well in light and dark.
void CaddyPainting::applyPalette()
{
    const QPalette palette = QGuiApplication::palette();
    const QColor base = palette.color(QPalette::Base);
    const auto tint = [&base](const QColor &colour, double part) {
        return controls::StyleSet{controls::blend(base, colour, part), {}, false};
    };
    const std::pair<QString, controls::StyleSet> designs[] = {
        {u"TODAY"_s, tint(QColor(0xf5, 0xb8, 0x00), 0.34)},
        {u"WARNING"_s, tint(QColor(0xe0, 0x30, 0x20), 0.45)},
        {u"GREEN"_s, tint(QColor(0x2e, 0xa0, 0x43), 0.26)},
        {u"SEARCH"_s, {palette.color(QPalette::Highlight), palette.color(QPalette::HighlightedText), false}},
        {u"PICTURE"_s, tint(QColor(0x2a, 0x7f, 0xd4), 0.24)},
        {u"HILITE"_s, tint(QColor(0x2e, 0xa0, 0x43), 0.34)},
        {u"HILITE2"_s, tint(QColor(0x2a, 0x7f, 0xd4), 0.34)},
        {u"REDALERT"_s, tint(QColor(0xe0, 0x30, 0x20), 0.45)},
        {u"PURPLE"_s, tint(QColor(0x80, 0x40, 0xc0), 0.34)},
        {u"XMAS"_s, tint(QColor(0x2e, 0xa0, 0x43), 0.20)},
    };
    // The sections' own sets, plain until the user chooses a colour.
    QStringList plain = {u"WHITE"_s};
    for (const SectionDesign &section : sectionDesigns())
        if (section.grid && section.grid->takesColour && !section.grid->styleSet.isEmpty())
            plain << section.grid->styleSet;
    for (const GridPane &pane : m_c.panes) {
        Grid *grid = pane.grid;
        for (const auto &[name, style] : designs)
            grid->setStyleSet(name, style);
        for (const QString &name : plain)
            grid->setStyleSet(name, {});
        applyColours(grid);
    }
}

// A colour that the user chose is used in both palettes; one never chosen leaves the palette's own. Each reminder grid
// has the colour of its own word, the general grid those of all sections.
void CaddyPainting::applyColours(Grid *grid)
{
    const QString own = m_c.paneOf(grid).layoutWord;
    for (const GridColour &entry : gridColours()) {
        const auto chosen = m_sizes.colours.find(entry.key);
        if (chosen == m_sizes.colours.end() || chosen->second == entry.design || (!own.isEmpty() && entry.word != own))
            continue;
        for (const QString &name : entry.styleSets)
            grid->setStyleSet(name, {basic::colourOfNumber(chosen->second), {}, false});
    }
    grid->setStyleSet({}, defaultGround());
    if (grid == m_c.subjects().grid)
        showGround();
}

controls::StyleSet CaddyPainting::defaultGround() const
{
    const auto ground = colourNumber(m_sizes.defaultColour);
    return ground && *ground != 0xFFFFFF ? controls::StyleSet{basic::colourOfNumber(*ground), {}, false} : controls::StyleSet{};
}

void CaddyPainting::showGround()
{
    const SectionDesign *section = shownSection();
    const bool takesColour = section && section->grid && section->grid->takesColour;
    const controls::StyleSet own = takesColour ? m_c.subjects().grid->styleSet(section->grid->styleSet) : controls::StyleSet{};
    const bool isChosen = own.back.isValid();
    m_c.subjects().grid->setStyleSet({}, isChosen ? own : defaultGround());
}

void CaddyPainting::paintAppointment(RowPaint &row) const
{
    paintDay(row, row.cell(dateColumn));
    showApostrophes(row, m_c.appointments().textColumn);
    // Files of before hold "09:00 Am" beside "09:00 am".
    if (const QString time = row.cell(appointmentTime).text(), shown = typedTime(time); shown != time)
        setCell(row.text, appointmentTime, shown);
    if (m_warning == 0)
        return;
    const basic::Value id = row.cell(idColumn);
    if (const std::int32_t *number = id.tryGet<std::int32_t>(); number && *number == m_warning)
        styleCells(row, 1, 5, u"WARNING"_s);
}

void CaddyPainting::paintBill(RowPaint &row) const
{
    paintDay(row, row.cell(dateColumn));
    showApostrophes(row, m_c.bills().textColumn);
}

void CaddyPainting::paintEvent(RowPaint &row) const
{
    const basic::Value stored = row.cell(dateColumn);
    const QString subject = row.cell(eventSubject).text().toUpper();
    if (subject == u"BIRTHDAY"_s)
        row.rowStyle = u"GREEN"_s;
    if (const basic::DateTime *date = stored.tryGet<basic::DateTime>()) {
        // What comes back every year is named by the day on which it falls in the year on show.
        const bool yearly = isYearlyEvent(subject, row.cell(eventRecurring));
        const int year = state().period.gTodayYear > 0 ? state().period.gTodayYear : basic::Date().year();
        const basic::DateTime shown = yearly ? basic::DateSerial(year, date->month(), date->day()) : *date;
        setCell(row.text, dayColumn, basic::Format(shown, u"ddd"));
        if (basic::Format(*date, u"mm/dd") == basic::Format(basic::Date(), u"mm/dd"))
            row.rowStyle = u"TODAY"_s;
    }
    showApostrophes(row, m_c.events().textColumn);
    const QString file = row.cell(eventFile).text().trimmed();
    if (!pictureFile(file).isEmpty())
        setCell(row.style, eventFile, u"PICTURE"_s);
}

void CaddyPainting::paintSubject(RowPaint &row) const
{
    const SectionDesign *section = shownSection();
    if (!section || !section->list || section->list->columns.size() != m_c.subjects().grid->columns().size())
        return;
    const RowLook look = subjectRowLook(section->code, row.cell);
    row.rowStyle = look.style;
    for (const RowLook::Cell &cell : look.styles)
        setCell(row.style, cell.column, cell.content);
    for (const RowLook::Cell &cell : look.texts)
        setCell(row.text, cell.column, cell.content);
}

}
