#include "frame/frmCaddyIcons.h"

#include <QFile>
#include <QGuiApplication>
#include <QPalette>

// A static library's resources are linked in only where they are asked for.
static void initialiseIcons() { Q_INIT_RESOURCE(icons); }

namespace vorel {

using namespace Qt::StringLiterals;

static bool isDark()
{
    return QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
}

void applyIconTheme()
{
    initialiseIcons();
    QStringList paths = QIcon::fallbackSearchPaths();
    if (!paths.contains(u":/icons"_s))
        QIcon::setFallbackSearchPaths(paths << u":/icons"_s);
    const QString wanted = isDark() ? u"breeze-dark"_s : u"breeze"_s;
    if (QIcon::fallbackThemeName() != wanted)
        QIcon::setFallbackThemeName(wanted);
    // A desktop that names no set of its own would hide the fallback behind the bare base set.
    if (QIcon::themeName().isEmpty() || QIcon::themeName() == u"hicolor"_s || QIcon::themeName().startsWith(u"breeze"_s))
        QIcon::setThemeName(wanted);
}

QIcon caddyIcon(const QString &name)
{
    if (name.isEmpty())
        return {};
    const QString own = (isDark() ? u":/icons/dark/%1.svg"_s : u":/icons/%1.svg"_s).arg(name);
    return QFile::exists(own) ? QIcon(own) : QIcon::fromTheme(name);
}

}
