#include "platform/basic/formatting.h"

#include <algorithm>

namespace vorel::basic::detail {

namespace {

bool isPlace(QChar c)
{
    return c == u'@' || c == u'&';
}

// How many places there are, and what the pattern asks for as a whole.
struct Shape {
    qsizetype places = 0;
    bool fromLeft = false;
    bool lower = false;
    bool upper = false;
};

Shape shapeOf(QStringView pattern)
{
    Shape shape;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern[i];
        if (c == u'\\')
            ++i;
        else if (c == u'"')
            i = pattern.indexOf(u'"', i + 1) < 0 ? pattern.size() : pattern.indexOf(u'"', i + 1);
        else if (isPlace(c))
            ++shape.places;
        else if (c == u'!')
            shape.fromLeft = true;
        else if (c == u'<')
            shape.lower = true;
        else if (c == u'>')
            shape.upper = true;
    }
    return shape;
}

}

QString formatText(QStringView text, QStringView pattern)
{
    QStringView sections[4];
    const int count = splitSections(pattern, sections);
    if (text.isEmpty() && count > 1)
        pattern = sections[1];
    else
        pattern = sections[0];
    const Shape shape = shapeOf(pattern);
    QString source = text.toString();
    if (shape.upper)
        source = source.toUpper();
    else if (shape.lower)
        source = source.toLower();
    const qsizetype missing = std::max<qsizetype>(shape.places - source.size(), 0);
    const qsizetype excess = std::max<qsizetype>(source.size() - shape.places, 0);
    QString out;
    qsizetype place = 0;
    qsizetype at = 0;
    const auto fill = [&](QChar c) {
        const bool empty = shape.fromLeft ? at >= source.size() : place < missing;
        if (empty) {
            if (c == u'@')
                out += u' ';
        } else {
            const bool takesExcess = shape.fromLeft ? place == shape.places - 1 : place == 0;
            const qsizetype length = 1 + (takesExcess ? excess : 0);
            out += QStringView(source).mid(at, length);
            at += length;
        }
        ++place;
    };
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern[i];
        if (isPlace(c)) {
            fill(c);
        } else if (c == u'\\') {
            if (++i < pattern.size())
                out += pattern[i];
        } else if (c == u'"') {
            for (++i; i < pattern.size() && pattern[i] != u'"'; ++i)
                out += pattern[i];
        } else if (c != u'!' && c != u'<' && c != u'>') {
            out += c;
        }
    }
    return shape.places == 0 ? out + source : out;
}

}
