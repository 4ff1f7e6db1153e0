#pragma once

#include "print/listreport.h"
#include "print/script.h"

// Writes one list report into the script. Internal to this folder.
namespace vorel {

class ListWriter {
public:
    explicit ListWriter(const ListReport &report);
    void write(dao::Recordset &rows);       // from the first to the last, and plays them

private:
    static constexpr double ruleGap = 30;   // twips, keeps rules from touching the text
    struct Place {                          // of a column, twips
        double figureRoom() const { return body - left - 2 * ruleGap; }
        double position = 0, body = 0;      // of its heading and of its cells
        double left = 0;                    // where the text of the column before it may end
        double room = 0;
        double rule = 0;
    };

    void findPlaces();
    void headPage();
    void headTable();
    void ruleColumns(double bottom);
    void breakPage();
    void makeRoom(int lines = 1);           // for so many lines more
    void placeRules();
    bool isFull() const;
    void writeRecord(const dao::Recordset &rows);
    void writeLines(const std::vector<QStringList> &cells, bool isHeading);
    void writeCell(std::size_t column, const QString &text, bool isHeading, double shrink);
    double shrinkOf(const std::vector<QStringList> &cells) const;
    void writeBlock(const std::vector<QString> &texts);
    void close();
    QStringList cellLines(const ListColumn &column, const Place &place, QString text) const;

    PrintJob m_job;
    const ListReport &m_report;
    QString m_title;
    double m_width = 0;
    std::vector<Place> m_places;
    double m_tableTop = 0;
    int m_rowsOnPage = 0;
    int m_count = 0;
    basic::Currency m_total;
};

// The text in lines that the job's font shows within the width, broken at blanks where there are any. mostCharacters: of a
// line, by the rule of wrapLines; 0: as many as fit.
QStringList fitLines(const PrintJob &job, const QString &text, double room, int mostCharacters = 0);
// As many whole characters of the text as fit into so many places; one at least. A sign of several codes, such as an
// emoji, is one character that stays whole.
qsizetype wholeCharacters(const QString &text, qsizetype most);

}
