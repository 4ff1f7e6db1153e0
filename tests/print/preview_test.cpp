#include "print/frmPreview.h"

#include "platform/basic/error.h"
#include "print/printfixture.h"
#include "session/ini.h"
#include "support/screens.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSpinBox>

namespace vorel {

using namespace Qt::StringLiterals;

// The real screen over a script of four pages, driven by its controls' names.
class Preview : public test::PrintTest {
protected:
    Preview() { frmPreview::install(); }
    std::unique_ptr<PrintJob> m_job;        // the latest
    QString m_recipient;
    bool m_isMailHidden = false;
    ~Preview() override { frmPreview::setMailer({}); }

    void open(int orientation, const std::function<void(frmPreview &)> &work)
    {
        QStringList lines{u"ORIENTATION = %1"_s.arg(orientation), u"SCALEMODE = 1"_s, u"FONTNAME = \"Arial\""_s, u"FONTSIZE = 10"_s};
        for (int page = 1; page <= 4; ++page)
            lines << u"LPRINT 100,100, \"Page number %1\""_s.arg(page) << (page < 4 ? u"NEWPAGE"_s : u"ENDDOC"_s);
        writeScript(lines);
        m_job = std::make_unique<PrintJob>();
        m_job->MailRecipient = m_recipient;
        m_job->hideEmail = m_isMailHidden;
        bool worked = false;
        QTimer::singleShot(0, qApp, [&] {
            auto *screen = dynamic_cast<frmPreview *>(m_job->player().preview());
            ASSERT_TRUE(screen && screen->isVisible());
            screen->resize(900, 640);
            QCoreApplication::processEvents();
            worked = basic::Trap([&] { work(*screen); });
            if (screen->isVisible())
                press(*screen, u"cmdExit"_s);
        });
        m_job->player().RunPrintScript(scriptPath(), {QString()}, u"SCREEN"_s);
        EXPECT_TRUE(worked);
        EXPECT_EQ(m_job->player().preview(), nullptr);
        EXPECT_FALSE(QFile::exists(scriptPath()));
    }
    template <class W> static W &at(QWidget &screen, const QString &name) { return *test::control<W>(screen, name); }
    static void press(QWidget &screen, const QString &name) { test::click(screen, name); }
    static QString label(QWidget &screen) { return at<QLabel>(screen, u"LBL_Page"_s).text(); }
};

TEST_F(Preview, ButtonsAndBoxTurnThePages)
{
    open(1, [](frmPreview &screen) {
        const struct { QString name; QString label; } steps[] = {
            {u"CMD_Move(2)"_s, u"Page 2 of 4"_s}, {u"CMD_Move(3)"_s, u"Page 4 of 4"_s}, {u"CMD_Move(1)"_s, u"Page 3 of 4"_s},
            {u"CMD_Move(0)"_s, u"Page 1 of 4"_s}};
        for (const auto &step : steps) {
            press(screen, step.name);
            EXPECT_EQ(label(screen), step.label);
            EXPECT_EQ(at<QLineEdit>(screen, u"txtPage"_s).text(), step.label.mid(5, 1));
        }
        EXPECT_FALSE(at<QAbstractButton>(screen, u"CMD_Move(1)"_s).isEnabled());
        auto &box = at<QLineEdit>(screen, u"txtPage"_s);
        box.setFocus();
        box.setText(u"3"_s);
        EXPECT_EQ(label(screen), u"Page 3 of 4"_s);
        for (const QString &refused : {u"999"_s, u"0"_s, u"text"_s}) {
            box.setText(refused);
            QTest::keyClick(&box, Qt::Key_Return);
            EXPECT_EQ(label(screen), u"Page %1 of 4"_s.arg(box.text())) << qPrintable(refused);
        }
    });
}

TEST_F(Preview, BarsFollowTheOrientation)
{
    for (const int orientation : {1, 2}) {
        open(orientation, [orientation](frmPreview &screen) {
            auto &across = at<QScrollBar>(screen, u"HScroll1"_s), &down = at<QScrollBar>(screen, u"VScroll1"_s);
            auto &page = at<QWidget>(screen, u"Page"_s), &frame = at<QWidget>(screen, u"Frame"_s);
            EXPECT_TRUE(down.isVisible());
            EXPECT_EQ(across.isVisible(), orientation == 2);
            EXPECT_EQ(page.width() > frame.width(), orientation == 2);
            EXPECT_EQ(down.maximum(), (page.height() - frame.height()) * 15);
            down.setValue(down.maximum());
            EXPECT_EQ(page.y() + page.height(), frame.height());
            press(screen, u"cmdFit"_s);
            EXPECT_LE(page.width(), frame.width());
            EXPECT_LE(page.height(), frame.height());
            EXPECT_EQ(down.maximum(), 0);
        });
    }
}

TEST_F(Preview, KeysAndWheelMoveThePage)
{
    open(2, [](frmPreview &screen) {
        auto &across = at<QScrollBar>(screen, u"HScroll1"_s), &down = at<QScrollBar>(screen, u"VScroll1"_s);
        auto *print = &at<QAbstractButton>(screen, u"cmdPrint"_s);
        print->setFocus();
        QTest::keyClick(print, Qt::Key_Down);
        EXPECT_EQ(down.value(), down.singleStep());
        print->setFocus();
        QTest::keyClick(print, Qt::Key_Right);
        EXPECT_EQ(across.value(), across.singleStep());
        while (label(screen) == u"Page 1 of 4"_s) {
            const int before = down.value();
            QTest::keyClick(&down, Qt::Key_PageDown);
            ASSERT_TRUE(down.value() > before || label(screen) == u"Page 2 of 4"_s);
        }
        EXPECT_EQ(down.value(), 0);
        QTest::keyClick(&down, Qt::Key_PageUp);
        EXPECT_EQ(label(screen), u"Page 1 of 4"_s);
        EXPECT_EQ(down.value(), down.maximum());
        QTest::keyClick(&screen, Qt::Key_PageDown, Qt::ControlModifier);
        QTest::keyClick(&screen, Qt::Key_End, Qt::ControlModifier);
        EXPECT_EQ(label(screen), u"Page 4 of 4"_s);
        for (const QString &turned : {u"CMD_Move(0)"_s, u"CMD_Move(2)"_s}) {
            at<QLineEdit>(screen, u"txtPage"_s).setFocus();
            press(screen, turned);
            down.setValue(0);
            ASSERT_TRUE(screen.focusWidget());
            QTest::keyClick(screen.focusWidget(), Qt::Key_Down);
            EXPECT_EQ(down.value(), down.singleStep()) << qPrintable(turned);
            QTest::keyClick(screen.focusWidget(), Qt::Key_Right);
            EXPECT_GT(across.value(), 0) << qPrintable(turned);
        }
        press(screen, u"CMD_Move(3)"_s);
        const int width = at<QWidget>(screen, u"Page"_s).width();
        QTest::keyClick(&screen, Qt::Key_Plus, Qt::ControlModifier);
        EXPECT_NEAR(at<QWidget>(screen, u"Page"_s).width(), width * 1.2, 2);
        const auto turn = [&screen](int steps) {
            QWheelEvent wheel(QPointF(50, 200), screen.mapToGlobal(QPointF(50, 200)), {}, QPoint(0, steps), Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(&screen, &wheel);
        };
        turn(-120);
        EXPECT_GT(down.value(), 0);
        down.setValue(0);
        turn(120);
        EXPECT_EQ(label(screen), u"Page 3 of 4"_s);
    });
}

TEST_F(Preview, PagesDialogPrintsWhatItSets)
{
    open(1, [this](frmPreview &screen) {
        const auto dialog = [&](const std::function<void(QWidget &)> &work) {
            m_jobs.documents.clear();
            test::inModal<QDialog>([&] { press(screen, u"cmdSetup"_s); }, [&work](QDialog &pages) {
                ASSERT_EQ(pages.objectName(), u"frmPreviewPages"_s);
                pages.activateWindow();
                QCoreApplication::processEvents();
                work(pages);
            });
            return m_jobs.sheetCounts();
        };
        EXPECT_EQ(dialog([](QWidget &pages) { press(pages, u"CDM_Cancel"_s); }), QList<int>{});
        EXPECT_EQ(m_job->player().LastPrintPage, 0);
        EXPECT_EQ(dialog([](QWidget &pages) {
            auto &from = at<QLineEdit>(pages, u"TXT_From"_s), &to = at<QLineEdit>(pages, u"TXT_To"_s);
            EXPECT_EQ(to.text(), u"4"_s);
            QTest::mouseClick(&from, Qt::LeftButton);
            QCoreApplication::processEvents();
            EXPECT_TRUE(at<QAbstractButton>(pages, u"OPT_Pages(1)"_s).isChecked());
            EXPECT_EQ(from.palette().color(QPalette::Base), QColor(0, 255, 255));
            QTest::keyClicks(&from, u"2"_s);
            QTest::mouseClick(&to, Qt::LeftButton);
            QCoreApplication::processEvents();
            EXPECT_EQ(from.palette().color(QPalette::Base), QColor(Qt::white));
            QTest::keyClicks(&to, u"99"_s);
            from.setFocus();
            EXPECT_EQ(to.text(), u"4"_s);
            from.setText(u"0"_s);
            to.setFocus();
            EXPECT_EQ(from.text(), u"1"_s);
            from.setText(u"2"_s);
            to.setText(u"3"_s);
            press(pages, u"CMD_OK"_s);
        }), QList<int>{2});
        EXPECT_EQ(at<QLabel>(screen, u"lblChosen"_s).text(), u"pages 2 to 3"_s);
        EXPECT_TRUE(at<QLabel>(screen, u"lblChosen"_s).isVisible());
        EXPECT_EQ(dialog([](QWidget &pages) {
            at<QSpinBox>(pages, u"spnCopies"_s).setValue(3);
            press(pages, u"CMD_OK"_s);
        }), QList<int>{4});
        EXPECT_EQ(dialog([](QWidget &pages) { press(pages, u"CMD_OK"_s); }), QList<int>{}) << "nothing has changed";
        EXPECT_EQ(dialog([](QWidget &pages) {
            at<QSpinBox>(pages, u"spnCopies"_s).setValue(2);
            press(pages, u"CMD_OK"_s);
        }), QList<int>{4}) << "the copies alone";
        ASSERT_EQ(m_jobs.documents.size(), 1u);
        EXPECT_EQ(m_jobs.documents[0]->copies, 2);
        EXPECT_EQ(m_jobs.documents[0]->printer, u"Test printer"_s);
        EXPECT_FALSE(at<QLabel>(screen, u"lblChosen"_s).isVisible());
        const double width = m_job->device().ScaleWidth();
        for (const QString &name : {u"Other printer"_s, u"Gone printer"_s}) {
            if (name.startsWith(u"Gone"))
                m_prompts.expect(u"The printer \"Gone printer\" cannot be reached."_s);
            dialog([&](QWidget &pages) {
                at<QComboBox>(pages, u"cboPrinter"_s).setCurrentText(name);
                press(pages, u"CMD_OK"_s);
            });
            press(screen, u"cmdPrint"_s);
            EXPECT_EQ(m_jobs.documents.back()->printer, u"Other printer"_s);
        }
        EXPECT_EQ(m_job->device().ScaleWidth(), width);       // these pages were measured for the first one
    });
}

TEST_F(Preview, ZoomIsKeptForTheNext)
{
    state().gIniFile = m_folder.path(u"vorelreminder.ini"_s);
    int fitted = 0;
    const auto pageWidth = [](frmPreview &screen) { return at<QWidget>(screen, u"Page"_s).width(); };
    const auto frame = [](frmPreview &screen) { return at<QWidget>(screen, u"Frame"_s).size(); };
    open(2, [&](frmPreview &screen) {
        EXPECT_GT(pageWidth(screen), frame(screen).width());
        press(screen, u"cmdFit"_s);
        fitted = pageWidth(screen);
    });
    open(2, [&](frmPreview &screen) {
        EXPECT_NEAR(pageWidth(screen), fitted, 2);
        screen.resize(700, 500);                                // fitted it stays, whatever the size
        QCoreApplication::processEvents();
        EXPECT_LE(pageWidth(screen), frame(screen).width());
        press(screen, u"cmdZoomIn"_s);
    });
    EXPECT_NE(GetIniValue(iniSettings, u"PreviewZoom"_s, {}), u"page"_s);
    open(2, [](frmPreview &screen) {
        EXPECT_NEAR(screen.Zoom, scanNumber(GetIniValue(iniSettings, u"PreviewZoom"_s, {})), 0.001);
        QTest::keyClick(&screen, Qt::Key_0, Qt::ControlModifier);
    });
    EXPECT_EQ(GetIniValue(iniSettings, u"PreviewZoom"_s, {}), QString());
}

TEST_F(Preview, MailIsOfferedWhereItCanBeSent)
{
    open(1, [](frmPreview &screen) { EXPECT_FALSE(at<QWidget>(screen, u"cmdEmail"_s).isVisible()); });
    int sent = 0;
    frmPreview::setMailer([&sent](const QImage &page) {
        for (int y = 0; y < page.height(); ++y)
            for (int x = 0; x < page.width(); ++x)
                if (qGray(page.pixel(x, y)) < 100) {
                    ++sent;
                    return;
                }
    });
    m_recipient = u"ann@example.org"_s;
    open(1, [](frmPreview &screen) { press(screen, u"cmdEmail"_s); });
    EXPECT_EQ(sent, 1);
    m_isMailHidden = true;
    open(1, [](frmPreview &screen) { EXPECT_FALSE(at<QWidget>(screen, u"cmdEmail"_s).isVisible()); });
}

TEST_F(Preview, FailureWhilePrintingIsToldAndThePagesStay)
{
    open(1, [this](frmPreview &screen) {
        m_jobs.isGone = true;
        m_prompts.expect(u"The printer cannot be reached."_s);
        press(screen, u"cmdPrint"_s);
        m_jobs.isGone = false;
        press(screen, u"CMD_Move(2)"_s);
        EXPECT_EQ(label(screen), u"Page 2 of 4"_s);
        press(screen, u"cmdPrint"_s);
        m_prompts.expectFile(u"Save as PDF"_s, m_folder.path(u"kept.pdf"_s));
        press(screen, u"cmdPdf"_s);
        EXPECT_EQ(test::readPdf(m_folder.path(u"kept.pdf"_s)).size(), 4);
        m_prompts.expectFile(u"Save as PDF"_s, m_folder.path(u"no/where.pdf"_s));
        m_prompts.expect(u"where.pdf cannot be written"_s);
        press(screen, u"cmdPdf"_s);
    });
    EXPECT_EQ(m_jobs.sheetCounts(), QList<int>{4});
}

}
