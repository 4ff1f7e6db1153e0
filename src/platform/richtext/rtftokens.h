#pragma once

#include <QStringView>

namespace vorel::richtext {

struct Token {
    enum class Kind {
        End, Open, Close,
        Word,           // \name with a number or without
        Symbol,         // \ and one character other than a letter
        Byte,           // of the code page: \'hh, or a character above 127 of a file
        Character
    };
    Kind kind = Kind::End;
    QStringView word = {};
    int number = 0;             // held within int, whatever the text says
    bool hasNumber = false;
    char16_t character = 0;     // of Symbol, Byte, Character
};

// Cuts an RTF into its tokens. Line ends and null characters are skipped.
class Tokens {
public:
    Tokens(QStringView text, bool highAreBytes) : m_text(text), m_highAreBytes(highAreBytes) {}

    Token next();
    void skip(int count);       // raw data that follows \bin

private:
    Token word();
    Token escape();
    bool atEnd() const { return m_at >= m_text.size(); }

    QStringView m_text;
    bool m_highAreBytes;
    qsizetype m_at = 0;
};

}
