#include "frame/frmStartup.h"

#include "frame/frmCaddy.h"
#include "frame/frmCaddyLayout.h"
#include "frame/frmLater.h"
#include "frame/startup.h"
#include "media/pictures.h"
#include "platform/basic/colournumber.h"
#include "platform/basic/error.h"
#include "platform/controls/grid.h"
#include "platform/controls/layout.h"
#include "platform/desktop/hourglass.h"
#include "platform/desktop/profile.h"
#include "session/changes.h"
#include "session/ini.h"
#include "store/upgrade.h"

#include <QGuiApplication>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::layout::unit;

namespace {

constexpr int splashTop = controls::toPixels(1500);
constexpr int pauseTicks = 50;
constexpr int iconSide = 96;

}

Startup::Startup() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), m_title(new QLabel),
    m_version(new QLabel), m_timer(new QTimer(this))
{
    setObjectName(u"Startup"_s);
    setFixedSize(480, 200);
    m_title->setObjectName(u"lblTitle"_s);
    QFont large = headingFont(font());
    large.setPointSizeF(font().pointSizeF() * 2);
    m_title->setFont(large);
    m_version->setObjectName(u"lblVersion"_s);
    auto *line = new QLabel(u"Probably the Handiest Software you will own"_s);
    line->setObjectName(u"lblLine"_s);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(iconSide + 6 * unit, 3 * unit, 3 * unit, 3 * unit);
    column->setSpacing(unit);
    column->addStretch(1);
    column->addWidget(m_title);
    column->addWidget(line);
    column->addWidget(m_version);
    column->addStretch(1);
    m_timer->setObjectName(u"Timer1"_s);
    m_timer->setInterval(1);
    connect(m_timer, &QTimer::timeout, this, [this] { basic::Trap([this] { Timer1_Timer(); }); });
}

Startup::~Startup() = default;

void Startup::Load()
{
    if (const QScreen *display = QGuiApplication::primaryScreen()) {
        const QRect room = display->availableGeometry();
        move(room.left() + room.width() / 2 - width() / 2, room.top() + splashTop);
    }
    const desktop::Hourglass busy;
    m_version->setText(VOREL_REVISION > 0 ? u" Build #%1"_s.arg(VOREL_REVISION) : QString());
    basic::Trap([this] {
        const desktop::ProfileBatch oneWrite;
        loadProgramState(basic::numberOfColour(palette().color(QPalette::Window)));
    });
    MakePictureFolders();
    m_title->setText(state().gProductTitle);
    setWindowTitle(state().gProductTitle);
    if (ShowSplashScreen()) {
        show();
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    basic::Trap([] { UpgradeAllDatabases(); });
    state().gPrinterReady = GetPrinter();
    m_caddy = std::make_unique<frmCaddy>();
    connect(m_caddy.get(), &frmCaddy::Activated, this, [this] { close(); });
    m_caddy->Load();
    m_timer->start();
}

void Startup::Timer1_Timer()
{
    if (++m_ticks == pauseTicks)
        LoadVorel();
}

void Startup::LoadVorel()
{
    m_timer->stop();
    const desktop::Hourglass busy;
    runStartupPasses();
    Changes::instance().deliver();  // the passes changed rows under the hidden screen
    m_caddy->show();
    m_caddy->activateWindow();      // the splash had the keyboard
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (iniBoolean(GetIniValue(iniSettings, u"CalendarStart"_s, u"False"_s)))
        m_caddy->startCalendar();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void Startup::End()
{
    if (m_caddy && m_caddy->isVisible())
        m_caddy->endSession();
    else
        QCoreApplication::quit();
}

void Startup::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    QGuiApplication::windowIcon().paint(&painter, QRect(3 * unit, (height() - iconSide) / 2, iconSide, iconSide));
}

}
