#include "platform/dao/keysort.h"

#include "platform/dao/jet/collation.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace vorel::dao {

namespace {

constexpr size_t mostBytes = size_t{256} << 20;
constexpr size_t mostRows = size_t{1} << 31;
constexpr qint64 mostExact = qint64{1} << 53;
constexpr size_t few = 24;

// The store's order of kinds.
constexpr char nullMark = 1;
constexpr char numberMark = 2;
constexpr char textMark = 3;
constexpr char bytesMark = 4;

}

bool KeySort::add(const Statement &row)
{
    for (size_t i = 0; i < m_order.size(); ++i) {
        if (!addKey(row.get(), static_cast<int>(i) + 1, m_order[i]))
            return false;
    }
    m_rows.push_back(row.integer(0));
    m_ends.push_back(m_places.size());
    return m_places.size() < mostBytes && m_rows.size() < mostRows;
}

bool KeySort::addKey(sqlite3_stmt *row, int column, const jet::Translation::SortKey &key)
{
    const size_t start = m_places.size();
    const int kind = sqlite3_column_type(row, column);
    if (kind == SQLITE_NULL) {
        m_places += nullMark;
    } else if (kind == SQLITE_INTEGER) {
        const qint64 number = sqlite3_column_int64(row, column);
        if (number > mostExact || number < -mostExact)
            return false;
        addNumber(static_cast<double>(number));
    } else if (kind == SQLITE_FLOAT) {
        addNumber(sqlite3_column_double(row, column));
    } else {
        const void *bytes = kind == SQLITE_BLOB ? sqlite3_column_blob(row, column) : sqlite3_column_text(row, column);
        const auto size = static_cast<size_t>(sqlite3_column_bytes(row, column));
        const std::string_view content(size == 0 ? "" : static_cast<const char *>(bytes), size);
        m_places += kind == SQLITE_BLOB ? bytesMark : textMark;
        if (kind == SQLITE_TEXT && key.text)
            jet::appendSortKey(content, m_places);
        else
            addBytes(content);
    }
    if (key.descending) {
        for (size_t i = start; i < m_places.size(); ++i)
            m_places[i] = static_cast<char>(~m_places[i]);
    }
    return true;
}

void KeySort::addNumber(double number)
{
    constexpr std::uint64_t signBit = std::uint64_t{1} << 63;
    const auto bits = std::bit_cast<std::uint64_t>(number == 0 ? 0.0 : number);
    const std::uint64_t ordered = bits & signBit ? ~bits : bits | signBit;
    m_places += numberMark;
    for (int shift = 56; shift >= 0; shift -= 8)
        m_places += static_cast<char>(ordered >> shift & 0xff);
}

// A zero is followed by a one, the end is two zeros.
void KeySort::addBytes(std::string_view bytes)
{
    for (const char byte : bytes) {
        m_places += byte;
        if (byte == 0)
            m_places += '\1';
    }
    m_places.append(2, '\0');
}

std::string_view KeySort::place(const Item &item) const
{
    const size_t start = item.row == 0 ? 0 : m_ends[item.row - 1];
    return std::string_view(m_places).substr(start, m_ends[item.row] - start);
}

std::uint64_t KeySort::wordAt(const Item &item, size_t depth) const
{
    const std::string_view bytes = place(item);
    std::uint64_t word = 0;
    if (depth + sizeof word <= bytes.size()) {
        std::memcpy(&word, bytes.data() + depth, sizeof word);
        return std::endian::native == std::endian::little ? __builtin_bswap64(word) : word;
    }
    for (size_t i = depth; i < depth + sizeof word; ++i)
        word = word << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
    return word;
}

void KeySort::sortFew(const Run &run)
{
    std::sort(m_items.begin() + static_cast<qptrdiff>(run.first), m_items.begin() + static_cast<qptrdiff>(run.last),
              [&](const Item &a, const Item &b) {
                  const int order = place(a).substr(run.depth).compare(place(b).substr(run.depth));
                  return order != 0 ? order < 0 : a.row < b.row;
              });
}

void KeySort::sortRun(const Run &run)
{
    const auto first = m_items.begin() + static_cast<qptrdiff>(run.first);
    const auto last = m_items.begin() + static_cast<qptrdiff>(run.last);
    if (place(*first).size() <= run.depth) {    // no place is the beginning of another, so all are the same
        std::sort(first, last, [](const Item &a, const Item &b) { return a.row < b.row; });
        return;
    }
    if (run.last - run.first <= few)
        return sortFew(run);
    bool same = true;
    for (auto item = first; item != last; ++item) {
        item->word = wordAt(*item, run.depth);
        same = same && item->word == first->word;
    }
    const size_t deeper = run.depth + sizeof(Item::word);
    if (same) {
        m_open.push_back({ run.first, run.last, deeper });
        return;
    }
    std::sort(first, last, [](const Item &a, const Item &b) { return a.word < b.word; });
    for (size_t start = run.first; start < run.last;) {
        size_t end = start + 1;
        while (end < run.last && m_items[end].word == m_items[start].word)
            ++end;
        if (end - start > 1)
            m_open.push_back({ start, end, deeper });
        start = end;
    }
}

std::vector<qint64> KeySort::sorted(size_t most)
{
    m_items.resize(m_rows.size());
    for (size_t i = 0; i < m_items.size(); ++i)
        m_items[i].row = static_cast<std::uint32_t>(i);
    if (m_items.size() > 1)
        m_open.push_back({ 0, m_items.size(), 0 });
    while (!m_open.empty()) {
        const Run run = m_open.back();
        m_open.pop_back();
        sortRun(run);
    }
    size_t end = std::min(most, m_items.size());
    while (end > 0 && end < m_items.size() && place(m_items[end]) == place(m_items[end - 1]))
        ++end;
    std::vector<qint64> keys(end);
    std::transform(m_items.begin(), m_items.begin() + static_cast<qptrdiff>(end), keys.begin(), [this](const Item &item) { return m_rows[item.row]; });
    return keys;
}

}
