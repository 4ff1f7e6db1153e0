#pragma once

#include "platform/dao/dao.h"
#include "session/state.h"

#include <functional>
#include <vector>

// A list report as plain data; the print folder has the one engine that prints it.
namespace vorel {

struct ListColumn {
    using Cell = std::function<QString(const dao::Recordset &)>;
    QString heading{};
    Cell cell{};
    double percent = 0;             // of the page's width: where it begins
    int cut = 0;                    // characters that are shown; 0: all
    int wrap = 0;                   // characters of a line; 0: as many as fit the column
    QString alignment{QStringLiteral("L")};
    double bodyPercent = 0;         // where its cells begin, if elsewhere
    double roomPercent = 0;         // up to where it may reach; 0: to the next column
};

enum class ListHead {
    Line,                           // one line with the title, for a table
    Block,                          // the centred block of ReportHeading
};

struct ListReport {
    QString titleWord{};            // " as at " in it where the date follows
    bool isDated = true;
    DataFile file = DataFile::Main;
    QString query{};                // "" if the caller that prints gives it
    int orientation = 1;
    double size = 8;                // points of the rows; 0: as the heading leaves it
    int rowLimit = 27;              // records to a page
    bool heightTest = true;         // a page is full at 0.9 of its height, too
    std::vector<ListColumn> columns{};
    ListHead head = ListHead::Line;
    bool isTable = true;            // false: each record is a block of labels and texts (columns: heading over text)
    QString countWord{QStringLiteral("NUMBER OF RECORDS LISTED:")};
    std::function<basic::Currency(const dao::Recordset &)> total = {};  // what is summed; shown in the column totalColumn
    int totalColumn = -1;
    QString totalFormat = {};
    bool hideEmail = false;         // the preview offers no mail
    QString noRows{QStringLiteral("No Records Applicable for this Report")};
};

ListColumn::Cell fieldText(const QString &field);
ListColumn::Cell fieldFormat(const QString &field, const QString &format);      // Null shows as nothing
ListColumn::Cell fieldShortDate(const QString &field);                          // in the short form of the moment
ListColumn::Cell yesWhenSet(const QString &field);
std::function<basic::Currency(const dao::Recordset &)> fieldSum(const QString &field);      // Null counts as nothing

// The columns that most reports are made of. A heading alone names the field too.
ListColumn column(const QString &heading, double percent, int cut = 0);
ListColumn column(const QString &heading, const QString &field, double percent, int cut = 0);
inline constexpr int columnWide = 1000;     // characters of a wrapped line: as many as fit its column
ListColumn wrapped(const QString &heading, const QString &field, double percent, int characters);
ListColumn rightAligned(const QString &heading, ListColumn::Cell cell, double percent);

}
