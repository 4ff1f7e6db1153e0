// The data control's writing: fields, the rows that hang on the row, refusals.
#include "platform/controls/datacontrol_p.h"

#include "platform/basic/prompts.h"
#include "platform/controls/refusal.h"

namespace vorel::controls {

using namespace Qt::StringLiterals;

namespace {

bool isRowGone(int number)
{
    return number == dao::err::RecordDeleted || number == dao::err::NoCurrentRecord;
}

QString captionOf(const Binding &binding)
{
    if (!binding.options.caption.isEmpty())
        return binding.options.caption;
    return binding.widget->accessibleName().isEmpty() ? binding.field : binding.widget->accessibleName();
}

}

void DataControl::Private::settle()
{
    for (Binding &binding : bindings) {
        if (binding.widget)
            binding.shown = adapter::content(*binding.widget);
    }
    noteDirty();
}

void DataControl::Private::set(const QString &field, const dao::Value &value)
{
    try {
        rows.Set(field, value);
    } catch (const basic::Error &e) {
        if (e.number() != dao::err::ZeroLengthText)
            throw;
        rows.Set(field, dao::Value());
    }
}

void DataControl::Private::writeField(const Binding &binding, const dao::RecordsetField &field)
{
    dao::Value value;
    try {
        value = adapter::stored(*binding.widget, binding.options, field.Type);
        set(field.Name, value);
    } catch (const basic::Error &e) {
        if (isRowGone(e.number()))
            throw;
        refusedWidget = binding.widget;
        throw basic::Error(e.number(), refusalText(captionOf(binding), adapter::content(*binding.widget), field, value, e));
    }
}

void DataControl::Private::writeFields()
{
    refusedWidget = nullptr;
    rows.Edit();
    for (const Binding &binding : bindings) {
        if (!binding.isChanged())
            continue;
        const dao::RecordsetField *field = findField(rows, binding.field);
        if (!field)
            throw dao::EngineError(dao::err::ItemNotFound);
        writeField(binding, *field);
    }
    rows.Update();
}

void DataControl::Private::refill()
{
    for (Binding &binding : bindings) {
        if (!binding.isChanged())
            fill(binding, true);
    }
    settle();
}

DataControl::Private::Written DataControl::Private::write(Failure *failure)
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
        rows.dropPending();
        // Deleted through this very recordset, as requested: nothing to report.
        if (isRowGone(e.number()) && here != shown)
            failure->number = 0;
        return isRowGone(e.number()) ? Written::Gone : Written::Refused;
    }
}

bool DataControl::Private::writeAll(Written *result, Failure *failure)
{
    const bool several = isDirty() && writers.haveChanges();
    if (!several) {
        const QPointer<DataControl> alive(q);
        if (!writers.write() || !alive)
            return false;
        *result = write(failure);
        return true;
    }
    QStringList typed;
    for (const Binding &binding : bindings)
        typed += binding.shown;
    if (!inTransaction)
        writers.forgetWritten();
    bool others = false;
    try {
        dao::Transaction all(database);
        const QPointer<DataControl> alive(q);
        others = writers.write();
        if (!alive)
            return false;
        if (others)
            *result = write(failure);
        // The rows that hang on the row are stored with it or not at all. A row that was deleted on request takes them along;
        // a writer that refuses has seen to its own rows.
        if (!others || *result == Written::Done || (*result == Written::Gone && failure->number == 0)) {
            all.Commit();
            return others;
        }
    } catch (const basic::Error &e) {
        for (std::size_t i = 0; i < bindings.size(); ++i)   // nothing was stored: the typing is unsaved again
            bindings[i].shown = typed[static_cast<qsizetype>(i)];
        noteDirty();
        if (!inTransaction)
            writers.retake();
        *failure = {e.number(), e.text()};
        return false;
    }
    if (!inTransaction && *result == Written::Refused)
        writers.retake();
    return others;
}

void DataControl::Private::restore(const std::vector<std::pair<QPointer<QWidget>, std::pair<QString, QString>>> &typed)
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

bool DataControl::Private::isValid()
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
    const QPointer<DataControl> alive(this);
    d->writers.forgetWritten();
    try {
        dao::Transaction all(d->database);
        d->inTransaction = true;
        const bool written = UpdateRecord();
        if (alive)
            d->inTransaction = false;
        if (written) {
            also();
            all.Commit();
            return true;
        }
    } catch (const basic::Error &e) {
        d->inTransaction = false;
        d->rows.dropPending();
        dao::DBEngine::Idle(dao::dbRefreshCache);
        d->restore(typed);
        d->writers.retake();
        d->report({e.number(), e.text()});
        return false;
    }
    if (alive)
        d->writers.retake();
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

}
