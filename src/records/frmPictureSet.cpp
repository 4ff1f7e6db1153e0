#include "records/frmPictureSet.h"

#include "media/frmDataPath.h"
#include "media/pictures.h"
#include "platform/basic/prompts.h"
#include "platform/controls/form.h"
#include "platform/controls/layout.h"
#include "platform/controls/picturebox.h"
#include "session/sectiondesign.h"

#include <QContextMenuEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;
namespace layout = controls::layout;

namespace {

constexpr int slotWidth = 20 * layout::unit, slotHeight = 14 * layout::unit;
constexpr int captionSize = 255;

QString member(const QString &array, std::size_t index)
{
    return array + u'(' + QString::number(index) + u')';
}

}

PictureSetView::PictureSetView(const QString &section, QWidget *parent) : QWidget(parent), m_section(section)
{
    auto *column = new QVBoxLayout(this);
    layout::setMargins(column, 0);
    column->addLayout(createButtons());
    column->addLayout(createSlots());
    column->addStretch(1);
    showSetsOf({}, {});
}

QLayout *PictureSetView::createSlots()
{
    const SectionDesign *section = sectionByCode(m_section);
    const int count = section && section->pictures && section->pictures->set ? section->pictures->set->slotCount : 0;
    const int columns = count > 6 ? 5 : 3;
    auto *grid = new QGridLayout;
    grid->setSpacing(layout::unit);
    for (int i = 0; i < count; ++i) {
        const auto slot = static_cast<std::size_t>(i);
        auto *image = new controls::PictureBox(member(u"imgOther"_s, slot), this);
        image->setAccessibleName(u"Picture %1"_s.arg(i + 1));
        image->setToolTip(u" Click to choose a Picture; Ctrl+Left and Ctrl+Right move it "_s);
        image->setMinimumSize(slotWidth, slotHeight);
        image->setFocusPolicy(Qt::StrongFocus);
        image->setCursor(Qt::PointingHandCursor);
        image->setUnreadableText(u"This picture cannot be shown."_s);
        image->installEventFilter(this);
        on(image, &controls::PictureBox::Clicked, this, [this, slot] { chooseFor(slot); });
        auto *caption = new QLineEdit(this);
        caption->setObjectName(member(u"txtCaption"_s, slot));
        caption->setAccessibleName(u"Caption of picture %1"_s.arg(i + 1));
        caption->setPlaceholderText(u"Caption"_s);
        caption->setMaxLength(captionSize);
        on(caption, &QLineEdit::textEdited, this, [this] { m_changed = true; });
        auto *cell = new QVBoxLayout;
        cell->setSpacing(layout::unit / 2);
        cell->addWidget(image, 1);
        cell->addWidget(caption);
        grid->addLayout(cell, i / columns, i % columns);
        m_slots.push_back({image, caption});
    }
    return grid;
}

QLayout *PictureSetView::createButtons()
{
    const auto stepButton = [this](const QString &name, const QString &icon, QStyle::StandardPixmap fallback, const QString &words, int direction) {
        auto *button = new QToolButton(this);
        button->setObjectName(name);
        button->setIcon(QIcon::fromTheme(icon, style()->standardIcon(fallback)));
        button->setToolTip(words);
        button->setAccessibleName(words);
        button->setAutoRaise(true);
        on(button, &QToolButton::clicked, this, [this, direction] { step(direction); });
        return button;
    };
    m_previous = stepButton(u"cmdPreviousSet"_s, u"go-previous"_s, QStyle::SP_ArrowLeft, u"Previous set of pictures"_s, -1);
    m_next = stepButton(u"cmdNextSet"_s, u"go-next"_s, QStyle::SP_ArrowRight, u"Next set of pictures"_s, 1);
    m_position = new QLabel(this);
    m_position->setObjectName(u"lblSet"_s);
    m_show = qobject_cast<QPushButton *>(controls::button(u"cmdSlideShow"_s, u"Slide S&how"_s, {}, u" Shows all pictures of this Record "_s));
    m_show->setParent(this);
    on(m_show, &QPushButton::clicked, this, [this] {
        if (save())
            showSlideShow(m_section, m_owner, m_name, window());
    });
    return layout::Row({m_previous, m_position, m_next, layout::Stretch{}, m_show});
}

void PictureSetView::showSetsOf(const PictureOwner &owner, const QString &name)
{
    m_owner = owner;
    m_name = name;
    m_sets.clear();
    if (owner.id != 0)
        basic::Trap([&] { m_sets = readPictureSets(m_section, owner); });
    showSet(0);
}

