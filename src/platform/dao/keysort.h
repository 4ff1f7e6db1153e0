#pragma once

#include "platform/dao/jet/translator.h"
#include "platform/dao/sqlite.h"

#include <cstdint>
#include <string>

// Puts the rows of a query in order. Each row's place is worked out once and compared as bytes, so that a long list is
// ordered by its texts in a fraction of the time that a collation takes, which is asked at each comparison.
namespace vorel::dao {

class KeySort {
public:
    explicit KeySort(const std::vector<jet::Translation::SortKey> &order) : m_order(order) {}

    // The current row of the statement: its number, then its keys. False if the row has no such place (a whole number
    // beyond a Double's digits) or the rows are too many; the store has to sort them then.
    bool add(const Statement &row);
    // The rows' numbers in order; equal ones as they came. Of the first `most` of them, with those level with the last.
    std::vector<qint64> sorted(size_t most);

private:
    struct Item {
        std::uint64_t word;             // eight bytes of the place, from the depth that is looked at
        std::uint32_t row;
    };
    struct Run {
        size_t first, last, depth;      // rows whose places are the same up to the depth
    };

    bool addKey(sqlite3_stmt *row, int column, const jet::Translation::SortKey &key);
    void addNumber(double number);
    void addBytes(std::string_view bytes);
    std::string_view place(const Item &item) const;
    std::uint64_t wordAt(const Item &item, size_t depth) const;
    void sortRun(const Run &run);
    void sortFew(const Run &run);

    const std::vector<jet::Translation::SortKey> &m_order;
    std::vector<qint64> m_rows;
    std::vector<size_t> m_ends;         // of each row's place in m_places
    std::string m_places;
    std::vector<Item> m_items;
    std::vector<Run> m_open;
};

}
