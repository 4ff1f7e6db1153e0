#include "platform/controls/datacontrol.h"

#include "platform/basic/prompts.h"
#include "platform/controls/fieldadapter.h"

#include <QFile>
#include <QMetaMethod>
#include <sys/stat.h>

namespace vorel::controls {

using namespace Qt::StringLiterals;

namespace {

constexpr int errNoCurrentRecord = 3021;
constexpr int errZeroLength = 3315;
constexpr int errDeleted = 3167;

struct Binding {
    QPointer<QWidget> widget;
    QString field;
    BindOptions options;
    QString shown;              // the content when the row was shown or written last
    bool isChanged() const { return widget && adapter::content(*widget) != shown; }
};

// Which file a path names now: a compacted or exchanged file is another one under the same name.
std::pair<dev_t, ino_t> identityOf(const QString &path)
{
    struct stat s {};
    if (::stat(QFile::encodeName(path).constData(), &s) != 0)
        return {};
    return {s.st_dev, s.st_ino};
}

const dao::RecordsetField *findField(const dao::Recordset &rows, const QString &name)
{
    for (const dao::RecordsetField &field : rows.Fields()) {
        if (field.Name.compare(name, Qt::CaseInsensitive) == 0)
            return &field;
    }
    return nullptr;
}

bool isRowGone(int number)
{
    return number == errDeleted || number == errNoCurrentRecord;
}

}

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
    std::function<bool()> writer;
    std::function<void()> undo;
    bool dropping = false;
    bool movesAsk = false;
    bool refused = false;                   // the last attempt to leave this row could not save it

    enum class Written { Done, Gone, Refused };
    struct Failure {
        int number = 0;
        QString text;
    };

    dao::Bookmark currentMark() const
    {
        dao::Bookmark mark;
        basic::IgnoreErrors([&] {
            if (rows && !rows.BOF() && !rows.EOF_())
                mark = rows.Bookmark();
        });
        return mark;
    }

    bool isDirty() const
    {
        return rows && shown.isValid()
            && std::any_of(bindings.begin(), bindings.end(), [](const Binding &b) { return b.isChanged(); });
    }

    void fill(Binding &binding, bool hasRow)
    {
        if (!binding.widget)
            return;
        dao::Value value;
        if (hasRow && findField(rows, binding.field))
            value = rows.Get(binding.field);
        adapter::fill(*binding.widget, value, binding.options);
        if (binding.widget)                 // its change signal may have run anything
            binding.shown = adapter::content(*binding.widget);
    }

    void fillAll(bool hasRow)
    {
        // By index: a handler of a widget's change signal may bind more.
        for (std::size_t i = 0; i < bindings.size(); ++i)
            fill(bindings[i], hasRow);
    }

    void settle()
    {
        for (Binding &binding : bindings) {
            if (binding.widget)
                binding.shown = adapter::content(*binding.widget);
        }
    }

    // An empty text goes in as it is where the design takes it, else as Null.
    void set(const QString &field, const dao::Value &value)
    {
        try {
            rows.Set(field, value);
        } catch (const basic::Error &e) {
            if (e.number() != errZeroLength)
                throw;
            rows.Set(field, dao::Value());
        }
    }

    void writeFields()
    {
        rows.Edit();
        for (const Binding &binding : bindings) {
            if (!binding.isChanged())
                continue;
            const dao::RecordsetField *field = findField(rows, binding.field);
            if (!field)
                throw dao::EngineError(3265);
            set(field->Name, adapter::stored(*binding.widget, binding.options, field->Type));
        }
        rows.Update();
    }

    // Several widgets may show one field: the others follow the one that was written.
    void refill()
    {
        for (Binding &binding : bindings) {
            if (!binding.isChanged())
                fill(binding, true);
        }
        settle();
    }

    // Writes to the row that the widgets hold, wherever code has moved the recordset meanwhile.
    Written write(Failure *failure)
    {
        if (!isDirty())
            return Written::Done;
        const dao::Bookmark here = currentMark();
        try {
            if (here != shown)
                rows.setBookmark(shown);
            writeFields();
            refill();
            if (here.isValid() && here != shown)
                rows.setBookmark(here);
            return Written::Done;
        } catch (const basic::Error &e) {
            *failure = {e.number(), e.text()};
            basic::IgnoreErrors([&] {
                if (rows.editPending())
                    rows.CancelUpdate();
            });
            // Deleted through this very recordset: that was the wish, there is nothing to tell.
            if (isRowGone(e.number()) && here != shown)
                failure->number = 0;
            return isRowGone(e.number()) ? Written::Gone : Written::Refused;
        }
    }

