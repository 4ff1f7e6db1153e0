#pragma once

#include <QFlags>
#include <QString>
#include <vector>

// The fields of a record screen as plain data: RecordForm creates, binds and places them.
namespace vorel::controls {

enum class FieldKind {
    Line,           // one line of text
    Lines,          // several lines, stored with CR LF between them
    List,           // free text with a list of choices
    Choice,         // one of a list, nothing else
    Check,
    Rich,
    Date,
    Amount,
    Digits,
    Path,           // of a file: shown only, set by a button
    Caption,        // a text that is shown only
    Hidden,         // holds a value for the code
};

enum class FieldRule {
    Grave = 1,          // an apostrophe becomes a grave accent, whether typed, pasted, dropped or completed
    OneLine = 2,        // ignores the Enter key
    DoubleClick = 4,    // of a date: a double click opens the date picker too
};
Q_DECLARE_FLAGS(FieldRules, FieldRule)

struct Field {
    QString control;                // objectName; of an array's member with its index, "txtdob(3)"
    QString field = {};             // of the recordset; "" = not bound
    FieldKind kind = FieldKind::Line;
    QString panel = {};
    QString group = {};             // the group box on the panel
    int column = 0;                 // of a panel with several
    bool beside = false;            // on the line of the field before it
    QString label = {};             // with its mnemonic
    // "" = "lbl" and the control's name without its prefix. A check box bears its label itself unless this is given.
    QString labelName = {};
    FieldRules rules = {};
    QString button = {};            // of a date: opens the date picker
    QString spoken = {};            // accessible name where no label says it
    QString action = {};            // what a double click, Ctrl+Enter and the context menu do with the text: "&Open"
    int lines = 4;                  // shown, of several
};

// A button of a screen.
struct ScreenKey {
    QString name, caption;
    QString icon = {};
    QString tip = {};
};

}

Q_DECLARE_OPERATORS_FOR_FLAGS(vorel::controls::FieldRules)   // out here, where it hides none of Qt's own operators
