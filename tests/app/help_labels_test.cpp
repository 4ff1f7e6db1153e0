#include "app/caddyscreen.h"
#include "media/frmDataPath.h"
#include "platform/controls/richtextbox.h"
#include "utilities/frmCalculator.h"
#include "utilities/frmInformation.h"
#include "utilities/infopages.h"

#include <QComboBox>
#include <QGroupBox>
#include <QMenu>
#include <QSet>
#include <QTabBar>
#include <QTextBlock>

// The pages of help set the captions of controls in bold, and F1 opens the page of each screen.
namespace vorel {

using namespace Qt::StringLiterals;

namespace {

// Captions compare without mnemonics, colons, dots, double spaces and case.
QString plain(QString caption)
{
    caption.remove(u'&').remove(u':').remove(u"..."_s);
    return caption.simplified().toUpper();
}

void addCaptions(const QWidget &screen, QSet<QString> &captions)
{
    for (const QObject *child : screen.findChildren<QObject *>()) {
        for (const char *property : {"text", "title"})
            captions.insert(plain(child->property(property).toString()));
        if (const auto *tabs = qobject_cast<const QTabBar *>(child))
            for (int i = 0; i < tabs->count(); ++i)
                captions.insert(plain(tabs->tabText(i)));
    }
}

// The bold words of a page but for its headings, which are set larger.
QStringList labelsOf(const QString &page)
{
    controls::RichTextBox box;
    box.LoadFile(page);
    QStringList labels;
    for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next())
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextCharFormat format = part.fragment().charFormat();
            if (format.fontWeight() >= QFont::Bold && format.fontPointSize() < 12)
                labels << plain(part.fragment().text());
        }
    return labels;
}

}

class HelpLabels : public test::CaddyScreen {
protected:
    // Whatever modal screen the step opens; F1 on it shows the page of that name.
    void collect(const QString &page, QSet<QString> &captions, const std::function<void()> &open)
    {
        test::inModal<controls::Form>(open, [&](controls::Form &form) {
            addCaptions(form, captions);
            EXPECT_EQ(infoPageFile(form.helpPage()), infoPageFile(page)) << qPrintable(form.objectName());
            QTest::keyClick(&form, Qt::Key_F1);
            auto *help = form.findChild<frmInformation *>(u"frmInformation"_s);
            EXPECT_TRUE(help && help->isVisible()) << qPrintable(form.objectName());
            unloadInformation();
        });
    }
};

TEST_F(HelpLabels, NameWhatIsOnTheScreens)
{
    m_firstRun = true;
    startOn(u"All"_s);
    struct Case { QString section, grid, page; };
    const Case cases[] = {
        {u"Appointments"_s, u"APPOINTMENTSGRID"_s, u"A"_s}, {u"Bills"_s, u"BILLSGRID"_s, u"B"_s}, {u"Events"_s, u"EVENTSGRID"_s, u"E"_s},
        {u"Messages"_s, {}, u"M"_s}, {u"Books"_s, {}, u"K"_s}, {u"Movies"_s, {}, u"V"_s}, {u"Music"_s, {}, u"U"_s},
        {u"Inventory"_s, {}, u"I"_s}};
    for (const Case &c : cases) {
        screen().DisplayCategory(c.section);
        QSet<QString> captions;
        addCaptions(screen(), captions);
        for (const test::Grid *grid : screen().findChildren<test::Grid *>())
            for (const auto &column : grid->columns())
                captions.insert(plain(column.caption));
        m_prompts.expect(u"Create a New Blank Record?"_s, basic::Answer::Yes);
        collect(c.page, captions, [&] { click(u"panNew"_s); });
        const QStringList labels = labelsOf(findInfoPage(infoPageFile(c.page)));
        EXPECT_GE(labels.size(), 3) << qPrintable(c.page);
        for (const QString &label : labels)
            EXPECT_TRUE(captions.contains(label)) << qPrintable(infoPageFile(c.page)) << ": " << qPrintable(label);
    }

    struct Other { QString page; std::function<void()> open; };
    QSet<QString> captions;
    screen().DisplayCategory(u"Shopping"_s);
    addCaptions(screen(), captions);
    frmCalculator calculator;
    addCaptions(calculator, captions);
    collect(infoFilePath.toString(), captions, [&] { chooseDataPath({.caption = u"Book Picture"_s}); });
    for (const QStringView page : {infoAll, infoFilePath, infoCalculator, QStringView(u"G"), QStringView(u"H")}) {
        for (const QString &label : labelsOf(findInfoPage(infoPageFile(page))))
            EXPECT_TRUE(captions.contains(label)) << qPrintable(infoPageFile(page)) << ": " << qPrintable(label);
    }
}

}