    void showNeighbour()
    {
        qsizetype position = 0;
        basic::IgnoreErrors([&] { position = rows.AbsolutePosition(); });
        const int failed = basic::IgnoreErrors([&] {
            rows.Requery();
            const qsizetype last = rows.rowTotal() - 1;
            if (last >= 0 && position > 0)
                rows.Move(std::min(position, last));
        });
        if (failed)
            rows = {};
        shown = {};
        const QPointer<DataControl> alive(q);
        emit q->RowsChanged();
        if (alive)
            q->showRow();
    }

    void report(const Failure &failure)
    {
        if (failure.number == 0)
            return;
        static const QMetaMethod signal = QMetaMethod::fromSignal(&DataControl::Error);
        if (q->isSignalConnected(signal))
            emit q->Error(failure.number, failure.text);
        else
            basic::MsgBox(failure.text, {}, basic::Icon::Exclamation);
    }

    void openDatabase(dao::Database &opened) const
    {
        if (database && path == openPath && connect == openConnect && identityOf(path) == openFile)
            opened = database;
        else
            opened = dao::DBEngine::OpenDatabase(path, false, false, connect);
    }

    void take(const dao::Recordset &recordset)
    {
        rows = recordset;
        shown = {};
        const QPointer<DataControl> alive(q);
        emit q->RowsChanged();
        if (alive)
            q->showRow();
    }

    // One move: the row on show is written first, and stays if that fails.
    bool move(const std::function<bool()> &step)
    {
        const QPointer<DataControl> alive(q);
        if (!(movesAsk ? q->Leave() : q->UpdateRecord()) || !alive)
            return false;
        if (!q->hasRows()) {
            if (shown.isValid())
                q->showRow();
            return false;
        }
        const dao::Bookmark here = currentMark();
        try {
            if (!step()) {
                if (here.isValid())
                    rows.setBookmark(here);
                return false;
            }
        } catch (const basic::Error &e) {
            const Failure failure {e.number(), e.text()};
            basic::IgnoreErrors([&] {
                if (here.isValid())
                    rows.setBookmark(here);
            });
            if (e.number() == errDeleted)
                showNeighbour();
            if (alive)
                report(failure);
            return false;
        }
        q->showRow();
        return true;
    }
};

DataControl::DataControl(QObject *parent) : QObject(parent), d(std::make_unique<Private>(this)) {}

DataControl::~DataControl() = default;

void DataControl::setDatabaseName(const QString &path)
{
    d->path = path;
}

const QString &DataControl::DatabaseName() const
{
    return d->path;
}

void DataControl::setConnect(const QString &connect)
{
    d->connect = connect;
}

void DataControl::setRecordSource(const QString &sql)
{
    d->source = sql;
}

const QString &DataControl::RecordSource() const
{
    return d->source;
}

void DataControl::setRowWriter(std::function<bool()> writer, std::function<void()> undo)
{
    d->writer = std::move(writer);
    d->undo = std::move(undo);
}

void DataControl::setMovesAsk(bool on)
{
    d->movesAsk = on;
}

void DataControl::Refresh(bool quiet)
{
    if (d->writer && !d->writer())
        return;
    dao::Database opened;
    dao::Recordset recordset;
    if (!d->source.trimmed().isEmpty() && !d->path.isEmpty()) {
        try {
            d->openDatabase(opened);
            recordset = opened.OpenRecordset(d->source, dao::dbOpenDynaset);
            dao::DBEngine::Idle(dao::dbRefreshCache);
        } catch (const basic::Error &e) {
            if (!quiet)
                d->report({e.number(), e.text()});
            return;
        }
        d->database = opened;
        d->openPath = d->path;
        d->openConnect = d->connect;
        d->openFile = identityOf(d->path);
    }
    d->take(recordset);
}

dao::Recordset &DataControl::Recordset()
{
    return d->rows;
}

dao::Database &DataControl::Database()
{
    return d->database;
}

void DataControl::setRecordset(const dao::Recordset &recordset)
{
    if (!d->writer || d->writer())
        d->take(recordset);
}

