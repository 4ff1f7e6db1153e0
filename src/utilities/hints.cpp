#include "utilities/hints.h"

#include "platform/basic/clock.h"
#include "platform/desktop/desktop.h"

#include <QFile>
#include <algorithm>
#include <optional>

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

// The hint of a line without its tag; nothing for a feature that the program does not have.
std::optional<QString> shownHint(const QString &line)
{
    const qsizetype end = line.startsWith(u'[') ? line.indexOf(u"] "_s) : -1;
    if (end < 0)
        return line;
    const QString tag = line.mid(1, end - 1);
    const auto isTag = [&tag](const Feature &feature) { return feature.tag == tag; };
    if (std::any_of(features().begin(), features().end(), isTag))
        return hasFeature(tag) ? std::optional(line.mid(end + 2)) : std::nullopt;
    return line;                // a hint of the user's own that begins with a bracket
}

}

const std::vector<Feature> &features()
{
    // Each becomes true with the screens of its section.
    static const std::vector<Feature> table{
        {u"setup", false, u"Setup"}, {u"calendar", true}, {u"contacts", true}, {u"recipes", false}, {u"exchange", false, u"Export/Import"},
        {u"vehicle", false}, {u"accounts", false}, {u"backup", false, u"File Backup"}, {u"admin", false},   {u"profile", false},
        {u"notes", false},   {u"health", false},   {u"sport", false},    {u"howto", false},   {u"garden", false}};
    return table;
}

bool hasFeature(QStringView tag)
{
    const auto found = std::find_if(features().begin(), features().end(), [tag](const Feature &feature) { return feature.tag == tag; });
    return found == features().end() || found->isThere;
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
        if (const std::optional<QString> hint = shownHint(line))
            hints().append(*hint + hintEnd.toString());
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
