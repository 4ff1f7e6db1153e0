#pragma once

#include "frame/frmCaddy.h"
#include "frame/frmCaddyControls.h"
#include "frame/frmStartup.h"
#include "platform/basic/locale.h"
#include "reminders/frmRecord.h"
#include "session/ini.h"
#include "store/mainfile.h"
#include "support/screens.h"

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>

namespace vorel::test {

using controls::Grid;

// The whole program in a folder of its own, from the splash on, driven by its controls' names. Sunday, 22 November 2026,
// noon.
class CaddyScreen : public testing::Test {
protected:
    CaddyScreen() { setRegion(u"en_US"_s); }
    ~CaddyScreen() override
    {
        stop();
        state() = State{};
        setRegion(u"en_US"_s);
    }

    static void setRegion(const QString &name) { basic::setRegional(basic::regionalFor(name)); }
    void set(const QString &key, const QString &value, const QString &section = iniSettings)
    {
        m_ini[section] << key + u'=' + value;
    }

    // The splash, its pause cut short, and the main screen.
    void start()
    {
        stop();
        state() = State{};
        if (!m_firstRun)
            putEmptyFiles(m_folder.path());
        if (!m_ini.isEmpty())
            m_folder.write(u"vorelreminder.ini"_s, iniText());
        m_ini.clear();
        m_startup = std::make_unique<Startup>();
        m_startup->Load();
        m_startup->LoadVorel();
        ASSERT_TRUE(screen().isVisible());
    }
    void stop()
    {
        if (m_startup && m_startup->mainScreen())
            m_startup->mainScreen()->close();
        m_startup.reset();
    }

    frmCaddy &screen() { return *m_startup->mainScreen(); }
    CaddyControls &c() { return screen().controls(); }

    // Rows for the main file before or while the screen is open.
    void execute(const QString &sql)
    {
        const QString file = m_folder.path(u"VOREL.MDB"_s);
        putEmptyFiles(m_folder.path());
        dao::Database database = dao::DBEngine::OpenDatabase(file);
        database.Execute(sql);
        database.Close();
    }

    template <class W = QWidget> W *at(const QString &name) { return control<W>(screen(), name); }
    QString text(const QString &name) { return at(name)->property("text").toString(); }
    bool isShown(const QString &name) { return at(name)->isVisible(); }
    void click(const QString &name) { test::click(screen(), name); }
    QAction *menu(const QString &name)
    {
        const auto found = c().actions.find(name);
        if (found == c().actions.end()) {
            ADD_FAILURE() << "no menu entry " << qPrintable(name);
            return c().actions.begin()->second;
        }
        return found->second;
    }

    // The column of a grid that names its rows, as shown.
    QStringList column(const QString &grid, int number)
    {
        const Grid *found = at<Grid>(grid);
        QStringList cells;
        for (qsizetype row = 0; row < found->rows(); ++row)
            cells << found->CellText(number, row);
        return cells;
    }
    QStringList appointments() { return column(u"APPOINTMENTSGRID"_s, 4); }
    QStringList bills() { return column(u"BILLSGRID"_s, 3); }
    QStringList events() { return column(u"EVENTSGRID"_s, 4); }
    void select(const QString &grid, qsizetype row)
    {
        Grid *found = at<Grid>(grid);
        found->setBookmark(found->getBookmark(row));
        ASSERT_EQ(found->currentRow(), row);
    }

    // Works on the record screen that the step opens.
    static void inRecord(const std::function<void()> &open, const std::function<void(frmRecord &)> &work)
    {
        inModal<frmRecord>(open, work);
    }
    static void type(QWidget &form, const QString &name, const QString &words)
    {
        auto *box = form.findChild<QLineEdit *>(name);
        ASSERT_TRUE(box && box->isVisible() && box->isEnabled()) << qPrintable(name);
        box->selectAll();
        QTest::keyClicks(box, words);
    }
    static void press(const QWidget &form, const QString &name) { test::click(form, name); }
    void tick()
    {
        QTimerEvent event(c().Timer2->timerId());
        QCoreApplication::sendEvent(c().Timer2, &event);
    }
    // The program from its start, on a section.
    void startOn(const QString &section)
    {
        start();
        screen().DisplayCategory(section);
    }

    bool m_firstRun = false;        // the program itself makes the files, with sample rows
    TestFolder m_folder;
    TestClock m_clock{QDateTime(QDate(2026, 11, 22), QTime(12, 0))};
    ScriptedPrompts m_prompts;

private:
    QByteArray iniText() const
    {
        QString lines;
        for (auto section = m_ini.begin(); section != m_ini.end(); ++section)
            lines += u'[' + section.key() + u"]\r\n"_s + section.value().join(u"\r\n"_s) + u"\r\n"_s;
        return lines.toUtf8();
    }

    QMap<QString, QStringList> m_ini;
    std::unique_ptr<Startup> m_startup;
};

}
