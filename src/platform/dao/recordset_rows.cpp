#include "platform/dao/recordset_p.h"

#include "platform/dao/ddl.h"
#include "platform/dao/keysort.h"

#include <algorithm>

namespace vorel::dao {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype smallestWindow = 16;
constexpr qsizetype largestWindow = 256;
constexpr qsizetype windowBytes = 1 << 20;      // pictures make a window shorter
// A range is read in one sweep as long as so few of its rows are unwanted.
constexpr qint64 sparsest = 4;

// Keeps the file's read lock over a group of look-ups, which otherwise would take and give it back for each.
class ReadGroup {
public:
    explicit ReadGroup(sqlite3 *connection)
        : m_connection(sqlite3_get_autocommit(connection) ? connection : nullptr)
    {
        if (m_connection && executeQuietly(m_connection, "BEGIN") != SQLITE_OK)
            m_connection = nullptr;
    }
    ~ReadGroup()
    {
        if (m_connection)
            executeQuietly(m_connection, "COMMIT");
    }
    ReadGroup(const ReadGroup &) = delete;
    ReadGroup &operator=(const ReadGroup &) = delete;

private:
    sqlite3 *m_connection;
};

}

RecordsetPrivate::RecordsetPrivate(std::shared_ptr<DatabasePrivate> owner, QString text, jet::Refinement refined,
                                   RecordsetType kind)
    : database(std::move(owner)), source(std::move(text)), refinement(std::move(refined)), type(kind)
{
    open();
}

RecordsetPrivate::RecordsetPrivate(const RecordsetPrivate &other)
    : database(other.database), source(other.source), refinement(other.refinement), type(other.type),
      translation(other.translation), keys(other.keys), ascending(other.ascending), all(other.all), gap(true),
      visited(other.visited), deleted(other.deleted)
{
    describe();
}

RecordsetPrivate::~RecordsetPrivate()
{
    if (database->isOpen())
        setWalking(false);
}

void RecordsetPrivate::requireOpen() const
{
    if (isClosed || !database->isOpen())
        throw EngineError(err::ObjectInvalid);
}

void RecordsetPrivate::open()
{
    Connection &file = connection();
    file.pollNowAndThen();
    if (refinement.sort.isEmpty() && refinement.filter.isEmpty())
        translation = file.translation(source);
    else
        translation = std::make_shared<const jet::Translation>(jet::translate(source, file.schema(), refinement));
    if (translation->kind != jet::StatementKind::Select)
        throw EngineError(err::InvalidOperation);
    describe();
    currentRows = RowWindow();
    gridRows = RowWindow();
    discard();
    deleted.clear();
    lastModified.reset();
    if (keyed)
        readKeys();
    else
        readAll();
    position = 0;
    gap = false;
    noMatch = false;
    visited = std::min<qsizetype>(1, rows());
    if (type == dbOpenTable)
        visited = rows();
}

void RecordsetPrivate::describe()
{
    const StoredSchema &schema = connection().schema();
    const StoredTable *keyTable = translation->keyed ? schema.stored(translation->keyTable) : nullptr;
    keyed = keyTable && keyTable->hasRowId;
    updatable = keyed && type != dbOpenSnapshot && !database->readOnly();
    fields.clear();
    targets.clear();
    for (const jet::OutputColumn &column : translation->columns) {
        const StoredTable *table = column.sourceTable.isEmpty() ? nullptr : schema.stored(column.sourceTable);
        const FieldDef *field = table ? table->field(column.sourceField) : nullptr;
        const int size = field ? field->Size : ddl::sizeOf(column.type);
        fields.push_back({ column.name, column.type, size, field ? field->Attributes : 0, column.sourceTable,
                           column.sourceField });
        TargetColumn target;
        target.rules = { column.name, column.type, size, field ? field->AllowZeroLength : true };
        if (field && table == keyTable) {
            target.column = field->Name;
            target.counter = (field->Attributes & dbAutoIncrField) != 0;
            target.required = field->Required;
            target.initial = ddl::defaultValue(*field);
        }
        targets.push_back(std::move(target));
    }
    m_insert = Statement();
    m_before = Statement();
    m_rangeStatement = Statement();
    m_wantedRangeStatement = Statement();
    m_rowStatement = Statement();
    m_places = KeyPlaces();
    m_fieldNames.fill({});
    m_connection = &connection();
    m_changes = m_connection->tableChanges(keyed ? translation->keyTable : QString());
}

