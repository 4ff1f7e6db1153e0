#pragma once

#include "session/state.h"

#include <QStringList>
#include <vector>

// The record screens as plain data. frmSection is the one frame that reads them; a new record section is one more design
// and, where it has rules of its own, a small class over the frame.
namespace vorel::records {

enum class FieldKind {
    Line,           // one line of text
    Lines,          // several lines, stored with CR LF between them
    List,           // free text with a list of choices
    Check,
    Rich,
    Date,           // a text; shown and kept in the short form where it is a date
    Amount,         // shown in the number format
    Digits,
    Sound,          // the path of a sound file, with keys that choose and play it
    Picture,        // the path of the record's picture, with a key that chooses it
    Hidden          // holds a value for the code
};

struct Field {
    QStringView control, field;
    FieldKind kind = FieldKind::Line;
    QStringView panel = {};             // where it stands
    QStringView label = {};             // with its mnemonic; of a check box its caption
    QStringView labelName = {};         // "" = "lbl" and the control's name behind its prefix
    bool grave = false;                 // a typed apostrophe becomes a grave accent
    bool oneLine = false;               // swallows the Enter key
    QStringView group = {};             // the group box on the panel that it stands in
    QStringView button = {}, code = {}; // of a date: the key that opens the date picker, and its return code
    bool doubleClick = false;           // ... which a double click does too
};

enum class TreeMode { ByFirstCharacter = 1, ByCategory = 2, ByField = 3 };

struct TreeButton { QStringView name, caption, tip; TreeMode mode; QStringView field; };
struct Panel { QStringView name, caption; };
struct Group { QStringView name, title; };
// The choices of a list: fixed ones first, then what the query's only field gives, as it comes.
struct Choices { QStringView control; QStringList starts; QStringView sql; };
// What hangs on a check box: the controls (with their labels) are on show, or can be used, while it is ticked.
struct Option { QStringView check; std::vector<QStringView> controls; bool enables = false; };
struct FirstValue { QStringView field, text; };
// A block of the page of a record: a label and the control whose text it holds.
struct PageBlock { QStringView label, control; bool onlyIfFilled = true; bool dashed = false; };

struct RecordDesign {
    QStringView letter, screen, title;
    DataFile file = DataFile::Main;
    QStringView table, rows, dataControl;           // rows: the record source
    QStringView colourKey;
    QStringView pictureKey, picture;                // "" = the ground is shown whatever the configuration says
    QStringView chooser, sound;                     // captions of the chooser of paths
    QStringView web;
    QStringView treeField;                          // of the first character
    QStringView nameControl;                        // what the record is called by
    QStringView newFocus;
    QStringView emptyNote;                          // in the tree's place while there is no record
    QStringView copyCheck, copyNumber;              // the number is only kept of a copy of one's own
    QStringView pageFile, pageHeading;
    std::vector<TreeButton> trees;
    std::vector<Panel> panels;
    std::vector<Group> groups;
    std::vector<Field> fields;                      // in the order of the screen and of the Tab key
    std::vector<Choices> lists;
    std::vector<Option> options;
    std::vector<FirstValue> newRow;
    std::vector<PageBlock> page;
};

// Each lies in session/sections, in the file of its section.
const RecordDesign &booksRecord();
const RecordDesign &moviesRecord();
const RecordDesign &musicRecord();
const RecordDesign &inventoryRecord();

}
