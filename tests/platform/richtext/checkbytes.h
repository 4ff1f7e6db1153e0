#pragma once

#include <QByteArray>
#include <QString>

namespace vorel::test {

// Any bytes are read; what is written of them reads back as the same text. "" or what went wrong.
QString checkBytes(const QByteArray &bytes);

}
