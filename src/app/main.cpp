#include "frame/frmCaddyIcons.h"
#include "frame/frmCaddy.h"
#include "frame/frmStartup.h"
#include "session/shared.h"
#include "frame/startup.h"
#include "platform/basic/files.h"
#include "platform/basic/prompts.h"
#include "platform/controls/look.h"
#include "platform/controls/prompts.h"
#include "platform/desktop/busnotifier.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/endrequest.h"
#include "platform/desktop/soundplayer.h"
#include "platform/printer/realprinter.h"
#include "print/frmPreview.h"
#include "print/script.h"
#include "store/upgrade.h"
#include "utilities/frmInformation.h"

#include <QApplication>

using namespace Qt::StringLiterals;

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

    vorel::removePrintScripts();
    QApplication::setStyle(new vorel::controls::LookStyle);
    vorel::applyIconTheme();
    QApplication::setWindowIcon(QIcon(u":/icons/vorelreminder.svg"_s));
    vorel::basic::setApplicationTitle(u"Vorel Reminder"_s);
    vorel::controls::ScreenPrompts prompts;
    vorel::basic::setPrompts(&prompts);

    vorel::desktop::SoundPlayer sounds;
    vorel::setSoundPlayer([&sounds](const QString &path) { sounds.play(path); });
    vorel::desktop::BusNotifier notices;
    vorel::desktop::setNotifier(&notices);
    // Pages can be previewed and saved on any machine; the printer itself is asked for at the first page, which keeps the
    // start short.
    vorel::printer::setHardware(vorel::printer::desktopPrinter, vorel::printer::desktopPrinterNames);
    vorel::frmPreview::install();
    vorel::installScreenHelp();
    vorel::setPrinterProbe([] { return true; });

    vorel::Startup startup;
    const vorel::desktop::EndRequest end;
    QObject::connect(&end, &vorel::desktop::EndRequest::Requested, &startup, [&startup] { startup.End(); });
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &startup, [&startup] {
        if (startup.mainScreen())
            startup.mainScreen()->saveTyped();
    });
    startup.Load();
    const int result = QApplication::exec();
    vorel::removePrintScripts();
    vorel::desktop::setNotifier(nullptr);
    vorel::setSoundPlayer({});
    vorel::basic::setPrompts(nullptr);
    vorel::desktop::releaseSingleInstance(vorel::dataFilesNote());
    return result;
}
