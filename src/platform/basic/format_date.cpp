#include "platform/basic/calendar.h"
#include "platform/basic/dates.h"
#include <QVarLengthArray>
#include <algorithm>

namespace vorel::basic::detail {

namespace {

constexpr const char16_t *dayNames[] = {u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday"};
constexpr const char16_t *monthNames[] = {u"January", u"February", u"March", u"April", u"May", u"June",
                                          u"July", u"August", u"September", u"October", u"November", u"December"};

// Patterns are plain ASCII where they mean something.
constexpr char16_t lower(QChar c)
{
    const char16_t u = c.unicode();
    return u >= u'A' && u <= u'Z' ? static_cast<char16_t>(u + 32) : u;
}

// The half-day marks of a pattern, longest first.
struct HalfDayMark {
    QStringView mark;
    int letters;          // shown in the pattern's own case
};

constexpr HalfDayMark halfDayMarks[] = {{u"am/pm", 2}, {u"ampm", 0}, {u"a/p", 1}};

const HalfDayMark *halfDayMarkAt(QStringView pattern)
{
    for (const HalfDayMark &mark : halfDayMarks) {
        if (pattern.startsWith(mark.mark, Qt::CaseInsensitive))
            return &mark;
    }
    return nullptr;
}

// The position after a quoted or escaped piece that begins at i, or i if there is none.
qsizetype afterLiteral(QStringView pattern, qsizetype i)
{
    if (pattern[i] == u'\\')
        return std::min(i + 2, pattern.size());
    if (pattern[i] != u'"')
        return i;
    const qsizetype end = pattern.indexOf(u'"', i + 1);
    return end < 0 ? pattern.size() : end + 1;
}

bool hasHalfDayMark(QStringView pattern)
{
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const qsizetype after = afterLiteral(pattern, i);
        if (after > i)
            i = after - 1;
        else if (lower(pattern[i]) == u'a' && halfDayMarkAt(pattern.mid(i)))
            return true;
    }
    return false;
}

class DateWriter {
public:
    DateWriter(DateTime date, const Regional &settings)
        : m_date(date), m_settings(settings), m_moment(momentOf(date)), m_civil(civilFromDays(m_moment.days))
    {
    }

    void write(QStringView pattern, bool nested = false)
    {
        const bool twelve = hasHalfDayMark(pattern);
        bool afterHour = false;
        for (qsizetype i = 0; i < pattern.size();) {
            if (const qsizetype after = afterLiteral(pattern, i); after > i) {
                writeLiteral(pattern.mid(i, after - i));
                i = after;
                continue;
            }
            const char16_t letter = lower(pattern[i]);
            if (letter == u'a') {
                if (const HalfDayMark *mark = halfDayMarkAt(pattern.mid(i))) {
                    writeHalfDay(pattern.mid(i), *mark);
                    i += mark->mark.size();
                    afterHour = false;
                    continue;
                }
            }
            const int run = runAt(pattern, i, nested);
            if (run == 0) {
                m_out.append(pattern[i++]);
                continue;
            }
            writeToken(letter, run, twelve, afterHour);
            afterHour = letter == u'h';
            i += run;
        }
    }

    void writeGeneral()
    {
        const bool showsDate = m_moment.days != 0;
        const bool showsTime = m_moment.seconds != 0 || !showsDate;
        if (showsDate)
            write(m_settings.shortDate, true);
        if (showsDate && showsTime)
            m_out.append(u' ');
        if (showsTime)
            write(m_settings.longTime, true);
    }

    QStringView written() const { return QStringView(m_out.constData(), m_out.size()); }

private:
    void put(QStringView text) { m_out.append(text.data(), text.size()); }

