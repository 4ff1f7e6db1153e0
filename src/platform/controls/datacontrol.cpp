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
constexpr int errTooLong = 3163, errConversion = 3421, errRequired = 3314, errMismatch = 13, errOverflow = 6;

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

QString captionOf(const Binding &binding)
{
    if (!binding.options.caption.isEmpty())
        return binding.options.caption;
    return binding.widget->accessibleName().isEmpty() ? binding.field : binding.widget->accessibleName();
}

QString kindOf(dao::DataType type)
{
    switch (type) {
    case dao::dbCurrency: return u"an amount"_s;
    case dao::dbDate: return u"a date"_s;
    case dao::dbBoolean: return u"yes or no"_s;
    default: return u"a number"_s;
    }
}

// What happened to which field, in the user's words; what has no words of its own keeps the engine's behind the name.
QString refusalText(const Binding &binding, const dao::RecordsetField &field, const dao::Value &value, const basic::Error &error)
{
    const QString start = captionOf(binding) + u": "_s;
    const QString typed = adapter::content(*binding.widget);
    switch (error.number()) {
    case errTooLong:
        return start + u"too long, %1 of %2"_s.arg(value.text().size()).arg(field.Size);
    case errConversion:
    case errMismatch:
        return start + u"\"%1\" is not %2"_s.arg(typed, kindOf(field.Type));
    case errOverflow:
        return start + u"\"%1\" is too large"_s.arg(typed);
    case errRequired:
        return start + u"must be filled in"_s;
    default:
        return start + error.text();
    }
}

