#include "utilities/hints.h"

#include "platform/basic/clock.h"
#include "platform/desktop/desktop.h"

#include <QFile>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 mostBytes = 1 << 20;       // a file this long holds no hints that anybody waits for
constexpr double secondsPerDay = 86400;

QStringList &hints()
{
    static QStringList lines;
    return lines;
}

}

void LoadHints()
{
    hints().clear();
    QFile file(desktop::findResource(u"\\hints.txt"_s));
    if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly))
        return;
    const QByteArray bytes = file.read(mostBytes);
    QString text = bytes.isValidUtf8() ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    if (text.endsWith(u'\n'))
        text.chop(1);
    if (text.isEmpty())
        return;
    const QStringList lines = text.split(u'\n');
    for (const QString &line : lines)
        hints().append(line + hintEnd.toString());
}

const QStringList &Hints()
{
    return hints();
}

QString NextHint()
{
    if (hints().isEmpty())
        return {};
    const double timeOfDay = basic::Time().serial();
    basic::setRandomSeed(static_cast<quint32>(timeOfDay * secondsPerDay + 0.5));
    return hints().at(static_cast<qsizetype>(basic::Rnd() * static_cast<double>(hints().size())));
}

}
