#pragma once

#include "platform/basic/value.h"

#include <QString>
#include <functional>
#include <vector>

// How a row of the general grid looks, by its section. Columns are those of the section's query, from 0.
namespace vorel {

struct RowLook {
    struct Cell {
        int column;
        QString content;
        bool operator==(const Cell &) const = default;
    };
    QString style;                      // of the whole row; "" = the section's own
    std::vector<Cell> styles;           // cells with a style of their own
    std::vector<Cell> texts;            // cells that show another text than the stored one
};

// value: the stored value of a column of the row.
// What comes back every year on its day.
bool isYearlyEvent(const QString &subject, const basic::Value &recurring);

RowLook subjectRowLook(const QString &sectionCode, const std::function<basic::Value(int column)> &value);

}
