#include "platform/dao/pages.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace vorel::dao::pages {

namespace {

constexpr int nodeMark = 5;
constexpr int leafMark = 13;
constexpr int smallestPage = 512;
constexpr int largestPage = 65536;
constexpr int smallestUsable = 480;
const QByteArray plainMark("SQLite format 3", 16);

quint32 fourBytes(const uchar *from)
{
    return static_cast<quint32>(from[0]) << 24 | static_cast<quint32>(from[1]) << 16 | static_cast<quint32>(from[2]) << 8 | from[3];
}

int twoBytes(const uchar *from)
{
    return from[0] << 8 | from[1];
}

// A number of one to nine bytes. False if it goes on beyond the end.
bool readNumber(const uchar *&at, const uchar *end, qint64 *value)
{
    quint64 number = 0;
    for (int i = 0; i < 9 && at < end; ++i) {
        const uchar byte = *at++;
        if (i == 8) {
            *value = static_cast<qint64>(number << 8 | byte);
            return true;
        }
        number = number << 7 | (byte & 0x7f);
        if (byte < 0x80) {
            *value = static_cast<qint64>(number);
            return true;
        }
    }
    return false;
}

// Bytes that a value of the serial type takes, -1 for an invalid type.
qint64 sizeOfType(qint64 type)
{
    static constexpr qint64 sizes[] = { 0, 1, 2, 3, 4, 6, 8, 8, 0, 0, -1, -1 };
    if (type < 0)
        return -1;
    return type < 12 ? sizes[type] : (type - 12) / 2;
}

Cell cellOf(qint64 type, const uchar *from, qint64 size)
{
    Cell cell;
    if (type >= 12) {
        cell.kind = type % 2 ? Cell::Kind::Text : Cell::Kind::Bytes;
        cell.bytes = QByteArray(reinterpret_cast<const char *>(from), size);
        return cell;
    }
    cell.kind = type == 0 ? Cell::Kind::Null : type == 7 ? Cell::Kind::Real : Cell::Kind::Integer;
    if (type == 8 || type == 9) {
        cell.integer = type - 8;
        return cell;
    }
    quint64 number = size > 0 && (from[0] & 0x80) && type != 7 ? ~quint64{0} : 0;
    for (qint64 i = 0; i < size; ++i)
        number = number << 8 | from[i];
    cell.integer = static_cast<qint64>(number);
    if (type == 7)
        cell.real = std::bit_cast<double>(number);
    return cell;
}

// A record: a header of serial types, then the values. False unless every length fits; `whole` is the size that the
// record should have, of which the end may be missing.
bool decode(const QByteArray &record, qint64 whole, std::vector<Cell> *cells)
{
    const auto *begin = reinterpret_cast<const uchar *>(record.constData());
    const uchar *at = begin;
    const uchar *end = begin + record.size();
    qint64 headerSize = 0;
    if (!readNumber(at, end, &headerSize) || headerSize < 1 || headerSize > record.size())
        return false;
    const uchar *headerEnd = begin + headerSize;
    std::vector<qint64> types;
    qint64 total = headerSize;
    while (at < headerEnd) {
        qint64 type = 0;
        if (!readNumber(at, headerEnd, &type) || sizeOfType(type) < 0 || sizeOfType(type) > whole)
            return false;
        total += sizeOfType(type);
        types.push_back(type);
    }
    if (total != whole)
        return false;
    for (const qint64 type : types) {
        const qint64 size = sizeOfType(type);
        cells->push_back(end - at < size ? Cell() : cellOf(type, at, size));
        at += std::min<qint64>(size, end - at);
    }
    return true;
}

int statedSize(const QByteArray &content)
{
    const int stored = twoBytes(reinterpret_cast<const uchar *>(content.constData()) + 16);
    return stored == 1 ? largestPage : stored;
}

// Rows that can be read if the file is laid out so, by a sample of its pages.
qsizetype readableRows(const QByteArray &content, Layout layout)
{
    constexpr int pagesTried = 100;
    const PageFile file(content, layout);
    const int step = std::max(1, file.count() / pagesTried);
    qsizetype found = 0;
    for (int page = 1; page <= file.count(); page += step) {
        qsizetype lost = 0;
        if (file.kind(page) == PageKind::TableLeaf)
            found += static_cast<qsizetype>(file.rows(page, &lost).size());
    }
    return found * step;
}

}

