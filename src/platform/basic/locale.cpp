#include "platform/basic/locale.h"

#include <algorithm>

namespace vorel::basic {

using namespace Qt::StringLiterals;

namespace {

// "de_DE.UTF-8@euro" is "de_DE"; the portable names mean the United States.
QString plainName(QString name)
{
    name.truncate(std::min(name.indexOf(u'.') < 0 ? name.size() : name.indexOf(u'.'),
                           name.indexOf(u'@') < 0 ? name.size() : name.indexOf(u'@')));
    name.replace(u'-', u'_');
    // An unknown name means the United States as well.
    if (name.isEmpty() || name == "C"_L1 || name == "POSIX"_L1 || QLocale(name).language() == QLocale::C)
        return u"en_US"_s;
    return name;
}

// Day, month and year as numbers with the locale's marks between; words and direction marks are left out, so that
// what is written can be read again. The year always has four digits.
QString shortPattern(const QString &qtPattern)
{
    QString pattern;
    QString marks;
    for (qsizetype i = 0; i < qtPattern.size();) {
        const QChar c = qtPattern[i];
        if (c == u'\'') {
            const qsizetype end = qtPattern.indexOf(u'\'', i + 1);
            i = end < 0 ? qtPattern.size() : end + 1;
            continue;
        }
        qsizetype run = 1;
        while (i + run < qtPattern.size() && qtPattern[i + run] == c)
            ++run;
        if (c == u'd' || c == u'M' || c == u'y') {
            if (!pattern.isEmpty())
                pattern += marks.isEmpty() ? u"/"_s : marks;
            marks.clear();
            pattern += c == u'y' ? u"yyyy"_s : QString(std::min<qsizetype>(run, 2), c.toLower());
        } else if (QStringView(u"/-. ").contains(c)) {
            marks += QString(run, c);
        }
        i += run;
    }
    return pattern;
}

QString longPattern(const QString &qtPattern)
{
    QString pattern;
    for (qsizetype i = 0; i < qtPattern.size(); ++i) {
        const QChar c = qtPattern[i];
        if (c == u'\'')
            pattern += u'"';
        else if (c == u'd' || c == u'M' || c == u'y')
            pattern += c.toLower();
        else if (c.isLetter())
            pattern += u"\\"_s + c;
        else
            pattern += c;
    }
    return pattern;
}

void setDates(Regional &settings, const QString &name)
{
    if (name == "en_US"_L1)
        return;
    const QLocale locale(name);
    // The desktop's own form there, with the month padded.
    settings.shortDate = name == "en_AU"_L1 ? u"d/mm/yyyy"_s : shortPattern(locale.dateFormat(QLocale::ShortFormat));
    if (settings.shortDate.isEmpty())
        settings.shortDate = u"yyyy-mm-dd"_s;
    settings.longDate = longPattern(locale.dateFormat(QLocale::LongFormat));
    const QString time = locale.timeFormat(QLocale::ShortFormat);
    if (!time.contains(u'a', Qt::CaseInsensitive))
        settings.longTime = time.startsWith("HH"_L1, Qt::CaseInsensitive) ? u"hh:nn:ss"_s : u"h:nn:ss"_s;
    switch (settings.shortDate.at(0).unicode()) {
    case u'd':
        settings.order = DateOrder::DayFirst;
        break;
    case u'y':
        settings.order = DateOrder::YearFirst;
        break;
    default:
        break;
    }
}

void setNumbers(Regional &settings, const QString &name)
{
    const QLocale locale(name);
    const QString point = locale.decimalPoint();
    const QString group = locale.groupSeparator();
    if (!point.isEmpty())
        settings.decimalPoint = point.at(0);
    if (!group.isEmpty())
        settings.thousands = group.at(0);
}

void setMoney(Regional &settings, const QString &name)
{
    const QLocale locale(name);
    settings.currencySymbol = locale.currencySymbol();
    settings.currencyNegativeInBrackets = name == "en_US"_L1;
    settings.currencyAfter = !locale.toCurrencyString(1).startsWith(settings.currencySymbol);
}

// Letter paper is used in North America and in a few countries near it.
bool usesLetter(const QString &name)
{
    static constexpr const char16_t *territories[] = {u"_US", u"_CA", u"_MX", u"_CL", u"_CO", u"_VE", u"_CR",
                                                      u"_GT", u"_NI", u"_PA", u"_PR", u"_SV", u"_PH"};
    return std::any_of(std::begin(territories), std::end(territories),
                       [&name](const char16_t *territory) { return name.endsWith(QStringView(territory)); });
}

Regional assemble(const QString &time, const QString &numeric, const QString &monetary, const QString &paper)
{
    Regional settings;
    settings.language = time;
    setDates(settings, time);
    setNumbers(settings, numeric);
    setMoney(settings, monetary);
    settings.metricPaper = !usesLetter(paper);
    return settings;
}

QString fromEnvironment(const char *category)
{
    for (const char *variable : {"LC_ALL", category, "LANG"}) {
        const QString name = qEnvironmentVariable(variable);
        if (!name.isEmpty())
            return plainName(name);
    }
    return plainName({});
}

Regional &current()
{
    static Regional settings = assemble(fromEnvironment("LC_TIME"), fromEnvironment("LC_NUMERIC"),
                                        fromEnvironment("LC_MONETARY"), fromEnvironment("LC_PAPER"));
    return settings;
}

}

const Regional &regional()
{
    return current();
}

Regional regionalFor(const QString &name)
{
    const QString plain = plainName(name);
    return assemble(plain, plain, plain, plain);
}

void setRegional(const Regional &settings)
{
    current() = settings;
}

}
