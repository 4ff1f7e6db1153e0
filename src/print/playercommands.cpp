#include "print/playercommands.h"

#include "platform/basic/error.h"
#include "platform/basic/files.h"
#include "platform/desktop/picturefile.h"
#include "print/script.h"

#include <map>

namespace vorel {

using namespace Qt::StringLiterals;
using printer::LineShape;

namespace {

constexpr int noFileError = 53;
constexpr int pictureError = 481;

QImage loadPicture(const QString &path)
{
    const QString file = basic::realPath(path);
    if (basic::Dir(file).isEmpty())
        throw basic::Error(noFileError, u"The picture %1 was not found."_s.arg(path));
    // More than the points of a whole sheet no printer shows.
    constexpr QSize largest(6000, 6000);
    const desktop::Picture picture = desktop::readPicture(file, largest);
    if (picture.image.isNull())
        throw basic::Error(pictureError, u"The picture %1 cannot be read."_s.arg(path));
    return picture.image;
}

quint32 colourNumberOf(double number)
{
    return number >= 0 && number <= 4294967295.0 ? static_cast<quint32>(number) : 0;
}

int wholeOf(double number)
{
    return static_cast<int>(std::clamp(number, -1.0e6, 1.0e6));
}

bool saysTrue(const QString &line)
{
    return line.contains(u"TRUE"_s, Qt::CaseInsensitive);
}

}

ScriptPass::ScriptPass(PlayTarget target, PrintJob &job, PrintScriptFile &script, const std::vector<QString> &table)
    : m_target(target), m_job(job), m_player(job.player()), m_script(script), m_table(table), m_printer(job.device()),
      m_font(m_printer.FontName()), m_page(m_player.FirstPrintPage) {}

ScriptPass::Step ScriptPass::commandFor(const QString &word)
{
    static const std::map<QString, Step> commands{
        {u"LPRINT"_s, &ScriptPass::printLeft},     {u"CPRINT"_s, &ScriptPass::printCentre},
        {u"RPRINT"_s, &ScriptPass::printRight},    {u"FONTNAME"_s, &ScriptPass::fontName},
        {u"FONTSIZE"_s, &ScriptPass::fontSize},    {u"FONTBOLD"_s, &ScriptPass::fontBold},
        {u"FONTUNDERLINE"_s, &ScriptPass::fontUnderline}, {u"FORECOLOR"_s, &ScriptPass::foreColor},
        {u"DRAWMODE"_s, &ScriptPass::drawMode},    {u"DRAWSTYLE"_s, &ScriptPass::drawStyle},
        {u"ORIENTATION"_s, &ScriptPass::orientation}, {u"SCALEMODE"_s, &ScriptPass::scaleMode},
        {u"LINE"_s, &ScriptPass::line},            {u"PAINTPICTURE"_s, &ScriptPass::paintPicture},
        {u"NEWPAGE"_s, &ScriptPass::newPage},      {u"ENDDOC"_s, &ScriptPass::endDoc}};
    const auto found = commands.find(word);
    return found == commands.end() ? nullptr : found->second;
}

void ScriptPass::play()
{
    while (const std::optional<QString> next = m_script.nextLine()) {
        const Step step = commandFor(FirstWord(*next));
        if (step && (this->*step)(*next) == Flow::End)
            return;
    }
}

// Fonts are always the printer's too: what follows is measured by them.
template <class Change> void ScriptPass::onFonts(Change change)
{
    change(m_printer, 1.0);
    if (onScreen())
        change(previewPage(), m_player.PreviewScale);
}

template <class Change> void ScriptPass::onDrawing(Change change)
{
    if (printer::Page *page = drawn())
        change(*page);
}

printer::Page *ScriptPass::drawn()
{
    if (onScreen())
        return &previewPage();
    return m_target == PlayTarget::Printer ? &m_printer : nullptr;
}

double ScriptPass::placeX(double x) const
{
    return onScreen() ? (x + m_player.PageOffsetX) * m_player.PreviewScale : x;
}

double ScriptPass::placeY(double y) const
{
    return onScreen() ? (y + m_player.PageOffsetY) * m_player.PreviewScale : y;
}

ScriptPass::Flow ScriptPass::print(const QString &line, double share)
{
    const TextLine parsed = parseTextLine(line, m_table);
    printer::Page *page = drawn();
    if (!page)
        return Flow::GoOn;
    double width = share > 0 ? page->TextWidth(parsed.text) : 0;
    if (onScreen())
        width /= m_player.PreviewScale;
    page->setCurrentX(placeX(parsed.x - width * share));
    page->setCurrentY(placeY(parsed.y));
    page->Print(parsed.text);
    return Flow::GoOn;
}

ScriptPass::Flow ScriptPass::fontName(const QString &line)
{
    m_font = parseQuoted(line);
    onFonts([this](printer::Page &page, double) { page.setFontName(m_font); });
    return Flow::GoOn;
}

ScriptPass::Flow ScriptPass::fontSize(const QString &line)
{
    const double points = parseSetting(line);
    onFonts([points](printer::Page &page, double scale) { page.setFontSize(points * scale); });
    return Flow::GoOn;
}

ScriptPass::Flow ScriptPass::fontBold(const QString &line)
{
    onFonts([on = saysTrue(line)](printer::Page &page, double) { page.setFontBold(on); });
    return Flow::GoOn;
}

ScriptPass::Flow ScriptPass::fontUnderline(const QString &line)
{
    onFonts([on = saysTrue(line)](printer::Page &page, double) { page.setFontUnderline(on); });
    return Flow::GoOn;
}

ScriptPass::Flow ScriptPass::foreColor(const QString &line)
{
    onDrawing([colour = colourNumberOf(parseSetting(line))](printer::Page &page) { page.setForeColor(colour); });
    return Flow::GoOn;
}

ScriptPass::Flow ScriptPass::drawMode(const QString &line)
{
    onDrawing([mode = wholeOf(parseSetting(line))](printer::Page &page) { page.DrawMode = mode; });
    return Flow::GoOn;
}

ScriptPass::Flow ScriptPass::drawStyle(const QString &line)
{
    onDrawing([style = wholeOf(parseSetting(line))](printer::Page &page) { page.DrawStyle = style; });
    return Flow::GoOn;
}

ScriptPass::Flow ScriptPass::orientation(const QString &line)
{
    m_printer.setOrientation(wholeOf(parseSetting(line)));
    if (m_target != PlayTarget::Printer)
        m_player.sizePreviewPage();
    return Flow::GoOn;
}

ScriptPass::Flow ScriptPass::scaleMode(const QString &line)
{
    const int mode = wholeOf(parseSetting(line));
    m_printer.setScaleMode(mode);
    if (onScreen()) {
        previewPage().setScaleMode(mode);
        m_player.recomputeOffsets(mode);
    }
    return Flow::GoOn;
}

ScriptPass::Flow ScriptPass::line(const QString &text)
{
    const DrawnLine parsed = parseDrawnLine(text);
    printer::Page *page = drawn();
    if (!page)
        return Flow::GoOn;
    const double x1 = placeX(parsed.x1), y1 = placeY(parsed.y1);
    const double scale = onScreen() ? m_player.PreviewScale : 1;
    const double x2 = parsed.step ? x1 + parsed.x2 * scale : placeX(parsed.x2);
    const double y2 = parsed.step ? y1 + parsed.y2 * scale : placeY(parsed.y2);
    const bool isFilled = parsed.flag == u"BF";
    std::optional<quint32> colour;
    if (parsed.colour)      // of a filled box the number of one of the sixteen colours, else the colour itself
        colour = isFilled ? printer::QBColor(wholeOf(*parsed.colour)) : colourNumberOf(*parsed.colour);
    page->Line(x1, y1, x2, y2, colour, isFilled ? LineShape::FilledBox : parsed.flag == u"B" ? LineShape::Box : LineShape::Line);
    return Flow::GoOn;
}

// Neither place nor size is scaled on the screen, and the size is that of the report's last picture.
ScriptPass::Flow ScriptPass::paintPicture(const QString &line)
{
    const PictureLine parsed = parsePictureLine(line);
    const QImage picture = loadPicture(parsed.path);
    if (printer::Page *page = drawn())
        page->PaintPicture(picture, parsed.x, parsed.y, m_job.PictureWidth, m_job.PictureHeight);
    return Flow::GoOn;
}

ScriptPass::Flow ScriptPass::newPage(const QString &)
{
    if (m_target == PlayTarget::Screen)
        return Flow::End;
    if (m_target == PlayTarget::Email)
        return Flow::GoOn;
    m_printer.NewPage();
    ++m_page;
    const int last = m_player.LastPrintPage;
    return last >= 1 && m_page > last ? Flow::End : Flow::GoOn;
}

}
