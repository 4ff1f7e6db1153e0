#include "app/caddyscreen.h"
#include "contacts/frmContacts.h"
#include "records/frmInventory.h"

#include <QHelpEvent>

namespace vorel {

using namespace Qt::StringLiterals;
using basic::Answer;
using test::Grid;

class Routes : public test::CaddyScreen {
protected:
    // Points into a head of a grid.
    QPoint head(const Grid *grid, int column) const
    {
        const QHeaderView *heads = grid->horizontalHeader();
        return {heads->sectionViewportPosition(column) + 12, heads->viewport()->height() - 5};
    }
    void clickHead(const QString &name, int column)
    {
        const Grid *grid = at<Grid>(name);
        QTest::mouseClick(grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, head(grid, column));
    }
};

TEST_F(Routes, EditEndsWithRowsSearchAndTimersInOrder)
{
    for (const auto &item : {u"Camera"_s, u"Desk"_s, u"Lamp"_s})
        execute(u"INSERT INTO [INVENTORY] ([ITEM]) VALUES ('%1')"_s.arg(item));
    startOn(u"Inventory"_s);
    at<QLineEdit>(u"txtSearch"_s)->setText(u"desk"_s);
    EXPECT_EQ(1, at<Grid>(u"SUBJECTGRID"_s)->currentRow());
    test::inModal<frmInventory>([this] { QTest::keyClick(at(u"txtSearch"_s), Qt::Key_Return); }, [this](frmInventory &item) {
        EXPECT_FALSE(c().Timer2->isActive() || c().TimerMessages->isActive());
        EXPECT_EQ(test::control<QComboBox>(item, u"cboItem"_s)->currentText(), u"Desk"_s);
        QTest::keyClicks(test::control<QLineEdit>(item, u"txtLocation"_s), u"attic"_s);        // written on the way out
    });
    EXPECT_EQ(QString(), text(u"txtSearch"_s));
    EXPECT_EQ(u"attic"_s, at<Grid>(u"SUBJECTGRID"_s)->CellText(3)) << "the rows are new and the cursor on its row";
    EXPECT_TRUE(c().Timer2->isActive() && c().TimerMessages->isActive());
}

TEST_F(Routes, EveryListOfContactsOpensTheContactsScreenOnItsRow)
{
    startOn(u"Contacts"_s);
    {
        dao::Database file = dao::DBEngine::OpenDatabase(state().path(DataFile::Contacts));
        file.Execute(u"DELETE * FROM [CONTACTS]"_s);
        for (const auto &[name, isPrivate] : {std::pair{u"Ash"_s, u"True"_s}, {u"Mill"_s, u"False"_s}, {u"Zoe"_s, u"True"_s}})
            file.Execute(u"INSERT INTO [CONTACTS] (SORTNAME,LASTNAME,FULLNAME,COMPANYNAME,CATEGORY,[PRIVATE],EMERGENCY,CHRISTMASCARD,INVISIBLE) "
                         "VALUES('%1','%1','%1','%1','Work',%2,True,True,False)"_s.arg(name, isPrivate));
    }
    for (const auto &[section, row, name] : {std::tuple{u"Contacts"_s, 1, u"Mill"_s}, {u"Private"_s, 1, u"Zoe"_s}, {u"Business"_s, 0, u"Mill"_s},
                                             {u"Emergency"_s, 2, u"Zoe"_s}, {u"Christmas Cards"_s, 0, u"Ash"_s}}) {
        screen().DisplayCategory(section);
        select(u"SUBJECTGRID"_s, row);
        test::inModal<frmContacts>([this] { click(u"panEditS"_s); }, [&, name = name, section = section](frmContacts &contacts) {
            EXPECT_EQ(test::control<QLabel>(contacts, u"lblSortname"_s)->text(), name) << qPrintable(section);
        });
    }
    m_prompts.expect(u"Create a New Blank Record?"_s, Answer::Yes);
    test::inModal<frmContacts>([this] { click(u"panNew"_s); }, [](frmContacts &contacts) {
        EXPECT_EQ(test::control<QLabel>(contacts, u"lblSortname"_s)->text(), QString());
        EXPECT_EQ(contacts.dtaData().Recordset().rowTotal(), 4);
    });
}

TEST_F(Routes, DoubleClickTurnsTheSectionInTheHeadsAndOpensTheRowBelow)
{
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME],[APPOINTMENT],[TimeUpdate]) VALUES (#11/22/2026#,'All Day','one',True)"_s);
    startOn(u"All"_s);
    Grid *grid = at<Grid>(u"APPOINTMENTSGRID"_s);
    QWidget *heads = grid->horizontalHeader()->viewport();
    const auto tip = [&](int column) {
        QHelpEvent event(QEvent::ToolTip, head(grid, column), heads->mapToGlobal(head(grid, column)));
        QCoreApplication::sendEvent(heads, &event);
        return QToolTip::text();
    };
    EXPECT_EQ(u" Double Click Here for Full Display "_s, tip(4));
    QTest::mouseDClick(heads, Qt::LeftButton, {}, head(grid, 4));
    EXPECT_EQ(u"A"_s, state().selection.gSection);
    EXPECT_EQ(u" Double Click Here for All Display "_s, tip(4));
    emit grid->DblClick(275);                               // the line itself belongs to the heads
    EXPECT_EQ(u"All"_s, state().selection.gSection);
    inRecord([&] { QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(grid->model()->index(0, 4)).center()); },
             [](frmRecord &record) { EXPECT_EQ(u"one"_s, record.findChild<QLineEdit *>(u"txtAppointment"_s)->text()); });
    inRecord([&] { QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(grid->model()->index(1, 4)).center()); },
             [](frmRecord &record) { EXPECT_EQ(QString(), record.findChild<QLineEdit *>(u"txtAppointment"_s)->text()); });
}

TEST_F(Routes, HeadsSortAndEventsTurnBetweenTheirTwoOrders)
{
    for (const auto &row : {u"#11/24/2026#,'B','x'"_s, u"#11/23/2026#,'C','y'"_s, u"#11/23/2027#,'A','z'"_s})
        execute(u"INSERT INTO [EVENTS] ([DATE],[SUBJECT],[EVENT]) VALUES (%1)"_s.arg(row));
    startOn(u"Events"_s);
    click(u"ALL RECORDS"_s);
    const QString grid = u"EVENTSGRID"_s;
    const auto subjects = [&] { return column(grid, 3).join(QString()); };
    EXPECT_EQ(u"CBA"_s, subjects());
    clickHead(grid, 3);
    EXPECT_EQ(u"ABC"_s, subjects());
    clickHead(grid, 3);
    EXPECT_EQ(u"CBA"_s, subjects());
    clickHead(grid, 1);
    EXPECT_TRUE(state().period.gSqlEvents.endsWith(u" BY DAY([DATE]),MONTH([DATE])"_s));
    EXPECT_EQ(u"B"_s, subjects().right(1)) << "the 23rd of any year before the 24th";
    clickHead(grid, 1);
    EXPECT_TRUE(state().period.gSqlEvents.endsWith(u" BY [DATE],[SUBJECT],[EVENT]"_s));
    EXPECT_EQ(u"CBA"_s, subjects());
    select(grid, 0);
    at<Grid>(grid)->setCurrentIndex(at<Grid>(grid)->model()->index(0, 4));
    QTest::keyClick(at(grid), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ((QStringList{u"x"_s, u"y"_s, u"z"_s}), events()) << "by the keyboard";
    screen().GetData();
    EXPECT_EQ(u"CBA"_s, subjects()) << "the period's own order comes back";
}

}
