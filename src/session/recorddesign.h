#pragma once

#include "platform/controls/field.h"
#include "session/state.h"

#include <QStringList>
#include <optional>
#include <variant>
#include <vector>

// The record screens as plain data. frmSection is the one frame that reads them; a new record section is one more design
// and, where it has rules of its own, a small class over the frame.
namespace vorel::records {

using controls::Field;
using controls::FieldKind;
using controls::FieldRule;
using controls::ScreenKey;

// A node of the tree: a record, or with ID 0 a group.
struct TreeNode {
    qint32 id = 0;
    QString text{};
    bool marked = false;                // in a colour of its own
    std::vector<TreeNode> children{};
};

// How names are cased where the user does not want capitals: a surname's second capital (McLeod, O'Hara) or words alone.
enum class NameCase { Surnames, Words };

struct TreeRequest {
    QString path;                       // of the data file
    QString table;
    QString field;                      // that groups, or orders the leaves of a group
    QString leaf;                       // whose text a leaf shows
    NameCase names = NameCase::Surnames;
    dao::Recordset shown = {};          // the rows of the screen where they have just been read; else a closed one
};

// Adds the groups in their order. Where a query fails, what was read until then is there when its error comes out.
using TreeReader = void (*)(const TreeRequest &request, std::vector<TreeNode> &nodes);

struct TreeButton {
    QString name, caption, tip;
    TreeReader read = nullptr;
    QString field, leaf;
};

struct Panel {
    QString name, caption;
    int columns = 1;
    QString newCaption = {}, newTip = {};       // of cmdNew while the panel is on show; "" = the usual
};
struct Group { QString name, title; };
// The choices of one or several lists: fixed ones first, then what the query's field gives, as it comes.
struct Choices {
    std::vector<QString> controls;
    QStringList starts;
    QString sql = {};                   // "" = the fixed ones alone
    QString field = {};                 // "" = the query's only one
    std::optional<DataFile> file = {};  // the record's own unless given
    bool whenUsed = false;              // read when one of the lists gets the cursor: its query is slow over many records
};
// Controls that a check box switches: they (with their labels) are visible, or enabled, while it is ticked.
struct Option { QString check; std::vector<QString> controls; bool enables = false; };
// A value, or what gives it when the row is added (today). A field that the table lacks is passed over.
struct FirstValue {
    QString field;
    std::variant<dao::Value, dao::Value (*)()> value = dao::Value(QString());
};
// A block of the page of a record: a label and the control whose text it holds.
struct PageBlock { QString label, control; bool onlyIfFilled = true; bool dashed = false; };

struct ChildColumn {
    QString field, caption;
    int width = 0;                      // twips; 0 = what the others leave of the grid, but for `margin`
    int margin = 0;
    QString format = {};
};

// Rows of another table that belong to the record, in a grid of their own.
struct ChildGrid {
    QString control, dataControl;
    QString panel;
    QString spoken;                     // accessible name
    QString rows, order = {};           // the query up to the key, and what follows it
    QString key;                        // the field by which the rows belong to the record; new rows get it
    QString keyControl = QStringLiteral("lblIDNum");  // that holds the key's value in the record: its number, or a name
    std::vector<ChildColumn> columns = {};
    bool deletes = true;                // the Delete key removes a row, after the question
    QString note = {};                  // below the grid
};

enum class TreeRebuild { OnFirstSave, OnEverySave };        // what comes into the tree by a save
enum class TreeAfterDelete { FirstMode, SameMode };

struct RecordDesign {
    QString letter, screen, title;
    DataFile file = DataFile::Main;
    QString table, rows, dataControl;               // rows: the record source
    QString colourKey;
    QString pictureKey = {}, picture = {};          // no key: the background is shown whatever the configuration says
    QString web = {};
    QString nameControl;                            // what the record is called by
    QString newFocus;
    QString emptyNote = {};                         // in the tree's place while there is no record
    QString copyCheck = {}, copyNumber = {};        // the number is only kept of a copy of one's own
    QString pageFile = {}, pageHeading = {};
    QString tabStrip = QStringLiteral("TabStrip1");
    QString search = {};                            // criteria of txtSearch, %1 the typed text in capitals; "" = no box
    NameCase names = NameCase::Surnames;
    std::vector<TreeButton> trees = {};             // the first is the tree at opening; none: a screen without a tree
    TreeRebuild rebuild = TreeRebuild::OnFirstSave;
    TreeAfterDelete treeAfterDelete = TreeAfterDelete::FirstMode;
    bool deleteGoesBack = false;                    // the record before the deleted one is shown, not the one behind
    std::vector<Panel> panels;
    std::vector<Group> groups = {};
    std::vector<Field> fields;                      // in the order of the screen and of the Tab key
    std::vector<Choices> lists = {};
    std::vector<Option> options = {};
    std::vector<FirstValue> newRow = {};
    std::vector<PageBlock> page = {};
    std::vector<ChildGrid> children = {};
    QString picturePanel = {};                      // of the section's sets of six or ten pictures; "" = it has none
    QStringList childDeletes = {};                  // statements; %id and %name are replaced by the record's, as literals
    std::vector<ScreenKey> keys = {};               // further buttons of the screen
};

// Each lies in session/sections, in the file of its section.
const RecordDesign &booksRecord();
const RecordDesign &moviesRecord();
const RecordDesign &musicRecord();
const RecordDesign &inventoryRecord();
const RecordDesign &contactsRecord();

}
