#pragma once

#include <QString>
#include <vector>

// The words of a CREATE statement. Internal to the design reader and writer.
namespace vorel::dao::ddl {

struct Token {
    enum class Kind { Word, Name, Text, Symbol, Comment };
    Kind kind = Kind::Word;
    QString text;               // names and texts without their quotes, comments without their marks
    bool is(QStringView word) const { return kind == Kind::Word && text.compare(word, Qt::CaseInsensitive) == 0; }
    bool isSymbol(QChar symbol) const { return kind == Kind::Symbol && text == symbol; }
    bool isName() const { return kind == Kind::Name || kind == Kind::Word; }
};

std::vector<Token> tokens(QStringView sql);
// What lies between the first opening bracket and its closing one, cut at the commas of that level.
std::vector<std::vector<Token>> listItems(const std::vector<Token> &statement);

// A property's value within a comment: nothing in it can end the comment or break the line.
QByteArray escapedComment(const QString &value);
QString unescapedComment(QStringView text);

}
