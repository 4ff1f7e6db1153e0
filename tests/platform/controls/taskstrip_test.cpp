#include "platform/controls/taskstrip.h"

#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSemaphore>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vorel;

TEST(TaskStrip, ItShowsTheWorkAndStopsIt)
{
    QWidget screen;
    auto *part = new QWidget;
    auto *field = new QLineEdit(part);
    basic::Task task;
    auto *strip = new controls::TaskStrip(task);
    auto *lines = new QVBoxLayout(&screen);
    lines->addWidget(part);
    lines->addWidget(strip);
    strip->setGuarded(part);
    screen.show();
    field->setFocus();
    // The delay is the strip's own; the test does not wait for it.
    auto *delay = strip->findChild<QTimer *>();
    auto *cancel = strip->findChild<QPushButton *>(u"cmdCancelTask"_s);
    auto *bar = strip->findChild<QProgressBar *>(u"barTask"_s);
    EXPECT_EQ(delay->interval(), 500);
    delay->setInterval(0);

    QSemaphore go;
    bool stopped = false;
    task.start([&](basic::TaskContext &context) -> std::optional<int> {
        context.progress(qint64{1} << 40, qint64{1} << 41, u"a large file"_s);
        while (!context.isCancelled())
            QThread::usleep(100);
        go.acquire();
        return std::nullopt;
    }, [&](const basic::TaskOutcome<int> &outcome) { stopped = outcome.isStopped(); });
    EXPECT_FALSE(strip->isVisible()) << "quick work shows nothing";
    EXPECT_FALSE(part->isEnabled());
    ASSERT_TRUE(QTest::qWaitFor([&] { return strip->isVisible() && bar->maximum() > 0; }));
    EXPECT_EQ(2 * bar->value(), bar->maximum());
    EXPECT_EQ(strip->findChild<QLabel *>(u"lblTask"_s)->text(), u"a large file"_s);
    QTest::mouseClick(cancel, Qt::LeftButton);
    EXPECT_FALSE(cancel->isEnabled());
    EXPECT_EQ(strip->findChild<QLabel *>(u"lblTask"_s)->text(), u"Stopping..."_s);
    EXPECT_TRUE(strip->isVisible()) << "until the worker has cleaned up";
    go.release();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !task.isRunning(); }));
    EXPECT_TRUE(stopped && part->isEnabled() && !strip->isVisible());
}
