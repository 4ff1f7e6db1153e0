#include "platform/desktop/profile.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QList>
#include <QSaveFile>
#include <QStringConverter>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace vorel::desktop {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype maxValueLength = 255;

struct Line {
    QByteArray text;        // as in the file, without its end
    QByteArray end;         // "\n", "\r\n", "\r", or "" at the end of the file
};

// What distinguishes one state of a file from another.
struct Stamp {
    bool exists = false;
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    qint64 changed = 0;     // nanoseconds
    bool operator==(const Stamp &) const = default;
};

qint64 nanoseconds(const timespec &t)
{
    return static_cast<qint64>(t.tv_sec) * 1'000'000'000 + t.tv_nsec;
}

Stamp stampOf(const QString &file)
{
    struct stat s {};
    if (::stat(QFile::encodeName(file).constData(), &s) != 0)
        return {};
    return {true, s.st_dev, s.st_ino, s.st_size, nanoseconds(s.st_mtim)};
}

struct Place {
    qsizetype line = -1;
    QString value;
};

struct Profile {
    Stamp stamp;
    bool settled = true;                        // false: changed so lately that its stamp proves nothing yet
    bool unsaved = false;
    std::optional<QStringConverter::Encoding> encoding;     // of a file in UTF-16; the lines are in UTF-8 all the same
    QList<Line> lines;
    QHash<QString, Place> values;               // "section\nkey", folded; the first one in the file wins
    QHash<QString, qsizetype> sectionEnd;       // folded name -> the last line of its first appearance that is not blank
};

// A line of an older file may be in the one-byte code page; what is not UTF-8 is read as that.
QString decoded(const QByteArray &bytes)
{
    QString text = QString::fromUtf8(bytes);
    return text.contains(QChar::ReplacementCharacter) && !bytes.contains("\xEF\xBF\xBD") ? QString::fromLatin1(bytes) : text;
}

QString folded(const QString &name)
{
    return name.trimmed().toCaseFolded();
}

QString lookupKey(const QString &section, const QString &key)
{
    return folded(section) + u'\n' + folded(key);
}

QList<Line> splitLines(const QByteArray &content)
{
    QList<Line> lines;
    qsizetype start = 0;
    for (qsizetype i = 0; i < content.size(); ++i) {
        const char c = content[i];
        if (c != '\n' && c != '\r')
            continue;
        const bool pair = c == '\r' && i + 1 < content.size() && content[i + 1] == '\n';
        lines.append({content.mid(start, i - start), pair ? QByteArrayLiteral("\r\n") : QByteArray(1, c)});
        i += pair ? 1 : 0;
        start = i + 1;
    }
    if (start < content.size())
        lines.append({content.mid(start), {}});
    return lines;
}

QString valueText(QString text)
{
    if (const qsizetype zero = text.indexOf(QChar(0)); zero >= 0)
        text.truncate(zero);
    text = text.trimmed();
    if (text.size() >= 2 && (text[0] == u'"' || text[0] == u'\'') && text.back() == text[0])
        text = text.mid(1, text.size() - 2);
    return text;
}

void index(Profile &profile)
{
    profile.values.clear();
    profile.sectionEnd.clear();
    QString section;
    bool inSection = false;
    bool firstOfName = false;
    for (qsizetype i = 0; i < profile.lines.size(); ++i) {
        QString text = decoded(profile.lines[i].text);
        if (i == 0 && text.startsWith(QChar::ByteOrderMark))
            text.remove(0, 1);
        text = text.trimmed();
        if (text.isEmpty())
            continue;
        if (text[0] == u'[') {
            const qsizetype close = text.indexOf(u']');
            if (close > 0) {
                section = folded(text.mid(1, close - 1));
                inSection = true;
                firstOfName = !profile.sectionEnd.contains(section);
            }
        }
        if (inSection && firstOfName)
            profile.sectionEnd[section] = i;
        const qsizetype equals = text.indexOf(u'=');
        if (!inSection || text[0] == u'[' || text[0] == u';' || equals <= 0)
            continue;
        const QString key = section + u'\n' + folded(text.left(equals));
        if (!profile.values.contains(key))
            profile.values.insert(key, {i, valueText(text.mid(equals + 1))});
    }
}

// UTF-16 as editors of other systems write it, by its mark.
std::optional<QStringConverter::Encoding> wideEncoding(const QByteArray &content)
{
    if (content.startsWith("\xFF\xFE"))
        return QStringConverter::Utf16LE;
    if (content.startsWith("\xFE\xFF"))
        return QStringConverter::Utf16BE;
    return std::nullopt;
}

QHash<QString, Profile> &profiles()
{
    static QHash<QString, Profile> all;
    return all;
}

int batchDepth = 0;

