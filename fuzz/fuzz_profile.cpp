#include "fuzzing.h"

#include "session/ini.h"
#include "session/state.h"
#include "platform/desktop/profile.h"

#include <QFile>

// Lines: a section, a key, a value, then the file. A key is written: it reads back, and no other key or line has changed.
using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

using Key = std::pair<QString, QString>;

// Whatever in the file might be a section or a key.
std::vector<Key> keysOf(const QByteArray &file)
{
    QStringList sections{u"Settings"_s}, keys;
    for (const QByteArray &line : QByteArray(file).replace('\r', '\n').split('\n')) {
        const QString text = QString::fromUtf8(line).trimmed();
        if (text.startsWith(u'[') && sections.size() < 8)
            sections << text.mid(1, text.indexOf(u']') - 1);
        if (text.contains(u'=') && keys.size() < 30)
            keys << text.left(text.indexOf(u'='));
    }
    std::vector<Key> all;
    for (const QString &section : sections) {
        for (const QString &key : keys)
            all.emplace_back(section, key);
    }
    return all;
}

QString folded(const QString &name) { return name.trimmed().toCaseFolded(); }

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const fuzz::Input input(data, size, 4);
    const QString &section = input.lines[0], &key = input.lines[1], &value = input.lines[2];
    qsizetype head = 0;
    for (int i = 0; i < 3 && head >= 0; ++i)
        head = input.bytes.indexOf('\n', head) + 1 > 0 ? input.bytes.indexOf('\n', head) + 1 : input.bytes.size();
    const QByteArray content = input.bytes.mid(head);
    QFile::remove(fuzz::path(u"a.ini"_s));
    fuzz::write(u"a.ini"_s, content);
    const QString file = fuzz::path(u"a.ini"_s);
    const auto read = [&file](const Key &at) { return desktop::GetPrivateProfileString(at.first, at.second, u"<none>"_s, file); };

    const std::vector<Key> keys = keysOf(content);
    QStringList before;
    for (const Key &at : keys)
        before << read(at);
    const QString old = read({section, key});
    const bool written = desktop::WritePrivateProfileString(section, key, value, file);
    const QByteArray after = fuzz::read(u"a.ini"_s);
    fuzz::require(written || after == content, u"a refused write changed the file"_s);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const bool same = folded(keys[i].first) == folded(section) && folded(keys[i].second) == folded(key);
        fuzz::require(same || read(keys[i]) == before[static_cast<qsizetype>(i)],
                      u"[%1] %2 was %3, is %4"_s.arg(keys[i].first, keys[i].second, before[static_cast<qsizetype>(i)], read(keys[i])));
    }
    if (written) {
        const QString back = read({section, key});
        fuzz::require(back != u"<none>" || old == back, u"what was written is not there"_s);
        // Blanks and quotes around a value are the file's own.
        const bool bare = back == back.trimmed() && !back.startsWith(u'"') && !back.startsWith(u'\'');
        fuzz::require(!bare || (desktop::WritePrivateProfileString(section, key, back, file) && read({section, key}) == back),
                      u"%1 reads back as %2"_s.arg(back, read({section, key})));
        // Another key of the section, into the text as it is now, and a fresh look at the file.
        fuzz::require(desktop::WritePrivateProfileString(section, u"zz"_s + key.left(8), u"1"_s, file) == false
                          || read({section, key}) == back || folded(u"zz"_s + key.left(8)) == folded(key), u"a second key hides the first"_s);
    }
    state().gIniFile = file;
    fuzz::guarded([&] { GetIniColour(key, 0); });
    iniBoolean(value), iniInteger(value), colourNumber(value);
    return 0;
}
