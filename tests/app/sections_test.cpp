#include "app/caddyscreen.h"
#include "frame/frmCaddyIcons.h"
#include "frame/frmCaddyScreens.h"
#include "session/recorddesign.h"
#include "session/sections.h"
#include "store/designs.h"

#include <QStandardPaths>

namespace vorel {

using namespace Qt::StringLiterals;
using test::Grid;

class Sections : public test::CaddyScreen {
protected:
    QString gridsShown()
    {
        QString shown;
        for (const QString &name : {u"APPOINTMENTSGRID"_s, u"BILLSGRID"_s, u"EVENTSGRID"_s, u"SUBJECTGRID"_s})
            if (isShown(name))
                shown += name.front();
        return shown;
    }
    QList<int> pressed()
    {
        QList<int> indexes;
        for (int i = 0; i < 25; ++i)
            if (at<QAbstractButton>(u"cmdCat(%1)"_s.arg(i))->isChecked())
                indexes << i;
        return indexes;
    }
};

TEST_F(Sections, EachNameShowsItsGridsAndMarksItsButton)
{
    start();
    const struct { QString name, code, grids; QList<int> button; } cases[] = {
        {u"Appointments"_s, u"A"_s, u"A"_s, {0}}, {u"Bills"_s, u"B"_s, u"B"_s, {1}}, {u"Events"_s, u"E"_s, u"E"_s, {2}},
        {u"All"_s, u"All"_s, u"ABE"_s, {3}}, {u"AB"_s, u"AB"_s, u"AB"_s, {}}, {u"AE"_s, u"AE"_s, u"AE"_s, {}},
        {u"BE"_s, u"BE"_s, u"BE"_s, {}}, {u"Books"_s, u"K"_s, u"S"_s, {9}}, {u"Inventory"_s, u"I"_s, u"S"_s, {12}},
        {u"Messages"_s, u"M"_s, u"S"_s, {13}}, {u"Business"_s, u"D"_s, u"S"_s, {}}, {u"To Do"_s, u"G"_s, u"S"_s, {18}},
    };
    for (const auto &one : cases) {
        screen().DisplayCategory(one.name);
        EXPECT_EQ(state().selection.gSection, one.code);
        EXPECT_EQ(gridsShown(), one.grids) << qPrintable(one.name);
        EXPECT_EQ(pressed(), one.button) << qPrintable(one.name);
        QString edits;
        for (const QChar letter : u"ABES"_s)
            if (isShown(u"panEdit"_s + letter))
                edits += letter;
        EXPECT_EQ(edits, one.grids) << qPrintable(one.name);
        EXPECT_EQ(menu(u"mnuDisplayPeriod"_s)->isEnabled(), one.grids != u"S"_s) << qPrintable(one.name);
        EXPECT_FALSE(menu(u"mnuPrint"_s)->isEnabled());       // no printer here
    }
    EXPECT_TRUE(m_prompts.shown().empty());
}

TEST_F(Sections, EveryButtonOpensOrSaysLater)
{
    start();
    for (const SectionDesign *section : categoryButtons()) {
        const int index = section->button->index;
        auto *button = at<QAbstractButton>(u"cmdCat(%1)"_s.arg(index));
        EXPECT_TRUE(button->isEnabled()) << index;
        const bool later = index >= 23;
        const QString before = state().selection.gLastCategory;
        if (later)
            m_prompts.expect(section->name, basic::Answer::Ok);
        button->click();
        EXPECT_EQ(state().selection.gLastCategory, later ? before : section->name);
        EXPECT_EQ(sectionByCode(state().selection.gSection)->name, state().selection.gLastCategory);
        EXPECT_TRUE(m_prompts.isDone());
    }
}

TEST_F(Sections, EveryControlAndIconThatADesignNamesIsThere)
{
    // The platform of the tests looks for no icons of the desktop.
    QIcon::setThemeSearchPaths(QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, u"icons"_s, QStandardPaths::LocateDirectory));
    applyIconTheme();
    start();
    QStringList screens;
    for (const RecordScreen &screen : recordScreens())
        screens << screen.name;
    const auto exists = [this](const QString &name) {
        return screen().findChild<QObject *>(name) || c().actions.contains(name) || c().menus.contains(name);
    };
    for (const SectionDesign &section : sectionDesigns()) {
        QStringList names = section.feature ? section.feature->controls : QStringList();
        if (section.print)
            names << section.print->menu;
        for (const QString &name : names)
            EXPECT_TRUE(exists(name)) << qPrintable(section.name + u' ' + name);
        EXPECT_TRUE(!section.button || !caddyIcon(section.button->icon).isNull()) << qPrintable(section.name);
        EXPECT_TRUE(!section.screen || !section.screen->record || screens.contains(section.screen->name)) << qPrintable(section.name);
    }
}

