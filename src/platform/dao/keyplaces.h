#pragma once

#include <QHash>
#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

namespace vorel::dao {

// The place of each row number in a list of them. Numbers are mostly close together: then a plain table answers.
class KeyPlaces {
public:
    KeyPlaces() = default;
    explicit KeyPlaces(const std::vector<qint64> &keys)
    {
        if (keys.empty())
            return;
        const auto [low, high] = std::minmax_element(keys.begin(), keys.end());
        m_low = *low;
        constexpr quint64 sparsest = 8;
        const quint64 span = static_cast<quint64>(*high) - static_cast<quint64>(*low);
        const bool close = span < keys.size() * sparsest && keys.size() < std::numeric_limits<std::int32_t>::max();
        if (close)
            m_table.assign(static_cast<size_t>(span) + 1, -1);
        else
            m_hash.reserve(static_cast<qsizetype>(keys.size()));
        for (size_t i = 0; i < keys.size(); ++i) {
            if (close)
                m_table[static_cast<size_t>(keys[i] - m_low)] = static_cast<std::int32_t>(i);
            else
                m_hash.insert(keys[i], static_cast<qsizetype>(i));
        }
    }

    bool isEmpty() const { return m_table.empty() && m_hash.isEmpty(); }
    qsizetype of(qint64 key) const          // -1
    {
        if (m_table.empty())
            return m_hash.value(key, -1);
        const quint64 at = static_cast<quint64>(key) - static_cast<quint64>(m_low);
        return at < m_table.size() ? m_table[static_cast<size_t>(at)] : -1;
    }
    // A new row's number is mostly the next one. Else the places are to be worked out again.
    void append(qint64 key, qsizetype place)
    {
        if (!m_hash.isEmpty())
            m_hash.insert(key, place);
        else if (!m_table.empty() && key == m_low + static_cast<qint64>(m_table.size()))
            m_table.push_back(static_cast<std::int32_t>(place));
        else
            *this = KeyPlaces();
    }

private:
    qint64 m_low = 0;
    std::vector<std::int32_t> m_table;
    QHash<qint64, qsizetype> m_hash;
};

}
