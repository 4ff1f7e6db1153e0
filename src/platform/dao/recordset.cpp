#include "platform/dao/dao.h"

#include "platform/dao/recordset_p.h"

namespace vorel::dao {

using namespace Qt::StringLiterals;

namespace {

RecordsetPrivate &opened(const std::shared_ptr<RecordsetPrivate> &d)
{
    if (!d)
        throw EngineError(err::ObjectInvalid);
    d->requireOpen();
    return *d;
}

bool isOpen(const std::shared_ptr<RecordsetPrivate> &d)
{
    return d && !d->isClosed && d->database->isOpen();
}

}

void Recordset::Close()
{
    opened(d).isClosed = true;
    d.reset();
}

const std::vector<RecordsetField> &Recordset::Fields() const { return opened(d).fields; }
int Recordset::fieldIndex(QStringView name) const { return opened(d).fieldIndex(name); }
RecordsetType Recordset::Type() const { return opened(d).type; }
bool Recordset::Updatable() const { return opened(d).updatable; }

bool Recordset::BOF() const { return opened(d).atStart(); }
bool Recordset::EOF_() const { return opened(d).atEnd(); }
qsizetype Recordset::RecordCount() const { return opened(d).visited; }

qsizetype Recordset::AbsolutePosition() const
{
    const RecordsetPrivate &p = opened(d);
    return p.hasCurrent() ? p.position : -1;
}

void Recordset::MoveFirst()
{
    RecordsetPrivate &p = opened(d);
    p.discard();
    if (p.rows() == 0)
        throw EngineError(err::NoCurrentRecord);
    p.moveTo(0);
}

void Recordset::MoveLast()
{
    RecordsetPrivate &p = opened(d);
    p.discard();
    if (p.rows() == 0)
        throw EngineError(err::NoCurrentRecord);
    p.moveTo(p.rows() - 1);
}

void Recordset::MoveNext() { opened(d).move(1); }
void Recordset::MovePrevious() { opened(d).move(-1); }
void Recordset::Move(qsizetype rows) { opened(d).move(rows); }

Value Recordset::Get(QStringView name) const { return Get(fieldIndex(name)); }

Value Recordset::Get(int column) const
{
    RecordsetPrivate &p = opened(d);
    if (column < 0 || static_cast<size_t>(column) >= p.fields.size())
        throw EngineError(err::ItemNotFound);
    if (p.buffer.mode != CopyBuffer::Mode::None)
        return p.buffer.values[static_cast<size_t>(column)];
    p.requireCurrent();
    bool there = false;
    Value value = p.stored(p.currentRows, p.position, column, &there);
    if (!there)
        throw EngineError(err::RecordDeleted);
    return value;
}

void Recordset::Set(QStringView name, const Value &value) { Set(fieldIndex(name), value); }

void Recordset::Set(int column, const Value &value)
{
    RecordsetPrivate &p = opened(d);
    if (column < 0 || static_cast<size_t>(column) >= p.fields.size())
        throw EngineError(err::ItemNotFound);
    p.assign(column, value);
}

void Recordset::AddNew() { opened(d).addNew(); }
void Recordset::Edit() { opened(d).edit(); }
void Recordset::Update() { opened(d).update(); }
void Recordset::Delete() { opened(d).erase(); }
bool Recordset::editPending() const { return opened(d).buffer.mode != CopyBuffer::Mode::None; }

void Recordset::CancelUpdate()
{
    if (!editPending())
        throw EngineError(err::NoEditPending);
    d->discard();
}

dao::Bookmark Recordset::Bookmark() const
{
    const RecordsetPrivate &p = opened(d);
    p.requireCurrent();
    return dao::Bookmark(p.keyAt(p.position));
}

void Recordset::setBookmark(dao::Bookmark mark)
{
    RecordsetPrivate &p = opened(d);
    const qsizetype row = mark.isValid() ? p.positionOfKey(mark.key()) : -1;
    p.discard();
    if (row < 0)
        throw EngineError(mark.isValid() && p.deleted.contains(mark.key()) ? err::RecordDeleted : err::BadBookmark);
    p.moveTo(row);
}

dao::Bookmark Recordset::LastModified() const
{
    const RecordsetPrivate &p = opened(d);
    return p.lastModified ? dao::Bookmark(*p.lastModified) : dao::Bookmark();
}

void Recordset::FindFirst(QStringView criteria) { opened(d).find(RecordsetPrivate::Find::First, criteria); }
void Recordset::FindNext(QStringView criteria) { opened(d).find(RecordsetPrivate::Find::Next, criteria); }
void Recordset::FindPrevious(QStringView criteria) { opened(d).find(RecordsetPrivate::Find::Previous, criteria); }
void Recordset::FindLast(QStringView criteria) { opened(d).find(RecordsetPrivate::Find::Last, criteria); }
bool Recordset::NoMatch() const { return opened(d).noMatch; }

QString Recordset::Sort() const { return opened(d).sort; }
QString Recordset::Filter() const { return opened(d).filter; }

void Recordset::setSort(const QString &fields)
{
    if (opened(d).type == dbOpenTable)
        throw EngineError(err::NotSupported);
    d->sort = fields;
}

void Recordset::setFilter(const QString &criteria)
{
    if (opened(d).type == dbOpenTable)
        throw EngineError(err::NotSupported);
    d->filter = criteria;
}

// What this recordset was itself refined by goes on to act.
Recordset Recordset::OpenRecordset(RecordsetType type) const
{
    const RecordsetPrivate &p = opened(d);
    jet::Refinement refinement = p.refinement;
    if (!p.sort.isEmpty())
        refinement.sort = p.sort;
    if (!p.filter.isEmpty())
        refinement.filter = refinement.filter.isEmpty() ? p.filter : u'(' + refinement.filter + u") AND ("_s + p.filter + u')';
    return Recordset(std::make_shared<RecordsetPrivate>(p.database, p.source, refinement, type));
}

Recordset Recordset::Clone() const { return Recordset(std::make_shared<RecordsetPrivate>(opened(d))); }
void Recordset::Requery() { opened(d).open(); }

bool Recordset::tryBookmark(dao::Bookmark mark)
{
    const qsizetype row = positionOf(mark);
    if (row < 0)
        return false;
    d->discard();
    d->moveTo(row);
    return true;
}

void Recordset::dropPending()
{
    if (isOpen())
        d->discard();
}

void Recordset::letGo()
{
    if (isOpen())
        d->isClosed = true;
    d.reset();
}

bool Recordset::isOpen() const { return dao::isOpen(d); }
bool Recordset::hasCurrentRow() const { return isOpen() && d->hasCurrent(); }

Value Recordset::valueOr(QStringView name, const Value &otherwise) const
{
    const bool pending = isOpen() && d->buffer.mode != CopyBuffer::Mode::None;
    if (!pending && !hasCurrentRow())
        return otherwise;
    try {
        return Get(name);
    } catch (const EngineError &) {
        return otherwise;
    }
}

qsizetype Recordset::rowTotal() const { return isOpen() ? d->rows() : 0; }

Value Recordset::cell(qsizetype row, int column) const
{
    if (!isOpen())
        return {};
    RecordsetPrivate &p = *d;
    if (row < 0 || row >= p.rows() || column < 0 || static_cast<size_t>(column) >= p.fields.size())
        return {};
    bool there = false;
    return p.stored(p.gridRows, row, column, &there);
}

dao::Bookmark Recordset::bookmarkAt(qsizetype row) const
{
    return isOpen() && row >= 0 && row < d->rows() ? dao::Bookmark(d->keyAt(row)) : dao::Bookmark();
}

qsizetype Recordset::positionOf(dao::Bookmark mark) const
{
    return isOpen() && mark.isValid() ? d->positionOfKey(mark.key()) : -1;
}

NewRow::NewRow(Recordset &rows) : m_rows(rows)
{
    m_rows.AddNew();
}

NewRow::~NewRow()
{
    if (m_pending)
        m_rows.dropPending();
}

NewRow &NewRow::set(QStringView name, const Value &value)
{
    m_rows.Set(name, value);
    return *this;
}

void NewRow::save()
{
    m_rows.Update();
    m_pending = false;
}

}
