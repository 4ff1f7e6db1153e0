#include "platform/printer/page.h"

#include "platform/printer/metrics.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace vorel::printer {

using namespace Qt::StringLiterals;

namespace {

struct Unit { double x, y; };       // twips

constexpr std::array<Unit, 8> units{{
    {1, 1}, {1, 1}, {twipsPerPoint, twipsPerPoint}, {twipsPerPixel, twipsPerPixel}, {120, 240},
    {twipsPerInch, twipsPerInch}, {twipsPerInch / 25.4, twipsPerInch / 25.4}, {twipsPerInch / 2.54, twipsPerInch / 2.54}}};

// All text is measured and drawn at one size and scaled from there, so that a line is as wide on the screen, at any
// scale, as it is on paper. Kerning and ligatures would make a text differ from the sum of its characters.
QFont referenceFont(const QString &name, bool bold)
{
    QFont font(name);
    font.setPixelSize(referencePixels);
    font.setBold(bold);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

}

Paper Paper::scaled(double factor) const
{
    return {width * factor, height * factor, left * factor, top * factor, right * factor, bottom * factor};
}

quint32 QBColor(int number)
{
    static constexpr std::array<quint32, 16> colours{
        0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
        0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
    return number >= 0 && number < 16 ? colours[static_cast<std::size_t>(number)] : 0;
}

Page::Metrics::Metrics(const QString &name, bool bold) : font(referenceFont(name, bold)), measure(font)
{
    for (char16_t code = firstPlain; code <= lastPlain; ++code)
        plain[code - firstPlain] = measure.horizontalAdvance(QChar(code));
    joins = std::abs(measure.horizontalAdvance(u"fifl"_s) - advanceOf(u"fifl")) > 0.5;
}

double Page::Metrics::advanceOf(QStringView text) const
{
    double sum = 0;
    for (const QChar c : text)
        sum += plain[c.unicode() - firstPlain];
    return sum;
}

// Most of what is printed are plain letters and digits, whose widths simply add up.
double Page::Metrics::width(const QString &text) const
{
    const bool isPlain = std::all_of(text.begin(), text.end(), [](QChar c) {
        return c.unicode() >= firstPlain && c.unicode() <= lastPlain;
    });
    if (isPlain && !(joins && text.contains(u'f')))
        return advanceOf(text);
    return measure.horizontalAdvance(text);
}

const Page::Metrics &Page::metrics() const
{
    static std::map<std::pair<QString, bool>, std::shared_ptr<const Metrics>> known;
    if (!m_metrics) {
        std::shared_ptr<const Metrics> &entry = known[{m_fontName, m_bold}];
        if (!entry)
            entry = std::make_shared<const Metrics>(m_fontName, m_bold);
        m_metrics = entry;
    }
    return *m_metrics;
}

Page::Page(const Paper &paper) : m_paper(paper), m_fontName(u"Times New Roman"_s) {}

Page::~Page() = default;

void Page::setPaper(const Paper &paper)
{
    m_paper = paper;
}

void Page::setOrientation(int orientation)
{
    if (orientation == Portrait || orientation == Landscape)
        m_orientation = orientation;
}

double Page::Width() const
{
    return isLying() ? m_paper.height : m_paper.width;
}

double Page::Height() const
{
    return isLying() ? m_paper.width : m_paper.height;
}

// The sheet's borders turn with it; which way it turns is the printer's own affair, so the wider of the two holds for both.
double Page::borderX() const
{
    return isLying() ? std::max(m_paper.top, m_paper.bottom) : m_paper.left;
}

double Page::borderY() const
{
    return isLying() ? std::max(m_paper.left, m_paper.right) : m_paper.top;
}

void Page::setScaleMode(int mode)
{
    if (mode < Twips || mode > Centimetres)
        return;
    m_scaleMode = mode;
    m_unitX = units[static_cast<std::size_t>(mode)].x;
    m_unitY = units[static_cast<std::size_t>(mode)].y;
}

double Page::ScaleWidth() const
{
    return (Width() - borderX() - (isLying() ? borderX() : m_paper.right)) / m_unitX;
}

double Page::ScaleHeight() const
{
    return (Height() - borderY() - (isLying() ? borderY() : m_paper.bottom)) / m_unitY;
}

void Page::setScaleWidth(double width)
{
    const double twips = ScaleWidth() * m_unitX;
    if (!(width > 0) || !std::isfinite(width) || twips <= 0)
        return;
    m_unitX = twips / width;
    m_scaleMode = UserScale;
}

void Page::setFontName(const QString &name)
{
    if (name.isEmpty() || name == m_fontName)
        return;
    m_fontName = name;
    m_metrics.reset();
}

void Page::setFontSize(double points)
{
    if (!std::isnan(points))
        m_fontSize = std::clamp(points, 1.0, 2160.0);
}

void Page::setFontBold(bool on)
{
    if (on != m_bold)
        m_metrics.reset();
    m_bold = on;
}

void Page::setFontUnderline(bool on)
{
    m_underline = on;
}

double Page::TextWidth(const QString &text) const
{
    double widest = 0;
    for (const QString &line : text.split(u'\n'))
        widest = std::max(widest, metrics().width(line));
    return widest * (m_fontSize * twipsPerPoint / referencePixels) / m_unitX;
}

double Page::TextHeight(const QString &text) const
{
    const auto lines = 1 + text.count(u'\n');
    return static_cast<double>(lines) * metrics().measure.height() * (m_fontSize * twipsPerPoint / referencePixels) / m_unitY;
}

}
