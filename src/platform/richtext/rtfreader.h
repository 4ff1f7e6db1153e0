#pragma once

#include "platform/richtext/codepage.h"
#include "platform/richtext/rtfbuilder.h"
#include "platform/richtext/rtftokens.h"

#include <QColor>
#include <QTextOption>
#include <vector>

namespace vorel::richtext {

// Where the words of a group go.
enum class Destination { Body, Skip, Fonts, Colours, ListMark, List, ListBefore, ListAfter };

struct CharacterState {
    int font = -1;              // \f, -1 = the document's own
    int halfPoints = 0;         // 0 = the document's own
    int colour = 0, back = 0;   // rows of the colour table, 0 = the palette's
    int shift = 0;              // above 0 superscript, below subscript
    bool bold = false, italic = false, underline = false, strikeout = false;
    bool operator==(const CharacterState &) const = default;
};

struct ParagraphState {         // in twips
    Qt::AlignmentFlag alignment = Qt::AlignLeft;
    int left = 0, right = 0, first = 0, before = 0, after = 0;
    QList<QTextOption::Tab> tabs;
    QTextOption::TabType nextTab = QTextOption::LeftTab;
    bool listed = false;        // by \pn
    int listTable = 0;          // \ls
    int listLevel = 0;          // \ilvl
    ListPlace list;
};

// Reads one RTF into an empty document. What it does not know it reads around.
class Reader {
public:
    Reader(QTextDocument &document, QStringView text, bool highAreBytes);
    void run();

private:
    friend struct Words;        // the control words' table

    struct Group {
        CharacterState character;
        ParagraphState paragraph;
        Destination destination = Destination::Body;
        int fallbacks = 1;      // \uc: the characters after each \u for readers that do not know it
    };
    struct Font {
        QString family;
        int codePage = 0;
    };

    void take(const Token &token);
    void open();
    void close();
    void takeWord(const Token &token);
    void takeSymbol(char16_t symbol);
    void takeByte(char16_t byte);
    void takeCharacter(char16_t character);
    bool skipFallback();
    void add(char16_t character);           // one of the text, wherever the group's words go
    void addUnicode(int number);
    void flushBytes();
    void flush();                           // what was collected goes into the document in its format
    void endParagraph();
    void finish();

    void addBody(char16_t character);
    void addFontName(char16_t character);
    void addColour(char16_t character);
    int codePage() const;
    const QTextCharFormat &format();
    QTextBlockFormat blockFormat(bool listed) const;
    void endList(ListPlace *list) const;
    bool listPlace(ListPlace *place) const;
    void readListMark(ListPlace *place) const;
    void addHangingTab(QList<QTextOption::Tab> *tabs, int first) const;

    Tokens m_tokens;
    Builder m_builder;
    std::vector<Group> m_groups{Group{}};
    Group m_now;
    int m_tooDeep = 0;                      // open groups whose state is not kept
    bool m_optional = false;                // \* came just before
    int m_skip = 0;                         // fallbacks still to leave out

    QString m_text;
    QByteArray m_bytes;
    CharacterState m_textState;             // of what was collected
    CharacterState m_formatState;
    QTextCharFormat m_format;

    QHash<int, Font> m_fonts;
    int m_fontRow = 0;
    Font m_font;
    std::vector<QColor> m_colours;
    int m_red = -1, m_green = -1, m_blue = -1;
    int m_defaultFont = 0;
    int m_ansiPage = western;

    QString m_mark, m_listBefore, m_listAfter;
    int m_listStart = 0;                    // \pnstart of this very paragraph
};

}
