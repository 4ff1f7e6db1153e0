#pragma once

#include "platform/basic/clock.h"
#include "platform/basic/files.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vorel::test {

// A program folder of the test's own; it goes with the object, and the one that was set before comes back.
class TestFolder {
public:
    TestFolder() : m_before(basic::programFolder()) { basic::setProgramFolder(m_folder.path()); }
    ~TestFolder() { basic::setProgramFolder(m_before); }
    TestFolder(const TestFolder &) = delete;
    TestFolder &operator=(const TestFolder &) = delete;

    QString path() const { return m_folder.path(); }
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QString write(const QString &name, const QByteArray &content) const
    {
        QFile file(path(name));
        QDir().mkpath(QFileInfo(file).path());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size()) << name.toStdString();
        return file.fileName();
    }

    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return file.readAll();
    }

private:
    QTemporaryDir m_folder;
    QString m_before;
};

// The clock shows one moment until the test moves it.
class TestClock {
public:
    explicit TestClock(QDateTime now = {QDate(2005, 6, 15), QTime(10, 0)}) : m_now(std::move(now))
    {
        basic::setClock([this] { return m_now; });
    }
    ~TestClock() { basic::setClock({}); }
    TestClock(const TestClock &) = delete;
    TestClock &operator=(const TestClock &) = delete;

    void set(const QDateTime &now) { m_now = now; }
    void set(QDate day, QTime time = QTime(10, 0)) { m_now = QDateTime(day, time); }
    void addSeconds(qint64 seconds) { m_now = m_now.addSecs(seconds); }
    void addDays(qint64 days) { m_now = m_now.addDays(days); }
    const QDateTime &now() const { return m_now; }

private:
    QDateTime m_now;
};

}
