#pragma once

#include "session/reportdesign.h"

#include <QStringList>
#include <array>
#include <optional>
#include <vector>

// All that the program knows about its sections, as plain data: one SectionDesign a section, one file a section under
// session/sections. Letters, indexes and menu names belong to the edge (configuration file, buttons, menus); the code
// names a section by its SectionId.
namespace vorel {

namespace records {
struct RecordDesign;
}

enum class SectionId {
    Appointments, Bills, Events, AllReminders, AppointmentsAndBills, AppointmentsAndEvents, BillsAndEvents,
    Shopping, Contacts, ToDo, Books, Movies, Music, Inventory, Profile, Messages, Passwords, Journal, FileBackup, Notes, HowTo,
    Gardening, Recipes, Health, Golf, Vehicle, BusinessNumbers, EmergencyNumbers, ChristmasCards, PrivateNumbers,
    Income, Expenses, Calculator, Calendar, Help
};

enum class SectionKind {
    Reminder,       // some of the three reminder grids
    Grid,           // the general grid
    Action          // a screen of its own
};

// A field of a section's query as a grid column.
struct SectionColumn {
    enum class Role { Hidden, Shown, Button };
    QString field{};            // as the query lists it ("' '" for the button column)
    QString title{};
    Role role = Role::Shown;
    bool isNumbered = false;    // its width is kept
    int widthColumn = 0;        // number in the width keys, from 1; 0 = no width kept
    QString sample{};           // a text that should fit
    bool isTimed = false;       // a date that shows its time of day
    bool isMoney = false;       // a price that is kept as a plain number
    bool gives = false;         // shrinks where space is short
};

// How rows of the general grid look.
struct RowRule {
    enum class Kind {
        EveryRow,   // the row in the style
        Flag,       // the row in the style while `fields[0]` is set
        Overdue,    // the row in the style when more days have gone by since `fields[0]` than the limit in the others says
        Picture,    // the button column in the style while `fields[0]` is not blank
        Numbers,    // the cell `fields[0]` lists the telephone numbers of the other fields, a line each
        Joined,     // `fields[1]` is added to the cell `fields[0]`
        Lines       // the cell `fields[0]` shows its lines without the empty ones and without a stray quote before a label
    };
    Kind kind;
    QString style{};
    QStringList fields{};
    QString label{};            // Numbers: the letter before the colon
};

// The key of a grid's back colour in the configuration file.
struct GridColourDesign {
    QString key;                // "BooksGridColour"
    quint32 design = 0xFFFFFF;  // the colour before any setting (0xBBGGRR)
    bool marksToday = false;    // rows of today have it too
};

// How the grid of a section is laid out; its width keys are built from the word: BOOKSCOL1WIDTH, BOOKSROWHEIGHT.
struct GridDesign {
    QString word;
    std::vector<int> widths{};          // the defaults, twips
    QString rowHeightKey{};             // "" = the word's own
    bool isKept = true;                 // false: the widths live for the run only
    QString styleSet{};
    std::optional<GridColourDesign> colour{};
    bool takesColour = true;            // false: the rows are coloured one by one, the background stays plain
    QString empty{};                    // shown while there is no row
};

struct ListDesign {
    QString title;
    QString query;
    std::vector<SectionColumn> columns; // one per field of the query, in order
    QStringList growing{};              // share the remaining width, the first takes most; empty: all texts, the last takes most
    QStringList searched{};             // the fields that the search compares; empty: the first text column
    std::vector<RowRule> rules{};
    int lines = 1;                      // that a row has to say
    bool addsUserName = false;          // "for ..." in the title
    bool isEditedInCells = false;       // rows are added and deleted in the grid
};

// A button of the rail: cmdCat(index). The blanks in captions and tool tips belong to them.
enum class RailGroup { Reminders, Lists, People, Collections, Household, Money };
struct ButtonTip {
    QString heading{};
    QStringList lines{};
};
struct ButtonDesign {
    int index = -1;
    QString caption, toolTip;
    QString icon;                       // theme or built-in name
    RailGroup group;
    int place;                          // within the group, from 0
    ButtonTip tip;                      // shown in the details pane while the pointer rests on the button
};

// The switch in "Features" and what goes with the button.
struct FeatureDesign {
    QString key;
    QStringList controls{};             // objectNames
};

struct PrintDesign {
    QString menu;                       // "mnuPrintBooks"
    QString caption;
    ListReport report{};
};

// A record of the section as lines of text: the tip of a row, and the details beside the grid.
struct TipLine {
    enum class Show { Text, Day, Date, Money };
    QString label{};
    QStringList fields;                 // several are shown one after the other
    Show show = Show::Text;
};
struct RowTipDesign {
    QString table;
    std::vector<TipLine> lines;
    bool isLockable = true;             // a row with a PASSWORD of its own says nothing
};

// The screen that a record of the general grid opens on.
struct RecordScreenDesign {
    QString name;                                       // objectName
    std::optional<SectionId> opensAs{};                 // the section whose screen it is, if not its own
    const records::RecordDesign &(*record)() = nullptr; // nullptr: the screen is not one of fields and tree
};

enum class PathKind { Picture, Sound, Data, Backup };
// What the file chooser is for, by the caption that its caller gives it.
struct ChooserDesign {
    QString caption;
    PathKind kind = PathKind::Picture;
};
// The picture sets of the records: several pictures a row, in a table of the section's file.
struct PictureSetDesign {
    QString chooser;                    // the chooser's caption up to the slot's number: "Contact Other Picture "
    QString select, remove;             // the query texts up to the key
    QString readKey, ownKey;            // the field that the select asks for; the field of the record's number
    int slotCount;
};
struct PicturesDesign {
    QString folder;                     // beside the program's files
    std::vector<ChooserDesign> choosers;
    QString defaultPicture{};           // "" = one of the general ones
    std::optional<PictureSetDesign> set{};
};

// The page of help.
struct HelpDesign {
    QString page;                       // resource name: "\\INFOBOOKS.RTF"
    QString needs{};                    // the feature (utilities/hints) without which its screens are still to come
    QString title{};                    // "" = the section's name
};

// What a section shows whose data file is missing.
enum class MissingFile { Error, Empty };

struct SectionDesign {
    SectionId id;
    QString name;                       // what DisplayCategory takes
    QString code{};                     // gSection; "" for an action that leaves the section as it is
    SectionKind kind = SectionKind::Grid;
    DataFile file = DataFile::Main;
    MissingFile missingFile = MissingFile::Error;
    bool isGuarded = false;             // asks for the administration password
    bool refreshesReminders = true;     // RefreshData reads the reminder grids again
    std::array<bool, 3> grids{};        // Appointments, Bills, Events on show (Reminder only)
    std::optional<ListDesign> list{};
    std::optional<GridDesign> grid{};
    std::optional<ButtonDesign> button{};
    std::optional<FeatureDesign> feature{};
    std::optional<PrintDesign> print{};
    std::optional<RowTipDesign> rowTip{};
    std::optional<RecordScreenDesign> screen{};
    std::optional<PicturesDesign> pictures{};
    std::optional<HelpDesign> help{};   // none: the general page
};

// In the order of SectionId.
const std::vector<SectionDesign> &sectionDesigns();
const SectionDesign &sectionDesign(SectionId id);
const SectionDesign *sectionByName(const QString &name);     // exact, whatever the case; nullptr: no such section
const SectionDesign *sectionByCode(QStringView code);
QString chooserOf(const SectionDesign &section, PathKind kind);  // caption of its first chooser of the kind; "" = it has none
const SectionDesign *shownSection();                         // that of gSection
bool isShown(SectionId id);
// Whether typed apostrophes are kept as grave accents in the section's names, so that they are turned back where rows are shown.
bool keepsGraveAccents(const SectionDesign &section);

}
