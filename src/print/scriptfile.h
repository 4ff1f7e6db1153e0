#pragma once

#include <QFile>
#include <QString>
#include <optional>
#include <vector>

// A script open for reading: its lines, and where each page begins, so that any page is reached without reading the
// ones before it.
namespace vorel {

// The upper-cased text before the first blank, or the whole line upper-cased.
QString FirstWord(const QString &line);

class PrintScriptFile {
public:
    // false when there is no such file or it cannot be read. Counts the pages: one more than there are NEWPAGE lines.
    bool open(const QString &path);
    void close();
    bool isOpen() const { return m_file.isOpen(); }
    QString path() const { return m_file.fileName(); }
    int pages() const { return static_cast<int>(m_pages.size()); }

    void seekPage(int page);                    // from 0; a page beyond the last: the end of the file
    std::optional<QString> nextLine();          // trimmed, blank lines and comments left out; nothing at the end

private:
    QFile m_file;
    std::vector<qint64> m_pages;                // the place of each page's first line
};

struct TextLine { double x = 0, y = 0; QString text; };
// The operands of LPRINT, CPRINT, RPRINT. Error 9 for a [n] outside the table.
TextLine parseTextLine(const QString &line, const std::vector<QString> &table);

struct DrawnLine { double x1 = 0, y1 = 0, x2 = 0, y2 = 0; bool step = false; std::optional<double> colour; QString flag; };
DrawnLine parseDrawnLine(const QString &line);

struct PictureLine { QString path; double x = 0, y = 0; };
PictureLine parsePictureLine(const QString &line);

// The number after the equals sign, 0 if none.
double parseSetting(const QString &line);
// The text between the first and the second double quote, up to the line's end where the second is missing.
QString parseQuoted(const QString &line);

}