void PictureSetView::showSet(std::size_t place)
{
    m_place = place;
    m_changed = false;
    const bool any = place < m_sets.size();
    for (std::size_t slot = 0; slot < m_slots.size(); ++slot) {
        const bool filled = any && slot < m_sets[place].pictures.size();
        put(slot, filled ? m_sets[place].pictures[slot].path : QString());
        m_slots[slot].caption->setText(filled ? m_sets[place].pictures[slot].caption : QString());
        m_slots[slot].image->setEnabled(m_owner.id != 0);
        m_slots[slot].caption->setEnabled(any);
    }
    m_position->setText(m_sets.empty() ? u"No pictures yet"_s : u"Set %1 of %2"_s.arg(place + 1).arg(m_sets.size()));
    m_previous->setEnabled(place > 0);
    m_next->setEnabled(place + 1 < m_sets.size());
    m_show->setEnabled(any);
}

void PictureSetView::put(std::size_t slot, const QString &path)
{
    QString shown = path;
    const PictureChoice choice = choosePicture(shown, m_section, true);
    controls::PictureBox *image = m_slots[slot].image;
    image->clear();
    if (!path.isEmpty() && !choice.isDefault)
        image->showFile(choice.file);
}

void PictureSetView::addSet()
{
    if (m_owner.id == 0 || !save())
        return;
    m_sets.push_back(addPictureSet(m_section, m_owner));
    showSet(m_sets.size() - 1);
}

bool PictureSetView::save()
{
    if (!m_changed || m_place >= m_sets.size())
        return true;
    PictureSet &set = m_sets[m_place];
    for (std::size_t slot = 0; slot < std::min(m_slots.size(), set.pictures.size()); ++slot)
        set.pictures[slot].caption = m_slots[slot].caption->text();
    m_changed = !basic::Trap([&] { savePictureRow(m_section, m_owner, set); });
    return !m_changed;
}

void PictureSetView::undo()
{
    if (m_changed)
        showSetsOf(m_owner, m_name);
}

void PictureSetView::step(int direction)
{
    if (save())
        showSet(m_place + static_cast<std::size_t>(direction));
}

// The first picture of a record makes its first set.
void PictureSetView::chooseFor(std::size_t slot)
{
    const QString old = m_place < m_sets.size() ? m_sets[m_place].pictures[slot].path : QString();
    const QString caption = sectionByCode(m_section)->pictures->set->chooser + QString::number(slot);
    const QString path = chooseDataPath({.caption = caption, .path = old, .name = m_name, .screen = window(), .section = m_section});
    if (path == old)
        return;
    if (m_place >= m_sets.size())
        addSet();
    if (m_place >= m_sets.size())
        return;
    m_sets[m_place].pictures[slot].path = path;
    m_changed = true;
    put(slot, path);
}

void PictureSetView::moveBy(std::size_t slot, int direction)
{
    const std::size_t target = slot + static_cast<std::size_t>(direction);
    if (m_place >= m_sets.size() || target >= m_slots.size() || m_sets[m_place].pictures[slot].path.isEmpty())
        return;
    PictureSet &set = m_sets[m_place];
    for (std::size_t i = 0; i < set.pictures.size(); ++i)
        set.pictures[i].caption = m_slots[i].caption->text();
    movePicture(set, slot, target);
    showSet(m_place);
    m_changed = true;
    m_slots[target].image->setFocus();
}

void PictureSetView::showMenu(std::size_t slot, QPoint where)
{
    const bool filled = m_place < m_sets.size() && !m_sets[m_place].pictures[slot].path.isEmpty();
    QMenu menu(this);
    menu.addAction(u"&Choose..."_s, this, [this, slot] { basic::Trap([&] { chooseFor(slot); }); });
    menu.addAction(u"Move &Left"_s, this, [this, slot] { moveBy(slot, -1); })->setEnabled(filled && slot > 0);
    menu.addAction(u"Move &Right"_s, this, [this, slot] { moveBy(slot, 1); })->setEnabled(filled && slot + 1 < m_slots.size());
    menu.addAction(u"Re&move"_s, this, [this, slot] {
        m_sets[m_place].pictures[slot] = {};
        m_slots[slot].caption->clear();
        put(slot, {});
        m_changed = true;
    })->setEnabled(filled);
    menu.exec(where);
}

bool PictureSetView::eventFilter(QObject *watched, QEvent *event)
{
    for (std::size_t slot = 0; slot < m_slots.size(); ++slot) {
        if (watched != m_slots[slot].image)
            continue;
        if (event->type() == QEvent::ContextMenu) {
            showMenu(slot, static_cast<QContextMenuEvent *>(event)->globalPos());
            return true;
        }
        if (event->type() != QEvent::KeyPress)
            continue;
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool left = key->key() == Qt::Key_Left;
        if (key->modifiers() == Qt::ControlModifier && (left || key->key() == Qt::Key_Right)) {
            moveBy(slot, left ? -1 : 1);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}
