#include "platform/dao/cipherpages.h"

#include <QMessageAuthenticationCode>
#include <algorithm>
#include <array>

namespace vorel::dao::cipherpages {

namespace {

// The format that Connection::setUp asks for.
constexpr qsizetype pageBytes = 1024;
constexpr qsizetype saltBytes = 16;
constexpr qsizetype vectorBytes = 16;
constexpr qsizetype sealBytes = 20;
constexpr qsizetype reserved = 48;
constexpr qsizetype keyBytes = 32;
constexpr int keyRounds = 64'000;
constexpr int sealRounds = 2;
constexpr char sealSaltMask = 0x3a;

QByteArray derivedKey(const QByteArray &password, const QByteArray &salt, int rounds)
{
    QMessageAuthenticationCode code(QCryptographicHash::Sha1, password);
    QByteArray key;
    for (char block = 1; key.size() < keyBytes; ++block) {
        code.reset();
        code.addData(salt + QByteArray("\0\0\0", 3) + block);
        QByteArray round = code.result();
        QByteArray sum = round;
        for (int i = 1; i < rounds; ++i) {
            code.reset();
            code.addData(round);
            round = code.result();
            for (qsizetype at = 0; at < sum.size(); ++at)
                sum[at] = static_cast<char>(sum[at] ^ round[at]);
        }
        key += sum;
    }
    return key.left(keyBytes);
}

bool sealHolds(const QByteArray &page, qsizetype number, const QByteArray &sealKey)
{
    const qsizetype sealAt = pageBytes - reserved + vectorBytes;
    QByteArray told = page.left(sealAt);
    for (int shift = 0; shift < 32; shift += 8)
        told += static_cast<char>(number >> shift & 0xff);
    return QMessageAuthenticationCode::hash(told, sealKey, QCryptographicHash::Sha1) == page.mid(sealAt, sealBytes);
}

bool isEven(const char *bytes)
{
    // Of 1024 random bytes about 251 of the 256 values occur, each four times or so.
    constexpr int fewestValues = 225;
    constexpr int mostOfOne = 24;
    std::array<int, 256> counts{};
    for (qsizetype i = 0; i < pageBytes; ++i)
        ++counts[static_cast<unsigned char>(bytes[i])];
    const auto values = std::count_if(counts.begin(), counts.end(), [](int count) { return count > 0; });
    return values >= fewestValues && *std::max_element(counts.begin(), counts.end()) <= mostOfOne;
}

}

bool opens(const QByteArray &content, const QString &password)
{
    if (content.size() < 2 * pageBytes)
        return false;
    const QByteArray salt = content.left(saltBytes);
    QByteArray sealSalt = salt;
    for (char &byte : sealSalt)
        byte = static_cast<char>(byte ^ sealSaltMask);
    const QByteArray sealKey = derivedKey(derivedKey(password.toUtf8(), salt, keyRounds), sealSalt, sealRounds);
    for (qsizetype page = 2; page * pageBytes <= content.size(); ++page) {
        if (sealHolds(content.mid((page - 1) * pageBytes, pageBytes), page, sealKey))
            return true;
    }
    return false;
}

bool looksEnciphered(const QByteArray &content)
{
    if (content.size() < pageBytes || !isEven(content.constData()))
        return false;       // even the salt lies in the first page, so that without it no password fits
    return true;
}

}