TEST_F(Sections, MainFileSectionsShowTheirRows)
{
    execute(u"INSERT INTO [Inventory] ([Item],[SerialNum],[Location]) VALUES ('Saw','7','Shed')"_s);
    execute(u"INSERT INTO [Inventory] ([Item],[SerialNum],[Location]) VALUES ('Axe','8','Shed')"_s);
    execute(u"INSERT INTO [TODO] ([TODO],[PRIORITY],[ACTIONED]) VALUES ('Paint','2 - Low',False)"_s);
    start();
    click(u"cmdCat(12)"_s);
    EXPECT_EQ(column(u"SUBJECTGRID"_s, 1), (QStringList{u"Axe"_s, u"Saw"_s}));
    EXPECT_EQ(at<Grid>(u"SUBJECTGRID"_s)->title(), u"INVENTORY"_s);
    EXPECT_EQ(at<Grid>(u"SUBJECTGRID"_s)->columns()[2].caption, u"SERIAL #"_s);
    click(u"cmdCat(18)"_s);
    EXPECT_EQ(column(u"SUBJECTGRID"_s, 1), QStringList{u"Paint"_s});
    screen().DisplayCategory(u"Messages"_s);
    EXPECT_EQ(at<Grid>(u"SUBJECTGRID"_s)->title(), u"MESSAGES for User"_s);
}

TEST_F(Sections, FileThatHasGoneLeavesTheSectionEmpty)
{
    start();
    const std::pair<QString, DataFile> cases[] = {{u"Books"_s, DataFile::Books}, {u"Journal"_s, DataFile::DataJ}};
    for (const auto &[name, file] : cases) {
        ASSERT_TRUE(QFile::remove(state().path(file)));
        if (file == DataFile::Books)        // a journal may be missing
            m_prompts.expect({}, basic::Answer::Ok);
        screen().DisplayCategory(name);
        EXPECT_TRUE(m_prompts.isDone()) << qPrintable(name);
        EXPECT_EQ(state().selection.gLastCategory, name);
        EXPECT_EQ(at<Grid>(u"SUBJECTGRID"_s)->rows(), 0);
        EXPECT_EQ(at<Grid>(u"SUBJECTGRID"_s)->title(), name.toUpper());
    }
    screen().GetData();                     // nor is it one when the rows are read again
}

TEST_F(Sections, PasswordsFallBackToTheMainFile)
{
    start();
    const QString own = state().path(DataFile::DataP);
    dao::Database keys = dao::DBEngine::OpenDatabase(own, false, false, u";pwd=KARVELOT"_s);
    keys.Execute(u"DELETE FROM [PASSWORDS]"_s);
    keys.Execute(u"INSERT INTO [PASSWORDS] ([ORGANISATION]) VALUES ('Bank')"_s);
    keys.Close();
    click(u"cmdCat(4)"_s);
    EXPECT_EQ(column(u"SUBJECTGRID"_s, 1), QStringList{u"Bank"_s});
    screen().DisplayCategory(u"All"_s);
    ASSERT_TRUE(QFile::remove(own));
    dao::Database shared = dao::DBEngine::OpenDatabase(state().path(DataFile::Main));
    shared.AppendTable(store::passwordsDesigns().front());
    shared.Execute(u"INSERT INTO [PASSWORDS] ([ORGANISATION]) VALUES ('Post')"_s);
    shared.Close();
    click(u"cmdCat(4)"_s);
    EXPECT_EQ(column(u"SUBJECTGRID"_s, 1), QStringList{u"Post"_s});
}

