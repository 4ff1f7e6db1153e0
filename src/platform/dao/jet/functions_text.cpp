#include "platform/dao/jet/functions_sql.h"

#include "platform/basic/convert.h"
#include "platform/basic/text.h"
#include "platform/basic/storedtime.h"
#include "platform/dao/jet/translator.h"

namespace vorel::dao::jet {

namespace {

int countOf(sqlite3_value *value)
{
    return static_cast<int>(std::clamp<qint64>(sqlite3_value_int64(value), INT_MIN, INT_MAX));
}

template <bool upper>
void changeCase(sqlite3_context *context, sqlite3_value **values, int)
{
    const std::string_view text = utf8Of(values[0]);
    char small[256];
    bool ascii = text.size() <= sizeof small;
    for (size_t i = 0; ascii && i < text.size(); ++i) {
        const char c = text[i];
        ascii = static_cast<signed char>(c) >= 0;
        const bool changes = upper ? c >= 'a' && c <= 'z' : c >= 'A' && c <= 'Z';
        small[i] = changes ? static_cast<char>(c ^ 0x20) : c;
    }
    if (ascii)
        sqlite3_result_text(context, small, static_cast<int>(text.size()), SQLITE_TRANSIENT);
    else
        resultText(context, upper ? textOf(values[0]).toUpper() : textOf(values[0]).toLower());
}

void left(sqlite3_context *context, sqlite3_value **values, int)
{
    resultText(context, basic::Left(textOf(values[0]), countOf(values[1])));
}

void right(sqlite3_context *context, sqlite3_value **values, int)
{
    resultText(context, basic::Right(textOf(values[0]), countOf(values[1])));
}

void mid(sqlite3_context *context, sqlite3_value **values, int count)
{
    if (count > 2 && sqlite3_value_int64(values[2]) < 0) {
        fail(context, 5, basic::BasicError::standardText(5));
        return;
    }
    resultText(context, basic::Mid(textOf(values[0]), countOf(values[1]), count > 2 ? countOf(values[2]) : -1));
}

// In the engine's own comparison, unless the fourth argument asks for a binary one.
void inStr(sqlite3_context *context, sqlite3_value **values, int count)
{
    const qint64 start = sqlite3_value_int64(values[0]);
    if (start < 1) {
        fail(context, 5, basic::BasicError::standardText(5));
        return;
    }
    const QString text = textOf(values[1]);
    const QString sought = textOf(values[2]);
    const bool binary = count > 3 && sqlite3_value_int64(values[3]) == 0;
    const qsizetype found = start > text.size()
        ? -1 : text.indexOf(sought, static_cast<qsizetype>(start) - 1, binary ? Qt::CaseSensitive : Qt::CaseInsensitive);
    sqlite3_result_int64(context, found + 1);
}

// A pattern that is asked of many texts. One with stars at its ends alone is looked for in the stored bytes, where they
// are ASCII; all else is the runtime's Like.
class LikePattern {
public:
    explicit LikePattern(const QString &pattern) : m_pattern(pattern)
    {
        QStringView sought = m_pattern;
        m_open[0] = sought.startsWith(u'*');
        while (sought.startsWith(u'*'))
            sought = sought.sliced(1);
        m_open[1] = sought.endsWith(u'*') || (sought.isEmpty() && m_open[0]);
        while (sought.endsWith(u'*'))
            sought.chop(1);
        m_plain = std::none_of(sought.begin(), sought.end(), [](QChar c) {
            return c.unicode() >= 0x80 || QStringView(u"*?#[").contains(c);
        });
        m_sought = sought.toLatin1().toLower().toStdString();
    }

    bool matches(std::string_view text) const
    {
        if (!m_plain || !isAscii(text))
            return basic::Like(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())), m_pattern, Qt::CaseInsensitive);
        if (text.size() < m_sought.size())
            return false;
        const size_t spare = text.size() - m_sought.size();
        if (!m_open[1])
            return (m_open[0] || spare == 0) && isAt(text, spare);
        for (size_t at = 0; at <= (m_open[0] ? spare : 0); ++at) {
            if (isAt(text, at))
                return true;
        }
        return false;
    }

private:
    static char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
    static bool isAscii(std::string_view text)
    {
        unsigned char all = 0;
        for (const char c : text)
            all = static_cast<unsigned char>(all | static_cast<unsigned char>(c));
        return all < 0x80;
    }
    bool isAt(std::string_view text, size_t at) const
    {
        for (size_t i = 0; i < m_sought.size(); ++i) {
            if (lower(text[at + i]) != m_sought[i])
                return false;
        }
        return true;
    }

