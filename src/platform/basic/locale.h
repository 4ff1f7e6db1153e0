#pragma once

#include <QLocale>
#include <QString>

// The machine's regional settings, asked of this one place; a test sets them. An explicit pattern of Format prints "/"
// and ":" unchanged everywhere, so that texts of queries and files stay readable; the locale's own marks appear only
// through shortDate, longDate and longTime. Numbers follow decimalPoint and thousands, in patterns too.
namespace vorel::basic {

enum class DateOrder { MonthFirst, DayFirst, YearFirst };

struct Regional {
    QString language = QStringLiteral("en_US");          // of LC_TIME, for names on paper; those of Format are English
    DateOrder order = DateOrder::MonthFirst;
    QString shortDate = QStringLiteral("M/d/yyyy");     // pattern for Format
    QString longDate = QStringLiteral("dddd, mmmm dd, yyyy");
    QString longTime = QStringLiteral("h:nn:ss AM/PM");
    QChar decimalPoint = u'.';
    QChar thousands = u',';
    QString currencySymbol = QStringLiteral("$");
    bool currencyNegativeInBrackets = true;             // ($1.00) as in en-US; otherwise -$1.00
    bool currencyAfter = false;                         // 1.00 $ rather than $1.00
    bool metricPaper = false;                           // A4 rather than Letter
};

const Regional &regional();                  // read once from the environment (LC_TIME, LC_NUMERIC, LC_MONETARY, LANG)
Regional regionalFor(const QString &name);   // "en_US", "en_AU", "de_DE", "C" (as en_US)
void setRegional(const Regional &settings);

}
