#include "reminders/recurrence.h"
#include "store/mainfile.h"
#include "support/table.h"

namespace vorel {

using namespace Qt::StringLiterals;

class PassesTest : public test::MainFileTest {
protected:
    // "text, date, days, months"
    void addRow(const QString &table, const QString &textField, const QString &values) const
    {
        execute(u"INSERT INTO [%1] ([%2], [Date], [PeriodDays], [PeriodMonth]) VALUES (%3);"_s.arg(table, textField,
                                                                                                 values));
    }
    QStringList dates(const QString &table) const
    {
        return rows(u"SELECT [Date] FROM [%1] ORDER BY [ID];"_s.arg(table));
    }
};

// Rows, and the dates after each start, parted by semicolons. The end of a series moves first, so that the row before it no
// longer finds it.
TEST_F(PassesTest, rollForward)
{
    const std::pair<QString, QString> tables[] = {{u"Appointments"_s, u"Appointment"_s}, {u"Bills"_s, u"Bill"_s}};
    test::forEachRow("recurrence", "rollForward", [&](const test::Row &wanted) {
        for (const auto &[table, textField] : tables) {
            execute(u"DELETE * FROM "_s + table);
            setToday(wanted["today"]);
            for (const QString &row : wanted["rows"].split(u"; "_s))
                addRow(table, textField, row);
            for (const QString &after : wanted["after"].split(u"; "_s)) {
                RollForwardDates();
                EXPECT_EQ(dates(table).join(u' '), after);
            }
        }
    });
}

// What was kept or paid is not consulted, and stays as it was.
TEST_F(PassesTest, rollForwardChangesTheDateAlone)
{
    execute(u"INSERT INTO [Bills] ([Bill], [Date], [Day], [Amount], [PeriodMonth], [Paid]) "
            "VALUES ('Rent', #10/15/2026#, 'Thu', 500, 1, -1);"_s);
    RollForwardDates();
    EXPECT_EQ(rows(u"SELECT [Bill], [Date], [Day], [Amount], [PeriodMonth], [Paid] FROM [Bills];"_s),
              QStringList(u"Rent|2026-11-15|Thu|500|1|True"_s));
}

// A file from elsewhere may hold a period that leads out of the calendar: its row stays, and the next ones roll.
TEST_F(PassesTest, APeriodBeyondTheCalendarMovesNothing)
{
    execute(u"DROP TABLE [Bills]"_s);
    execute(u"CREATE TABLE [Bills] ([ID] LONG, [Bill] TEXT(100), [Date] DATETIME, [PeriodMonth] DOUBLE, [PeriodDays] DOUBLE)"_s);
    for (const char *row : {"1,'Gas',#11/01/2026#,3000000000,0", "2,'Tea',#11/01/2026#,0,3000000000", "3,'Rent',#11/01/2026#,0,7"})
        execute(u"INSERT INTO [Bills] VALUES (%1)"_s.arg(QString::fromLatin1(row)));
    RollForwardDates();
    EXPECT_EQ(dates(u"Bills"_s).join(u' '), u"2026-11-01 2026-11-01 2026-11-08");
}

// A row whose text holds a quote stays behind alone, and is reported once.
TEST_F(PassesTest, ARowThatCannotRollHindersNoOther)
{
    for (const char *row : {"'Gym', #11/01/2026#, 7, 0", "'Mum''s', #11/01/2026#, 7, 0", "'Walk', #11/01/2026#, 7, 0"})
        addRow(u"Appointments"_s, u"Appointment"_s, QString::fromLatin1(row));
    addRow(u"Bills"_s, u"Bill"_s, u"'Rent', #11/01/2026#, 7, 0"_s);
    state().gIniFile = m_folder.path(u"vorelreminder.ini"_s);
    m_prompts.expect(u"The dates of these repeating reminders cannot be carried forward"_s);
    RollForwardDates();
    EXPECT_TRUE(m_prompts.shown().back().text.contains(u"\r\nMum's\r\n"_s));
    EXPECT_EQ(dates(u"Appointments"_s).join(u' '), u"2026-11-08 2026-11-01 2026-11-08");
    EXPECT_EQ(dates(u"Bills"_s).join(u' '), u"2026-11-08");
    RollForwardDates();
    EXPECT_EQ(dates(u"Appointments"_s).join(u' '), u"2026-11-15 2026-11-01 2026-11-15");
}

TEST_F(PassesTest, purgeTakesTickedRowsAfterTheDaysAreOver)
{
    const struct {
        int inState;            // 0: the setup row has not been read yet
        int inSetup;
        const char *left;       // days ago
    } cases[] = {{30, 30, "29 30 none"}, {0, 29, "29 none"}, {0, 0, "none"}, {31, 30, "29 30 31 none"}};
    const std::pair<QString, QString> tables[] = {{u"Appointments"_s, u"Appointment"_s}, {u"Bills"_s, u"Bill"_s},
                                                  {u"Events"_s, u"Event"_s}, {u"Messages"_s, u"Message"_s}};
    for (const auto &wanted : cases) {
        state().settings.gDeleteAfterDays = static_cast<std::int16_t>(wanted.inState);
        execute(u"UPDATE [Setup] SET [DeleteAfterDays] = %1;"_s.arg(wanted.inSetup));
        for (const auto &[table, textField] : tables) {
            execute(u"DELETE * FROM "_s + table);
            const QString insert = u"INSERT INTO [%1] ([%2], [Date], [Delete]) VALUES ('%3', %4, %5);"_s;
            for (const int ago : {29, 30, 31}) {
                const QString date = QDate(2026, 11, 22).addDays(-ago).toString(u"#MM/dd/yyyy#"_s);
                execute(insert.arg(table, textField, QString::number(ago), date, u"-1"_s));
            }
            execute(insert.arg(table, textField, u"none"_s, u"Null"_s, u"-1"_s));
            execute(insert.arg(table, textField, u"unticked"_s, u"#01/01/2020#"_s, u"0"_s));
        }
        PurgeExpiredRows();
        for (const auto &[table, textField] : tables) {
            EXPECT_EQ(rows(u"SELECT [%1] FROM [%2] ORDER BY [ID];"_s.arg(textField, table)).join(u' '),
                      QString::fromLatin1(wanted.left) + u" unticked"_s) << qPrintable(table);
        }
    }

    // A file from elsewhere may hold a count beyond any number of days: for ever, not an overflow into the past.
    state().settings.gDeleteAfterDays = 0;
    execute(u"DROP TABLE [Setup]"_s);
    execute(u"CREATE TABLE [Setup] ([DeleteAfterDays] DOUBLE)"_s);
    execute(u"INSERT INTO [Setup] ([DeleteAfterDays]) VALUES (3000000000)"_s);
    execute(u"INSERT INTO [Bills] ([Bill], [Date], [Delete]) VALUES ('kept', #01/01/2020#, -1)"_s);
    PurgeExpiredRows();
    EXPECT_TRUE(rows(u"SELECT [Bill] FROM [Bills]"_s).contains(u"kept"_s));
}

TEST_F(PassesTest, anOlderFilesTimesAreCarriedOver)
{
    const QString insert = u"INSERT INTO [Appointments] ([Appointment], [Time], [AppTime], [TimeUpdate]) VALUES (%1);"_s;
    execute(insert.arg(u"'old', #2:30:00 PM#, Null, 0"_s));
    execute(insert.arg(u"'empty', Null, '08:00 AM', 0"_s));
    execute(insert.arg(u"'new', Null, '09:00 AM', -1"_s));
    PurgeExpiredRows();
    const QStringList after = rows(u"SELECT [Appointment], [AppTime], [TimeUpdate] FROM [Appointments] ORDER BY [ID];"_s);
    EXPECT_EQ(after, QStringList({u"old|2:30:00 PM|True"_s, u"empty||True"_s, u"new|09:00 AM|True"_s}));
}

// A start that finds nothing to do writes nothing.
TEST_F(PassesTest, aStartWithoutWorkLeavesTheFileUntouched)
{
    addRow(u"Appointments"_s, u"Appointment"_s, u"'Gym', #11/15/2026#, 7, 0"_s);
    addRow(u"Appointments"_s, u"Appointment"_s, u"'Gym', #11/22/2026#, 7, 0"_s);
    addRow(u"Bills"_s, u"Bill"_s, u"'Rent', #12/01/2026#, 0, 1"_s);
    execute(u"INSERT INTO [Events] ([Event], [Date], [Delete]) VALUES ('Fair', #11/20/2026#, -1);"_s);
    RollForwardDates();
    PurgeExpiredRows();
    const QByteArray before = bytes();
    RollForwardDates();
    PurgeExpiredRows();
    EXPECT_EQ(bytes(), before);
}

}