    QString m_pattern;
    std::string m_sought;               // between the stars, in small letters
    bool m_open[2] = { false, false };  // a star before it, a star behind it
    bool m_plain = false;
};

void like(sqlite3_context *context, sqlite3_value **values, int)
{
    auto *pattern = static_cast<LikePattern *>(sqlite3_get_auxdata(context, 1));
    if (!pattern) {
        pattern = new LikePattern(textOf(values[1]));
        sqlite3_set_auxdata(context, 1, pattern, [](void *p) { delete static_cast<LikePattern *>(p); });
        pattern = static_cast<LikePattern *>(sqlite3_get_auxdata(context, 1));
    }
    const std::string_view text = utf8Of(values[0]);
    sqlite3_result_int(context, (pattern ? pattern->matches(text) : LikePattern(textOf(values[1])).matches(text)) ? 1 : 0);
}

void joinTexts(sqlite3_context *context, sqlite3_value **values, int count)
{
    QByteArray joined;
    bool any = false;
    for (int i = 0; i < count; ++i) {
        if (sqlite3_value_type(values[i]) == SQLITE_NULL)
            continue;
        any = true;
        const std::string_view text = utf8Of(values[i]);
        joined.append(text.data(), static_cast<qsizetype>(text.size()));
    }
    if (any)
        sqlite3_result_text(context, joined.constData(), static_cast<int>(joined.size()), SQLITE_TRANSIENT);
}

void characterCode(sqlite3_context *context, sqlite3_value **values, int)
{
    const QString text = textOf(values[0]);
    if (text.isEmpty())
        fail(context, 5, basic::BasicError::standardText(5));
    else
        sqlite3_result_int(context, text[0].unicode());
}

void character(sqlite3_context *context, sqlite3_value **values, int)
{
    const qint64 code = sqlite3_value_int64(values[0]);
    if (code < 0 || code > 255)
        fail(context, 5, basic::BasicError::standardText(5));
    else
        resultText(context, QString(QChar(static_cast<char16_t>(code))));
}

void blanks(sqlite3_context *context, sqlite3_value **values, int)
{
    const qint64 count = sqlite3_value_int64(values[0]);
    if (count < 0 || count > 65535)
        fail(context, 5, basic::BasicError::standardText(5));
    else
        resultText(context, QString(static_cast<qsizetype>(count), u' '));
}

void convertCase(sqlite3_context *context, sqlite3_value **values, int)
{
    const QString text = textOf(values[0]);
    switch (sqlite3_value_int64(values[1])) {
    case 1:
        resultText(context, text.toUpper());
        break;
    case 2:
        resultText(context, text.toLower());
        break;
    case 3:
        resultText(context, basic::StrConvProper(text));
        break;
    default:
        fail(context, 5, basic::BasicError::standardText(5));
    }
}

// The check of a text column: text, size (0 = any), zero length allowed, field name.
void fit(sqlite3_context *context, sqlite3_value **values, int)
{
    const std::string_view text = utf8Of(values[0]);
    const int size = sqlite3_value_int(values[1]);
    if (text.empty() && sqlite3_value_int(values[2]) == 0)
        fail(context, err::ZeroLengthText, EngineError(err::ZeroLengthText, textOf(values[3])).text());
    else if (size > 0 && text.size() > static_cast<size_t>(size) && textOf(values[0]).size() > size)
        fail(context, err::TooLong);
    else
        sqlite3_result_value(context, values[0]);
}

constexpr SqlFunction functions[] = {
    {"j_ucase", 1, changeCase<true>}, {"j_lcase", 1, changeCase<false>}, {"j_left", 2, left}, {"j_right", 2, right},
    {"j_mid", 2, mid}, {"j_mid", 3, mid}, {"j_instr", 3, inStr}, {"j_instr", 4, inStr}, {"j_like", 2, like},
    {"j_amp", -1, joinTexts, true}, {"j_asc", 1, characterCode}, {"j_chr", 1, character}, {"j_space", 1, blanks},
    {"j_strconv", 2, convertCase}, {"j_fit", 4, fit},
};

}

void registerTextFunctions(sqlite3 *connection)
{
    registerTable(connection, functions, std::size(functions));
}

}
