#include "platform/controls/datacontrol_p.h"

#include "platform/basic/prompts.h"

#include <QFile>
#include <QMetaMethod>
#include <sys/stat.h>

namespace vorel::controls {

namespace {

DataControl::Opener &opener()
{
    static DataControl::Opener installed;
    return installed;
}

}

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

dao::Bookmark DataControl::Private::currentMark() const
{
    return rows.hasCurrentRow() ? rows.Bookmark() : dao::Bookmark();
}

bool DataControl::Private::isDirty() const
{
    return rows && shown.isValid()
        && std::any_of(bindings.begin(), bindings.end(), [](const Binding &b) { return b.isChanged(); });
}

void DataControl::Private::fill(Binding &binding, bool hasRow)
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

void DataControl::Private::fillAll(bool hasRow)
{
    // By index: a handler of a widget's change signal may bind more.
    for (std::size_t i = 0; i < bindings.size(); ++i)
        fill(bindings[i], hasRow);
    noteDirty();
}

int DataControl::Private::tryFill(const std::function<void()> &step)
{
    // The row that was filled before it is still there to be written or moved from, which reports what is wrong.
    return basic::IgnoreErrors([&] {
        try {
            step();
        } catch (const dao::EngineError &e) {
            if (e.number() == dao::err::Damaged)
                q->reportLater(e.number(), e.text());
            throw;
        }
    });
}

void DataControl::Private::noteDirty()
{
    if (const bool now = isDirty(); now != std::exchange(dirty, now))
        emit q->DirtyChanged(now);
}

void DataControl::Private::noteChange(const QWidget *widget)
{
    if (filling > 0 || !rows || !shown.isValid())
        return;
    const bool changed = std::any_of(bindings.begin(), bindings.end(),
                                     [widget](const Binding &b) { return b.widget == widget && b.isChanged(); });
    if (changed != dirty)
        noteDirty();
}

void DataControl::Private::limit(const Binding &binding) const
{
    const dao::RecordsetField *field = rows && binding.widget ? findField(rows, binding.field) : nullptr;
    if (field)
        adapter::limit(*binding.widget, field->Type == dao::dbText ? field->Size : 0, binding.options);
}

void DataControl::Private::showNeighbour()
{
    const qsizetype position = rows.hasCurrentRow() ? rows.AbsolutePosition() : 0;
    // The failure that led here is what the user reads; where not even the query answers there are no rows to show.
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

void DataControl::Private::report(const Failure &failure)
{
    if (failure.number == 0)
        return;
    static const QMetaMethod signal = QMetaMethod::fromSignal(&DataControl::Error);
    if (q->isSignalConnected(signal))
        emit q->Error(failure.number, failure.text);
    else
        basic::MsgBox(failure.text, {}, basic::Icon::Exclamation);
}

void DataControl::Private::openDatabase(dao::Database &opened) const
{
    if (database && path == openPath && connect == openConnect && identityOf(path) == openFile)
        opened = database;
    else
        opened = opener() ? opener()(path, connect) : dao::DBEngine::OpenDatabase(path, false, false, connect);
}

void DataControl::Private::take(const dao::Recordset &recordset)
{
    rows = recordset;
    shown = {};
    hasReported = false;
    for (const Binding &binding : bindings)
        limit(binding);
    const QPointer<DataControl> alive(q);
    emit q->RowsChanged();
    if (alive)
        q->showRow();
}

bool DataControl::Private::move(const std::function<bool()> &step)
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
        if (e.number() == dao::err::RecordDeleted)
            showNeighbour();
        if (alive)
            report(failure);
        return false;
    }
    q->showRow();
    return true;
}

DataControl::DataControl(QObject *parent) : QObject(parent), d(std::make_unique<Private>(this)) {}

DataControl::~DataControl() = default;

void DataControl::setOpener(Opener installed)
{
    opener() = std::move(installed);
}

void DataControl::reportLater(int number, const QString &text)
{
    if (!std::exchange(d->hasReported, true))
        QMetaObject::invokeMethod(this, [this, number, text] { d->report({number, text}); }, Qt::QueuedConnection);
}

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
                               std::function<bool()> changed, std::function<void()> retake)
{
    d->writers.add(owner, std::move(writer), std::move(undo), std::move(changed), std::move(retake));
}

void DataControl::setMovesAsk(bool on)
{
    d->movesAsk = on;
}

bool DataControl::Refresh(bool quiet)
{
    if (!d->writers.write())
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
    if (d->writers.write())
        d->take(recordset);
}

bool DataControl::hasRows() const
{
    return d->rows.rowTotal() > 0;
}

void DataControl::Close()
{
    d->rows.letGo();
    d->database.letGo();
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
    if (!d->shown.isValid() || d->tryFill([&] { d->fill(added, true); }) != 0)
        added.shown = adapter::content(*widget);
}

void DataControl::unbindAll()
{
    d->bindings.clear();
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
    const int failed = d->tryFill([&] { d->fillAll(row.isValid()); });
    if (failed == dao::err::RecordDeleted && !d->dropping) {     // deleted elsewhere: the next row takes its place
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
    d->writers.undo();
    d->tryFill([&] { d->fillAll(d->shown.isValid()); });
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
