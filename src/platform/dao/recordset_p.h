#pragma once

#include "platform/dao/cells.h"
#include "platform/dao/dao.h"
#include "platform/dao/database_p.h"
#include "platform/dao/keyplaces.h"

#include <QHash>
#include <QSet>
#include <array>
#include <optional>

namespace vorel::dao {

// Rows of a keyset around a place, read when one of them is asked for.
struct RowWindow {
    CellBlock cells;
    qsizetype first = 0;
    qsizetype wanted = 16;          // rows of the next reading; grows while the rows are walked
    quint64 tableStamp = 0;
    quint64 generation = 0;
    qsizetype lastRow = -1;
};

struct RowValueDeleter {
    void operator()(sqlite3_value *value) const { sqlite3_value_free(value); }
};
using RowValue = std::unique_ptr<sqlite3_value, RowValueDeleter>;

// The copy buffer of AddNew and Edit.
struct CopyBuffer {
    enum class Mode { None, Add, Edit };
    Mode mode = Mode::None;
    std::vector<Value> values;
    std::vector<bool> changed;
    std::vector<RowValue> before;   // Edit: the row as it was read, as stored; nullptr for a column that is none
    qint64 key = 0;                 // Edit: the row
    bool counterGiven = false;      // Add: the number was assigned by the caller
};

// One column's way into the table.
struct TargetColumn {
    FieldRules rules;
    QString column;                 // "" if it cannot be written
    bool counter = false;
    bool required = false;
    Value initial;
};

class RecordsetPrivate {
public:
    RecordsetPrivate(std::shared_ptr<DatabasePrivate> database, QString source, jet::Refinement refinement,
                     RecordsetType type);
    // A clone: the same rows, no current one.
    explicit RecordsetPrivate(const RecordsetPrivate &other);
    ~RecordsetPrivate();
    RecordsetPrivate &operator=(const RecordsetPrivate &) = delete;

    Connection &connection() const { return database->connection(); }
    void open();
    void requireOpen() const;

    // Rows
    qsizetype rows() const { return keyed ? static_cast<qsizetype>(keys.size()) : all.rows(); }
    Value stored(RowWindow &window, qsizetype row, int column, bool *present) const;
    bool present(RowWindow &window, qsizetype row) const;
    qsizetype positionOfKey(qint64 key) const;      // -1
    qint64 keyAt(qsizetype row) const { return keyed ? keys[static_cast<size_t>(row)] : row; }

    // The current row
    bool hasCurrent() const { return !gap && position >= 0 && position < rows(); }
    void requireCurrent() const;
    bool atStart() const;
    bool atEnd() const { return !gap && position >= rows(); }
    void moveTo(qsizetype row);
    void move(qsizetype by);
    void discard()
    {
        if (buffer.mode != CopyBuffer::Mode::None)
            buffer = CopyBuffer();
    }

    // Changes
    void requireUpdatable() const;
    void addNew();
    void edit();
    void assign(int column, const Value &value);
    void update();
    void erase();

    // Searches
    enum class Find { First, Last, Next, Previous };
    void find(Find which, QStringView criteria);

    int fieldIndex(QStringView name) const;

    std::shared_ptr<DatabasePrivate> database;
    QString source;
    jet::Refinement refinement;
    RecordsetType type;
    bool isClosed = false;

    std::shared_ptr<const jet::Translation> translation;
    std::vector<RecordsetField> fields;
    std::vector<TargetColumn> targets;
    bool keyed = false;
    bool updatable = false;
    std::vector<qint64> keys;
    bool ascending = true;          // the keys, so that a position is found by halving
    CellBlock all;                  // the rows of a query without keys

    qsizetype position = 0;         // -1 before the first row, rows() after the last
    bool gap = false;               // between rows: `position` is the next one
    qsizetype visited = 0;
    bool noMatch = false;
    CopyBuffer buffer;
    std::optional<qint64> lastModified;
    QSet<qint64> deleted;
    QString sort;
    QString filter;

    mutable RowWindow currentRows;
    mutable RowWindow gridRows;

    void setWalking(bool walking) const;

private:
    void describe();
    void readKeys();
    bool sortKeys();
    void readAll();
    void load(RowWindow &window, qsizetype row) const;
    void loadRange(RowWindow &window, qsizetype count) const;
    void loadRow(RowWindow &window, qint64 key) const;
    void loadSingly(RowWindow &window, qsizetype count) const;
    bool dense(qsizetype first, qsizetype count) const;
    void ensure(RowWindow &window, qsizetype row) const;
    void insertRow();
    void updateRow();
    qint64 runInsert();
    bool counterTaken() const;
    qsizetype counterColumn() const;
    void rowGone(qint64 key) const;
    void readBefore(CopyBuffer &fresh);
    const StoredTable &keyTable() const;
    std::vector<qint64> matches(QStringView criteria) const;

    mutable Statement m_rangeStatement;
    mutable Statement m_wantedRangeStatement;
    mutable Statement m_rowStatement;
    Statement m_insert;
    std::vector<int> m_insertColumns;
    Statement m_before;
    Connection *m_connection = nullptr;     // the database's, for as long as that is open
    mutable bool m_walking = false;
    const quint64 *m_changes = nullptr;
    mutable KeyPlaces m_places;         // built at the first search in keys without order
    mutable std::array<std::pair<QString, int>, 64> m_fieldNames;   // last spellings asked for, by address
};

}
