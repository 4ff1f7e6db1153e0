#include "reminders/recordscreen.h"

namespace vorel {

using namespace Qt::StringLiterals;
using basic::Answer;

class RecordModes : public test::RecordScreen {};

TEST_F(RecordModes, EachSectionShowsItsControls)
{
    static const QStringList onlyA{u"cboTime"_s, u"txtAppointment"_s, u"chkMet"_s};
    static const QStringList onlyB{u"txtBill"_s, u"txtAmount"_s, u"chkPaid"_s, u"txtPaymentDate"_s, u"txtBillingDate"_s,
                                   u"chkFixedAmount"_s, u"txtWebsite"_s, u"cmdWebsite"_s};
    static const QStringList onlyE{u"txtEvent"_s, u"cboSubject"_s, u"txtDateTo"_s, u"chkRecurring"_s, u"lblFilename"_s,
                                   u"rtbFullDetails"_s, u"panFullDetails"_s, u"lblCategory"_s};
    static const QStringList all{u"txtDate"_s, u"lblDay"_s, u"chkDelete"_s, u"cmdNew"_s, u"cmdReplicate"_s, u"cmdUpdate"_s,
                                 u"cmdDelete"_s, u"cmdCalc"_s, u"cmdClose"_s, u"picImage"_s};
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPOINTMENT],[PeriodDays]) VALUES (#11/22/2026#,'x',7)"_s);
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[PeriodDays]) VALUES (#11/22/2026#,'x',7)"_s);
    execute(u"INSERT INTO [EVENTS] ([DATE],[EVENT],[SUBJECT]) VALUES (#11/22/2026#,'x','GENERAL')"_s);
    for (const QString &code : {u"A"_s, u"B"_s, u"E"_s}) {
        openScreen(code, 1);
        const auto check = [&](const QStringList &names, bool shown) {
            for (const QString &name : names)
                EXPECT_EQ(isShown(name), shown) << qPrintable(code + u' ' + name);
        };
        check(all, true);
        check(onlyA, code == u"A");
        check(onlyB, code == u"B");
        check(onlyE, code == u"E");
        check({u"fraBill"_s, u"txtPeriodDays"_s, u"txtPeriodMonth"_s, u"cboDay"_s, u"cboWeekDay"_s, u"cmdSchedule"_s}, code != u"E");
        check({u"lblID1"_s, u"lblID2"_s, u"lblEmailID"_s, u"lblContactID"_s}, false);
        check({u"chkEmail"_s, u"chkCard"_s, u"txtEmail"_s}, false);
        EXPECT_EQ(text(u"lblID2"_s), u"1"_s);
        EXPECT_EQ(form->outcome().lastId, 1);
        EXPECT_GE(at(u"lblDay"_s)->width(), at(u"lblDay"_s)->fontMetrics().horizontalAdvance(u"Sun"_s)) << "room for the week day";
        EXPECT_FALSE(at<QLabel>(u"picImage"_s)->pixmap().isNull());
        if (code != u"E") {
            EXPECT_EQ(at(u"fraBill"_s)->property("title").toString(), code == u"A" ? u" Frequency "_s : u" Payment Frequency "_s);
        }
        EXPECT_TRUE(at<QPushButton>(u"cmdUpdate"_s)->isDefault());
    }
}

TEST_F(RecordModes, WithoutRowsOnlyNewAndCloseAreOpen)
{
    openScreen(u"B"_s, none);
    for (const QString &name : {u"txtDate"_s, u"txtBill"_s, u"chkPaid"_s, u"cmdUpdate"_s, u"cmdReplicate"_s, u"cmdDelete"_s,
                                u"cmdSchedule"_s, u"cmdWebsite"_s})
        EXPECT_FALSE(at(name)->isEnabled()) << qPrintable(name);
    EXPECT_TRUE(at(u"cmdClose"_s)->isEnabled());
    click(u"cmdNew"_s);
    EXPECT_TRUE(at(u"txtBill"_s)->isEnabled());
    EXPECT_EQ(text(u"txtDate"_s), u"11/22/2026"_s);
    EXPECT_EQ(text(u"lblDay"_s), u"Sun"_s);
    EXPECT_EQ(count(u"BILLS"_s), 1);
}

TEST_F(RecordModes, ReplicateAsksFirst)
{
    execute(u"INSERT INTO [EVENTS] ([DATE],[EVENT],[SUBJECT]) VALUES (#01/02/2026#,'Fair','GENERAL')"_s);
    openScreen(u"E"_s, 1);
    user.expect(u"Create a Duplicate Record?"_s, Answer::No);
    click(u"cmdReplicate"_s);
    EXPECT_EQ(count(u"EVENTS"_s), 1);
    user.expect(u"Create a Duplicate Record?"_s, Answer::Yes);
    click(u"cmdReplicate"_s);
    EXPECT_EQ(text(u"lblID1"_s), u"2"_s);
    EXPECT_EQ(rows(u"SELECT [DATE],[EVENT] FROM [EVENTS] ORDER BY [ID]"_s), (QStringList{u"2026-01-02|Fair"_s, u"2026-11-22|Fair"_s}));
}