Profile &load(const QString &file)
{
    Profile &profile = profiles()[file];
    if (profile.unsaved)
        return profile;
    const Stamp stamp = stampOf(file);
    if (profile.settled && stamp == profile.stamp)
        return profile;
    profile = {};
    profile.stamp = stamp;
    QFile reader(file);
    if (stamp.exists && reader.open(QIODevice::ReadOnly)) {
        QByteArray content = reader.readAll();
        profile.encoding = wideEncoding(content);
        if (profile.encoding) {
            QStringDecoder decoder(*profile.encoding);
            const QString text = decoder(content);
            content = text.toUtf8();
        }
        profile.lines = splitLines(content);
    }
    index(profile);
    // A clock tick may hide a second change by someone else: a stamp is trusted once it is older than any tick.
    timespec now {};
    ::clock_gettime(CLOCK_REALTIME, &now);
    profile.settled = !stamp.exists || nanoseconds(now) - stamp.changed > 50'000'000;
    return profile;
}

void syncFolder(const QString &file)
{
    const int folder = ::open(QFile::encodeName(QFileInfo(file).absolutePath()).constData(), O_RDONLY | O_DIRECTORY);
    if (folder < 0)
        return;
    ::fsync(folder);
    ::close(folder);
}

bool save(const QString &file, Profile &profile)
{
    QByteArray content;
    for (const Line &line : std::as_const(profile.lines))
        content += line.text + line.end;
    if (profile.encoding) {
        QStringEncoder encoder(*profile.encoding, QStringConverter::Flag::WriteBom);
        const QByteArray wide = encoder(QString::fromUtf8(content));
        content = wide;
    }
    QSaveFile writer(file);
    if (!writer.open(QIODevice::WriteOnly) || writer.write(content) != content.size() || !writer.flush())
        return false;
    if (!writer.commit())
        return false;
    syncFolder(file);
    profile.stamp = stampOf(file);
    profile.settled = true;
    profile.unsaved = false;
    return true;
}

// A text that stays on its line.
QString oneLine(QString text)
{
    for (QChar &c : text) {
        if (c == u'\r' || c == u'\n' || c == QChar(0))
            c = u' ';
    }
    return text;
}

bool isStorable(const QString &section, const QString &key)
{
    const auto broken = [](const QString &name) { return name.isEmpty() || oneLine(name) != name; };
    return !broken(section.trimmed()) && !broken(key.trimmed()) && !section.contains(u']') && !key.contains(u'=')
        && !key.trimmed().startsWith(u'[') && !key.trimmed().startsWith(u';');
}

QByteArray usualEnd(const QList<Line> &lines)
{
    return lines.isEmpty() || lines.first().end.isEmpty() ? QByteArrayLiteral("\n") : lines.first().end;
}

void insertLine(QList<Line> &lines, qsizetype at, const QByteArray &text)
{
    const QByteArray end = usualEnd(lines);
    if (at > 0 && lines[at - 1].end.isEmpty())
        lines[at - 1].end = end;
    lines.insert(at, {text, end});
}

void put(Profile &profile, const QString &section, const QString &key, const QString &value)
{
    const QByteArray line = (key.trimmed() + u'=' + value).toUtf8();
    const Place place = profile.values.value(lookupKey(section, key));
    if (place.line >= 0) {
        QByteArray &text = profile.lines[place.line].text;
        text = decoded(text.left(text.indexOf('=') + 1)).toUtf8() + value.toUtf8();
        profile.values[lookupKey(section, key)].value = valueText(value);
        return;
    }
    if (const auto end = profile.sectionEnd.constFind(folded(section)); end != profile.sectionEnd.cend()) {
        insertLine(profile.lines, *end + 1, line);
    } else {
        insertLine(profile.lines, profile.lines.size(), ('[' + section.trimmed().toUtf8() + ']'));
        insertLine(profile.lines, profile.lines.size(), line);
    }
    index(profile);
}

}

QString GetPrivateProfileString(const QString &section, const QString &key, const QString &defaultText,
                                const QString &file)
{
    const Profile &profile = load(file);
    const auto place = profile.values.constFind(lookupKey(section, key));
    QString text = (place == profile.values.cend() ? defaultText : place->value).left(maxValueLength);
    if (!text.isEmpty() && text.back().isHighSurrogate())
        text.chop(1);
    return text;
}

bool WritePrivateProfileString(const QString &section, const QString &key, const QString &value, const QString &file)
{
    if (!isStorable(section, key))
        return false;
    const QString text = oneLine(value);
    Profile &profile = load(file);
    const Place place = profile.values.value(lookupKey(section, key));
    if (place.line >= 0 && place.value == valueText(text))
        return true;
    Profile changed = profile;
    put(changed, section, key, text);
    if (batchDepth > 0) {
        changed.unsaved = true;
    } else if (!save(file, changed)) {
        return false;
    }
    profile = changed;
    return true;
}

ProfileBatch::ProfileBatch()
{
    ++batchDepth;
}

ProfileBatch::~ProfileBatch()
{
    if (--batchDepth > 0)
        return;
    for (auto it = profiles().begin(); it != profiles().end(); ++it) {
        // What could not be saved is forgotten, so that reads return what the file holds.
        if (it->unsaved && !save(it.key(), *it))
            *it = {};
    }
}

}
