#include "frame/frmCaddyMenus.h"

#include "frame/frmCaddyRail.h"
#include "frame/frmLater.h"
#include "frame/menus.h"
#include "platform/controls/form.h"
#include "print/lists.h"
#include "session/sections.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QToolBar>
#include <QToolButton>

namespace vorel {

using namespace Qt::StringLiterals;

CaddyMenus::CaddyMenus(CaddyControls &c, MainScreen &screen, CaddyPeriods &periods, QMainWindow *window)
    : m_c(c), m_screen(screen), m_periods(periods), m_window(window)
{
    m_lists.setObjectName(u"mnuPrintShown"_s);
    buildMenus();
    connectToolbar();
    addKeys();
}

void CaddyMenus::buildMenus()
{
    for (const MenuEntry &entry : menuTable()) {
        QMenu *parent = entry.parent.isEmpty() ? nullptr : m_c.menus.at(entry.parent);
        if (entry.call == MenuCall::Menu) {
            QMenu *menu = parent ? parent->addMenu(entry.caption) : m_window->menuBar()->addMenu(entry.caption);
            menu->setObjectName(entry.objectName);
            menu->menuAction()->setObjectName(entry.objectName);
            m_c.menus[entry.objectName] = menu;
            m_c.actions[entry.objectName] = menu->menuAction();
            continue;
        }
        QAction *action = parent ? parent->addAction(entry.caption) : m_window->menuBar()->addAction(entry.caption);
        action->setObjectName(entry.objectName);
        m_c.actions[entry.objectName] = action;
        controls::on(action, &QAction::triggered, m_window, [this, name = entry.objectName] { run(name); });
    }
}

void CaddyMenus::connectToolbar()
{
    for (const ToolbarButton &entry : toolbarTable()) {
        controls::on(m_c.toolbarKeys.at(entry.key), &QAction::triggered, m_window, [this, menu = entry.menu] {
            if (menu.isEmpty())
                printCurrent();
            else
                run(menu);
        });
    }
}

void CaddyMenus::run(const QString &menuName)
{
    const MenuEntry *entry = menuEntry(menuName);
    if (!entry || !m_screen.writeRows())        // whatever follows reads the rows
        return;
    switch (entry->call) {
    case MenuCall::Menu:
        return;
    case MenuCall::Category:
        m_screen.DisplayCategory(entry->argument);
        return;
    case MenuCall::Period:
        m_periods.choose(entry->argument);
        return;
    case MenuCall::Print:
        print(entry->argument);
        return;
    case MenuCall::Action:
        if (const auto step = m_answers.find(entry->argument); step != m_answers.end())
            step->second();
        else
            showLater(QString(entry->caption).remove(u'&'));
        return;
    }
}

void CaddyMenus::printCurrent()
{
    if (!m_screen.writeRows())
        return;
    const QString code = printCodeFor(state().selection.gSection);
    if (code.isEmpty())
        offerLists();
    else
        print(code);
}

// A section of several grids has no list of its own: those of the grids on show are offered.
void CaddyMenus::offerLists()
{
    m_lists.clear();
    for (const GridPane &pane : m_c.reminders())
        if (pane.isShown())
            for (const MenuEntry &entry : menuTable())
                if (entry.call == MenuCall::Print && entry.argument == pane.code)
                    m_lists.addAction(m_c.actions.at(entry.objectName));
    if (m_lists.isEmpty())
        return;
    const QWidget *key = m_c.Toolbar1->findChild<QWidget *>(u"PRINT CURRENT CATEGORY"_s);
    const QPoint below = key ? key->mapToGlobal(QPoint(0, key->height())) : m_c.Toolbar1->mapToGlobal(QPoint());
    m_lists.popup(below, m_lists.actions().front());
}

void CaddyMenus::print(const QString &code)
{
    const GridPane *shown = m_c.reminder(code);
    printSectionList(code, shown ? shown->data->RecordSource() : QString());
}

void CaddyMenus::addKeys()
{
    const auto shortcut = [this](const QString &name, const QList<QKeySequence> &keys) {
        m_c.actions.at(name)->setShortcuts(keys);
    };
    shortcut(u"mnuQuit"_s, {QKeySequence(Qt::CTRL | Qt::Key_Q)});
    shortcut(u"mnuHelp"_s, {QKeySequence(Qt::Key_F1)});
    shortcut(u"mnuToday"_s, {QKeySequence(Qt::CTRL | Qt::Key_T), QKeySequence(Qt::Key_Home)});
    m_c.toolbarKeys.at(u"PRINT CURRENT CATEGORY"_s)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
    const auto on = [this](QKeySequence key, std::function<void()> step) {
        auto *hidden = new QShortcut(key, m_window);
        controls::on(hidden, &QShortcut::activated, m_window, std::move(step));
    };
    on(Qt::CTRL | Qt::Key_N, [this] { m_c.panNew->click(); });
    on(Qt::CTRL | Qt::Key_F, [this] {
        // On a narrow screen the box lies in the part of the bar that its own button unfolds.
        if (auto *unfold = m_c.Toolbar1->findChild<QToolButton *>(u"qt_toolbar_ext_button"_s); unfold && !m_c.txtSearch->isVisible())
            unfold->click();
        m_c.txtSearch->setFocus(Qt::ShortcutFocusReason);
        m_c.txtSearch->selectAll();
    });
    on(Qt::Key_F3, [this] { m_c.cmdNext->click(); });
    on(Qt::Key_F6, [this] { nextPane(); });
    on(Qt::Key_F11, [this] {
        m_window->setWindowState(m_window->windowState() ^ Qt::WindowFullScreen);
    });
}

void CaddyMenus::nextPane()
{
    std::vector<QWidget *> panes;
    for (const SectionDesign *section : categoryButtons())
        if (RailButton *button = m_c.rail->button(section->button->index); button->isChecked() && button->isVisible())
            panes.push_back(button);
    panes.push_back(m_c.txtSearch);
    for (const GridPane &pane : m_c.panes)
        panes.push_back(pane.grid);
    panes.push_back(m_c.tools.at(u"cmdCalendar"_s));
    std::erase_if(panes, [](const QWidget *pane) { return !pane->isVisible() || !pane->isEnabled(); });
    if (panes.empty())
        return;
    const QWidget *now = QApplication::focusWidget();
    const auto here = std::find_if(panes.begin(), panes.end(), [now](const QWidget *pane) {
        return now && (pane == now || pane->isAncestorOf(now));
    });
    QWidget *next = here == panes.end() || here + 1 == panes.end() ? panes.front() : *(here + 1);
    next->setFocus(Qt::TabFocusReason);
}

}
