#include "utilities/frmInformationFormat.h"

#include "platform/controls/form.h"
#include "session/ini.h"
#include "utilities/infopages.h"

#include <QAction>
#include <QMenu>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::RichTextBox;

namespace {

constexpr double titleSteps = 1.5;          // a recipe's title, in sizes of its text

basic::FontChoice recipeFont()
{
    basic::FontChoice font;
    font.name = GetIniValue(iniSettings, u"RecipeFontName"_s, u"Arial"_s);
    bool isNumber = false;
    font.points = GetIniValue(iniSettings, u"RecipeFontSize"_s, u"9"_s).toDouble(&isNumber);
    if (!isNumber || font.points < 4 || font.points > 72)
        font.points = 9;
    return font;
}

void recipeTitle(RichTextBox &box)
{
    basic::FontChoice font = recipeFont();
    font.points = std::round(font.points * titleSteps);
    font.bold = true;
    box.setSelFont(font);
}

void fontColour(RichTextBox &box)
{
    const QTextCharFormat format = box.currentCharFormat();
    const QColor now = format.hasProperty(QTextFormat::ForegroundBrush) ? format.foreground().color() : QColor(Qt::black);
    if (const auto chosen = basic::prompts().chooseColour(now.rgb() & 0xFFFFFF))
        box.setSelColor(QColor::fromRgb(*chosen));
}

void fontGeneral(RichTextBox &box)
{
    if (const auto chosen = basic::prompts().chooseFont(box.SelFont()))
        box.setSelFont(*chosen);
}

struct Entry {
    const char16_t *name;           // "" = a line between
    const char16_t *caption;
    const char16_t *icon;
    QKeySequence::StandardKey key;  // shown beside the caption; the box itself answers it
    void (*step)(RichTextBox &);
};

const Entry entries[] = {
    {u"mnuUndo", u"&Undo", u"edit-undo", QKeySequence::Undo, [](RichTextBox &box) { box.undo(); }},
    {u"", u"", u"", QKeySequence::UnknownKey, nullptr},
    {u"mnuCut", u"Cu&t", u"edit-cut", QKeySequence::Cut, [](RichTextBox &box) { box.cut(); }},
    {u"mnuCopy", u"&Copy", u"edit-copy", QKeySequence::Copy, [](RichTextBox &box) { box.copy(); }},
    {u"mnuPaste", u"&Paste", u"edit-paste", QKeySequence::Paste, [](RichTextBox &box) { box.Paste(); }},
    {u"mnuClear", u"C&lear", u"edit-clear", QKeySequence::UnknownKey, [](RichTextBox &box) { box.Clear(); }},
    {u"", u"", u"", QKeySequence::UnknownKey, nullptr},
    {u"mnuFontBold", u"&Bold", u"format-text-bold", QKeySequence::Bold,
     [](RichTextBox &box) { box.setSelBold(!box.SelBold().value_or(false)); }},
    {u"mnuFontNormal", u"&Normal", u"edit-clear-all", QKeySequence::UnknownKey,
     [](RichTextBox &box) { box.ClearSelFormat(); }},
    {u"mnuFontColour", u"Font c&olour...", u"format-text-color", QKeySequence::UnknownKey, fontColour},
    {u"mnuFontGeneral", u"Choose a font", u"preferences-desktop-font", QKeySequence::UnknownKey, fontGeneral},
    {u"", u"", u"", QKeySequence::UnknownKey, nullptr},
    {u"mnuRecipeTitle", u"&Recipe title", u"", QKeySequence::UnknownKey, recipeTitle},
    {u"mnuRecipeProcess", u"Recipe proc&ess", u"", QKeySequence::UnknownKey,
     [](RichTextBox &box) { box.setSelFont(recipeFont()); }},
    {u"mnuImportExample", u"&Import the example", u"document-import", QKeySequence::UnknownKey,
     [](RichTextBox &box) { box.LoadFile(findInfoPage(u"\\PROFILE.RTF"_s)); }},
};

void enable(const RichTextBox &box, const QMenu &menu)
{
    const auto set = [&menu](const QString &name, bool on) { menu.findChild<QAction *>(name)->setEnabled(on); };
    const bool selected = box.textCursor().hasSelection();
    const bool writable = !box.isReadOnly();
    for (const Entry &entry : entries) {
        if (*entry.name)
            set(QString::fromUtf16(entry.name), writable);
    }
    set(u"mnuUndo"_s, writable && box.document()->isUndoAvailable());
    set(u"mnuCut"_s, writable && selected);
    set(u"mnuCopy"_s, selected);
}

}

QMenu *formatMenu(RichTextBox *box)
{
    auto *menu = new QMenu(u"F&ormat"_s, box);
    menu->setObjectName(u"mnuFormat"_s);
    for (const Entry &entry : entries) {
        if (!*entry.name) {
            menu->addSeparator();
            continue;
        }
        auto *action = new QAction(QIcon::fromTheme(QString::fromUtf16(entry.icon)), QString::fromUtf16(entry.caption), menu);
        action->setObjectName(QString::fromUtf16(entry.name));
        if (entry.key != QKeySequence::UnknownKey) {
            action->setShortcut(entry.key);
            action->setShortcutContext(Qt::WidgetShortcut);
        }
        menu->addAction(action);
        controls::on(action, &QAction::triggered, box, [box, step = entry.step] { step(*box); });
    }
    controls::on(menu, &QMenu::aboutToShow, box, [box, menu] { enable(*box, *menu); });
    return menu;
}

void useFormatMenu(RichTextBox *box)
{
    QMenu *menu = formatMenu(box);
    box->setContextMenuPolicy(Qt::CustomContextMenu);
    controls::on(box, &QWidget::customContextMenuRequested, box,
                 [box, menu](const QPoint &where) { menu->exec(box->viewport()->mapToGlobal(where)); });
}

}
