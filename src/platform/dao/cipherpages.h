#pragma once

#include <QByteArray>
#include <QString>

// What a protected file's pages reveal without its first one: each carries a seal under the password.
namespace vorel::dao::cipherpages {

// Whether the password opens some page after the first: what fails to open then is damaged.
bool opens(const QByteArray &content, const QString &password);
// Whether the content may be enciphered at all: its bytes are spread evenly.
bool looksEnciphered(const QByteArray &content);

}
