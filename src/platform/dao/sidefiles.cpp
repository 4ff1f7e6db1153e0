#include "platform/dao/sidefiles.h"

#include "platform/dao/connection.h"
#include "platform/dao/safekeeping.h"

#include <QFile>
#include <QFileInfo>
#include <array>
#include <optional>

namespace vorel::dao::sidefiles {

using namespace Qt::StringLiterals;

namespace {

const QByteArray plainMark("SQLite format 3", 16);
const QByteArray journalMark("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8);
constexpr qsizetype fileHeader = 100;

quint32 number(const QByteArray &bytes, qsizetype at)
{
    quint32 value = 0;
    for (qsizetype i = at; i < at + 4; ++i)
        value = value << 8 | static_cast<quint8>(bytes[i]);
    return value;
}

// Whether the first page shows that the journal belongs to the file.
enum class Told { Nothing, Own, Foreign };

// A journal keeps the pages as they were before the write: the first one with the number of writes up to then.
class Journal {
public:
    explicit Journal(const QByteArray &content) : m_content(content) {}

    bool valid() const { return m_content.size() >= 28 && m_content.startsWith(journalMark); }

    Told told(const QByteArray &header) const
    {
        if (header.size() < fileHeader || !header.startsWith(plainMark))
            return Told::Nothing;
        const quint32 stored = number(header, 16) >> 16;
        if (number(m_content, 24) != (stored == 1 ? 65536 : stored))
            return Told::Foreign;
        const quint32 writes = number(header, 24);
        if (const auto first = firstPage()) {
            const quint32 before = number(*first, 24);
            return first->startsWith(plainMark) && (writes == before || writes == before + 1) ? Told::Own : Told::Foreign;
        }
        const bool sizeHolds = writes == number(header, 92);
        return !sizeHolds ? Told::Nothing : number(header, 28) == number(m_content, 16) ? Told::Own : Told::Foreign;
    }

private:
    std::optional<QByteArray> firstPage() const
    {
        const qsizetype sector = number(m_content, 20);
        const qsizetype page = number(m_content, 24);
        if (sector < 32 || sector > 65536 || page < 512 || page > 65536)
            return std::nullopt;
        qsizetype at = 0;
        while (at + 28 <= m_content.size() && m_content.sliced(at).startsWith(journalMark)) {
            quint32 left = number(m_content, at + 8);
            at += sector;
            for (; left > 0 && at + page + 8 <= m_content.size(); --left, at += page + 8) {
                if (number(m_content, at) == 1)
                    return m_content.mid(at + 4, page);
            }
            at = (at + sector - 1) / sector * sector;
        }
        return std::nullopt;
    }

    QByteArray m_content;
};

enum class Trial { Sound, Damaged, Locked };

// How a copy of the file fares, with what lies beside it or without.
Trial tryOut(const QString &path, const QString &password, const QString &beside)
{
    const Scratch copy(path, u".trial"_s);
    copyFile(path, copy.path());
    if (!beside.isEmpty())
        copyFile(path + beside, copy.path() + beside);
    try {
        const Connection file(copy.path(), password, Connection::Purpose::Open);
        return file.isSound() ? Trial::Sound : Trial::Damaged;
    } catch (const EngineError &error) {
        if (error.number() == err::DiskFull)
            throw;
        return error.number() == err::UnknownFormat && !password.isEmpty() ? Trial::Locked : Trial::Damaged;
    }
}

bool isForeign(const QString &path, const QString &password, const QString &beside, Told told)
{
    const Trial without = tryOut(path, password, {});
    if (told == Told::Foreign && without == Trial::Sound)
        return true;
    const Trial with = tryOut(path, password, beside);
    if (without == Trial::Locked && with == Trial::Locked)
        return false;           // under another password nothing can be decided
    if (with == Trial::Sound) {
        // Sound either way, and nothing says which way is right: the present rows must not get lost.
        if (without == Trial::Sound && told == Told::Nothing)
            copyFile(path, freeDamagedName(path));
        return false;
    }
    return without == Trial::Sound || told != Told::Own;
}

QByteArray head(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(fileHeader) : QByteArray();
}

void checkJournal(const QString &path, const QString &password)
{
    const QString beside = u"-journal"_s;
    if (QFileInfo(path + beside).size() < 28 || isBeingWritten(path))
        return;
    const Journal journal(contentOf(path + beside));
    const QByteArray header = head(path);
    if (!journal.valid())
        return;                 // the store passes over it
    const QString key = header.startsWith(plainMark) ? QString() : password;
    if (isForeign(path, key, beside, journal.told(header)))
        setAside(path + beside);
}

// Only another tool writes such a log, and then the file's header says so.
void checkLog(const QString &path)
{
    const QString beside = u"-wal"_s;
    if (QFileInfo(path + beside).size() == 0)
        return;
    const QByteArray header = head(path);
    const bool logged = header.startsWith(plainMark) && header.size() == fileHeader && header[18] == 2 && header[19] == 2;
    if (!logged || isForeign(path, {}, beside, Told::Nothing)) {
        setAside(path + beside);
        QFile::remove(path + u"-shm"_s);
    }
}

}

void setForeignAside(const QString &path, const QString &password)
{
    if (QFileInfo::exists(path + u"-journal"_s))
        checkJournal(path, password);
    if (QFileInfo::exists(path + u"-wal"_s))
        checkLog(path);
}

void setAllAside(const QString &path)
{
    for (const QString &beside : { u"-journal"_s, u"-wal"_s }) {
        if (QFileInfo::exists(path + beside))
            setAside(path + beside);
    }
    QFile::remove(path + u"-shm"_s);
}

}