struct RowWriter {
    QPointer<QObject> owner;
    std::function<bool()> write;
    std::function<void()> undo;
    std::function<bool()> changed;
};

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
    std::vector<RowWriter> writers;
    std::function<bool(bool)> validate;
    QPointer<QWidget> refusedWidget;
    int filling = 0;
    bool dirty = false;                     // as DirtyChanged said last
    bool validating = false;
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
        return rows.hasCurrentRow() ? rows.Bookmark() : dao::Bookmark();
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
        ++filling;
        const auto filled = qScopeGuard([this] { --filling; });
        adapter::fill(*binding.widget, value, binding.options);
        if (binding.widget)                 // its change signal may have run anything
            binding.shown = adapter::content(*binding.widget);
    }

    void fillAll(bool hasRow)
    {
        // By index: a handler of a widget's change signal may bind more.
        for (std::size_t i = 0; i < bindings.size(); ++i)
            fill(bindings[i], hasRow);
        noteDirty();
    }

    void noteDirty()
    {
        if (const bool now = isDirty(); now != std::exchange(dirty, now))
            emit q->DirtyChanged(now);
    }

    // One changed widget makes the row dirty; whether it is clean again only all of them can say.
    void noteChange(const QWidget *widget)
    {
        if (filling > 0 || !rows || !shown.isValid())
            return;
        const bool changed = std::any_of(bindings.begin(), bindings.end(),
                                         [widget](const Binding &b) { return b.widget == widget && b.isChanged(); });
        if (changed != dirty)
            noteDirty();
    }

    void limit(const Binding &binding) const
    {
        const dao::RecordsetField *field = rows && binding.widget ? findField(rows, binding.field) : nullptr;
        if (field)
            adapter::limit(*binding.widget, field->Type == dao::dbText ? field->Size : 0, binding.options);
    }

    bool writeOthers()
    {
        std::erase_if(writers, [](const RowWriter &w) { return !w.owner; });
        for (std::size_t i = 0; i < writers.size(); ++i) {      // by index: a writer may add another
            if (writers[i].owner && !writers[i].write())
                return false;
        }
        return true;
    }

    // The validation may itself save or move (a question, a box): it is not asked again meanwhile.
    bool isValid()
    {
        if (!validate || validating || !shown.isValid())
            return true;
        const QPointer<DataControl> alive(q);
        validating = true;
        const bool valid = validate(isDirty());
        if (alive)
            validating = false;
        return valid && alive;
    }

    void settle()
    {
        for (Binding &binding : bindings) {
            if (binding.widget)
                binding.shown = adapter::content(*binding.widget);
        }
        noteDirty();
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

    void writeField(const Binding &binding, const dao::RecordsetField &field)
    {
        dao::Value value;
        try {
            value = adapter::stored(*binding.widget, binding.options, field.Type);
            set(field.Name, value);
        } catch (const basic::Error &e) {
            if (isRowGone(e.number()))
                throw;
            refusedWidget = binding.widget;
            throw basic::Error(e.number(), refusalText(binding, field, value, e));
        }
    }

    void writeFields()
    {
        refusedWidget = nullptr;
        rows.Edit();
        for (const Binding &binding : bindings) {
            if (!binding.isChanged())
                continue;
            const dao::RecordsetField *field = findField(rows, binding.field);
            if (!field)
                throw dao::EngineError(3265);
            writeField(binding, *field);
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

    // The row and the rows that hang on it are one change. Where one of them is refused the others are kept all the same:
    // their typing has been taken. false: a writer refused and has told the user, or `failure` says why.
    bool writeAll(Written *result, Failure *failure)
    {
        const bool several = isDirty() && std::any_of(writers.begin(), writers.end(), [](const RowWriter &w) {
            return w.owner && w.changed && w.changed();
        });
        if (!several) {
            const QPointer<DataControl> alive(q);
            if (!writeOthers() || !alive)
                return false;
            *result = write(failure);
            return true;
        }
        QStringList typed;
        for (const Binding &binding : bindings)
            typed += binding.shown;
        try {
            dao::Transaction all(database);
            const QPointer<DataControl> alive(q);
            const bool others = writeOthers();
            if (!alive)
                return false;
            if (others)
                *result = write(failure);
            all.Commit();
            return others;
        } catch (const basic::Error &e) {
            for (std::size_t i = 0; i < bindings.size(); ++i)   // nothing was stored: the typing is unsaved again
                bindings[i].shown = typed[static_cast<qsizetype>(i)];
            noteDirty();
            *failure = {e.number(), e.text()};
            return false;
        }
    }

    // The widgets hold again what they held before a write that was taken back.
    void restore(const std::vector<std::pair<QPointer<QWidget>, std::pair<QString, QString>>> &typed)
    {
        for (const auto &[widget, texts] : typed) {
            const auto bound = std::find_if(bindings.begin(), bindings.end(), [&](const Binding &b) { return b.widget == widget; });
            if (!widget || bound == bindings.end())
                continue;
            if (adapter::content(*widget) != texts.first)
                adapter::setText(*widget, texts.first);
            bound->shown = texts.second;
        }
        noteDirty();
    }

    void showNeighbour()
    {
        const qsizetype position = rows.hasCurrentRow() ? rows.AbsolutePosition() : 0;
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
        for (const Binding &binding : bindings)
            limit(binding);
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
            rows.tryBookmark(here);
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

void DataControl::setValidate(std::function<bool(bool changed)> validate)
{
    d->validate = std::move(validate);
}

void DataControl::addRowWriter(QObject *owner, std::function<bool()> writer, std::function<void()> undo,
                               std::function<bool()> changed)
{
    std::erase_if(d->writers, [owner](const RowWriter &w) { return !w.owner || w.owner == owner; });
    d->writers.push_back({owner, std::move(writer), std::move(undo), std::move(changed)});
}

void DataControl::setMovesAsk(bool on)
{
    d->movesAsk = on;
}

bool DataControl::Refresh(bool quiet)
{
    if (!d->writeOthers())
        return false;
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
            return false;
        }
        d->database = opened;
        d->openPath = d->path;
        d->openConnect = d->connect;
        d->openFile = identityOf(d->path);
    }
    d->take(recordset);
    return true;
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
    if (d->writeOthers())
        d->take(recordset);
}

bool DataControl::hasRows() const
{
    return d->rows.rowTotal() > 0;
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
    const auto former = std::erase_if(d->bindings, [&](const Binding &b) { return b.widget == widget; });
    std::erase_if(d->bindings, [](const Binding &b) { return !b.widget; });
    d->bindings.push_back({widget, field, std::move(options), {}});
    Binding &added = d->bindings.back();
    d->limit(added);
    if (former == 0)
        adapter::onChange(*widget, this, [this, widget] { d->noteChange(widget); });
    if (!d->shown.isValid() || basic::IgnoreErrors([&] { d->fill(added, true); }) != 0)
        added.shown = adapter::content(*widget);
}

void DataControl::unbindAll()
{
    d->bindings.clear();
}

bool DataControl::UpdateRecord()
{
    const QPointer<DataControl> alive(this);
    if (!d->isValid() || !alive)
        return false;
    Private::Failure failure;
    Private::Written result = Private::Written::Refused;
    const bool others = d->writeAll(&result, &failure);
    if (!alive || !others) {
        if (alive)
            d->report(failure);
        return false;
    }
    if (result == Private::Written::Done) {
        d->refused = false;
        return true;
    }
    if (result == Private::Written::Gone && failure.number == 0) {
        d->settle();
        return true;
    }
    if (result == Private::Written::Gone)
        d->showNeighbour();
    if (alive)
        d->report(failure);
    return false;
}

bool DataControl::UpdateRecord(const std::function<void()> &also)
{
    std::vector<std::pair<QPointer<QWidget>, std::pair<QString, QString>>> typed;
    for (const Binding &binding : d->bindings) {
        if (binding.widget)
            typed.push_back({binding.widget, {adapter::content(*binding.widget), binding.shown}});
    }
    try {
        dao::Transaction all(d->database);
        if (!UpdateRecord())
            return false;
        also();
        all.Commit();
        return true;
    } catch (const basic::Error &e) {
        if (d->rows.editPending())
            d->rows.CancelUpdate();
        dao::DBEngine::Idle(dao::dbRefreshCache);
        d->restore(typed);
        d->report({e.number(), e.text()});
        return false;
    }
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
    for (std::size_t i = 0; i < d->writers.size(); ++i) {
        if (d->writers[i].owner && d->writers[i].undo)
            d->writers[i].undo();
    }
    basic::IgnoreErrors([&] { d->fillAll(d->shown.isValid()); });
}

void DataControl::contentChanged(const QWidget *widget)
{
    d->noteChange(widget);
}

bool DataControl::isFilling() const
{
    return d->filling > 0;
}

QWidget *DataControl::refusedWidget() const
{
    return d->refusedWidget;
}

void DataControl::takeAsShown(QWidget *widget)
{
    for (Binding &binding : d->bindings) {
        if (binding.widget == widget)
            binding.shown = adapter::content(*widget);
    }
    d->noteDirty();
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
