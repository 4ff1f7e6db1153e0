#pragma once

#include "platform/basic/locale.h"
#include "session/state.h"
#include "store/upgrade.h"
#include "support/scriptedprompts.h"
#include "support/testfolder.h"

namespace vorel::test {

using namespace Qt::StringLiterals;

// A program folder with an empty main file, on 22 November 2026 at noon, month first.
class MainFileTest : public testing::Test {
protected:
    MainFileTest();
    ~MainFileTest() override;

    void setToday(const QString &isoDate);
    static void setRegion(const QString &name);

    const QString &path() const { return state().path(DataFile::Main); }
    dao::Database open() const { return dao::DBEngine::OpenDatabase(path()); }
    void execute(const QString &sql) const;
    // The rows of a query as "2026-11-22|True|Null|text"; a time of day shows only where there is one.
    QStringList rows(const QString &sql) const;
    static QStringList rowsOf(dao::Database &database, const QString &sql);
    qsizetype count(const QString &table) const;
    QByteArray bytes() const;

    TestFolder m_folder;
    TestClock m_clock{QDateTime(QDate(2026, 11, 22), QTime(12, 0))};
    ScriptedPrompts m_prompts;      // a message that no test has foreseen fails it
};

// The thirteen files, current and without sample rows, under their usual names; existing ones stay.
void putEmptyFiles(const QString &folder);

QString shown(const basic::Value &value);
// The number of the error that a step ends with, 0 if it passes.
int errorOf(const std::function<void()> &step);

}
