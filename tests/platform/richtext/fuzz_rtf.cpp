#include "platform/richtext/checkbytes.h"

#include <QGuiApplication>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// A document asks the application for its font.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    for (const QByteArray &text : {bytes, "{\\rtf1" + bytes}) {
        if (const QString wrong = vorel::test::checkBytes(text); !wrong.isEmpty()) {
            std::fprintf(stderr, "%s\n", qPrintable(wrong));
            std::abort();
        }
    }
    return 0;
}
