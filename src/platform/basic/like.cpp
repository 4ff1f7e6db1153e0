#include "platform/basic/error.h"
#include "platform/basic/text.h"

namespace vorel::basic {

namespace {

struct Group {
    QStringView content;       // between the brackets, without a leading "!"
    qsizetype length;          // of the whole element in the pattern
    bool negated;
};

// The group that begins at the head of the pattern.
Group groupAt(QStringView pattern)
{
    const qsizetype close = pattern.indexOf(u']');
    if (close < 0)
        throw BasicError(93);
    Group group{pattern.mid(1, close - 1), close + 1, false};
    // A lone "!" matches itself.
    if (group.content.size() > 1 && group.content.front() == u'!') {
        group.negated = true;
        group.content = group.content.mid(1);
    }
    return group;
}

bool isRange(QStringView content, qsizetype i)
{
    return i + 2 < content.size() && content[i + 1] == u'-';
}

// Every "[" is closed and every range ascends, wherever the match may end.
void checkPattern(QStringView pattern)
{
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != u'[')
            continue;
        const Group group = groupAt(pattern.mid(i));
        for (qsizetype k = 0; k < group.content.size(); ++k) {
            if (!isRange(group.content, k))
                continue;
            if (group.content[k + 2] < group.content[k])
                throw BasicError(93);
            k += 2;
        }
        i += group.length - 1;
    }
}

class Matcher {
public:
    Matcher(QStringView text, QStringView pattern, Qt::CaseSensitivity cs)
        : m_text(text), m_pattern(pattern), m_fold(cs == Qt::CaseInsensitive)
    {
    }

    bool matches() const
    {
        qsizetype t = 0;
        qsizetype p = 0;
        qsizetype starPattern = -1;      // after the last "*", and where its text may end
        qsizetype starText = 0;
        for (;;) {
            if (p == m_pattern.size() && t == m_text.size())
                return true;
            if (p < m_pattern.size() && m_pattern[p] == u'*') {
                starPattern = ++p;
                starText = t;
                continue;
            }
            if (step(t, p))
                continue;
            if (starPattern < 0 || starText >= m_text.size())
                return false;
            t = ++starText;
            p = starPattern;
        }
    }

private:
    // One element of the pattern against the text; both positions move on only if it fits.
    bool step(qsizetype &t, qsizetype &p) const
    {
        if (p == m_pattern.size())
            return false;
        const QChar element = m_pattern[p];
        if (element == u'[') {
            const Group group = groupAt(m_pattern.mid(p));
            if (group.content.isEmpty()) {
                p += group.length;
                return true;
            }
            if (t == m_text.size() || contains(group.content, m_text[t]) == group.negated)
                return false;
            p += group.length;
            ++t;
            return true;
        }
        if (t == m_text.size())
            return false;
        const QChar c = m_text[t];
        const bool fits = element == u'?' || (element == u'#' ? c >= u'0' && c <= u'9' : folded(element) == folded(c));
        if (fits) {
            ++t;
            ++p;
        }
        return fits;
    }

    QChar folded(QChar c) const { return m_fold ? c.toCaseFolded() : c; }

    bool contains(QStringView content, QChar c) const
    {
        const QChar wanted = folded(c);
        for (qsizetype i = 0; i < content.size(); ++i) {
            if (!isRange(content, i)) {
                if (folded(content[i]) == wanted)
                    return true;
                continue;
            }
            if ((content[i] <= c && c <= content[i + 2])
                || (folded(content[i]) <= wanted && wanted <= folded(content[i + 2])))
                return true;
            i += 2;
        }
        return false;
    }

    QStringView m_text;
    QStringView m_pattern;
    bool m_fold;
};

}

bool Like(QStringView text, QStringView pattern, Qt::CaseSensitivity cs)
{
    checkPattern(pattern);
    return Matcher(text, pattern, cs).matches();
}

}
