#include "utilities/frmInformation.h"

#include "utilities/frmInformationFormat.h"
#include "utilities/hints.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QPointer>
#include <QVBoxLayout>
#include <map>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize pageSize(720, 600);
constexpr int textMargin = 16;

QPointer<frmInformation> &open()
{
    static QPointer<frmInformation> form;
    return form;
}

QWidget *mainScreen()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto main = std::find_if(windows.begin(), windows.end(), [](const QWidget *window) {
        return qobject_cast<const QMainWindow *>(window) && window->isVisible();
    });
    return main == windows.end() ? nullptr : *main;
}

// A modal screen lets no other be used but its own children.
frmInformation &freshScreen(const QString &title)
{
    unloadInformation();
    QWidget *modal = QApplication::activeModalWidget();
    auto *form = new frmInformation(modal ? modal : mainScreen());
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->setWindowTitle(title);
    form->resize(pageSize);
    open() = form;
    return *form;
}

// Without a page of their own the hints are shown one below the other.
void showHints(controls::RichTextBox &box)
{
    if (Hints().isEmpty())
        LoadHints();
    QStringList lines;
    for (const QString &hint : Hints()) {
        const QString line = hint.chopped(hintEnd.size()).trimmed();
        if (!line.isEmpty())
            lines.append(line);
    }
    box.setText(lines.join(u'\n'));
    if (lines.isEmpty())
        return;
    box.selectAll();
    box.setSelBullet(true);
    box.moveCursor(QTextCursor::Start);
    box.document()->clearUndoRedoStacks();
}

// What a page that came with the program says of keys and screens that do not exist yet; "" = nothing.
QString aheadNote(QStringView code, const QString &text)
{
    if (isInfoPageAhead(code))
        return u"This page describes the section as it is going to be: its screens are not part of this version yet."_s;
    QStringList missing;
    for (const Feature &feature : features()) {
        if (!feature.isThere && !feature.screen.isEmpty() && text.contains(feature.screen))
            missing << feature.screen.toString();
    }
    return missing.isEmpty() ? QString() : u"Not part of this version yet: "_s + missing.join(u", "_s) + u'.';
}

void putAbove(controls::RichTextBox &box, const QString &note)
{
    QTextCursor top(box.document());
    QTextCharFormat slanted;
    slanted.setFontItalic(true);
    top.insertText(note, slanted);
    top.insertBlock();
}

}

frmInformation::frmInformation(QWidget *parent) : Form(u"frmInformation"_s, parent), m_text(new controls::RichTextBox(this))
{
    m_text->setObjectName(u"txtInfo"_s);
    m_text->setAccessibleName(u"Information"_s);
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->setReadOnly(true);              // nothing typed here would be kept
    m_text->setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
    m_text->document()->setDocumentMargin(textMargin);
    useFormatMenu(m_text);
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    auto *bar = new QMenuBar(this);
    bar->addMenu(m_text->findChild<QMenu *>(u"mnuFormat"_s));
    QAction *close = bar->addAction(u"&Close"_s);       // in the bar: the text has the whole of the screen
    close->setObjectName(u"mnuClose"_s);
    controls::on(close, &QAction::triggered, this, [this] { Close(); });
    whole->setMenuBar(bar);
    whole->addWidget(m_text);
}

void ShowInfoPage(QStringView code)
{
    frmInformation &form = freshScreen(infoPageTitle(code) + u" - Information - "_s + basic::applicationTitle());
    const QString page = findInfoPage(infoPageFile(code));
    if (!page.isEmpty())
        form.txtInfo().LoadFile(page);
    const QString note = page.startsWith(u':') ? aheadNote(code, form.txtInfo().Text()) : QString();
    if (!note.isEmpty())
        putAbove(form.txtInfo(), note);
    if (!page.isEmpty())
        form.txtInfo().moveCursor(QTextCursor::Start);
    else if (infoPageFile(code) == infoPageFile(infoAll))
        showHints(form.txtInfo());
    form.show();
}

void installScreenHelp()
{
    controls::Form::setHelp([](const QString &screen) {
        static const std::map<QString, QStringView> pages{
            {u"frmCalculator"_s, infoCalculator}, {u"frmCalendar"_s, infoCalendar}, {u"frmMessage"_s, u"M"}, {u"frmDataPath"_s, infoFilePath},
            {u"frmInfoCard"_s, u"P"}, {u"frmLabels"_s, u"P"}, {u"frmPrintAddressBook"_s, u"P"}};
        if (screen == u"frmInformation")
            return;                         // help is on show
        const auto found = pages.find(screen);
        ShowInfoPage(found == pages.end() ? infoAll : found->second);
    });
}

void showNote(const QString &title, const QString &text, double heightFactor)
{
    frmInformation &form = freshScreen(title);
    form.txtInfo().setStored(text);
    if (const QWidget *screen = mainScreen())
        form.resize(pageSize.width(), qRound(screen->height() * heightFactor));
    form.show();
}

void unloadInformation()
{
    if (open())
        open()->Close();
    open() = nullptr;
}

}
