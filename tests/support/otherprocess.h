#pragma once

#include <QProcess>
#include <QString>
#include <gtest/gtest.h>

namespace vorel::test {

// Another process that holds a data file for itself until it goes.
class OtherProcess {
public:
    explicit OtherProcess(const QString &file)
    {
        m_process.start(QStringLiteral("python3"),
                        {QStringLiteral("-c"),
                         QStringLiteral("import sqlite3,sys\n"
                                        "c=sqlite3.connect(sys.argv[1],isolation_level=None)\n"
                                        "c.execute('begin exclusive')\n"
                                        "print('held',flush=True)\n"
                                        "sys.stdin.read()"),
                         file});
        EXPECT_TRUE(m_process.waitForReadyRead(10000)) << "the file could not be held";
    }
    ~OtherProcess()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished(10000);
    }

private:
    QProcess m_process;
};

}
