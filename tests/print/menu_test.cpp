#include "app/caddyscreen.h"
#include "calendar/frmCalendarSmallMonth.h"
#include "contacts/frmContacts.h"
#include "contacts/frmInfoCard.h"
#include "frame/menus.h"
#include "platform/printer/printer.h"
#include "print/printfixture.h"
#include "session/datafiles.h"
#include "support/screens.h"

#include <QListView>

namespace vorel {

using namespace Qt::StringLiterals;

// The main screen's print menu and print key, over the preview without a window.
class PrintMenu : public test::CaddyScreen {
protected:
    PrintMenu()
    {
        printer::setHardware({});
        setPrinterProbe([] { return true; });
        setPreviewMaker([](PrintJob &job) { return std::make_unique<test::FakePreview>(job); });
    }
    ~PrintMenu() override
    {
        setPreviewMaker({});
        setPrinterProbe({});
    }
};

TEST_F(PrintMenu, EntryAndKeyPrintTheSectionOnShow)
{
    execute(u"INSERT INTO [TODO] ([TODO],[ACTIONED]) VALUES ('Paint',False)"_s);
    execute(u"INSERT INTO [BILLS] ([DATE],[BILL],[AMOUNT]) VALUES (#11/22/2026#,'Gas',5)"_s);
    execute(u"INSERT INTO [INVENTORY] ([ITEM]) VALUES ('Saw')"_s);
    execute(u"INSERT INTO [EVENTS] ([DATE],[SUBJECT],[EVENT]) VALUES (#11/24/2026#,'GENERAL','In two days')"_s);
    start();
    QStringList captions;
    test::FakePreview::whileOpen = [&](test::FakePreview &preview) { captions << preview.job.PreviewCaption; };
    menu(u"mnuPrintEvents"_s)->trigger();               // the grid shows this week, and so does the paper
    EXPECT_EQ(captions, QStringList{u"EVENTS - REPORT"_s});
    const struct { QString section, entry, caption; } cases[] = {
        {u"To Do"_s, u"mnuPrintToDo"_s, u"TO DO'S as at 22/11/2026"_s},
        {u"Bills"_s, u"mnuPrintBills"_s, u"BILLS - REPORT"_s},
        {u"Inventory"_s, u"mnuPrintInventory"_s, u"INVENTORY as at 22/11/2026"_s}};
    for (const auto &one : cases) {
        screen().DisplayCategory(one.section);
        captions.clear();
        ASSERT_TRUE(menu(one.entry)->isEnabled()) << qPrintable(one.entry);
        menu(one.entry)->trigger();
        c().toolbarKeys.at(u"PRINT CURRENT CATEGORY"_s)->trigger();
        EXPECT_EQ(captions, (QStringList{one.caption, one.caption}));
    }
    test::FakePreview::whileOpen = {};
}

TEST_F(PrintMenu, FridgeCopyIsTheMonthOnShow)
{
    start();
    QStringList captions;
    test::FakePreview::whileOpen = [&](test::FakePreview &preview) { captions << preview.job.PreviewCaption; };
    menu(u"mnuFridgeCopy"_s)->trigger();
    c().picMonth->showMonth(2028, 2);
    menu(u"mnuFridgeCopy"_s)->trigger();
    test::FakePreview::whileOpen = {};
    EXPECT_EQ(captions, (QStringList{u"Calendar November 2026"_s, u"Calendar February 2028"_s}));
}

TEST_F(PrintMenu, ContactScreensOpen)
{
    start();
    openDataFile(DataFile::Contacts).Execute(u"INSERT INTO [CONTACTS] ([SORTNAME],[LASTNAME],[PRIVATE],[INVISIBLE]) VALUES ('ADAMS','ADAMS',True,False)"_s);
    openDataFile(DataFile::Contacts).Execute(u"INSERT INTO [CONTACTS] ([SORTNAME],[LASTNAME],[PRIVATE],[INVISIBLE]) VALUES ('O`BRIEN','O`BRIEN',True,False)"_s);
    const struct { QString entry, screen, title; } cases[] = {
        {u"mnuPrintLabels"_s, u"frmLabels"_s, u"Label Printing"_s}, {u"mnuPrintEnvelopes"_s, u"frmLabels"_s, u"Envelope Printing"_s},
        {u"mnuPrintAddressBook"_s, u"frmPrintAddressBook"_s, u"Address Book Printing"_s},
        {u"mnuInfoCard"_s, u"frmInfoCard"_s, u" Address and Phone Card"_s}};
    for (const auto &one : cases) {
        test::inModal<controls::Form>([&] { menu(one.entry)->trigger(); }, [&](controls::Form &form) {
            EXPECT_EQ(form.objectName(), one.screen);
            EXPECT_EQ(form.windowTitle(), one.title);
        });
    }
    QString shown;
    test::inModal<frmInfoCard>([&] { menu(u"mnuInfoCard"_s)->trigger(); }, [&](frmInfoCard &form) {
        auto *names = test::control<QListView>(form, u"lstContacts"_s);
        names->setCurrentIndex(names->model()->match(names->model()->index(0, 0), Qt::DisplayRole, u"O`BRIEN"_s).value(0));
        test::inModal<frmContacts>([&] { test::click(form, u"cmdContact"_s); }, [&](frmContacts &contact) {
            shown = contact.dtaData().Recordset().Get(u"SORTNAME").text();
        });
    });
    EXPECT_EQ(shown, u"O`BRIEN"_s);
}

}
