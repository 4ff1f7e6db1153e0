#include "utilities/hints.h"

#include "platform/basic/clock.h"
#include "platform/desktop/desktop.h"

#include <QFile>
#include <algorithm>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 mostBytes = 1 << 20;       // a file this long holds no hints that anybody waits for
constexpr double secondsPerDay = 86400;

// The features that a hint may speak of before the program has them. A feature that is built loses its row here.
constexpr QStringView comingFeatures[] = {u"accounts", u"backup", u"calendar", u"contacts", u"exchange", u"passwords",
                                          u"picture sets", u"recipes", u"setup", u"vehicle"};

// The hint without its tag; empty while its feature is still to come. A bracket that names no feature is part of the hint.
QString hintOf(const QString &line)
{
    const qsizetype end = line.startsWith(u'[') ? line.indexOf(u"] "_s) : -1;
    if (end < 0)
        return line;
    const QStringView feature = QStringView(line).mid(1, end - 1);
    return std::find(std::begin(comingFeatures), std::end(comingFeatures), feature) == std::end(comingFeatures) ? line : QString();
}

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
    for (const QString &line : lines) {
        const QString hint = hintOf(line);
        if (!hint.isEmpty() || line.isEmpty())
            hints().append(hint + hintEnd.toString());
    }
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
