#include "platform/dao/recordset_p.h"

#include <algorithm>

namespace vorel::dao {

using namespace Qt::StringLiterals;

namespace {

constexpr int counterTries = 8;

}

void RecordsetPrivate::requireUpdatable() const
{
    if (type == dbOpenSnapshot)
        throw EngineError(err::NotSupported);
    if (!updatable)
        throw EngineError(err::ReadOnly);
}

const StoredTable &RecordsetPrivate::keyTable() const
{
    const StoredTable *table = connection().schema().stored(translation->keyTable);
    if (!table)
        throw EngineError(err::ObjectNotFound, translation->keyTable);
    return *table;
}

qsizetype RecordsetPrivate::counterColumn() const
{
    for (size_t i = 0; i < targets.size(); ++i) {
        if (targets[i].counter)
            return static_cast<qsizetype>(i);
    }
    return -1;
}

void RecordsetPrivate::addNew()
{
    discard();
    requireUpdatable();
    CopyBuffer fresh;
    for (const TargetColumn &target : targets)
        fresh.values.push_back(target.column.isEmpty() ? Value() : target.initial);
    fresh.changed.assign(targets.size(), false);
    if (const qsizetype counter = counterColumn(); counter >= 0)
        fresh.values[static_cast<size_t>(counter)] = static_cast<std::int32_t>(connection().nextCounter(keyTable()));
    fresh.mode = CopyBuffer::Mode::Add;
    buffer = std::move(fresh);
}

// The row is read anew, as stored, so that Update can see whether somebody else has changed it since.
void RecordsetPrivate::readBefore(CopyBuffer &fresh)
{
    if (!m_before) {
        QByteArrayList columns;
        for (const TargetColumn &target : targets)
            columns.append(target.column.isEmpty() ? QByteArray("NULL") : quoted(target.column));
        m_before = Statement(connection().handle(), "SELECT " + columns.join(", ") + " FROM " + quoted(translation->keyTable)
                                                        + " WHERE rowid = ?1");
    }
    const ResetGuard reset(m_before);
    m_before.bind(1, keyAt(position));
    if (!m_before.step())
        throw EngineError(err::RecordDeleted);
    CellBlock cells;
    cells.start(static_cast<int>(targets.size()));
    cells.appendRow(m_before.get(), 0);
    for (size_t i = 0; i < targets.size(); ++i) {
        const int column = static_cast<int>(i);
        bool there = false;
        const bool own = !targets[i].column.isEmpty();
        fresh.values.push_back(own ? cells.value(0, column, fields[i].Type) : stored(currentRows, position, column, &there));
        fresh.before.emplace_back(own ? sqlite3_value_dup(sqlite3_column_value(m_before.get(), column)) : nullptr);
    }
}

void RecordsetPrivate::edit()
{
    discard();
    requireUpdatable();
    requireCurrent();
    CopyBuffer fresh;
    readBefore(fresh);
    fresh.changed.assign(targets.size(), false);
    fresh.key = keyAt(position);
    fresh.mode = CopyBuffer::Mode::Edit;
    buffer = std::move(fresh);
}

void RecordsetPrivate::assign(int column, const Value &value)
{
    if (buffer.mode == CopyBuffer::Mode::None)
        throw EngineError(err::NoEditPending);
    const size_t i = static_cast<size_t>(column);
    const TargetColumn &target = targets[i];
    if (target.column.isEmpty())
        throw EngineError(err::FieldLocked);
    const Value fresh = assigned(target.rules, value);
    const bool adding = buffer.mode == CopyBuffer::Mode::Add;
    if (fresh == buffer.values[i] && !adding)
        return;
    if (target.counter && !adding)
        throw EngineError(err::FieldLocked);
    if (target.counter && fresh.isNull())
        throw EngineError(err::NullAssigned);
    buffer.values[i] = fresh;
    buffer.changed[i] = true;
    buffer.counterGiven |= target.counter;
}

void RecordsetPrivate::update()
{
    if (buffer.mode == CopyBuffer::Mode::None)
        throw EngineError(err::NoEditPending);
    Connection &file = database->writable();
    try {
        if (buffer.mode == CopyBuffer::Mode::Add)
            insertRow();
        else
            updateRow();
    } catch (...) {
        // The copy buffer stays: the caller may mend the value and try again.
        file.afterFailure();
        throw;
    }
    discard();
}

qint64 RecordsetPrivate::runInsert()
{
    std::vector<int> columns;
    for (size_t i = 0; i < targets.size(); ++i) {
        if (!targets[i].column.isEmpty() && (buffer.changed[i] || !buffer.values[i].isNull()))
            columns.push_back(static_cast<int>(i));
    }
    if (!m_insert || columns != m_insertColumns) {
        QByteArrayList names;
        for (const int column : columns)
            names.append(quoted(targets[static_cast<size_t>(column)].column));
        const QByteArray marks = QByteArrayList(names.size(), "?").join(", ");
        m_insert = Statement(connection().handle(), "INSERT INTO " + quoted(translation->keyTable)
                                 + (columns.empty() ? QByteArray(" DEFAULT VALUES")
                                                    : " (" + names.join(", ") + ") VALUES (" + marks + ')'));
        m_insertColumns = columns;
    }
    int mark = 0;
    for (const int column : columns)
        m_insert.bind(++mark, buffer.values[static_cast<size_t>(column)]);
    m_insert.run();
    return sqlite3_last_insert_rowid(connection().handle());
}

// Whether the number that AddNew took was used by another process before Update.
bool RecordsetPrivate::counterTaken() const
{
    const qsizetype counter = counterColumn();
    if (counter < 0 || buffer.counterGiven)
        return false;
    const qint64 number = buffer.values[static_cast<size_t>(counter)].get<std::int32_t>();
    return integerOf(connection().handle(), "SELECT count(*) FROM " + quoted(translation->keyTable) + " WHERE rowid = "
                         + QByteArray::number(number)) > 0;
}

void RecordsetPrivate::insertRow()
{
    qint64 key = 0;
    for (int tries = 1;; ++tries) {
        try {
            key = runInsert();
            break;
        } catch (const EngineError &error) {
            if (error.number() != err::DuplicateValue || tries == counterTries || !counterTaken())
                throw;
            buffer.values[static_cast<size_t>(counterColumn())]
                = static_cast<std::int32_t>(connection().nextCounter(keyTable()));
        }
    }
    const bool wasAtEnd = atEnd();
    ascending = ascending && (keys.empty() || keys.back() < key);
    m_places.append(key, rows());
    keys.push_back(key);
    if (wasAtEnd)
        position = rows();
    ++visited;
    lastModified = key;
}

// Throws the error that says why no row matched its key and its former values.
void RecordsetPrivate::rowGone(qint64 key) const
{
    const bool there = integerOf(connection().handle(), "SELECT count(*) FROM " + quoted(translation->keyTable)
                                     + " WHERE rowid = " + QByteArray::number(key)) > 0;
    throw EngineError(there ? err::ChangedByOther : err::RecordDeleted);
}

void RecordsetPrivate::updateRow()
{
    QByteArrayList sets;
    QByteArrayList tests;
    int mark = 0;
    for (size_t i = 0; i < targets.size(); ++i) {
        if (buffer.changed[i])
            sets.append(quoted(targets[i].column) + " = ?" + QByteArray::number(++mark));
    }
    lastModified = buffer.key;
    if (sets.isEmpty())
        return;
    for (size_t i = 0; i < targets.size(); ++i) {
        if (buffer.before[i])
            tests.append(quoted(targets[i].column) + " IS ?" + QByteArray::number(++mark));
    }
    tests.append("rowid = ?" + QByteArray::number(++mark));
    Statement statement(connection().handle(), "UPDATE " + quoted(translation->keyTable) + " SET " + sets.join(", ")
                                                   + " WHERE " + tests.join(" AND "));
    int index = 0;
    for (size_t i = 0; i < targets.size(); ++i) {
        if (buffer.changed[i])
            statement.bind(++index, buffer.values[i]);
    }
    for (const RowValue &value : buffer.before) {
        if (value)
            statement.bindCopy(++index, value.get());
    }
    statement.bind(++index, buffer.key);
    statement.run();
    if (sqlite3_changes(connection().handle()) == 0)
        rowGone(buffer.key);
}

void RecordsetPrivate::erase()
{
    discard();
    requireUpdatable();
    requireCurrent();
    Connection &file = database->writable();
    const qint64 key = keyAt(position);
    try {
        Statement statement(file.handle(), "DELETE FROM " + quoted(translation->keyTable) + " WHERE rowid = ?1");
        statement.bind(1, key);
        statement.run();
    } catch (...) {
        file.afterFailure();
        throw;
    }
    if (sqlite3_changes(file.handle()) == 0)
        throw EngineError(err::RecordDeleted);
    keys.erase(keys.begin() + position);
    m_places = KeyPlaces();
    deleted.insert(key);
    visited = std::max<qsizetype>(0, visited - 1);
    gap = true;
}

}
