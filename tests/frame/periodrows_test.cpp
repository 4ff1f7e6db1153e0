#include "frame/periods.h"
#include "frame/startup.h"
#include "store/mainfile.h"

namespace vorel {

using namespace Qt::StringLiterals;
using PeriodRowsTest = test::MainFileTest;

// What the queries of a period find in a real file.
TEST_F(PeriodRowsTest, yearlyEventsOfEachPeriod)
{
    for (const char *row : {"#02/29/1980#,'BIRTHDAY','Leap',0", "#12/28/1947#,'BIRTHDAY','December',0",
                            "#01/01/1950#,'BIRTHDAY','January',0", "#06/15/2030#,'BIRTHDAY','Future',0",
                            "#06/15/1999#,'HOLIDAY','Holiday',0", "#06/15/1999#,'OTHER','Yearly',-1",
                            "#06/15/1999#,'OTHER','Once',0"})
        execute(u"INSERT INTO [EVENTS] ([DATE],[SUBJECT],[EVENT],[RECURRING]) VALUES (%1);"_s.arg(QLatin1String(row)));
    const auto day = [] { SetDayPeriod(u"Today"_s); };
    const struct { QDate today; void (*set)(); QString events; } cases[] = {
        // 29 February rolls over to 1 March in a period, not on a day.
        {{2005, 3, 1}, SetThisMonth, u"Leap"_s}, {{2005, 3, 1}, SetLastMonth, {}}, {{2005, 3, 1}, day, {}},
        {{2004, 2, 29}, day, u"Leap"_s}, {{2004, 2, 29}, SetThisMonth, u"Leap"_s},
        // A week over New Year misses the January birthdays.
        {{2004, 12, 31}, SetThisWeek, u"December"_s}, {{2004, 12, 31}, SetThisMonth, u"December"_s},
        {{2004, 12, 31}, SetNextMonth, u"January"_s},
        // Holidays and rows of the future belong to days alone.
        {{2005, 6, 15}, day, u"Holiday Yearly Future"_s}, {{2005, 6, 15}, SetThisMonth, u"Yearly"_s},
        {{2005, 6, 15}, SetAllRecords, u"December January Leap Holiday Once Yearly Future"_s},
    };
    DetectDateOrder();
    for (const auto &c : cases) {
        m_clock.set(c.today);
        c.set();
        QStringList found;
        for (const QString &row : rows(state().period.gSqlEvents))
            found << row.section(u'|', 4, 4);
        EXPECT_EQ(found.join(u' '), c.events) << qPrintable(state().period.gSqlEvents);
    }
}

}