TEST_F(RecordModes, InvalidDateBecomesTodayWithAMessage)
{
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPOINTMENT]) VALUES (#01/02/2026#,'x')"_s);
    openScreen(u"A"_s, 1);
    type(u"txtDate"_s, u"12/24/2026"_s);
    leave(u"txtDate"_s);
    EXPECT_EQ(text(u"lblDay"_s), u"Thu"_s);
    for (const QString &bad : {u"31/31/2026"_s, u"soon"_s, u"10:30 PM"_s}) {
        type(u"txtDate"_s, bad);
        user.expect(u"Invalid Date ... defaulting to todays date"_s);
        leave(u"txtDate"_s);
        EXPECT_EQ(text(u"txtDate"_s), u"11/22/2026"_s);
        EXPECT_EQ(text(u"lblDay"_s), u"Sun"_s);
    }
    EXPECT_TRUE(user.isDone());
}

TEST_F(RecordModes, DeleteAfterDateAsks)
{
    state().settings.gDeleteAfterDays = 30;
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPOINTMENT]) VALUES (#01/02/2026#,'x')"_s);
    openScreen(u"A"_s, 1);
    const QString question = u"This Record will be DELETED 30 days after the Display Date!\r\nAre you sure about this option?"_s;
    user.expect(question, Answer::No);
    click(u"chkDelete"_s);
    EXPECT_FALSE(at<QCheckBox>(u"chkDelete"_s)->isChecked());
    user.expect(question, Answer::Yes);
    click(u"chkDelete"_s);
    EXPECT_TRUE(at<QCheckBox>(u"chkDelete"_s)->isChecked());
    click(u"chkDelete"_s);                      // unticking asks nothing
    EXPECT_FALSE(at<QCheckBox>(u"chkDelete"_s)->isChecked());
}

TEST_F(RecordModes, CalcStandsBesideTheBoxInUse)
{
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL]) VALUES (#01/02/2026#,'x')"_s);
    openScreen(u"B"_s, 1);
    const auto top = [&](const QString &name) { return at(name)->mapTo(form.get(), QPoint(0, at(name)->height() / 2)).y(); };
    for (const QString &box : {u"txtBillingDate"_s, u"txtPaymentDate"_s, u"txtDate"_s}) {
        QTest::mouseClick(at(box), Qt::LeftButton);
        QApplication::processEvents();
        EXPECT_TRUE(isShown(u"cmdCalc"_s));
        EXPECT_NEAR(top(u"cmdCalc"_s), top(box), 2) << qPrintable(box);
        EXPECT_GT(at(u"cmdCalc"_s)->mapTo(form.get(), QPoint()).x(), at(box)->mapTo(form.get(), QPoint()).x());
    }
}

TEST_F(RecordModes, TabKeyGoesAsTheScreenReads)
{
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[PeriodDays]) VALUES (#01/02/2026#,'x',7)"_s);
    openScreen(u"B"_s, 1);
    QStringList order;
    QWidget *at = this->at(u"txtDate"_s);
    do {
        if (at->isVisible() && at->isEnabled() && (at->focusPolicy() & Qt::TabFocus) && !at->objectName().isEmpty()
            && !at->objectName().startsWith(u"qt_"))
            order += at->objectName();
        at = at->nextInFocusChain();
    } while (at->objectName() != u"txtDate");
    const QStringList expected{
        u"txtDate"_s, u"cmdCalc"_s, u"txtBill"_s, u"txtAmount"_s, u"chkFixedAmount"_s, u"txtBillingDate"_s, u"txtPaymentDate"_s,
        u"chkPaid"_s, u"txtWebsite"_s, u"cmdWebsite"_s, u"chkDelete"_s, u"optPeriod(0)"_s, u"optPeriod(1)"_s, u"optPeriod(2)"_s,
        u"optPeriod(3)"_s, u"cboDay"_s, u"cboWeekDay"_s, u"optPeriod(4)"_s, u"cboDays"_s, u"txtPeriodMonth"_s, u"txtPeriodDays"_s,
        u"cmdApply"_s, u"cmdCancel"_s, u"cmdNew"_s, u"cmdReplicate"_s, u"cmdDelete"_s, u"cmdSchedule"_s, u"cmdUpdate"_s, u"cmdClose"_s};
    EXPECT_EQ(order, expected) << qPrintable(order.join(u' '));
}

