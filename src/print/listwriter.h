#pragma once

#include "print/listreport.h"

// Writes one list report into the script. Internal to this folder.
namespace vorel {

class ListWriter {
public:
    explicit ListWriter(const ListReport &report);
    void write(dao::Recordset &rows);       // from the first to the last, and plays them

private:
    struct Place { double position = 0, body = 0, room = 0; };      // of a column, twips

    void findPlaces();
    void headPage();
    void headTable();
    void ruleColumns(double bottom);
    void breakPage();
    void makeRoom();                        // for one more line
    bool isFull() const;
    void writeRecord(const dao::Recordset &rows);
    void writeLines(const std::vector<QStringList> &cells, bool isHeading);
    void writeBlock(const std::vector<QString> &texts);
    void close();
    QStringList cellLines(const ListColumn &column, const Place &place, QString text) const;

    const ListReport &m_report;
    QString m_title;
    double m_width = 0;
    std::vector<Place> m_places;
    double m_tableTop = 0;
    int m_rowsOnPage = 0;
    int m_count = 0;
    basic::Currency m_total;
};

// The text in lines that the current font shows within the room, broken at blanks where there are any.
QStringList fitLines(const QString &text, double room);

}
