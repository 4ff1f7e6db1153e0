#pragma once

#include "platform/printer/page.h"

#include <QFontMetricsF>
#include <array>

// A font at the reference size and what it measures. Internal to this folder.
namespace vorel::printer {

inline constexpr int referencePixels = 256;

struct Page::Metrics {
    Metrics(const QString &name, bool bold);
    double width(const QString &text) const;        // pixels at the reference size

    QFont font;
    QFontMetricsF measure;

private:
    static constexpr char16_t firstPlain = 0x20, lastPlain = 0x7e;
    double advanceOf(QStringView text) const;
    std::array<double, lastPlain - firstPlain + 1> plain{};
    bool joins = false;                             // the font joins pairs such as "fi" into one sign
};

}
