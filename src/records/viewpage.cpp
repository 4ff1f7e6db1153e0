#include "records/viewpage.h"

#include "media/pictures.h"
#include "platform/basic/files.h"
#include "platform/basic/text.h"
#include "session/webpage.h"

#include <QDir>
#include <QRegularExpression>
#include <QUrl>
#include <cmath>

namespace vorel::records {

using namespace Qt::StringLiterals;

namespace {

constexpr double pageScale = 0.1;       // of the picture's twips

// The heading is that of a size 6 letter. Colours are the browser's own, so the page reads well on a dark desktop too.
const QString pageStyle = uR"(body { font-family: Arial, "Liberation Sans", sans-serif; margin: 2em; }
h1 { font-family: Arial, "Liberation Sans", sans-serif; font-size: xx-large; font-weight: bold; }
h2 { font-size: medium; margin: 1em 0 0.25em; }
p { margin: 0; white-space: pre-wrap; overflow-wrap: anywhere; }
img { border: 0; float: right; max-width: 50%; height: auto; margin: 0 0 1em 1em; }
)"_s;

// A picture within the program itself can be read by no browser.
bool hasPicture(const QString &path)
{
    if (basic::Trim(path).isEmpty() || path.startsWith(u':'))
        return false;
    const QString clean = QDir::cleanPath(basic::realPath(path));
    for (const QString &plain : {u"DefaultS.jpg"_s, u"DefaultL.jpg"_s}) {
        if (clean.compare(QDir::cleanPath(pagePath(plain)), Qt::CaseInsensitive) == 0)
            return false;
    }
    return true;
}

QString pictureElement(const ViewPage &page)
{
    const QString file = pictureFile(page.picture);
    const QString address = QUrl::fromLocalFile(file.isEmpty() ? basic::realPath(page.picture) : file).toString(QUrl::FullyEncoded);
    QString size;
    if (!page.pictureSize.isEmpty())
        size = u" width=\"%1\" height=\"%2\""_s.arg(std::lround(pageScale * page.pictureSize.width()))
                   .arg(std::lround(pageScale * page.pictureSize.height()));
    return u"<p><img src=\""_s + address.toHtmlEscaped() + u'"' + size + u" alt=\"\"></p>\n"_s;
}

QString blockElements(const ViewBlock &block)
{
    if (block.onlyIfFilled && basic::Trim(block.text).isEmpty())
        return {};
    static const QRegularExpression lineEnd(u"\r\n|\r|\n"_s);
    QStringList lines = block.text.split(lineEnd);
    while (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    QString html = u"<h2>"_s + escapedForPage(block.label) + u"</h2>\n"_s;
    const QString dash = block.dashed ? u" - "_s : QString();
    for (const QString &line : std::as_const(lines))
        html += u"<p>"_s + dash + (line.isEmpty() ? u"&nbsp;"_s : escapedForPage(line)) + u"</p>\n"_s;
    return html;
}

QString titleOf(const ViewPage &page)
{
    for (const ViewBlock &block : page.blocks) {
        const QString text = block.text.simplified();
        if (!text.isEmpty())
            return page.heading + u" - "_s + text;
    }
    return page.heading;
}

}

QString viewPageText(const ViewPage &page)
{
    QString html = u"<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n"
                   "<meta name=\"color-scheme\" content=\"light dark\">\n<title>"_s;
    html += escapedForPage(titleOf(page)) + u"</title>\n<style>\n"_s + pageStyle + u"</style>\n</head>\n<body>\n"_s;
    if (hasPicture(page.picture))
        html += pictureElement(page);
    html += u"<h1>"_s + escapedForPage(page.heading) + u"</h1>\n"_s;
    for (const ViewBlock &block : page.blocks)
        html += blockElements(block);
    return html + u"</body>\n</html>\n"_s;
}

void showViewPage(const ViewPage &page)
{
    const QString path = pagePath(page.file);
    writePage(path, viewPageText(page));
    openPage(path);
}

}
