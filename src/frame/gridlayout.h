#pragma once

#include "session/state.h"

#include <functional>
#include <map>
#include <vector>

// Column widths, row heights, fonts and colours of the main screen's grids, as the configuration file keeps them.
// Widths and heights are twips; columns count from 1, the first that the user sees.
namespace vorel {

// One word of the width keys: BOOKS has BOOKSCOL1WIDTH, BOOKSCOL2WIDTH, ... and BOOKSROWHEIGHT.
struct GridWord {
    QString word;
    std::vector<int> widths;            // the defaults, twips
    QString rowHeightKey;
    bool kept = true;                   // false: the widths live for the run only
};
const std::vector<GridWord> &gridWords();
inline constexpr int defaultRowHeight = 270;

// One key per grid colour.
struct GridColour {
    QString key;                        // "BooksGridColour"
    QString word;                       // the grid's word in the width keys
    QStringList styleSets;              // that take it as back colour
    quint32 design;                     // the style set's colour before any setting (0xBBGGRR)
};
const std::vector<GridColour> &gridColours();

class GridLayout {
public:
    GridLayout();                       // the defaults

    double width(const QString &word, int column) const;                // 0 for an unknown column
    void setWidth(const QString &word, int column, double twips);
    std::int16_t rowHeight(const QString &word) const;
    void setRowHeight(const QString &word, std::int16_t twips);
    // By key: "BOOKSCOL2WIDTH", "BUSCATSROWHEIGHT". get gives "" for a key that is not one of them.
    QString get(const QString &key) const;
    bool put(const QString &key, const QString &value);

    std::map<QString, quint32> colours; // by key of gridColours()
    QString fontName = QStringLiteral("Arial");
    int fontSize = 9;
    QString defaultColour, editColour;  // decimal text
    quint32 screenFontColour = 0;       // an index, see cboScreenFontColor
    QString setupPicture;               // "" or a file that exists
    bool outlookFunctions = false;

private:
    struct Sizes {
        std::vector<double> widths;
        std::int16_t rowHeight = defaultRowHeight;
    };
    std::map<QString, Sizes> m_sizes;
    const double *find(const QString &word, int column) const;
};

// Reads everything of the layout, in order; the colours' defaults are those that the layout holds. Writes the font's two
// keys back at once, and loads the "Features" switches into the state.
void LoadGridSettings(GridLayout &layout);
// Writes what the layout holds. subjectRowHeight: of SUBJECTGRID at present.
void SaveGridSettings(const GridLayout &layout, std::int16_t subjectRowHeight);

struct RowHeights {                     // of the grids at present
    std::int16_t appointments = defaultRowHeight, bills = defaultRowHeight, events = defaultRowHeight;
    std::int16_t subject = defaultRowHeight;
};
// Keeps the row heights of the grids that the section on show uses.
void UpdateRowHeight(GridLayout &layout, const RowHeights &heights);

}
