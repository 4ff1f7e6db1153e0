#pragma once

#include "platform/dao/dao.h"
#include "platform/dao/jet/translator.h"

#include <QHash>
#include <memory>
#include <vector>

struct sqlite3;

namespace vorel::dao {

// A table or view as the file holds it now.
struct StoredTable {
    TableDef def;
    jet::TableDesign design;
    bool view = false;
    bool hasRowId = false;      // can be the source of a keyset
    QString counter;            // its auto-increment field, "" if none
    const FieldDef *field(QStringView name) const;      // nullptr: no such field
};

// All tables of a file, read once and kept until the schema changes.
class StoredSchema final : public jet::Schema {
public:
    explicit StoredSchema(sqlite3 *connection);
    const jet::TableDesign *table(QStringView name) const override;
    const StoredTable *stored(QStringView name) const;
    const std::vector<std::unique_ptr<StoredTable>> &tables() const { return m_tables; }

private:
    std::vector<std::unique_ptr<StoredTable>> m_tables;
    QHash<QString, const StoredTable *> m_byName;
};

}
