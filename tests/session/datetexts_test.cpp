#include "session/datetexts.h"

#include "platform/basic/dates.h"
#include "store/mainfile.h"

namespace vorel {

using namespace Qt::StringLiterals;

class DateTexts : public test::MainFileTest {};

// What a box shows is read by the format in which it shows it, whatever the region; what that does not read, by the region.
TEST_F(DateTexts, ReadByTheFormatShownThenByTheRegion)
{
    const struct { const char *region; QString display, text; int year, month, day; } cases[] = {
        {"en_US", u"mm/dd/yyyy"_s, u"06/12/2026"_s, 2026, 6, 12}, {"en_US", u""_s, u"06/12/2026"_s, 2026, 6, 12},
        {"en_US", u"dd/mm/yyyy"_s, u"06/12/2026"_s, 2026, 12, 6}, {"en_AU", u"mm/dd/yyyy"_s, u"06/12/2026"_s, 2026, 6, 12},
        {"en_US", u"dd/mm/yyyy"_s, u"25/12/2026"_s, 2026, 12, 25}, {"en_US", u"dd/mm/yyyy"_s, u"12/25/2026"_s, 2026, 12, 25},
        {"en_US", u"dd/mm/yyyy"_s, u"2026-06-12"_s, 2026, 6, 12}, {"en_US", u"dd/mm/yyyy"_s, u"6 Dec 2026"_s, 2026, 12, 6},
        {"en_US", u"dd mmm yyyy"_s, u"06/12/2026"_s, 2026, 6, 12}, {"en_AU", u"mmm d, yyyy"_s, u"06/12/2026"_s, 2026, 12, 6},
        {"en_US", u"dd.mm.yyyy"_s, u"06.12.2026"_s, 2026, 12, 6}, {"de_DE", u"mm/dd/yy"_s, u"06/12/26"_s, 2026, 6, 12},
        {"en_US", u"ddd d/m/yyyy"_s, u"Sun 6/12/2026"_s, 2026, 12, 6}, {"de_DE", u"ddd, d mmm yyyy"_s, u"Sun, 6 Dec 2026"_s, 2026, 12, 6},
        {"en_US", u"yyyy-mm-dd"_s, u"26-06-12"_s, 2026, 6, 12}, {"en_US", u"Short Date"_s, u"06/12/2026"_s, 2026, 6, 12}};
    for (const auto &c : cases) {
        setRegion(QString::fromLatin1(c.region));
        state().settings.gDateDisplay = c.display;
        EXPECT_EQ(basic::DateSerial(c.year, c.month, c.day), typedDate(c.text))
            << c.region << ' ' << qPrintable(c.display) << ' ' << qPrintable(c.text);
    }
}

TEST_F(DateTexts, WhatIsNoDayIsNotTakenForAnotherOne)
{
    for (const QString &format : {u""_s, u"dd/mm/yyyy"_s, u"mm/dd/yy"_s})
        for (const QString &none : {u""_s, u"soon"_s, u"10:30"_s, u"31/31/2026"_s, u"30/2/26"_s, u"31/04/2026"_s, u"Sunday"_s})
            EXPECT_FALSE(typedDate(none, format)) << qPrintable(none) << ' ' << qPrintable(format);
}

// A text field of a date must read back as that day at the next start, in the region.
TEST_F(DateTexts, AStoredTextReadsBackInTheRegion)
{
    const struct { QString display, stored; } cases[] = {
        {u"mm/dd/yyyy"_s, u"03/05/2026"_s}, {u"d mmm yyyy"_s, u"5 Mar 2026"_s}, {u"dd/mm/yyyy"_s, u"03/05/2026"_s},
        {u"dddd, d mmmm yyyy"_s, u"03/05/2026"_s}, {u"yyyy"_s, u"03/05/2026"_s}};
    for (const auto &c : cases) {
        state().settings.gDateDisplay = c.display;
        EXPECT_EQ(storedDateText(basic::DateSerial(2026, 3, 5)), c.stored) << qPrintable(c.display);
    }
}

TEST_F(DateTexts, Times)
{
    const std::pair<QString, QString> cases[] = {{u"9:30"_s, u"09:30 am"_s}, {u"21:05"_s, u"09:05 pm"_s}, {u"7 PM"_s, u"07:00 pm"_s},
                                                 {u"09:00 Am"_s, u"09:00 am"_s}, {u"All Day"_s, u"All Day"_s}, {u"noon"_s, u"noon"_s}};
    for (const auto &[typed, kept] : cases)
        EXPECT_EQ(typedTime(typed), kept);
}

}