TEST_F(Sections, ReturnKeepsTheRecordLastWorkedOn)
{
    for (const QString &item : {u"Axe"_s, u"Saw"_s, u"Vice"_s})
        execute(u"INSERT INTO [Inventory] ([Item]) VALUES ('%1')"_s.arg(item));
    startOn(u"Inventory"_s);
    c().subjects().lastId = 2;
    screen().GetData();
    EXPECT_EQ(at<Grid>(u"SUBJECTGRID"_s)->CellText(1), u"Saw"_s);
    c().subjects().lastId = 99;
    screen().GetData();
    EXPECT_EQ(at<Grid>(u"SUBJECTGRID"_s)->rows(), 3);
}

TEST_F(Sections, DoubleClickInTheHeadTurnsTheSection)
{
    start();
    const struct { QString grid, from, to; } cases[] = {
        {u"APPOINTMENTSGRID"_s, u"Appointments"_s, u"All"_s}, {u"BILLSGRID"_s, u"BE"_s, u"B"_s},
        {u"EVENTSGRID"_s, u"AE"_s, u"E"_s}, {u"EVENTSGRID"_s, u"Events"_s, u"All"_s}};
    for (const auto &one : cases) {
        screen().DisplayCategory(one.from);
        emit at<Grid>(one.grid)->DblClick(275);      // the line itself belongs to the heads
        EXPECT_EQ(state().selection.gSection, one.to) << qPrintable(one.grid + one.from);
    }
}

TEST_F(Sections, RowsOfTodayAndBirthdaysStandOut)
{
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME],[APPOINTMENT],[TimeUpdate]) VALUES (#11/22/2026#,'All Day','now',True)"_s);
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME],[APPOINTMENT],[TimeUpdate]) VALUES (#11/23/2026#,'All Day','then',True)"_s);
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPTIME],[APPOINTMENT],[TimeUpdate]) VALUES (#11/25/2026#,'All Day','last',True)"_s);
    for (const QString &row : {u"#11/23/1960#,'BIRTHDAY','Bob'"_s, u"#11/24/2026#,'GENERAL','Fair'"_s, u"#11/26/2026#,'GENERAL','Show'"_s})
        execute(u"INSERT INTO [EVENTS] ([DATE],[SUBJECT],[EVENT]) VALUES (%1)"_s.arg(row));
    start();
    click(u"THIS WEEK"_s);
    const QString apps = u"APPOINTMENTSGRID"_s, days = u"EVENTSGRID"_s;
    const auto ground = [this](const QString &name, int row) {
        Grid *grid = at<Grid>(name);
        const QRect cell = grid->visualRect(grid->model()->index(row, dayColumn));
        return grid->viewport()->grab(cell).toImage().pixelColor(2, 2);
    };
    select(apps, 2);
    select(days, 2);
    EXPECT_EQ(ground(apps, 0), at<Grid>(apps)->styleSet(u"TODAY"_s).back);
    EXPECT_NE(ground(apps, 1), at<Grid>(apps)->styleSet(u"TODAY"_s).back);
    EXPECT_EQ(ground(days, 0), at<Grid>(days)->styleSet(u"GREEN"_s).back);
    EXPECT_NE(ground(days, 1), at<Grid>(days)->styleSet(u"GREEN"_s).back);
    EXPECT_EQ(column(apps, dayColumn), (QStringList{u"Sun"_s, u"Mon"_s, u"Wed"_s}));
    // A birthday's week day is that of the year on show, of all records that of this year.
    click(u"LAST YEAR"_s);
    EXPECT_EQ(column(days, dayColumn), QStringList(u"Sun"_s));
    click(u"ALL RECORDS"_s);
    EXPECT_EQ(column(days, dayColumn), (QStringList{u"Mon"_s, u"Tue"_s, u"Thu"_s}));
}

}
