#pragma once

#include "platform/basic/error.h"
#include "support/table.h"

// Tests as steps in a table: a verb with what it acts on, and the answer: what it shows, "!" and the number of an error, or nothing.
namespace vorel::test {

using Verbs = QHash<QString, std::function<QString(const QString &)>>;

inline QString answerOf(const std::function<QString()> &step)
{
    QString answer;
    const int error = basic::IgnoreErrors([&] { answer = step(); });
    return error ? u'!' + QString::number(error) : answer;
}

inline QString word(const QString &text, int index) { return text.section(u' ', index, index); }
inline QString yes(bool is) { return is ? QStringLiteral("yes") : QStringLiteral("no"); }

#ifdef VOREL_TEST_DATA
inline void play(const char *file, const char *table, const Verbs &verbs)
{
    forEachRow(file, table, [&](const Row &row) {
        const QString step = row["step"];
        const auto verb = verbs.value(word(step, 0));
        ASSERT_TRUE(verb) << "no such verb";
        EXPECT_EQ(answerOf([&] { return verb(step.section(u' ', 1)); }).toStdString(), row.text("answer"));
    });
}
#endif

}
