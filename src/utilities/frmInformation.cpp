#include "utilities/frmInformation.h"

#include "utilities/frmInformationFormat.h"
#include "utilities/hints.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QPointer>
#include <QVBoxLayout>

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

}

frmInformation::frmInformation(QWidget *parent) : Form(u"frmInformation"_s, parent), m_text(new controls::RichTextBox(this))
{
    m_text->setObjectName(u"txtInfo"_s);
    m_text->setAccessibleName(u"Information"_s);
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->document()->setDocumentMargin(textMargin);
    useFormatMenu(m_text);
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    auto *bar = new QMenuBar(this);
    bar->addMenu(m_text->findChild<QMenu *>(u"mnuFormat"_s));
    whole->setMenuBar(bar);
    whole->addWidget(m_text);
}

void ShowInfoPage(QStringView code)
{
    frmInformation &form = freshScreen(basic::applicationTitle() + u" - Information"_s);
    const QString page = findInfoPage(infoPageFile(code));
    if (!page.isEmpty())
        form.txtInfo().LoadFile(page);
    else if (infoPageFile(code) == infoPageFile(infoAll))
        showHints(form.txtInfo());
    form.show();
}

void showNote(const QString &title, const QString &text, double heightFactor)
{
    frmInformation &form = freshScreen(title);
    form.txtInfo().setText(text);
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
