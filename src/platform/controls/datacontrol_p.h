#pragma once

#include "platform/controls/datacontrol.h"
#include "platform/controls/fieldadapter.h"
#include "platform/controls/rowwriters.h"

#include <sys/types.h>

// What the data control keeps to itself, shared by the files that it is made of.
namespace vorel::controls {

struct Binding {
    QPointer<QWidget> widget;
    QString field;
    BindOptions options;
    QString shown;              // the content when the row was shown or written last
    bool isChanged() const { return widget && adapter::content(*widget) != shown; }
};

// Which file a path names now: a compacted or exchanged file is another one under the same name.
std::pair<dev_t, ino_t> identityOf(const QString &path);
const dao::RecordsetField *findField(const dao::Recordset &rows, const QString &name);

struct DataControl::Private {
    explicit Private(DataControl *control) : q(control) {}

    DataControl *q;
    QString path, connect, source;
    dao::Database database;
    QString openPath, openConnect;
    std::pair<dev_t, ino_t> openFile {};
    dao::Recordset rows;
    dao::Bookmark shown;                    // the row that the widgets hold
    std::vector<Binding> bindings;
    RowWriters writers;
    std::function<bool(bool)> validate;
    QPointer<QWidget> refusedWidget;
    int filling = 0;
    bool dirty = false;                     // as DirtyChanged said last
    bool validating = false;
    bool dropping = false;
    bool hasReported = false;               // reportLater, of these rows
    bool inTransaction = false;             // of UpdateRecord with a step of the caller
    bool movesAsk = false;
    bool refused = false;                   // the last attempt to leave this row could not save it

    enum class Written { Done, Gone, Refused };
    struct Failure {
        int number = 0;
        QString text;
    };

    dao::Bookmark currentMark() const;
    bool isDirty() const;
    void fill(Binding &binding, bool hasRow);
    void fillAll(bool hasRow);
    // A row that cannot be read shows nothing. Returns the error's number, 0 for none; damage is reported.
    int tryFill(const std::function<void()> &step);
    void noteDirty();
    // One changed widget makes the row dirty; whether it is clean again only all of them can say.
    void noteChange(const QWidget *widget);
    void limit(const Binding &binding) const;
    // The validation may itself save or move (a question, a box): it is not asked again meanwhile.
    bool isValid();
    void settle();
    // An empty text goes in as it is where the design takes it, else as Null.
    void set(const QString &field, const dao::Value &value);
    void writeField(const Binding &binding, const dao::RecordsetField &field);
    void writeFields();
    // Several widgets may show one field: the others follow the one that was written.
    void refill();
    // Writes to the row that the widgets hold, wherever code has moved the recordset meanwhile.
    Written write(Failure *failure);
    // The row and the rows that hang on it are one change. Where one of them is refused the others are kept all the same:
    // their typing has been taken. false: a writer refused and has reported it, or `failure` says why.
    bool writeAll(Written *result, Failure *failure);
    // The widgets hold again what they held before a write that was taken back.
    void restore(const std::vector<std::pair<QPointer<QWidget>, std::pair<QString, QString>>> &typed);
    void showNeighbour();
    void report(const Failure &failure);
    void openDatabase(dao::Database &opened) const;
    void take(const dao::Recordset &recordset);
    // One move: the row on show is written first, and stays if that fails.
    bool move(const std::function<bool()> &step);
};

}