bool RecordsetPrivate::sortKeys()
{
    if (translation->sortSql.isEmpty())
        return false;
    KeySort order(translation->sortKeys);
    Statement statement(connection().handle(), translation->sortSql);
    const ResetGuard reset(statement);
    while (statement.step()) {
        if (!order.add(statement))
            return false;
    }
    keys = order.sorted(static_cast<size_t>(translation->top));     // -1 is beyond all
    return true;
}

void RecordsetPrivate::readKeys()
{
    keys.clear();
    if (!sortKeys()) {
        Statement statement(connection().handle(), translation->keySql);
        while (statement.step())
            keys.push_back(statement.integer(0));
    }
    ascending = std::is_sorted(keys.begin(), keys.end());
}

void RecordsetPrivate::readAll()
{
    all.start(static_cast<int>(fields.size()));
    Statement statement(connection().handle(), translation->sql);
    while (statement.step())
        all.appendRow(statement.get(), 0);
}

qsizetype RecordsetPrivate::positionOfKey(qint64 key) const
{
    if (!keyed)
        return key >= 0 && key < rows() ? key : -1;
    if (ascending) {
        const auto found = std::lower_bound(keys.begin(), keys.end(), key);
        return found != keys.end() && *found == key ? found - keys.begin() : -1;
    }
    if (m_places.isEmpty())
        m_places = KeyPlaces(keys);
    return m_places.of(key);
}

bool RecordsetPrivate::dense(qsizetype first, qsizetype count) const
{
    if (!ascending)
        return false;
    const qint64 low = keys[static_cast<size_t>(first)];
    const qint64 high = keys[static_cast<size_t>(first + count - 1)];
    return high - low <= sparsest * count;
}

// Both the wanted keys and the stored rows ascend: one pass pairs them.
void RecordsetPrivate::loadRange(RowWindow &window, qsizetype count) const
{
    const auto wanted = keys.begin() + window.first;
    const qint64 low = *wanted;
    const qint64 high = *(wanted + count - 1);
    // Where many rows between are not wanted, the store passes over them by the query's own conditions.
    const bool sparse = !translation->wantedRangeSql.isEmpty() && high - low > count + count / 8;
    Statement &statement = sparse ? m_wantedRangeStatement : m_rangeStatement;
    if (!statement)
        statement = Statement(connection().handle(), sparse ? translation->wantedRangeSql : translation->rangeSql);
    const ResetGuard reset(statement);
    statement.bind(1, low);
    statement.bind(2, high);
    qsizetype next = 0;
    const auto notThere = [&] {
        // It may be there and fit the conditions no more.
        if (sparse)
            loadRow(window, *(wanted + next));
        else
            window.cells.appendMissing();
        ++next;
    };
    while (next < count && window.cells.bytes() < windowBytes && statement.step()) {
        const qint64 key = statement.integer(0);
        while (next < count && *(wanted + next) < key)
            notThere();
        if (next < count && *(wanted + next) == key) {
            window.cells.appendRow(statement.get(), 1);
            ++next;
        }
    }
    while (next < count && window.cells.bytes() < windowBytes)
        notThere();
}

void RecordsetPrivate::loadRow(RowWindow &window, qint64 key) const
{
    if (!m_rowStatement)
        m_rowStatement = Statement(connection().handle(), translation->rowSql);
    const ResetGuard reset(m_rowStatement);
    m_rowStatement.bind(1, key);
    if (m_rowStatement.step())
        window.cells.appendRow(m_rowStatement.get(), 0);
    else
        window.cells.appendMissing();
}

