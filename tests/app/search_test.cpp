#include "app/caddyscreen.h"

namespace vorel {

using namespace Qt::StringLiterals;
using test::Grid;

class Search : public test::CaddyScreen {
protected:
    void appointment(const QString &date, const QString &text)
    {
        execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME],[APPOINTMENT],[TimeUpdate]) VALUES (#%1#,'All Day','%2',True)"_s.arg(
            date, QString(text).replace(u'\'', u"''"_s)));
    }
    void look(const QString &text)
    {
        at<QLineEdit>(u"txtSearch"_s)->setFocus();
        at<QLineEdit>(u"txtSearch"_s)->clear();
        if (text.front().unicode() < 128)
            QTest::keyClicks(at(u"txtSearch"_s), text);
        else
            at<QLineEdit>(u"txtSearch"_s)->setText(text);
    }
    QString hit(const QString &grid = u"APPOINTMENTSGRID"_s, int column = 4) { return at<Grid>(grid)->CellText(column); }
};

TEST_F(Search, OneLetterBeginsMoreAreAnywhere)
{
    for (const QString &text : {u"Visit zoo"_s, u"Dentist"_s, u"Zoo tickets"_s, u"Call [home]"_s, u"50% off"_s, u"Ärztin's note"_s})
        appointment(u"11/2%1/2026"_s.arg(static_cast<int>(text.size()) % 7 + 2), text);
    start();
    click(u"ALL RECORDS"_s);
    screen().DisplayCategory(u"Appointments"_s);
    const std::pair<QString, QString> cases[] = {
        {u"z"_s, u"Zoo tickets"_s}, {u"ENTIST"_s, u"Dentist"_s}, {u" d "_s, u"Dentist"_s}, {u"t*k"_s, u"Zoo tickets"_s},
        {u"5#%"_s, u"50% off"_s},   {u"q?z"_s, QString()}, {u"*"_s, QString()}, {u"ärz"_s, u"Ärztin's note"_s}, {u"n's"_s, u"Ärztin's note"_s},      {u"[[]h"_s, u"Call [home]"_s}};
    for (const auto &[typed, found] : cases) {
        select(u"APPOINTMENTSGRID"_s, 0);
        const QString before = hit();
        look(typed);
        EXPECT_EQ(hit(), found.isEmpty() ? before : found) << qPrintable(typed);
    }
    EXPECT_FALSE(isShown(u"lblNotFound"_s));
    look(u"nowhere"_s);
    EXPECT_TRUE(isShown(u"lblNotFound"_s));
    EXPECT_EQ(at<QLineEdit>(u"txtSearch"_s)->placeholderText(), u"Search appointments"_s);
    look(u"[a"_s);                      // half a pattern is not an error
    EXPECT_TRUE(m_prompts.shown().empty());
}

TEST_F(Search, NextGoesOnAndRoundAgain)
{
    for (int day = 22; day < 27; ++day)
        appointment(u"11/%1/2026"_s.arg(day), day % 2 ? u"Walk %1"_s.arg(day) : u"Swim %1"_s.arg(day));
    start();
    click(u"THIS WEEK"_s);
    screen().DisplayCategory(u"All"_s);
    look(u"swim"_s);
    EXPECT_EQ(hit(), u"Swim 22"_s);
    for (const QString &next : {u"Swim 24"_s, u"Swim 26"_s, u"Swim 26"_s, u"Swim 22"_s}) {
        click(u"cmdNext"_s);            // past the last hit it stays, and restarts from the first row
        EXPECT_EQ(hit(), next);
    }
    look(u"walk 25"_s);
    EXPECT_EQ(hit(), u"Walk 25"_s);
    at(u"txtSearch"_s)->setFocus();
    QTest::keyClick(at(u"txtSearch"_s), Qt::Key_Escape);
    EXPECT_EQ(text(u"txtSearch"_s), QString());
    EXPECT_EQ(hit(), u"Walk 25"_s);     // nothing moves
}

TEST_F(Search, TextThatWasMissedIsFoundOnceItIsThere)
{
    appointment(u"11/22/2026"_s, u"Swim"_s);
    startOn(u"Appointments"_s);
    look(u"run"_s);
    appointment(u"11/22/2026"_s, u"A run"_s);
    click(u"TODAY"_s);
    look(u"run"_s);
    EXPECT_EQ(hit(), u"A run"_s);
}

TEST_F(Search, SectionsSearchTheirOwnGrid)
{
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL]) VALUES (#11/22/2026#,'Gas')"_s);
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL]) VALUES (#11/22/2026#,'Water')"_s);
    execute(u"INSERT INTO [Inventory] ([Item]) VALUES ('Axe')"_s);
    execute(u"INSERT INTO [Inventory] ([Item]) VALUES ('Saw')"_s);
    startOn(u"Bills"_s);
    look(u"wat"_s);
    EXPECT_EQ(hit(u"BILLSGRID"_s, 3), u"Water"_s);
    screen().DisplayCategory(u"Inventory"_s);
    EXPECT_EQ(text(u"txtSearch"_s), QString());
    look(u"s"_s);
    EXPECT_EQ(hit(u"SUBJECTGRID"_s, 1), u"Saw"_s);
}

TEST_F(Search, SortWithoutAColumnAsksForOne)
{
    appointment(u"11/22/2026"_s, u"b"_s);
    appointment(u"11/22/2026"_s, u"a"_s);
    startOn(u"Appointments"_s);
    m_prompts.expectInput(u"Enter Sort Column:"_s, {});
    screen().SortData();
    const QStringList before = appointments();
    m_prompts.expectInput(u"Enter Sort Column:"_s, u"[APPOINTMENT]"_s);
    screen().SortData();
    EXPECT_EQ(appointments(), (QStringList{u"a"_s, u"b"_s}));
    m_prompts.expectInput(u"Enter Sort Column:"_s, u"[NO SUCH]"_s);     // leaves the rows as they are
    screen().SortData();
    EXPECT_EQ(appointments().size(), before.size());
    EXPECT_TRUE(m_prompts.isDone());
}

}
