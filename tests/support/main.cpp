#include <gtest/gtest.h>

#include <QApplication>
#include <QByteArray>
#include <cstdio>

// An unexpected warning is a fault: the test that was running fails with its text.
static void failOnWarning(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    const QByteArray line = text.toUtf8();
    std::fprintf(stderr, "%s\n", line.constData());
    if (type == QtDebugMsg || type == QtInfoMsg || text.startsWith(QLatin1String("This plugin does not support")))
        return;
    ADD_FAILURE() << "unexpected warning: " << line.constData();
}

int main(int argc, char **argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    qInstallMessageHandler(failOnWarning);
    return RUN_ALL_TESTS();
}