    // The length of the token at i, 0 for a literal character.
    static int runAt(QStringView pattern, qsizetype i, bool nested)
    {
        const char16_t letter = lower(pattern[i]);
        int run = 1;
        while (i + run < pattern.size() && lower(pattern[i + run]) == letter)
            ++run;
        switch (letter) {
        case u'd':
            // A regional pattern contains no regional patterns.
            return std::min(run, nested ? 4 : 6);
        case u'm':
        case u'y':
            return std::min(run, 4);
        case u'h':
        case u'n':
        case u's':
        case u'w':
            return std::min(run, 2);
        case u'q':
            return 1;
        case u'c':
            return nested ? 0 : 1;
        case u't':
            return run >= 5 && !nested ? 5 : 0;
        default:
            return 0;
        }
    }

    void writeLiteral(QStringView piece)
    {
        if (piece.front() == u'\\')
            piece = piece.mid(1);
        else
            piece = piece.endsWith(u'"') && piece.size() > 1 ? piece.mid(1, piece.size() - 2) : piece.mid(1);
        put(piece);
    }

    void writeNumber(int value, int width)
    {
        char16_t buffer[12];
        int at = 12;
        do {
            buffer[--at] = static_cast<char16_t>(u'0' + value % 10);
            value /= 10;
            --width;
        } while (value != 0 || width > 0);
        put(QStringView(buffer + at, 12 - at));
    }

    void writeHalfDay(QStringView pattern, const HalfDayMark &mark)
    {
        const bool afternoon = m_moment.seconds >= secondsPerDay / 2;
        if (mark.letters == 0) {
            put(afternoon ? u"PM" : u"AM");
            return;
        }
        put(pattern.mid(afternoon ? mark.letters + 1 : 0, mark.letters));
    }

    void writeName(QStringView name, bool whole) { put(whole ? name : name.left(3)); }

    void writeToken(char16_t letter, int run, bool twelve, bool afterHour)
    {
        switch (letter) {
        case u'd':
            writeDay(run);
            break;
        case u'm':
            if (afterHour && run <= 2)
                writeNumber(m_moment.seconds / 60 % 60, run);
            else if (run <= 2)
                writeNumber(m_civil.month, run);
            else
                writeName(monthNames[m_civil.month - 1], run == 4);
            break;
        case u'y':
            writeYear(run);
            break;
        case u'h':
            writeHour(run, twelve);
            break;
        case u'n':
            writeNumber(m_moment.seconds / 60 % 60, run);
            break;
        case u's':
            writeNumber(m_moment.seconds % 60, run);
            break;
        case u'w':
            writeNumber(run == 1 ? Weekday(m_date) : DatePart(u"ww", m_date), 1);
            break;
        case u'q':
            writeNumber((m_civil.month + 2) / 3, 1);
            break;
        case u'c':
            writeGeneral();
            break;
        case u't':
            write(m_settings.longTime, true);
            break;
        default:
            break;
        }
    }

    void writeDay(int run)
    {
        if (run <= 2)
            writeNumber(m_civil.day, run);
        else if (run <= 4)
            writeName(dayNames[Weekday(m_date) - 1], run == 4);
        else
            write(run == 5 ? m_settings.shortDate : m_settings.longDate, true);
    }

    void writeYear(int run)
    {
        if (run == 1)
            writeNumber(DatePart(u"y", m_date), 1);
        else if (run == 2)
            writeNumber(m_civil.year % 100, 2);
        else
            writeNumber(m_civil.year, 4);
    }

    void writeHour(int run, bool twelve)
    {
        const int hour = m_moment.seconds / 3600;
        writeNumber(twelve ? (hour + 11) % 12 + 1 : hour, run);
    }

    QVarLengthArray<QChar, 64> m_out;
    const DateTime m_date;
    const Regional &m_settings;
    const Moment m_moment;
    const Civil m_civil;
};

}

void appendDate(QString &out, DateTime date, QStringView pattern, const Regional &settings)
{
    DateWriter writer(date, settings);
    writer.write(pattern);
    out += writer.written();
}

void appendGeneralDate(QString &out, DateTime date, const Regional &settings)
{
    DateWriter writer(date, settings);
    writer.writeGeneral();
    out += writer.written();
}

}
