// Build tool: renders one SVG picture to a JPEG file of the drawing's own size, at a quality of 1 to 100.
#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        std::fputs("usage: renderpicture DRAWING.svg PICTURE.jpg QUALITY\n", stderr);
        return 2;
    }
    QSvgRenderer drawing(arguments[1]);
    if (!drawing.isValid()) {
        std::fprintf(stderr, "%s: no drawing\n", qPrintable(arguments[1]));
        return 1;
    }
    QImage picture(drawing.defaultSize(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    painter.end();
    if (!picture.save(arguments[2], "JPG", arguments[3].toInt())) {
        std::fprintf(stderr, "%s: not written\n", qPrintable(arguments[2]));
        return 1;
    }
    return 0;
}
