#include "frame/gridlayout.h"

#include "frame/startup.h"
#include "media/pictures.h"
#include "platform/basic/convert.h"
#include "platform/basic/error.h"
#include "platform/basic/files.h"
#include "platform/desktop/profile.h"
#include "session/ini.h"
#include "session/sectiondesign.h"

#include <algorithm>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace vorel {

namespace {

constexpr double widest = std::numeric_limits<std::int16_t>::max();

QString widthKey(const QString &name, std::size_t column)
{
    return u"%1COL%2WIDTH"_s.arg(name).arg(column);
}

// The three reminder grids keep the widths of their columns unrounded, the others whole twips.
bool isReminderWord(const QString &name)
{
    return name == u"APPS" || name == u"BILLS" || name == u"EVENTS";
}

std::optional<double> twips(const QString &text)
{
    const QString number = text.trimmed();
    if (!basic::IsNumeric(number))
        return std::nullopt;
    const std::optional<double> value = basic::tryDouble(number);
    return value ? std::optional(std::clamp(*value, 0.0, widest)) : std::nullopt;
}

// Readers and writer do not quite match; the file's keys are those of users' files.
bool isRead(const QString &key)
{
    return key != u"HEALTHCOL2WIDTH";
}

QString writtenKey(const QString &key)
{
    if (key == u"MUSICCOL1WIDTH")
        return u"MUSICSCOL1WIDTH"_s;        // never read: the first music column always opens at its default
    if (key == u"GARDENCOL3WIDTH" || key == u"RECIPECOL3WIDTH")
        return {};
    return key;
}

void putSetting(const QString &key, QString value)
{
    PutIniValue(iniSettings, key, value);
}

// A fractional size in the file does not last: what the file holds is put right at once. A file without the keys gets
// none, so that a fresh one holds the paths alone until the user has settled something.
void loadFont(GridLayout &layout)
{
    const QString name = GetIniValue(iniSettings, u"GridFontName"_s, {});
    const QString size = GetIniValue(iniSettings, u"GridFontSize"_s, {});
    layout.fontName = name.isEmpty() ? u"Arial"_s : name;
    layout.fontSize = iniInteger(size);
    if (layout.fontSize <= 0)
        layout.fontSize = 9;
    if (!name.isEmpty())
        putSetting(u"GridFontName"_s, layout.fontName);
    if (!size.isEmpty())
        putSetting(u"GridFontSize"_s, QString::number(layout.fontSize));
}

void loadSizes(GridLayout &layout)
{
    for (const GridWord &row : gridWords()) {
        if (!row.kept)
            continue;
        for (std::size_t column = 1; column <= row.widths.size(); ++column) {
            const QString key = widthKey(row.word, column);
            if (isRead(key))
                layout.put(key, GetIniValue(iniSettings, key, QString::number(row.widths[column - 1])));
        }
        layout.put(row.rowHeightKey, GetIniValue(iniSettings, row.rowHeightKey, QString::number(defaultRowHeight)));
    }
}

void saveSizes(const GridLayout &layout)
{
    for (const GridWord &row : gridWords()) {
        if (!row.kept)
            continue;
        for (std::size_t column = 1; column <= row.widths.size(); ++column) {
            const QString key = widthKey(row.word, column);
            if (const QString written = writtenKey(key); !written.isEmpty())
                putSetting(written, layout.get(key));
        }
        putSetting(row.rowHeightKey, layout.get(row.rowHeightKey));
    }
}

}

const std::vector<GridWord> &gridWords()
{
    static const std::vector<GridWord> words = [] {
        std::vector<GridWord> built;
        for (const SectionDesign &section : sectionDesigns())
            if (const auto &grid = section.grid)
                built.push_back({grid->word, grid->widths, grid->rowHeightKey.isEmpty() ? grid->word + u"ROWHEIGHT"_s : grid->rowHeightKey,
                                 grid->isKept});
        return built;
    }();
    return words;
}

const std::vector<GridColour> &gridColours()
{
    static const std::vector<GridColour> colours = [] {
        std::vector<GridColour> built;
        for (const SectionDesign &section : sectionDesigns()) {
            if (!section.grid || !section.grid->colour)
                continue;
            const GridColourDesign &colour = *section.grid->colour;
            QStringList styleSets{section.grid->styleSet};
            if (colour.marksToday)
                styleSets << u"TODAY"_s;
            built.push_back({colour.key, section.grid->word, styleSets, colour.design});
        }
        return built;
    }();
    return colours;
}