bool DataControl::hasRows() const
{
    bool any = false;
    basic::IgnoreErrors([&] { any = d->rows && !(d->rows.BOF() && d->rows.EOF_()) && d->rows.rowTotal() > 0; });
    return any;
}

void DataControl::Close()
{
    basic::IgnoreErrors([&] {
        if (d->rows)
            d->rows.Close();
    });
    basic::IgnoreErrors([&] {
        if (d->database)
            d->database.Close();
    });
    d->rows = {};
    d->database = {};
    d->shown = {};
    emit RowsChanged();
}

void DataControl::bind(QWidget *widget, const QString &field, BindOptions options)
{
    std::erase_if(d->bindings, [&](const Binding &b) { return !b.widget || b.widget == widget; });
    d->bindings.push_back({widget, field, std::move(options), {}});
    Binding &added = d->bindings.back();
    if (!d->shown.isValid() || basic::IgnoreErrors([&] { d->fill(added, true); }) != 0)
        added.shown = adapter::content(*widget);
}

void DataControl::unbindAll()
{
    d->bindings.clear();
}

bool DataControl::UpdateRecord()
{
    if (d->writer && !d->writer())
        return false;
    Private::Failure failure;
    const Private::Written result = d->write(&failure);
    if (result == Private::Written::Done) {
        d->refused = false;
        return true;
    }
    if (result == Private::Written::Gone && failure.number == 0) {
        d->settle();
        return true;
    }
    const QPointer<DataControl> alive(this);
    if (result == Private::Written::Gone)
        d->showNeighbour();
    if (alive)
        d->report(failure);
    return false;
}

bool DataControl::Leave()
{
    const bool again = std::exchange(d->refused, true);
    const QPointer<DataControl> alive(this);
    if (UpdateRecord()) {
        d->refused = false;
        return true;
    }
    if (!alive || !again || !d->refused || !basic::askYesNo(u"Leave without saving the changes?"_s) || !alive)
        return false;
    revert();
    d->refused = false;
    return true;
}

void DataControl::showRow()
{
    const dao::Bookmark row = d->currentMark();
    if (d->shown.isValid() && row != d->shown) {    // code moved the recordset: what was typed belongs to the old row
        Private::Failure failure;
        if (d->write(&failure) == Private::Written::Refused) {
            d->report(failure);
            return;
        }
    }
    d->shown = row;
    d->refused = false;
    const int failed = basic::IgnoreErrors([&] { d->fillAll(row.isValid()); });
    if (failed == errDeleted && !d->dropping) {     // deleted elsewhere: the next row takes its place
        d->dropping = true;
        d->showNeighbour();
        d->dropping = false;
        return;
    }
    if (failed) {
        d->shown = {};
        d->fillAll(false);
    }
    emit Reposition();
}

bool DataControl::isDirty() const
{
    return d->isDirty();
}

void DataControl::revert()
{
    if (d->undo)
        d->undo();
    basic::IgnoreErrors([&] { d->fillAll(d->shown.isValid()); });
}

void DataControl::takeAsShown(QWidget *widget)
{
    for (Binding &binding : d->bindings) {
        if (binding.widget == widget)
            binding.shown = adapter::content(*widget);
    }
}

bool DataControl::MoveFirst()
{
    return d->move([this] {
        d->rows.MoveFirst();
        return true;
    });
}

bool DataControl::MoveLast()
{
    return d->move([this] {
        d->rows.MoveLast();
        return true;
    });
}

bool DataControl::MoveNext()
{
    return d->move([this] {
        d->rows.MoveNext();
        if (d->rows.EOF_() && d->rows.rowTotal() > 0)
            d->rows.MoveLast();
        return true;
    });
}

bool DataControl::MovePrevious()
{
    return d->move([this] {
        d->rows.MovePrevious();
        if (d->rows.BOF() && d->rows.rowTotal() > 0)
            d->rows.MoveFirst();
        return true;
    });
}

bool DataControl::FindFirst(const QString &criteria)
{
    return d->move([this, &criteria] {
        d->rows.FindFirst(criteria);
        return !d->rows.NoMatch();
    });
}

bool DataControl::setBookmark(dao::Bookmark mark)
{
    return d->move([this, mark] {
        d->rows.setBookmark(mark);
        return true;
    });
}

}
