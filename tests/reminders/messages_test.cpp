#include "frame/startup.h"
#include "reminders/messages.h"
#include "store/mainfile.h"

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

class Messages : public test::MainFileTest {
protected:
    Messages()
    {
        DetectDateOrder();
        openMainDatabase();
    }
};

}

TEST_F(Messages, OnlyUnreadOnesToTheUserWait)
{
    struct Case { const char *name; QString to; bool read; bool waits; };
    const Case cases[] = {{"unread", u"Pat O'Hara"_s, false, true}, {"in other letters", u"PAT O'HARA"_s, false, true},
                          {"read", u"Pat O'Hara"_s, true, false}, {"to another", u"Sam"_s, false, false},
                          {"to a name that is no user", u"nobody"_s, false, false}};
    state().settings.gUserName = u"Pat O'Hara"_s;
    EXPECT_FALSE(messagesWait());
    for (const Case &c : cases) {
        execute(u"DELETE FROM [MESSAGES]"_s);
        execute(u"INSERT INTO [MESSAGES] ([TO],[FROM],[Read]) VALUES ('%1','Sam',%2)"_s.arg(QString(c.to).replace(u'\'', u"''"_s),
                                                                                       c.read ? u"True"_s : u"False"_s));
        EXPECT_EQ(messagesWait(), c.waits) << c.name;
    }
}

TEST_F(Messages, NewOneIsFromTheUserNow)
{
    m_clock.set(QDate(2026, 11, 22), QTime(14, 5, 59));
    state().settings.gUserName = u"A name of far more than thirty characters"_s;
    dao::Database file = open();
    dao::Recordset set = file.OpenRecordset(u"SELECT * FROM [Messages] ORDER BY [Date]"_s);
    EXPECT_TRUE(addMessage(set).isValid());
    EXPECT_EQ(rows(u"SELECT [DATE],[FROM],[UsersName],[Read] FROM [MESSAGES]"_s),
              QStringList{u"2026-11-22 14:05:00|A name of far more than thirty|A name of far more t|False"_s});
}

TEST_F(Messages, NamesAndViews)
{
    execute(u"INSERT INTO [Users] ([Name]) VALUES ('Sam')"_s);
    execute(u"INSERT INTO [MESSAGES] ([TO],[FROM]) VALUES ('Pat','Sam')"_s);
    execute(u"INSERT INTO [MESSAGES] ([TO],[FROM]) VALUES ('sam','Ann')"_s);
    execute(u"INSERT INTO [MESSAGES] ([TO],[FROM]) VALUES ('','Pat')"_s);
    QStringList names = messageNames();
    for (QString &name : names)
        name = name.toLower();
    names.sort();
    EXPECT_EQ(names, (QStringList{u"ann"_s, u"pat"_s, u"sam"_s}));
    state().settings.gUserName = u"Sam"_s;
    // The same rows in the same order as the whole list, but for the condition.
    QString all = messageQuery(MessageView::Sent);
    EXPECT_EQ(all.remove(u" WHERE [FROM]='Sam'"_s), messageQuery(MessageView::Both));
    EXPECT_EQ(rows(messageQuery(MessageView::Received)).value(0).section(u'|', 0, 0), u"2"_s) << "whatever the case";
}

TEST_F(Messages, BackupsThatAreDue)
{
    struct Case { const char *name; QString fileDate, lastBackup, days; bool due; };
    const Case cases[] = {
        {"never backed up", u"#11/01/2026#"_s, u"Null"_s, u"0"_s, false},
        {"0 days: today's backup", u"#11/01/2026#"_s, u"#11/22/2026#"_s, u"0"_s, false},
        {"0 days: due one day after", u"#11/01/2026#"_s, u"#11/21/2026#"_s, u"0"_s, true},
        {"exactly the days", u"#11/01/2026#"_s, u"#11/15/2026#"_s, u"7"_s, false},
        {"one more", u"#11/01/2026#"_s, u"#11/14/2026#"_s, u"7"_s, true},
        {"unchanged since", u"#11/14/2020#"_s, u"#11/14/2020#"_s, u"7"_s, false},
        {"no date of the file", u"Null"_s, u"#11/14/2020#"_s, u"7"_s, true},
        {"days unset", u"#11/01/2026#"_s, u"#11/20/2026#"_s, u"Null"_s, true},
    };
    EXPECT_FALSE(backupsAreDue());
    for (const Case &c : cases) {
        execute(u"DELETE FROM [FILEBACKUP]"_s);
        execute(u"INSERT INTO [FILEBACKUP] ([FILEDATE],[LASTBACKUPDATE],[BACKUPAFTERDAYS]) VALUES (%1,%2,%3)"_s
                    .arg(c.fileDate, c.lastBackup, c.days));
        EXPECT_EQ(backupsAreDue(), c.due) << c.name;
    }
}

TEST_F(Messages, InfoLine)
{
    state().gProductTitle = u"Vorel Reminder 1"_s;
    const QString version = u"Vorel Reminder 1  Version "_s + QStringLiteral(VOREL_VERSION);
    EXPECT_EQ(infoLine({}), version);
    EXPECT_EQ(infoLine(u"Press F3"_s), u"Press F3 ........... "_s + version);
    state().settings.gTips = false;
    EXPECT_EQ(infoLine(u"Press F3"_s), version);
}

}
