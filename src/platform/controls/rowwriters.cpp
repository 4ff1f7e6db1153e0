#include "platform/controls/rowwriters.h"

#include <algorithm>
#include <utility>

namespace vorel::controls {

void RowWriters::add(QObject *owner, std::function<bool()> write, std::function<void()> undo, std::function<bool()> changed,
                     std::function<void()> retake)
{
    std::erase_if(m_writers, [owner](const Writer &w) { return !w.owner || w.owner == owner; });
    m_writers.push_back({owner, std::move(write), std::move(undo), std::move(changed), std::move(retake)});
}

bool RowWriters::write()
{
    std::erase_if(m_writers, [](const Writer &w) { return !w.owner; });
    for (std::size_t i = 0; i < m_writers.size(); ++i) {      // by index: a writer may add another
        if (!m_writers[i].owner)
            continue;
        const bool hadChanges = m_writers[i].changed && m_writers[i].changed();
        if (!m_writers[i].write())
            return false;
        m_writers[i].hasWritten = m_writers[i].hasWritten || hadChanges;
    }
    return true;
}

bool RowWriters::haveChanges() const
{
    return std::any_of(m_writers.begin(), m_writers.end(), [](const Writer &w) { return w.owner && w.changed && w.changed(); });
}

void RowWriters::forgetWritten()
{
    for (Writer &writer : m_writers)
        writer.hasWritten = false;
}

void RowWriters::retake()
{
    for (std::size_t i = 0; i < m_writers.size(); ++i) {
        const bool hasWritten = std::exchange(m_writers[i].hasWritten, false);
        if (hasWritten && m_writers[i].owner && m_writers[i].retake)
            m_writers[i].retake();
    }
}

void RowWriters::undo()
{
    for (std::size_t i = 0; i < m_writers.size(); ++i) {
        if (m_writers[i].owner && m_writers[i].undo)
            m_writers[i].undo();
    }
}

}
