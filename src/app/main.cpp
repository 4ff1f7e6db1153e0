#include "frame/frmCaddyIcons.h"
#include "frame/frmStartup.h"
#include "frame/shared.h"
#include "frame/startup.h"
#include "platform/basic/files.h"
#include "platform/basic/prompts.h"
#include "platform/controls/prompts.h"
#include "platform/desktop/busnotifier.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/soundplayer.h"

#include <QApplication>
#include <QPrinterInfo>

using namespace Qt::StringLiterals;

// A printer is usable if there is one at all and the default one answers with a paper of some size.
static bool hasUsablePrinter()
{
    return !QPrinterInfo::availablePrinterNames().isEmpty()
        && QPrinterInfo::defaultPrinter().defaultPageSize().sizePoints().width() > 0;
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Vorel Reminder"_s);
    QApplication::setApplicationVersion(QStringLiteral(VOREL_VERSION));
    QApplication::setDesktopFileName(u"org.vorel.Reminder"_s);
    // The program ends by the main screen's own unload step, not when a box closes before that screen is up.
    QApplication::setQuitOnLastWindowClosed(false);

    vorel::basic::setProgramFolder(vorel::desktop::decideProgramFolder());
    if (!vorel::desktop::claimSingleInstance())
        return 0;

    vorel::ApplyIconTheme();
    QApplication::setWindowIcon(QIcon(u":/icons/vorelreminder.svg"_s));
    vorel::basic::setApplicationTitle(u"Vorel Reminder"_s);
    vorel::controls::ScreenPrompts prompts;
    vorel::basic::setPrompts(&prompts);

    vorel::setPrinterProbe(hasUsablePrinter);
    vorel::desktop::SoundPlayer sounds;
    vorel::setSoundPlayer([&sounds](const QString &path) { sounds.play(path); });
    vorel::desktop::BusNotifier notices;
    vorel::desktop::setNotifier(&notices);

    vorel::Startup startup;
    startup.Load();
    const int result = QApplication::exec();
    vorel::desktop::setNotifier(nullptr);
    vorel::setSoundPlayer({});
    vorel::basic::setPrompts(nullptr);
    return result;
}