GridLayout::GridLayout()
    : defaultColour(QString::number(0xFFFFFF)), editColour(QString::number(0xFFFF))
{
    for (const GridColour &colour : gridColours())
        colours[colour.key] = colour.design;
    for (const GridWord &row : gridWords())
        m_sizes[row.word].widths.assign(row.widths.begin(), row.widths.end());
}

const double *GridLayout::find(const QString &name, int column) const
{
    const auto found = m_sizes.find(name);
    if (found == m_sizes.end() || column < 1 || static_cast<std::size_t>(column) > found->second.widths.size())
        return nullptr;
    return &found->second.widths[static_cast<std::size_t>(column - 1)];
}

double GridLayout::width(const QString &name, int column) const
{
    const double *width = find(name, column);
    return width ? *width : 0;
}

void GridLayout::setWidth(const QString &name, int column, double value)
{
    if (!find(name, column))
        return;
    const double kept = isReminderWord(name) ? static_cast<double>(static_cast<float>(value)) : basic::Round(value);
    m_sizes[name].widths[static_cast<std::size_t>(column - 1)] = std::clamp(kept, 0.0, widest);
}

std::int16_t GridLayout::rowHeight(const QString &name) const
{
    const auto found = m_sizes.find(name);
    return found == m_sizes.end() ? static_cast<std::int16_t>(defaultRowHeight) : found->second.rowHeight;
}

void GridLayout::setRowHeight(const QString &name, std::int16_t value)
{
    if (const auto found = m_sizes.find(name); found != m_sizes.end())
        found->second.rowHeight = value;
}

QString GridLayout::get(const QString &key) const
{
    for (const GridWord &row : gridWords()) {
        if (key == row.rowHeightKey && row.kept)
            return QString::number(rowHeight(row.word));
        for (std::size_t column = 1; column <= row.widths.size(); ++column) {
            if (key == widthKey(row.word, column))
                return basic::CStr(static_cast<float>(width(row.word, static_cast<int>(column))));
        }
    }
    return {};
}

bool GridLayout::put(const QString &key, const QString &value)
{
    const auto number = twips(value);
    for (const GridWord &row : gridWords()) {
        if (key == row.rowHeightKey && row.kept) {
            if (number)
                setRowHeight(row.word, static_cast<std::int16_t>(*number));
            return number.has_value();
        }
        for (std::size_t column = 1; column <= row.widths.size(); ++column) {
            if (key != widthKey(row.word, column))
                continue;
            if (number)
                setWidth(row.word, static_cast<int>(column), *number);
            return number.has_value();
        }
    }
    return false;
}

void LoadGridSettings(GridLayout &layout)
{
    layout.outlookFunctions = GetIniValue(iniSettings, u"EmailClient"_s, {}) == u"Outlook";
    layout.setupPicture = pictureFile(GetIniValue(iniSettings, u"SetupPicture"_s, {}));
    const auto fontColour = iniInteger(GetIniValue(iniSettings, u"ScreenFontColour"_s, u"0"_s));
    layout.screenFontColour = fontColour < 0 ? 0u : static_cast<quint32>(fontColour);
    loadFont(layout);
    for (const GridColour &colour : gridColours())
        layout.colours[colour.key] = GetIniColour(colour.key, layout.colours[colour.key]);
    layout.defaultColour = QString::number(GetIniColour(u"DefaultColour"_s, 0xFFFFFF));
    layout.editColour = QString::number(GetIniColour(u"EditColour"_s, 0xFFFF));
    loadSizes(layout);
    loadFeatures();
}

void SaveGridSettings(const GridLayout &layout, std::int16_t subjectRowHeight)
{
    const desktop::ProfileBatch batch;
    saveSizes(layout);
    putSetting(u"SUBJECTSROWHEIGHT"_s, QString::number(subjectRowHeight));
    for (const auto &[key, colour] : layout.colours)
        putSetting(key, QString::number(colour));
}

void UpdateRowHeight(GridLayout &layout, const RowHeights &heights)
{
    const SectionDesign *section = shownSection();
    if (!section)
        return;
    if (section->list) {
        layout.setRowHeight(section->grid->word, heights.subject);
        return;
    }
    // The screens of two grids keep none.
    const std::pair<SectionId, std::int16_t> reminders[] = {{SectionId::Appointments, heights.appointments},
                                                            {SectionId::Bills, heights.bills},
                                                            {SectionId::Events, heights.events}};
    for (const auto &[id, height] : reminders)
        if (section->id == id || section->id == SectionId::AllReminders)
            layout.setRowHeight(sectionDesign(id).grid->word, height);
}

}
