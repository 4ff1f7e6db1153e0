#pragma once

#include "platform/dao/dao.h"

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

// The data control: one current row of a query, bound widgets that show and write that row's fields.
namespace vorel::controls {

struct BindOptions {
    // How the stored value is shown; default: Value::text(). E.g. a date in the user's display format.
    std::function<QString(const dao::Value &)> show = {};
    // From the shown text to what is stored; default: the text itself (an empty text is Null for dates and numbers).
    std::function<dao::Value(const QString &)> store = {};
    // What a refusal calls the field; default: the widget's accessible name, else the field's own.
    QString caption = {};
};

class DataControl : public QObject {
    Q_OBJECT
public:
    explicit DataControl(QObject *parent = nullptr);
    ~DataControl() override;

    // How all data controls open a file; DBEngine::OpenDatabase unless set. For a program that repairs what does not open.
    using Opener = std::function<dao::Database(const QString &path, const QString &connect)>;
    static void setOpener(Opener opener);

    void setDatabaseName(const QString &path);          // "" = no rows after the next Refresh
    const QString &DatabaseName() const;
    void setConnect(const QString &connect);            // "Access", ";pwd=..."
    void setRecordSource(const QString &sql);           // "" = no rows after the next Refresh
    const QString &RecordSource() const;
    // Opens the query, first row current. When the engine refuses, the rows on show stay, and Error reports it unless quiet.
    // Returns whether the rows are those of the query now.
    bool Refresh(bool quiet = false);
    dao::Recordset &Recordset();                        // an open recordset or an empty handle
    dao::Database &Database();
    void setRecordset(const dao::Recordset &recordset); // shows another recordset (a sorted one), first row current
    bool hasRows() const;
    void Close();                                       // writes nothing; releases rows and file

    // A widget for a field: QLineEdit, QComboBox, QCheckBox, QLabel, QTextEdit,
    // QPlainTextEdit, RichTextBox. One field may have several. From the next Refresh on the widget takes no more text than
    // the field holds.
    void bind(QWidget *widget, const QString &field, BindOptions options = {});
    void unbindAll();

    // Writes the bound widgets whose content changed since the row was shown; nothing changed writes nothing.
    // false: the engine refused; Error was emitted, the row is still current and the widgets keep what was typed.
    bool UpdateRecord();
    // The same with what depends on the row, in one transaction. `also` runs after the row was written, changed or not; where
    // it throws, nothing is stored, the typing is unsaved as before and Error is emitted.
    bool UpdateRecord(const std::function<void()> &also);
    void showRow();                                     // fills the widgets from the current row, then emits Reposition
    // Asked before a row is written or left, by whichever way; changed: there is typing to write. It may still change what
    // the widgets hold. false: the row is neither written nor left, and the reason has been reported.
    void setValidate(std::function<bool(bool changed)> validate);
    // For what collects changes of the current row itself (a grid): writes them, false if they were refused. Asked before
    // the row is written, and before Refresh and setRecordset; those stay where they are if it says no. revert runs `undo`,
    // which drops what the writer would write. With `changed`, which returns whether there is anything to write, the row and what the
    // writers hold are stored in one transaction; where that is taken back (a full disk), `retake` makes what was written
    // unsaved typing again. Dropped with its owner; a second one of an owner replaces the first.
    void addRowWriter(QObject *owner, std::function<bool()> writer, std::function<void()> undo = {},
                      std::function<bool()> changed = {}, std::function<void()> retake = {});
    // Leaves the row without moving to another (a screen that closes): UpdateRecord. Where the same
    // typing is refused a second time, the user is asked whether it may be dropped. false: stay.
    bool Leave();
    void setMovesAsk(bool on);                          // every move leaves the row by Leave
    bool isDirty() const;
    void revert();                                      // back to the stored values
    void contentChanged(const QWidget *widget);         // by code, where the widget has no signal for it (a label)
    bool isFilling() const;                             // a row's values are being put into the widgets
    // From where no box may come up, painting for one: Error once the event loop is reached again, once for a recordset.
    void reportLater(int number, const QString &text);
    QWidget *refusedWidget() const;                     // whose content the last write refused; nullptr = no single one
    void takeAsShown(QWidget *widget);                  // what code puts into the widget while showing the row does not make it dirty

    // Each writes the current row first (UpdateRecord) and stays if that fails; then moves and shows the row.
    bool MoveFirst();
    bool MoveLast();
    bool MoveNext();                                    // stays on the last row
    bool MovePrevious();
    bool FindFirst(const QString &criteria);            // not found: the row that was current stays; false
    bool setBookmark(dao::Bookmark mark);

signals:
    void Reposition();                                  // after every change of the current row, no rows included
    void RowsChanged();                                 // the recordset itself was exchanged or requeried
    void Error(int number, const QString &text);        // unconnected: shown in a message box
    void DirtyChanged(bool dirty);                      // bound widgets hold unsaved changes, or none any more

private:
    struct Private;
    std::unique_ptr<Private> d;
};

// The control's visible part: first, previous, position, next, last.
class DataNavigator : public QWidget {
    Q_OBJECT
public:
    explicit DataNavigator(DataControl *control, QWidget *parent = nullptr);
    void setCaption(const QString &caption);
private:
    struct Private;
    std::unique_ptr<Private> d;
public:
    ~DataNavigator() override;
};

}