Layout layoutOf(const QByteArray &content)
{
    if (content.size() < smallestPage)
        return {};
    std::vector<Layout> candidates;
    if (content.startsWith(plainMark)) {
        const int size = statedSize(content);
        const int usable = size - static_cast<uchar>(content[20]);
        if (size >= smallestPage && std::has_single_bit(static_cast<unsigned>(size)) && usable >= smallestUsable)
            candidates.push_back({ size, usable });
        // Size and number of pages must agree with the length.
        const qint64 statedPages = fourBytes(reinterpret_cast<const uchar *>(content.constData()) + 28);
        if (!candidates.empty() && usable == size && statedPages * size == content.size())
            return candidates.front();
    }
    for (const int size : { 4096, 1024, 2048, 8192, 16384, 32768, 65536, 512 })
        candidates.push_back({ size, size });
    Layout best;
    qsizetype most = 0;
    for (const Layout &candidate : candidates) {
        const qsizetype rows = readableRows(content, candidate);
        if (rows > most) {
            best = candidate;
            most = rows;
        }
    }
    return best;
}

PageFile::PageFile(const QByteArray &content, Layout layout) : m_content(content), m_layout(layout)
{
    // A last page that was cut does not count: what is missing could not be distinguished from what exists.
    if (layout.pageSize > 0)
        m_count = static_cast<int>(std::min<qsizetype>(content.size() / layout.pageSize, std::numeric_limits<int>::max()));
}

const uchar *PageFile::bytes(int page) const
{
    return reinterpret_cast<const uchar *>(m_content.constData()) + qsizetype{page - 1} * m_layout.pageSize;
}

quint32 PageFile::number(int page, int offset) const
{
    return page >= 1 && page <= m_count ? fourBytes(bytes(page) + offset) : 0;
}

int PageFile::cellCount(int page) const
{
    return twoBytes(bytes(page) + headerOf(page) + 3);
}

PageKind PageFile::kind(int page) const
{
    if (page < 1 || page > m_count)
        return PageKind::Other;
    const uchar *header = bytes(page) + headerOf(page);
    const int mark = header[0];
    if (mark != nodeMark && mark != leafMark)
        return PageKind::Other;
    const int pointers = headerOf(page) + (mark == nodeMark ? 12 : 8);
    if (pointers + 2 * cellCount(page) > m_layout.usable)
        return PageKind::Other;
    return mark == nodeMark ? PageKind::TableNode : PageKind::TableLeaf;
}

std::vector<int> PageFile::children(int page) const
{
    const int header = headerOf(page);
    std::vector<int> found;
    const auto add = [&found](quint32 child) {
        found.push_back(child <= static_cast<quint32>(std::numeric_limits<int>::max()) ? static_cast<int>(child) : 0);
    };
    for (int i = 0; i < cellCount(page); ++i) {
        const int offset = twoBytes(bytes(page) + header + 12 + 2 * i);
        add(offset + 4 <= m_layout.usable ? fourBytes(bytes(page) + offset) : 0);
    }
    add(fourBytes(bytes(page) + header + 8));
    return found;
}

