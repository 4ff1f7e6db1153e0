#include "calendar/frmCalendar.h"
#include "frame/frmCaddy.h"
#include "frame/frmCaddyControls.h"
#include "frame/frmCaddyIcons.h"
#include "frame/frmStartup.h"
#include "session/state.h"
#include "platform/basic/clock.h"
#include "platform/basic/files.h"
#include "platform/basic/locale.h"
#include "testdata.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <functional>

// What a user waits for over 100,000 appointments: the main screen after the start, measured from outside as whole
// processes without the splash's pause; the painted grids after a change of period or section; a key in the search box.
using namespace vorel;
using namespace Qt::StringLiterals;

namespace {

constexpr double startBudget = 120;     // ms, and 60 MB resident
constexpr double periodBudget = 60;

double residentMegabytes()
{
    QFile file(u"/proc/self/status"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (QByteArray line = file.readLine(); !line.isEmpty(); line = file.readLine())
        if (line.startsWith("VmRSS:"))
            return line.mid(6).simplified().split(' ').first().toDouble() / 1024;
    return 0;
}

// Ends the child at the main screen's first paint, with the pause and the memory on its output.
class FirstPaint : public QObject {
public:
    double pause = 0;
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, object, [this] {
                std::printf("%.3f %.3f\n", pause, residentMegabytes());
                std::fflush(stdout);
                std::_Exit(0);
            });
        return false;
    }
};

int startOnce(QApplication &application, const QString &folder)
{
    basic::setProgramFolder(folder);
    basic::setClock([] { return QDateTime(QDate(2026, 11, 22), QTime(9, 0)); });
    applyIconTheme();
    Startup splash;
    splash.Load();
    FirstPaint painted;
    QElapsedTimer pause;
    pause.start();
    int ticks = 0;
    const auto *timer = splash.findChild<QTimer *>(u"Timer1"_s);
    QObject::connect(timer, &QTimer::timeout, &painted, [&] {
        if (++ticks == 49)
            painted.pause = static_cast<double>(pause.nsecsElapsed()) / 1e6;
    });
    splash.mainScreen()->centralWidget()->installEventFilter(&painted);
    return QApplication::exec() + (application.closingDown() ? 1 : 0);
}

void measureStart(const QString &folder)
{
    std::vector<double> times, memory;
    for (int run = 0; run < 8; ++run) {
        QProcess child;
        QElapsedTimer timer;
        timer.start();
        child.start(QCoreApplication::applicationFilePath(), {u"--start"_s, folder});
        child.waitForReadyRead(30000);
        const double elapsed = static_cast<double>(timer.nsecsElapsed()) / 1e6;
        const QList<QByteArray> told = child.readLine().simplified().split(' ');
        child.waitForFinished();
        if (run > 0 && told.size() == 2) {      // the first run warms the caches
            times.push_back(elapsed - told[0].toDouble());
            memory.push_back(told[1].toDouble());
        }
    }
    if (times.empty()) {
        std::puts("start: no run ended");
        return;
    }
    bench::report(u"start to first paint, 100,000 appointments"_s, times, startBudget);
    std::sort(memory.begin(), memory.end());
    const double resident = memory[memory.size() / 2];
    std::printf("resident at first paint: %.1f MB, %.2f of the budget of 60 MB\n", resident, resident / 60);
}

double elapsed(const std::function<void()> &step)
{
    QElapsedTimer timer;
    timer.start();
    step();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void addContacts(int count)
{
    dao::Database database = dao::DBEngine::OpenDatabase(state().path(DataFile::Contacts));
    dao::Transaction all(database);
    dao::Recordset rows = database.OpenRecordset(u"select * from [CONTACTS]"_s);
    for (int i = 0; i < count; ++i) {
        rows.AddNew();
        rows.Set(u"SORTNAME", u"NAME%1, Pat"_s.arg((i * 7919) % count, 6, 10, QChar(u'0')));
        rows.Set(u"Invisible", false);
        rows.Update();
    }
    all.Commit();
}

// The two sections take turns, so that each showing reads the rows anew.
void measureSection(frmCaddy &screen)
{
    addContacts(100000);
    std::vector<double> changes, keys;
    controls::Grid *grid = screen.controls().subjects().grid;
    for (int run = 0; run < 7; ++run) {
        screen.DisplayCategory(u"Books"_s);
        QCoreApplication::processEvents();
        changes.push_back(elapsed([&] {
            screen.DisplayCategory(u"Contacts"_s);
            grid->viewport()->repaint();
            QCoreApplication::processEvents();
        }));
        keys.push_back(elapsed([&] { screen.controls().txtSearch->setText(u"no such name"_s); }));
    }
    bench::report(u"change to 100,000 contacts, painted"_s, changes, periodBudget);
    bench::report(u"search key over 100,000 contacts, no hit"_s, keys, 25);
}

// Each step shows another month or year, so that its rows are read.
void measureCalendar()
{
    frmCalendar calendar({});
    calendar.show();
    QCoreApplication::processEvents();
    const auto measure = [&calendar](const QString &name, int months, double budget) {
        std::vector<double> times;
        for (int run = 0; run < 9; ++run) {
            times.push_back(elapsed([&] {
                calendar.showDay(monthsAway(calendar.shownDate(), months));
                calendar.grab();
            }));
        }
        bench::report(name, times, budget);
    };
    measure(u"month over 100,000 appointments, painted"_s, -1, 100);
    calendar.findChild<QAbstractButton *>(u"cmdMonth"_s)->click();
    measure(u"year over 100,000 appointments, painted"_s, -12, 300);
}

void measurePeriods(const QString &folder)
{
    basic::setProgramFolder(folder);
    Startup splash;
    splash.Load();
    splash.LoadVorel();
    frmCaddy &screen = *splash.mainScreen();
    for (const QString &menu : {u"mnuThisWeek"_s, u"mnuThisYear"_s, u"mnuAll"_s}) {
        auto *action = screen.findChild<QAction *>(menu);
        std::vector<double> times;
        for (int run = 0; run < 9; ++run) {
            QElapsedTimer timer;
            timer.start();
            action->trigger();
            screen.controls().appointments().grid->viewport()->repaint();
            QCoreApplication::processEvents();
            times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        }
        bench::report(u"change of period to painted grids, "_s + menu, times, periodBudget);
    }
    measureCalendar();
    measureSection(screen);
}

}

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3)
        return startOnce(application, arguments[2]);

    QTemporaryDir folder;
    const QString path = folder.filePath(u"VOREL.MDB"_s);
    bench::makeMainFile(path);
    bench::addAppointments(path, {});
    measureStart(folder.path());
    measurePeriods(folder.path());
    std::fflush(stdout);
    std::_Exit(0);      // the main screen's own end would save its layout
}
