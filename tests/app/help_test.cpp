#include "app/caddyscreen.h"
#include "calendar/frmCalendar.h"
#include "frame/frmCaddyScreens.h"
#include "media/frmDataPath.h"
#include "platform/controls/richtextbox.h"
#include "platform/desktop/desktop.h"
#include "records/frmMusic.h"
#include "reminders/frmMessage.h"
#include "session/sectiondesign.h"
#include "utilities/frmCalculator.h"
#include "utilities/frmInformation.h"
#include "utilities/hints.h"
#include "utilities/infopages.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QTabBar>
#include <QTextBlock>

namespace vorel {

using namespace Qt::StringLiterals;

class Help : public test::CaddyScreen {
protected:
    ~Help() override
    {
        unloadInformation();
        controls::Form::setHelp({});
    }
    static QString plain(QString text)
    {
        text.remove(u'&');
        while (text.endsWith(u':') || text.endsWith(u'.'))
            text.chop(1);
        return text.trimmed().toUpper();
    }
    // Everything that a user can read on a screen as the name of a control.
    void collect(const QWidget &screen)
    {
        for (const QAbstractButton *button : screen.findChildren<QAbstractButton *>())
            m_shown << plain(button->text());
        for (const QLabel *label : screen.findChildren<QLabel *>())
            m_shown << plain(label->text());
        for (const QGroupBox *group : screen.findChildren<QGroupBox *>())
            m_shown << plain(group->title());
        for (const QAction *action : screen.findChildren<QAction *>())
            m_shown << plain(action->text());
        for (const QTabBar *tabs : screen.findChildren<QTabBar *>())
            for (int tab = 0; tab < tabs->count(); ++tab)
                m_shown << plain(tabs->tabText(tab));
    }
    void collectAll()
    {
        collect(screen());
        for (const QString &code : {u"A"_s, u"B"_s, u"E"_s})
            collect(frmRecord(code));
        for (const RecordScreen &record : recordScreens()) {
            test::inModal<controls::Form>([&] { record.open({{}, 1}, &screen()); }, [this](controls::Form &form) {
                collect(form);
                form.Close();
            });
        }
        collect(frmCalculator());
        collect(frmCalendar({}));
        collect(frmDataPath({u"Movie Picture"_s, {}, {}, nullptr}));
        for (const SectionDesign &section : sectionDesigns()) {
            if (section.list)
                for (const SectionColumn &column : section.list->columns)
                    m_shown << plain(column.title);
        }
    }
    // Every page that has one: of a section, or of what has no section.
    static QStringList codes()
    {
        QStringList all{infoAll.toString(), infoPayBill.toString(), infoAccountsSetup.toString(), infoInvoice.toString(), infoFilePath.toString()};
        for (const SectionDesign &section : sectionDesigns())
            if (section.help)
                all << (section.code.isEmpty() ? section.name : section.code);
        return all;
    }
    // The labels that a page quotes: its slanted words.
    static QStringList quoted(const QString &file)
    {
        controls::RichTextBox box;
        box.LoadFile(findInfoPage(file));
        QStringList labels;
        for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next()) {
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                if (part.fragment().charFormat().fontItalic())
                    labels << part.fragment().text();
            }
        }
        return labels;
    }

    QSet<QString> m_shown;
};

TEST_F(Help, LabelsInThePagesAreThoseOnTheScreens)
{
    start();
    collectAll();
    int pages = 0;
    const QStringList all = codes();
    for (const QString &code : all) {
        if (isInfoPageAhead(code))
            continue;
        ++pages;
        const QStringList labels = quoted(infoPageFile(code));
        EXPECT_FALSE(labels.isEmpty()) << qPrintable(code) << " quotes its labels slanted";
        for (const QString &label : labels)
            EXPECT_TRUE(m_shown.contains(plain(label))) << qPrintable(infoPageTitle(code) + u": "_s + label);
    }
    EXPECT_GE(pages, 13);
}

TEST_F(Help, F1ShowsThePageOfEachScreen)
{
    start();
    installScreenHelp();
    const auto titleAfterF1 = [](QWidget &form) {
        form.show();
        QApplication::setActiveWindow(&form);       // else the key is the main screen's
        QTest::keyClick(&form, Qt::Key_F1);
        form.hide();
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (const QWidget *window : windows) {
            if (window->objectName() == u"frmInformation" && window->isVisible())
                return window->windowTitle().section(u" - "_s, 0, 0);
        }
        return QString();
    };
    frmMessage message;
    frmCalculator calculator;
    frmCalendar calendar({});
    frmDataPath path({u"Movie Picture"_s, {}, {}, nullptr});
    frmRecord bill(u"B"_s);
    frmMusic music;
    EXPECT_EQ(titleAfterF1(message), u"Messages"_s);
    EXPECT_EQ(titleAfterF1(calculator), u"Calculator"_s);
    EXPECT_EQ(titleAfterF1(calendar), u"Calendar"_s);
    EXPECT_EQ(titleAfterF1(path), u"Pictures and file paths"_s);
    EXPECT_EQ(titleAfterF1(bill), u"Bills"_s);
    EXPECT_EQ(titleAfterF1(music), u"Music"_s);
}

// A hint that sends its reader to a screen that is still to come would be a wall.
TEST_F(Help, HintsSpeakOfWhatIsThere)
{
    QFile file(desktop::findResource(u"\\hints.txt"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    LoadHints();
    qsizetype expected = 0;
    for (const QString &line : lines) {
        const QString tag = line.startsWith(u'[') ? line.section(u']', 0, 0).mid(1) : QString();
        const auto known = std::find_if(features().begin(), features().end(), [&tag](const Feature &one) { return one.tag == tag; });
        EXPECT_TRUE(tag.isEmpty() || known != features().end()) << qPrintable(line);
        expected += tag.isEmpty() || hasFeature(tag);
    }
    EXPECT_EQ(Hints().size(), expected);
    for (const QString &hint : Hints()) {
        EXPECT_FALSE(hint.startsWith(u'[')) << qPrintable(hint);
        for (const auto &[word, tag] : {std::pair{u"Setup"_s, u"setup"_s}, {u"Export/Import"_s, u"exchange"_s}, {u" contact"_s, u"contacts"_s},
                                        {u"The calendar"_s, u"calendar"_s}, {u"ehicle"_s, u"vehicle"_s}, {u"File Backup"_s, u"backup"_s},
                                        {u"invoice"_s, u"accounts"_s}, {u"administration"_s, u"admin"_s}, {u"ingredient"_s, u"recipes"_s}})
            EXPECT_TRUE(hasFeature(tag) || !hint.contains(word)) << qPrintable(hint);
    }
}

}