// The bytes of a leaf, and the pages that its rows go on in, that belong to a row already.
class PageFile::Claims {
public:
    Claims(int pageSize, int pages) : m_bytes(static_cast<size_t>(pageSize)), m_pages(static_cast<size_t>(pages) + 1) {}
    bool takeBytes(int begin, int end)
    {
        const auto from = m_bytes.begin() + begin, to = m_bytes.begin() + end;
        if (std::find(from, to, true) != to)
            return false;
        std::fill(from, to, true);
        return true;
    }
    bool takePage(quint32 page)
    {
        const bool free = !m_pages[page];
        m_pages[page] = true;
        return free;
    }

private:
    std::vector<bool> m_bytes;
    std::vector<bool> m_pages;
};

std::vector<Row> PageFile::rows(int page, qsizetype *lost) const
{
    const int header = headerOf(page);
    std::vector<Row> found;
    Claims claims(m_layout.pageSize, m_count);
    for (int i = 0; i < cellCount(page); ++i) {
        Row row;
        if (readRow(page, twoBytes(bytes(page) + header + 8 + 2 * i), claims, &row))
            found.push_back(std::move(row));
        else
            ++*lost;
    }
    return found;
}

bool PageFile::readRow(int page, int offset, Claims &claims, Row *row) const
{
    if (offset < headerOf(page) + 8 + 2 * cellCount(page) || offset >= m_layout.usable)
        return false;
    const uchar *at = bytes(page) + offset;
    const uchar *end = bytes(page) + m_layout.usable;
    qint64 size = 0;
    if (!readNumber(at, end, &size) || !readNumber(at, end, &row->id) || size < 1 || size > m_content.size())
        return false;
    const QByteArray record = payload(page, offset, static_cast<int>(at - bytes(page)), size, claims);
    return !record.isEmpty() && decode(record, size, &row->cells);
}

// The cell's part in the page and the chain of pages that it goes on in, as far as that holds.
QByteArray PageFile::payload(int page, int begin, int offset, qint64 size, Claims &claims) const
{
    const int usable = m_layout.usable;
    const int most = usable - 35;
    const int least = (usable - 12) * 32 / 255 - 23;
    qint64 local = size;
    if (size > most) {
        local = least + (size - least) % (usable - 4);
        if (local > most)
            local = least;
    }
    const bool goesOn = local < size;
    const qint64 end = offset + local + (goesOn ? 4 : 0);
    if (end > usable || !claims.takeBytes(begin, static_cast<int>(end)))
        return {};
    QByteArray record(reinterpret_cast<const char *>(bytes(page)) + offset, local);
    quint32 next = goesOn ? fourBytes(bytes(page) + offset + local) : 0;
    while (record.size() < size) {
        if (next < 2 || next > static_cast<quint32>(m_count) || !claims.takePage(next))
            break;
        const uchar *link = bytes(static_cast<int>(next));
        record.append(reinterpret_cast<const char *>(link) + 4, std::min<qint64>(size - record.size(), usable - 4));
        next = fourBytes(link);
    }
    return record;
}

std::optional<std::vector<int>> PageFile::freePages() const
{
    if (m_count == 0 || !m_content.startsWith(plainMark))
        return std::nullopt;
    std::vector<int> found;
    const quint32 wanted = number(1, 36);
    quint32 trunk = number(1, 32);
    const auto isPage = [this](quint32 page) { return page >= 2 && page <= static_cast<quint32>(m_count); };
    while (trunk != 0) {
        if (!isPage(trunk) || found.size() >= wanted)
            return std::nullopt;
        const int at = static_cast<int>(trunk);
        found.push_back(at);
        const quint32 leaves = number(at, 4);
        if (leaves > static_cast<quint32>(m_layout.usable / 4 - 2))
            return std::nullopt;
        for (quint32 i = 0; i < leaves; ++i) {
            const quint32 leaf = number(at, static_cast<int>(8 + 4 * i));
            if (!isPage(leaf))
                return std::nullopt;
            found.push_back(static_cast<int>(leaf));
        }
        trunk = number(at, 0);
    }
    if (found.size() != wanted)
        return std::nullopt;
    return found;
}

}
