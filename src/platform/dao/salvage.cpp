#include "platform/dao/salvage.h"

#include "platform/basic/storedtime.h"
#include "platform/dao/definition.h"
#include "platform/dao/pages.h"

#include <QStringDecoder>
#include <algorithm>
#include <set>

namespace vorel::dao::salvage {

using namespace Qt::StringLiterals;
using pages::Cell;
using pages::PageFile;
using pages::PageKind;
using pages::Row;

namespace {

using Encoding = QStringConverter::Encoding;

QByteArray utf8(const QByteArray &bytes, Encoding encoding)
{
    return encoding == QStringConverter::Utf8 ? bytes : QString(QStringDecoder(encoding)(bytes)).toUtf8();
}

// Runs a step over damaged content, which may fail as long as the new file can be written.
template <class Step> bool passOver(const Step &step)
{
    try {
        step();
        return true;
    } catch (const EngineError &error) {
        for (const int number : { err::DiskFull, err::ReadOnly, err::OutOfResources, err::DiskError, err::NoPermission }) {
            if (error.number() == number)
                throw;
        }
        return false;
    }
}

struct Item {
    QByteArray type, name, sql;
    int root = 0;
};

const TableDef *designFor(const std::vector<TableDef> &designs, const QString &name)
{
    const auto found = std::find_if(designs.begin(), designs.end(), [&](const TableDef &design) {
        return design.Name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == designs.end() ? nullptr : &*found;
}

bool isStoredDate(const QByteArray &text)
{
    basic::StoredTime time;
    return basic::readStored({ text.constData(), static_cast<size_t>(text.size()) }, time);
}

// One table of the new file and where its rows lay in the damaged one.
class Target {
public:
    // `design`: what the file should hold under this name, or nullptr. `own`: the file's own design was read.
    Target(Connection &to, const QString &name, int root, Encoding encoding, const TableDef *design, bool own)
        : m_to(to.handle()), m_tableName(name), m_name(quoted(name)), m_encoding(encoding), m_root(root), m_own(own)
    {
        int keys = 0;
        QStringList names;
        Statement info(m_to, "PRAGMA table_info(" + m_name + ')');
        while (info.step()) {
            const QString type = info.text(2).toUpper();
            names.append(info.text(1));
            m_columns.push_back({ quoted(info.text(1)), kindOf(type), type == u"INTEGER" && info.integer(5) == 1 });
            keys += info.integer(5) > 0;
        }
        for (Column &column : m_columns)
            column.rowId = column.rowId && keys == 1;
        m_inserts.resize(m_columns.size() + 1);
        QStringList wanted;
        for (const FieldDef &field : design ? design->Fields : std::vector<FieldDef>())
            wanted.append(field.Name);
        if (wanted == names && design)
            m_fields = design->Fields;
    }

    const QString &name() const { return m_tableName; }
    int root() const { return m_root; }
    size_t columns() const { return m_columns.size(); }

    // A text column never holds a number, and the row's number is kept beside the row. A wanted design says more.
    bool fits(const Row &row) const
    {
        if (!mayHold(row))
            return false;
        for (size_t i = 0; i < row.cells.size(); ++i) {
            const Cell::Kind kind = row.cells[i].kind;
            const bool isNumber = kind == Cell::Kind::Integer || kind == Cell::Kind::Real;
            if (m_columns[i].rowId && kind != Cell::Kind::Null)
                return false;
            if (isNumber ? m_columns[i].holds == Holds::Texts : kind == Cell::Kind::Text && m_columns[i].holds == Holds::Numbers)
                return false;
            if (!m_fields.empty() && !holds(m_fields[i], row.cells[i]))
                return false;
        }
        return true;
    }
    bool fits(const std::vector<Row> &rows) const
    {
        const auto fitting = std::count_if(rows.begin(), rows.end(), [this](const Row &row) { return fits(row); });
        return static_cast<size_t>(fitting) * 2 > rows.size();
    }

    // The number of rows that the table took.
    qsizetype put(const std::vector<Row> &rows)
    {
        qsizetype taken = 0;
        for (const Row &row : rows) {
            if (mayHold(row) && (m_own || fits(row)))
                passOver([&] { taken += put(row); });
        }
        saved += taken;
        return taken;
    }

    qsizetype seen = 0;
    qsizetype saved = 0;
    bool damaged = false;       // some of its pages are missing

private:
    enum class Holds { Texts, Numbers, Anything };
    struct Column {
        QByteArray name;
        Holds holds;
        bool rowId;
    };

    // Without the file's own design the order of the fields is known by their number alone.
    bool mayHold(const Row &row) const
    {
        return !row.cells.empty() && (m_own ? row.cells.size() <= m_columns.size() : row.cells.size() == m_columns.size());
    }

    bool holds(const FieldDef &field, const Cell &cell) const
    {
        const bool whole = cell.kind == Cell::Kind::Integer;
        if (cell.kind == Cell::Kind::Null || cell.kind == Cell::Kind::Missing)
            return true;
        switch (field.Type) {
        case dbBoolean:
            return whole && (cell.integer == 0 || cell.integer == -1);
        case dbByte:
        case dbInteger:
        case dbLong:
        case dbCurrency:
            return whole;
        case dbSingle:
        case dbDouble:
            return whole || cell.kind == Cell::Kind::Real;
        case dbDate:
            return cell.kind == Cell::Kind::Text && isStoredDate(utf8(cell.bytes, m_encoding));
        case dbText:
            return cell.kind == Cell::Kind::Text && QString::fromUtf8(utf8(cell.bytes, m_encoding)).size() <= field.Size;
        case dbMemo:
            return cell.kind == Cell::Kind::Text;
        case dbLongBinary:
            return cell.kind == Cell::Kind::Bytes;
        case dbUnknown:
            break;
        }
        return true;
    }

    static Holds kindOf(const QString &type)
    {
        const auto has = [&type](QStringView word) { return type.contains(word); };
        if (has(u"INT"))
            return Holds::Numbers;
        if (has(u"CHAR") || has(u"CLOB") || has(u"TEXT"))
            return Holds::Texts;
        return has(u"REAL") || has(u"FLOA") || has(u"DOUB") ? Holds::Numbers : Holds::Anything;
    }

    // A row that is there stays: it was found by the more reliable pass.
    qsizetype put(const Row &row)
    {
        Statement &insert = m_inserts[row.cells.size()];
        if (!insert) {
            QByteArrayList names = { "rowid" };
            QByteArrayList places = { "?1" };
            for (size_t i = 0; i < row.cells.size(); ++i) {
                if (m_columns[i].rowId)
                    continue;
                names.append(m_columns[i].name);
                places.append('?' + QByteArray::number(i + 2));
            }
            insert = Statement(m_to, "INSERT OR IGNORE INTO " + m_name + " (" + names.join(", ") + ") VALUES ("
                                         + places.join(", ") + ')');
        }
        insert.bind(1, row.id);
        for (size_t i = 0; i < row.cells.size(); ++i) {
            if (!m_columns[i].rowId)
                bind(insert, static_cast<int>(i + 2), row.cells[i]);
        }
        insert.run();
        return sqlite3_changes(m_to);
    }

    void bind(Statement &insert, int index, const Cell &cell) const
    {
        switch (cell.kind) {
        case Cell::Kind::Missing:
        case Cell::Kind::Null:
            return insert.bindNull(index);
        case Cell::Kind::Integer:
            return insert.bind(index, cell.integer);
        case Cell::Kind::Real:
            return insert.bind(index, Value(cell.real));
        case Cell::Kind::Text:
            return insert.bind(index, utf8(cell.bytes, m_encoding));
        case Cell::Kind::Bytes:
            return insert.bind(index, Value(cell.bytes));
        }
    }

    sqlite3 *m_to;
    QString m_tableName;
    QByteArray m_name;
    Encoding m_encoding;
    int m_root;
    bool m_own;
    std::vector<FieldDef> m_fields{};       // the wanted design's, if it has the same columns
    std::vector<Column> m_columns;
    std::vector<Statement> m_inserts;       // by the number of values that a row has
};

class Salvage {
public:
    Salvage(const QByteArray &damaged, const std::vector<TableDef> &wanted, Connection &to)
        : m_file(damaged, pages::layoutOf(damaged)), m_wanted(wanted), m_to(to), m_taken(static_cast<size_t>(m_file.count()) + 1)
    {
    }

    bool run(RepairReport &report)
    {
        readDesigns();
        m_level = m_to.begin();
        buildTables();
        const bool ownDesign = !m_targets.empty();
        buildWanted();
        build("index");
        for (Target &target : m_targets)
            takeTree(target);
        takeCutOff();
        build("view");
        tell(report);
        if (!ownDesign && report.rowsSaved == 0) {
            m_to.rollbackTo(m_level);
            return false;
        }
        m_to.commitTo(m_level);
        return true;
    }

private:
    // The entry of a table, an index or a view in the file's table of designs; recognised by its kind and its texts.
    bool readDesign(const Row &row, Item *item)
    {
        if (row.cells.size() != 5)
            return false;
        for (const size_t text : { 0U, 1U, 2U, 4U }) {
            if (row.cells[text].kind != Cell::Kind::Text)
                return false;
        }
        static const std::pair<QByteArray, Encoding> tables[] = {
            { "table", QStringConverter::Utf8 },
            { QByteArray("t\0a\0b\0l\0e\0", 10), QStringConverter::Utf16LE },
            { QByteArray("\0t\0a\0b\0l\0e", 10), QStringConverter::Utf16BE } };
        for (const auto &[word, encoding] : tables) {
            if (row.cells[0].bytes == word)
                m_encoding = encoding;
        }
        item->type = utf8(row.cells[0].bytes, m_encoding);
        item->name = utf8(row.cells[1].bytes, m_encoding);
        item->sql = utf8(row.cells[4].bytes, m_encoding);
        item->root = static_cast<int>(std::clamp<qint64>(row.cells[3].integer, 0, m_file.count()));
        static const std::set<QByteArray> kinds = { "table", "index", "view", "trigger" };
        if (item->name.isEmpty())
            return false;
        const bool design = kinds.contains(item->type) && item->sql.toUpper().startsWith("CREATE ");
        // Its name and its place are worth keeping where the design itself is beyond reading.
        if (!design && designFor(m_wanted, QString::fromUtf8(item->name)))
            item->type = "place";
        return design || item->type == "place";
    }

    void addDesigns(const std::vector<Row> &rows)
    {
        for (const Row &row : rows) {
            Item item;
            if (!readDesign(row, &item) || item.name.startsWith("sqlite_"))
                continue;
            const bool known = std::any_of(m_items.begin(), m_items.end(),
                                           [&](const Item &other) { return other.name == item.name; });
            if (!known)
                m_items.push_back(std::move(item));
        }
    }

    // The tree of designs begins in the first page. Where it is broken, its other pages are known by their rows.
    void readDesigns()
    {
        bool broken = false;
        walk(1, broken, [&](const std::vector<Row> &rows, qsizetype) {
            addDesigns(rows);
            return true;
        });
        if (!broken)
            return;
        for (int page = 2; page <= m_file.count(); ++page) {
            qsizetype lost = 0;
            if (taken(page) || m_file.kind(page) != PageKind::TableLeaf)
                continue;
            const std::vector<Row> rows = m_file.rows(page, &lost);
            Item item;
            if (std::any_of(rows.begin(), rows.end(), [&](const Row &row) { return readDesign(row, &item); })) {
                addDesigns(rows);
                take(page);
            }
        }
    }

    static bool isVirtual(const Item &item) { return item.sql.first(std::min<qsizetype>(14, item.sql.size())).toUpper() == "CREATE VIRTUAL"; }

    // The name that the statement itself gives, which is another one where either of the two is damaged.
    QString newestTable()
    {
        Statement newest(m_to.handle(), "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%'"
                                         " ESCAPE '\\' ORDER BY rowid DESC LIMIT 1");
        return newest.step() ? newest.text(0) : QString();
    }

    void buildTables()
    {
        for (const Item &item : m_items) {
            if (item.type != "table" || isVirtual(item) || !passOver([&] { Statement(m_to.handle(), item.sql).run(); }))
                continue;
            const QString stored = newestTable();
            const bool wantedName = designFor(m_wanted, QString::fromUtf8(item.name)) && !designFor(m_wanted, stored);
            if (wantedName) {
                execute(m_to.handle(), "DROP TABLE " + quoted(stored));
                continue;
            }
            m_targets.emplace_back(m_to, stored, item.root, m_encoding, designFor(m_wanted, stored), true);
        }
        std::erase_if(m_targets, [](const Target &target) { return target.columns() == 0; });
    }

    // Tables whose designs the file has lost. Where their trees begin may still be known.
    void buildWanted()
    {
        for (const TableDef &design : m_wanted) {
            const auto same = [&](const QString &name) { return name.compare(design.Name, Qt::CaseInsensitive) == 0; };
            if (std::any_of(m_targets.begin(), m_targets.end(), [&](const Target &target) { return same(target.name()); }))
                continue;
            const auto place = std::find_if(m_items.begin(), m_items.end(), [&](const Item &item) {
                return (item.type == "table" || item.type == "place") && same(QString::fromUtf8(item.name));
            });
            createTable(m_to, design);
            m_targets.emplace_back(m_to, design.Name, place == m_items.end() ? 0 : place->root, m_encoding, &design, false);
        }
    }

    // Unique indexes come before the rows, so that a damaged row is left out and not the index. A view that rests on a
    // table that is gone would make the new file harder to use than the damaged one.
    void build(const QByteArray &type)
    {
        for (const Item &item : m_items) {
            if (item.type != type || !passOver([&] { Statement(m_to.handle(), item.sql).run(); }) || type != "view")
                continue;
            const QByteArray view = quoted(QString::fromUtf8(item.name));
            if (!passOver([&] { Statement(m_to.handle(), "SELECT * FROM " + view); }))
                executeQuietly(m_to.handle(), ("DROP VIEW " + view).constData());
        }
    }

    // Each page once, depth first; `leaf` says whether the page's rows belong here.
    template <class Leaf> void walk(int root, bool &broken, const Leaf &leaf)
    {
        std::vector<int> open = { root };
        while (!open.empty()) {
            const int page = open.back();
            open.pop_back();
            const PageKind kind = m_file.kind(page);
            if (kind == PageKind::Other || taken(page)) {
                broken = true;
                continue;
            }
            if (kind == PageKind::TableNode) {
                take(page);
                const std::vector<int> children = m_file.children(page);
                open.insert(open.end(), children.rbegin(), children.rend());
                continue;
            }
            qsizetype lost = 0;
            const std::vector<Row> rows = m_file.rows(page, &lost);
            const bool belongs = leaf(rows, lost);
            broken |= lost > 0 || !belongs;
            if (belongs)
                take(page);
        }
    }

    void takeTree(Target &target)
    {
        if (target.root() == 0) {
            target.damaged = true;
            return;
        }
        walk(target.root(), target.damaged, [&](const std::vector<Row> &rows, qsizetype lost) {
            // Two pages may have changed places.
            if (!rows.empty() && !target.fits(rows) && anotherFits(target, rows))
                return false;
            target.seen += std::ssize(rows) + lost;
            target.put(rows);
            return true;
        });
    }

    bool anotherFits(const Target &target, const std::vector<Row> &rows) const
    {
        return std::any_of(m_targets.begin(), m_targets.end(),
                           [&](const Target &other) { return &other != &target && other.fits(rows); });
    }

    // Leaves that no tree leads to any more. A free page's rows are deleted ones; where the list of those is damaged,
    // only tables that miss pages can have such leaves.
    void takeCutOff()
    {
        const auto freePages = m_file.freePages();
        if (freePages) {
            for (const int page : *freePages)
                take(page);
        }
        for (int page = 2; page <= m_file.count(); ++page) {
            qsizetype lost = 0;
            if (taken(page) || m_file.kind(page) != PageKind::TableLeaf)
                continue;
            const std::vector<Row> rows = m_file.rows(page, &lost);
            // A row that the table has already is an older copy and counts as none.
            if (Target *target = rows.empty() ? nullptr : bestFor(rows, freePages.has_value()))
                target->seen += target->put(rows) + lost;
        }
    }

    void tell(RepairReport &report) const
    {
        for (const Target &target : m_targets) {
            report.rowsSeen += target.seen;
            report.rowsSaved += target.saved;
            if (target.damaged || target.saved < target.seen)
                report.lost.append(target.name());
        }
        for (const Item &item : m_items) {
            const QString name = QString::fromUtf8(item.name);
            const auto same = [&](const Target &target) { return target.name().compare(name, Qt::CaseInsensitive) == 0; };
            if (item.type == "table" && std::none_of(m_targets.begin(), m_targets.end(), same))
                report.lost.append(name);
        }
    }

    Target *bestFor(const std::vector<Row> &rows, bool any)
    {
        Target *best = nullptr;
        size_t fewest = 0;
        for (Target &target : m_targets) {
            if (!target.fits(rows) || !(any || target.damaged))
                continue;
            // A table that misses pages before one that seems whole, then the one with the least columns to spare.
            const size_t spare = target.columns() - rows.front().cells.size() + (target.damaged ? 0 : 10'000);
            if (!best || spare < fewest) {
                best = &target;
                fewest = spare;
            }
        }
        return best;
    }

    bool taken(int page) const { return m_taken[static_cast<size_t>(page)]; }
    void take(int page) { m_taken[static_cast<size_t>(page)] = true; }

    PageFile m_file;
    const std::vector<TableDef> &m_wanted;
    Connection &m_to;
    Encoding m_encoding = QStringConverter::Utf8;
    std::vector<bool> m_taken;
    std::vector<Item> m_items;
    std::vector<Target> m_targets;
    int m_level = 0;
};

}

bool rows(const QByteArray &damaged, const std::vector<TableDef> &wanted, Connection &to, RepairReport &report)
{
    return Salvage(damaged, wanted, to).run(report);
}

}