// A letter of Alt leads to one place only.
TEST_F(RecordModes, MnemonicsAreUnique)
{
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[PeriodDays]) VALUES (#01/02/2026#,'x',7)"_s);
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPOINTMENT],[PeriodDays]) VALUES (#01/02/2026#,'x',7)"_s);
    execute(u"INSERT INTO [EVENTS] ([DATE],[EVENT],[SUBJECT],[EMAIL],[EMAILID],[EmailAddress],[Card])"
            " VALUES (#01/02/2026#,'x','BIRTHDAY',-1,4,'a@example.org',-1)"_s);
    for (const QString &code : {u"A"_s, u"B"_s, u"E"_s}) {
        openScreen(code, 1);
        QMap<QString, QStringList> owners;
        const auto note = [&](const QWidget *widget, const QString &caption) {
            if (const QString key = QKeySequence::mnemonic(caption).toString(); widget->isVisible() && !key.isEmpty())
                owners[key] += widget->objectName();
        };
        for (const QLabel *label : form->findChildren<QLabel *>()) {
            if (label->buddy())
                note(label, label->text());
        }
        for (const QAbstractButton *button : form->findChildren<QAbstractButton *>())
            note(button, button->text());
        EXPECT_GT(owners.size(), 8) << qPrintable(code);
        for (auto one = owners.begin(); one != owners.end(); ++one)
            EXPECT_EQ(one->size(), 1) << qPrintable(code + u' ' + one.key() + u": "_s + one->join(u' '));
    }
}

TEST_F(RecordModes, FrequencyPanelFillsThePeriods)
{
    execute(u"INSERT INTO [APPOINTMENTS] ([DATE],[APPOINTMENT],[PeriodMonth]) VALUES (#01/31/2027#,'x',0)"_s);
    openScreen(u"A"_s, 1);
    EXPECT_FALSE(isShown(u"fraBill"_s));
    click(u"cmdSchedule"_s);
    EXPECT_TRUE(isShown(u"fraBill"_s));
    EXPECT_EQ(text(u"lblInitialDate"_s), u"1/31/2027"_s);

    click(u"cmdApply"_s);                       // nothing selected
    EXPECT_EQ(text(u"txtPeriodMonth"_s), u"0"_s);
    click(u"optPeriod(0)"_s);
    EXPECT_EQ(text(u"lblNextDate"_s), u"2/28/2027"_s);
    user.expect(u"Do you want to Commence on 1/31/2027?"_s, Answer::Yes);
    click(u"cmdApply"_s);
    EXPECT_EQ(user.shown().back().title, u"Question?"_s);
    EXPECT_EQ(text(u"txtPeriodMonth"_s), u"1"_s);
    EXPECT_EQ(text(u"txtPeriodDays"_s), u"0"_s);
    EXPECT_EQ(text(u"txtDate"_s), u"1/31/2027"_s);      // the start stays the row's own date

    at<QComboBox>(u"cboDay"_s)->setCurrentText(u"2nd"_s);
    click(u"optPeriod(4)"_s);
    EXPECT_EQ(text(u"cboDay"_s), QString());            // another option blanks the lists
    type(u"cboDays"_s, u"10"_s);
    EXPECT_EQ(text(u"lblNextDate"_s), u"2/10/2027"_s);
    user.expect(u"Do you want to Commence on"_s, Answer::No);
    click(u"cmdApply"_s);
    EXPECT_EQ(text(u"txtPeriodMonth"_s), u"0"_s);
    EXPECT_EQ(text(u"txtPeriodDays"_s), u"10"_s);

    type(u"txtDate"_s, u"2/1/2027"_s);
    click(u"cmdCancel"_s);
    EXPECT_EQ(text(u"txtDate"_s), u"1/31/2027"_s);
    EXPECT_EQ(text(u"lblDay"_s), u"Sun"_s);
    click(u"cmdSchedule"_s);
    EXPECT_FALSE(isShown(u"fraBill"_s));
    EXPECT_FALSE(isShown(u"txtPeriodDays"_s));
}

TEST_F(RecordModes, PanelFollowsTheRow)
{
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[PeriodMonth]) VALUES (#01/01/2026#,'a',2)"_s);
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[PeriodDays]) VALUES (#01/02/2026#,'b',14)"_s);
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[WeekNum],[WeekDay]) VALUES (#01/03/2026#,'c','3rd','Fri')"_s);
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL]) VALUES (#01/04/2026#,'d')"_s);
    openScreen(u"B"_s, 1);
    const int selected[] = {1, 4, 3, -1};
    for (const int wanted : selected) {
        for (int index = 0; index < 5; ++index)
            EXPECT_EQ(at<QRadioButton>(u"optPeriod(%1)"_s.arg(index))->isChecked(), index == wanted) << index << " of " << wanted;
        EXPECT_EQ(isShown(u"fraBill"_s), wanted >= 0);
        EXPECT_EQ(text(u"cboDays"_s), wanted == 4 ? u"14"_s : QString());
        form->dtaData().MoveNext();
    }
}

}
