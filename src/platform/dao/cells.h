#pragma once

#include "platform/dao/sqlite.h"

#include <string>
#include <vector>

// Rows read from the store, kept compactly as it gave them and decoded when a value is asked for.
namespace vorel::dao {

class CellBlock {
public:
    void start(int columns);
    void appendRow(sqlite3_stmt *statement, int firstColumn);
    void appendMissing();
    qsizetype rows() const { return static_cast<qsizetype>(m_present.size()); }
    bool present(qsizetype row) const { return m_present[static_cast<size_t>(row)]; }
    qsizetype bytes() const { return static_cast<qsizetype>(m_content.size()); }
    Value value(qsizetype row, int column, DataType type) const;

private:
    struct Cell {
        union {
            qint64 integer = 0;
            double real;
            size_t offset;              // of text and bytes in m_content
        };
        int length = 0;
        int kind = SQLITE_NULL;         // SQLITE_INTEGER, ...
    };

    int m_columns = 0;
    std::vector<Cell> m_cells;
    std::vector<bool> m_present;
    std::string m_content;
};

// A value as an assignment to a field makes it. Throws 3163, 3315, 3421.
struct FieldRules {
    QString name;
    DataType type = dbText;
    int size = 0;
    bool allowZeroLength = true;
};
Value assigned(const FieldRules &field, const Value &value);

}
