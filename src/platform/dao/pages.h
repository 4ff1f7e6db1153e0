#pragma once

#include <QByteArray>
#include <optional>
#include <vector>

// The pages of a plain file, read without the store's help, so that a damaged one hides no more than itself. Nothing
// here trusts a number from the file.
namespace vorel::dao::pages {

struct Cell {
    enum class Kind { Missing, Null, Integer, Real, Text, Bytes };      // Missing: its part of the row is damaged
    Kind kind = Kind::Missing;
    qint64 integer = 0;
    double real = 0;
    QByteArray bytes{};
};

struct Row {
    qint64 id = 0;
    std::vector<Cell> cells{};
};

enum class PageKind { Other, TableNode, TableLeaf };

struct Layout {
    int pageSize = 0;       // 0: nothing in the file looks like a page
    int usable = 0;         // bytes of a page
};

// As the header says, or as most pages can be read where that is damaged.
Layout layoutOf(const QByteArray &content);

class PageFile {
public:
    PageFile(const QByteArray &content, Layout layout);
    int count() const { return m_count; }               // pages are numbered from 1
    PageKind kind(int page) const;
    std::vector<int> children(int page) const;          // of a node, in order; may name pages that are none
    // The rows of a leaf that can be read; `lost` counts the others. Cells that share bytes are damage, so that the rows never
    // take more room than the file.
    std::vector<Row> rows(int page, qsizetype *lost) const;
    // Free pages by the file's own list; nothing if the list is damaged.
    std::optional<std::vector<int>> freePages() const;
    quint32 number(int page, int offset) const;         // four bytes

private:
    const uchar *bytes(int page) const;
    int headerOf(int page) const { return page == 1 ? 100 : 0; }
    int cellCount(int page) const;
    class Claims;
    bool readRow(int page, int offset, Claims &claims, Row *row) const;
    QByteArray payload(int page, int begin, int offset, qint64 size, Claims &claims) const;

    const QByteArray m_content;
    Layout m_layout;
    int m_count = 0;
};

}