void RecordsetPrivate::loadSingly(RowWindow &window, qsizetype count) const
{
    const ReadGroup group(connection().handle());
    for (qsizetype i = 0; i < count && window.cells.bytes() < windowBytes; ++i)
        loadRow(window, keys[static_cast<size_t>(window.first + i)]);
}

void RecordsetPrivate::load(RowWindow &window, qsizetype row) const
{
    const bool forward = row == window.first + window.cells.rows();
    const bool backward = row == window.first - 1 && window.first > 0;
    const bool changed = window.tableStamp != *m_changes || window.generation != connection().generation();
    const bool walked = (forward || backward) && !changed && window.cells.rows() > 0;
    window.wanted = walked ? std::min(window.wanted * 4, largestWindow) : smallestWindow;
    window.tableStamp = *m_changes;
    window.generation = connection().generation();
    const qsizetype before = backward ? window.wanted - 1 : std::min<qsizetype>(walked ? 0 : 2, row);
    window.first = std::max<qsizetype>(0, row - before);
    window.cells.start(static_cast<int>(fields.size()));
    const auto fill = [&] {
        const qsizetype count = std::min(window.wanted, rows() - window.first);
        const bool sweep = dense(window.first, count);
        if (&window == &currentRows)
            setWalking(!sweep && window.wanted == largestWindow);
        if (sweep)
            loadRange(window, count);
        else
            loadSingly(window, count);
    };
    fill();
    if (row >= window.first + window.cells.rows()) {
        // Large rows before it filled the window.
        window.first = row;
        window.cells.start(static_cast<int>(fields.size()));
        fill();
    }
}

void RecordsetPrivate::ensure(RowWindow &window, qsizetype row) const
{
    if (row != window.lastRow) {
        m_connection->pollNowAndThen();
        window.lastRow = row;
    }
    const bool inside = row >= window.first && row < window.first + window.cells.rows();
    if (!inside || window.tableStamp != *m_changes || window.generation != m_connection->generation())
        load(window, row);
}

// Rows all over the table, one after the other: the pages between them are worth keeping for as long as it lasts.
void RecordsetPrivate::setWalking(bool walking) const
{
    if (walking == m_walking)
        return;
    m_walking = walking;
    m_connection->useLargeCache(walking);
}

bool RecordsetPrivate::present(RowWindow &window, qsizetype row) const
{
    if (!keyed)
        return true;
    ensure(window, row);
    return window.cells.present(row - window.first);
}

Value RecordsetPrivate::stored(RowWindow &window, qsizetype row, int column, bool *isThere) const
{
    const DataType decodeAs = fields[static_cast<size_t>(column)].Type;
    *isThere = true;
    if (!keyed)
        return all.value(row, column, decodeAs);
    ensure(window, row);
    *isThere = window.cells.present(row - window.first);
    return *isThere ? window.cells.value(row - window.first, column, decodeAs) : Value();
}

int RecordsetPrivate::fieldIndex(QStringView name) const
{
    // A routine asks with the same few literals again and again.
    const size_t slot = (reinterpret_cast<quintptr>(name.utf16()) >> 3) % m_fieldNames.size();
    auto &known = m_fieldNames[slot];
    if (!known.first.isNull() && known.first == name)
        return known.second;
    const qsizetype dot = name.lastIndexOf(u'.');
    for (size_t i = 0; i < fields.size(); ++i) {
        const bool same = name.compare(fields[i].Name, Qt::CaseInsensitive) == 0
            || (dot > 0 && name.sliced(dot + 1).compare(fields[i].Name, Qt::CaseInsensitive) == 0
                && name.first(dot).compare(fields[i].SourceTable, Qt::CaseInsensitive) == 0);
        if (same) {
            known = { name.toString(), static_cast<int>(i) };
            return known.second;
        }
    }
    throw EngineError(err::ItemNotFound);
}

}
