#include "app/caddyscreen.h"
#include "frame/frmCaddyPicture.h"
#include "frame/frmLater.h"
#include "frame/menus.h"
#include "session/sections.h"
#include "frame/startup.h"
#include "support/table.h"

#include <QHelpEvent>
#include <QToolTip>

namespace vorel {

using namespace Qt::StringLiterals;
using test::Grid;

// What a section brings with it: its print entries, its guard, its tips.
class SectionTools : public test::CaddyScreen {
protected:
    ~SectionTools() override
    {
        setPrinterProbe({});
        adminPassword() = [] { state().selection.gAdminOk = true; };
    }
    QString details() { return at<QLabel>(u"lblDetails"_s)->text(); }
    void hover(QWidget *over, QEvent::Type type)
    {
        QEvent leave(QEvent::Leave);
        QEnterEvent enter(QPointF(3, 3), QPointF(3, 3), QPointF(3, 3));
        QCoreApplication::sendEvent(over, type == QEvent::Enter ? static_cast<QEvent *>(&enter) : &leave);
    }
    static QString tipAt(QWidget *over, QPoint where)
    {
        QToolTip::hideText();
        QHelpEvent help(QEvent::ToolTip, where, over->mapToGlobal(where));
        QCoreApplication::sendEvent(over, &help);
        const QString shown = QToolTip::text();
        QToolTip::hideText();
        return shown;
    }
};

TEST_F(SectionTools, EachSectionAllowsItsOwnPrinting)
{
    for (const bool printer : {true, false}) {
        setPrinterProbe([printer] { return printer; });
        start();
        test::forEachRow("sections", "printing", [&](const test::Row &row) {
            const QString name = row["name"];
            const QStringList entries = row["entries"].split(u' ', Qt::SkipEmptyParts);
            screen().DisplayCategory(name);
            QStringList enabled;
            for (const MenuEntry &entry : menuTable())
                if (entry.call == MenuCall::Print && menu(entry.objectName)->isEnabled())
                    enabled << entry.objectName;
            EXPECT_EQ(enabled, printer ? entries : QStringList()) << qPrintable(name);
            EXPECT_EQ(menu(u"mnuPrint"_s)->isEnabled(), printer);
            EXPECT_EQ(c().toolbarKeys.at(u"PRINT CURRENT CATEGORY"_s)->isEnabled(), printer && !entries.isEmpty())
                << qPrintable(name);
            EXPECT_EQ(menu(u"mnuMessages"_s)->isVisible(), name == u"Messages"_s);
            EXPECT_FALSE(menu(u"mnuTasksToOutlook"_s)->isVisible());
        });
    }
}

TEST_F(SectionTools, GuardedSectionsStayClosedWithoutThePassword)
{
    startOn(u"Bills"_s);
    int asked = 0;
    bool right = false;
    adminPassword() = [&] {
        ++asked;
        state().selection.gAdminOk = right;
    };
    for (const int index : {4, 17}) {
        auto *button = at<QAbstractButton>(u"cmdCat(%1)"_s.arg(index));
        button->setEnabled(true);
        right = false;
        button->click();
        EXPECT_EQ(state().selection.gSection, u"B"_s);
        for (const SectionDesign *section : categoryButtons())
            EXPECT_FALSE(at<QAbstractButton>(u"cmdCat(%1)"_s.arg(section->button->index))->isChecked());
        right = true;
        button->click();
        EXPECT_EQ(state().selection.gSection, index == 4 ? u"W"_s : u"J"_s);
        EXPECT_FALSE(state().selection.gAdminOk);     // good for this once
        screen().DisplayCategory(u"Bills"_s);
    }
    EXPECT_EQ(asked, 4);
    EXPECT_TRUE(m_prompts.shown().empty());
}

TEST_F(SectionTools, AccountsGiveWayToTheSectionBefore)
{
    startOn(u"Inventory"_s);
    for (const QString &name : {u"Expenses"_s, u"Income"_s}) {
        m_prompts.expect(name);
        screen().DisplayCategory(name);
        EXPECT_EQ(state().selection.gSection, u"I"_s);
        EXPECT_EQ(state().selection.gLastCategory, u"Inventory"_s);
        for (const QString &shown : {u"SUBJECTGRID"_s, u"panSearch"_s, u"panNew"_s, u"panEditS"_s, u"cmdCat(12)"_s})
            EXPECT_TRUE(isShown(shown)) << qPrintable(shown);
        EXPECT_TRUE(at<QAbstractButton>(u"cmdCat(12)"_s)->isChecked());
    }
    EXPECT_TRUE(m_prompts.isDone());
}

TEST_F(SectionTools, TipsOfButtonsGiveWayToTheRow)
{
    execute(u"INSERT INTO [Inventory] ([Item]) VALUES ('Axe')"_s);
    startOn(u"Inventory"_s);
    const QString row = details();
    EXPECT_TRUE(row.contains(u"Axe"_s));
    const std::pair<QString, QString> cases[] = {
        {u"cmdEmail"_s, u" Click to launch your email client software."_s},
        {u"cmdCalculator"_s, u" Standard calculation with provision for your favourite picture."_s},
        {u"cmdBackground"_s, u"SCREEN BACKGROUND PICTURES"_s},
        {u"cmdCat(0)"_s, u" Record all of your engagements, meetings, or appointments in this section."_s},
    };
    for (const auto &[name, line] : cases) {
        hover(at(name), QEvent::Enter);
        EXPECT_TRUE(details().contains(line)) << qPrintable(name);
        EXPECT_FALSE(details().contains(u"Axe"_s));
        hover(at(name), QEvent::Leave);
        EXPECT_EQ(details(), row);
    }
    state().settings.gTips = false;
    hover(at(u"cmdEmail"_s), QEvent::Enter);
    EXPECT_EQ(details(), row);
}

TEST_F(SectionTools, RowsAndHeadsTellAboutThemselves)
{
    execute(u"INSERT INTO [Inventory] ([Item],[Make]) VALUES ('Axe','Stone & Son')"_s);
    execute(u"INSERT INTO [EVENTS] ([DATE],[SUBJECT],[EVENT]) VALUES (#11/22/2026#,'GENERAL','Fair')"_s);
    startOn(u"Inventory"_s);
    Grid *subjects = at<Grid>(u"SUBJECTGRID"_s);
    const auto cell = [](Grid *grid) { return grid->visualRect(grid->model()->index(0, 1)).center(); };
    state().settings.gTips = false;
    EXPECT_EQ(tipAt(subjects->viewport(), cell(subjects)), QString());
    state().settings.gTips = true;
    EXPECT_EQ(tipAt(subjects->viewport(), cell(subjects)), u" ITEM: Axe\n MAKE: Stone & Son"_s);
    screen().DisplayCategory(u"Events"_s);
    Grid *days = at<Grid>(u"EVENTSGRID"_s);
    EXPECT_TRUE(tipAt(days->viewport(), cell(days)).endsWith(u"\n SUBJECT: GENERAL\n EVENT: Fair"_s));
    QWidget *head = days->horizontalHeader()->viewport();
    const auto over = [&](int column) { return QPoint(days->columnViewportPosition(column) + 10, head->height() - 6); };
    EXPECT_EQ(tipAt(head, over(dateColumn)), u" Click the DATE Heading to display the Events in either Day or Date Order "_s);
    EXPECT_EQ(tipAt(head, over(4)), u" Double Click Here for All Display "_s);
}

}
