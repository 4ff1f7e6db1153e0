#include "app/caddyscreen.h"
#include "reminders/frmMessage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPlainTextEdit>

namespace vorel::test {

using namespace Qt::StringLiterals;

namespace {

class MessageScreen : public CaddyScreen {
protected:
    MessageScreen()
    {
        execute(u"INSERT INTO [Users] ([Name]) VALUES ('Sam')"_s);
        execute(u"INSERT INTO [MESSAGES] ([DATE],[TO],[FROM],[MESSAGE],[Read]) VALUES (#11/20/2026 15:04:00#,'Pat','Sam','Call',False)"_s);
        execute(u"INSERT INTO [MESSAGES] ([DATE],[TO],[FROM],[MESSAGE],[Read]) VALUES (#11/21/2026#,'Sam','Pat','Done',True)"_s);
        set(u"UserName"_s, u"Pat"_s);
        set(u"Category"_s, u"Messages"_s);
        start();
    }
    void inMessage(const QString &button, const std::function<void(frmMessage &)> &work)
    {
        inModal<frmMessage>([&] { click(button); }, work);
    }
    QStringList stored()
    {
        dao::Database file = dao::DBEngine::OpenDatabase(m_folder.path(u"VOREL.MDB"_s));
        dao::Recordset set = file.CreateSnapshot(u"SELECT [FROM],[TO],[MESSAGE],[Read] FROM [MESSAGES] ORDER BY [ID]"_s);
        QStringList lines;
        for (; !set.EOF_(); set.MoveNext())
            lines << QStringList{set.Get(0).text(), set.Get(1).text(), set.Get(2).text(), set.Get(3).text()}.join(u'|');
        return lines;
    }
};

}

TEST_F(MessageScreen, ShowsTheRowAndClosingWrites)
{
    ASSERT_TRUE(isShown(u"panMessages"_s));
    inMessage(u"panEditS"_s, [&](frmMessage &form) {
        EXPECT_EQ(control<QComboBox>(form, u"cboName"_s)->currentText(), u"Pat"_s);
        EXPECT_EQ(control<QComboBox>(form, u"cboFrom"_s)->currentText(), u"Sam"_s);
        EXPECT_EQ(control<QLineEdit>(form, u"txtDate"_s)->text(), u"11/20/2026 03:04 P"_s);
        EXPECT_EQ(control<QComboBox>(form, u"cboName"_s)->findText(u"Sam"_s, Qt::MatchExactly) >= 0, true);
        QTest::keyClicks(control<QPlainTextEdit>(form, u"txtMessage"_s), u"Now: "_s);
        control<QCheckBox>(form, u"chkRead"_s)->click();
    });
    EXPECT_EQ(stored().first(), u"Sam|Pat|Now: Call|True"_s);
    EXPECT_FALSE(isShown(u"panMessages"_s)) << "read: the signal goes";
}

TEST_F(MessageScreen, NewOneIsSentAndWaitsForItsReader)
{
    m_prompts.expect(u"Create a New Blank Record?"_s, basic::Answer::Yes);
    inMessage(u"panNew"_s, [&](frmMessage &form) {
        EXPECT_EQ(control<QComboBox>(form, u"cboFrom"_s)->currentText(), u"Pat"_s);
        EXPECT_EQ(control<QLineEdit>(form, u"txtDate"_s)->text(), u"11/22/2026 12:00 P"_s);
        m_prompts.expect(u"Choose a recipient."_s);
        press(form, u"cmdSend"_s);
        control<QComboBox>(form, u"cboName"_s)->setEditText(u"Sam"_s);
        m_prompts.expect(u"Type a message."_s);
        press(form, u"cmdSend"_s);
        QTest::keyClicks(control<QPlainTextEdit>(form, u"txtMessage"_s), u"It's \"done\""_s);
        press(form, u"cmdSend"_s);
        EXPECT_EQ(control<QLabel>(form, u"lblState"_s)->text(), u"Left for Sam"_s);
        EXPECT_EQ(stored().last(), u"Pat|Sam|It's \"done\"|False"_s);
    });
    state().settings.gUserName = u"Sam"_s;
    screen().CheckForMessages();
    EXPECT_TRUE(isShown(u"panMessages"_s));
}

TEST_F(MessageScreen, AnEmptyOneIsNotKept)
{
    m_prompts.expect(u"Create a New Blank Record?"_s, basic::Answer::Yes);
    inMessage(u"panNew"_s, [&](frmMessage &form) {
        EXPECT_EQ(stored().size(), 3);
        press(form, u"cmdNew"_s);
        EXPECT_EQ(stored().size(), 3) << "the empty one makes room for the next";
        QTest::keyClicks(control<QPlainTextEdit>(form, u"txtMessage"_s), u"kept"_s);
        press(form, u"cmdNew"_s);
        EXPECT_EQ(stored().size(), 4);
    });
    EXPECT_EQ(stored().size(), 3);
    EXPECT_EQ(stored().last(), u"Pat||kept|False"_s);
}

TEST_F(MessageScreen, DeleteAsksAndStandsOnTheNextRow)
{
    inMessage(u"panEditS"_s, [&](frmMessage &form) {
        m_prompts.expect(u"Do you want to Delete this Record ?"_s, basic::Answer::No);
        press(form, u"cmdDelete"_s);
        EXPECT_EQ(stored().size(), 2);
        control<QPlainTextEdit>(form, u"txtMessage"_s)->setPlainText(u"goes with the row"_s);
        m_prompts.expect(u"Do you want to Delete this Record ?"_s, basic::Answer::Yes);
        press(form, u"cmdDelete"_s);
        EXPECT_EQ(m_prompts.shown().back().title, u"Question?"_s);
        EXPECT_EQ(control<QPlainTextEdit>(form, u"txtMessage"_s)->toPlainText(), u"Done"_s);
        m_prompts.expect(u"Do you want to Delete this Record ?"_s, basic::Answer::Yes);
        press(form, u"cmdDelete"_s);
        for (const QString &name : {u"cmdDelete"_s, u"cmdUpdate"_s, u"cmdSend"_s, u"cboName"_s, u"txtMessage"_s})
            EXPECT_FALSE(control<QWidget>(form, name)->isEnabled()) << qPrintable(name);
    });
    EXPECT_TRUE(stored().isEmpty());
}

}
