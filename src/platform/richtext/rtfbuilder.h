#pragma once

#include <QHash>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextListFormat>
#include <array>

class QTextList;

namespace vorel::richtext {

inline constexpr int deepestList = 9;

// The list that a paragraph belongs to.
struct ListPlace {
    QTextListFormat::Style style = QTextListFormat::ListDisc;
    int level = 1;              // 1..deepestList
    QString suffix;             // after the number; "" = the usual point
    int number = 0;             // of this paragraph, 0 where the text does not say
};

// Fills an empty document, paragraph by paragraph.
class Builder {
public:
    explicit Builder(QTextDocument &document);
    ~Builder();
    Builder(const Builder &) = delete;
    Builder &operator=(const Builder &) = delete;

    void addText(const QString &text, const QTextCharFormat &format);
    // `empty`: what is typed into the paragraph if it has no text.
    void endParagraph(const QTextBlockFormat &format, const ListPlace *list, const QTextCharFormat &empty);
    bool isOpen() const { return m_open; }      // the paragraph has text

private:
    struct OpenList {
        QTextList *list = nullptr;
        ListPlace place;
        int count = 0;
        int next = 1;           // the number that goes on with it
        bool running = false;   // the paragraph before is in it, or in a deeper one
    };
    void openParagraph();
    void addToList(const ListPlace &place);
    static bool continues(const OpenList &open, const ListPlace &place);

    QTextCursor m_cursor;
    bool m_first = true, m_open = false;
    std::array<OpenList, deepestList + 1> m_lists;
};

}
