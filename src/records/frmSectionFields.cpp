#include "records/frmSection.h"

#include "calendar/picker.h"
#include "session/state.h"
#include "platform/basic/format.h"
#include "platform/controls/colours.h"
#include "platform/controls/layout.h"
#include "platform/controls/look.h"
#include "platform/controls/picturebox.h"
#include "platform/controls/richtextbox.h"
#include "records/frmRecordTree.h"
#include "records/frmSectionPanel.h"
#include "records/inventory.h"
#include "records/webaddress.h"
#include "session/frmColours.h"
#include "session/shared.h"
#include "utilities/frmInformationFormat.h"

#include <QApplication>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTimer>

// What the record sections add to the fields: dates and amounts in the user's form, the buttons of paths, the colours.
namespace vorel {

using namespace Qt::StringLiterals;
using controls::Field;
using controls::FieldKind;
namespace layout = controls::layout;

QWidget *frmSection::createWidget(const Field &field)
{
    QWidget *widget = RecordForm::createWidget(field);
    if (auto *box = qobject_cast<controls::RichTextBox *>(widget)) {
        useFormatMenu(box);
        holdMainTimer(box);
    }
    return widget;
}

controls::BindOptions frmSection::bindOptions(const Field &field) const
{
    controls::BindOptions options = RecordForm::bindOptions(field);
    if (field.kind == FieldKind::Date) {
        options.show = [](const basic::Value &stored) { return records::shownDate(stored.text()); };
        options.store = [](const QString &text) { return basic::Value(records::shownDate(text)); };
    } else if (field.kind == FieldKind::Amount) {
        options.show = [](const basic::Value &stored) { return basic::Format(stored, state().settings.gNumberFormat); };
    }
    return options;
}

QWidgetList frmSection::buttonsBeside(const Field &field)
{
    if (field.kind != FieldKind::Path)
        return {};
    if (field.control == u"lblPictureFile") {
        QPushButton *choose = addButton({u"cmdPicture"_s, u"&Picture..."_s, u"insert-image"_s, u" Selects a Picture "_s});
        onClick(u"cmdPicture"_s, [this] { GetFilePath(); });
        return {choose};
    }
    const QString name = field.control;
    QPushButton *choose = addButton({u"cmdSound"_s, u"&Sound..."_s, u"folder-music"_s, u" Selects a Sound File "_s});
    QPushButton *play = addButton({u"cmdPlay"_s, u"Pla&y"_s, u"media-playback-start"_s, u" Plays the Sound File "_s});
    onClick(u"cmdSound"_s, [this, name] { chooseSound(name); });
    onClick(u"cmdPlay"_s, [this, name] { playSoundFile(text(name).trimmed()); });
    return {choose, play};
}

QFormLayout *frmSection::formOf(const Field &field)
{
    SectionPanel *on = panel(field.panel);
    if (field.group.isEmpty())
        return on->form(field.column);
    if (QFormLayout *form = m_groups.value(field.group))
        return form;
    QString title;
    for (const records::Group &group : m_design.groups) {
        if (group.name == field.group)
            title = group.title;
    }
    QFormLayout *form = createFormLayout();
    QWidget *box = layout::Group(field.group, title, form);
    box->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    keep(box);
    on->form(field.column)->addRow(box);
    m_groups.insert(field.group, form);
    return form;
}

// The box shows the short form in which the field is stored.
void frmSection::pickDate(const Field &field)
{
    OpenDatePicker(control<QWidget>(field.control), state().settings.gDateShort);
}

void frmSection::revealField(QWidget *widget)
{
    for (int tab = 0; tab < m_stack->count(); ++tab) {
        if (m_stack->widget(tab)->isAncestorOf(widget))
            ShowInfo(tab + 1);
    }
}

void frmSection::runAction(const Field &field)
{
    records::openAddress(text(field.control));
}

void frmSection::GetColours()
{
    QPalette own = QApplication::palette();
    if (m_back.isValid()) {
        own.setColor(QPalette::Window, m_back);
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
            own.setColor(group, QPalette::WindowText, controls::blackOrWhiteOn(m_back));
    }
    // The desktop's own colour of disabled words can vanish on the background.
    const QColor back = own.color(QPalette::Window);
    const QColor faint = controls::blend(back, controls::blackOrWhiteOn(back), 0.55);
    own.setColor(QPalette::Disabled, QPalette::WindowText, faint);
    own.setColor(QPalette::Disabled, QPalette::ButtonText, faint);
    setPalette(own);
    const QImage ground = groundPicture();
    for (SectionPanel *panel : m_panels)
        panel->setGround(back, ground);
    for (const Field &field : fields())
        paintField(control<QWidget>(field.control), control<QWidget>(field.control)->hasFocus());
}

void frmSection::paintField(QWidget *widget, bool focused)
{
    const Field *field = fieldOf(widget);
    if (!field || !controls::editorOf(field->kind).painted)
        return;
    QPalette own = QApplication::palette();
    QColor ground = focused ? m_focusColour : m_fieldColour;
    if (!ground.isValid())                  // the stock colours; yellow by itself is loud, and wrong on dark screens
        ground = own.color(QPalette::Base);
    if (focused && !m_focusColour.isValid())
        ground = controls::blend(ground, QColor(Qt::yellow), ground.lightness() > 128 ? 0.3 : 0.15);
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        own.setColor(group, QPalette::Base, ground);
        own.setColor(group, QPalette::Text, controls::readable(own.color(QPalette::Active, QPalette::Text), ground));
        own.setColor(group, QPalette::PlaceholderText, controls::placeholderOn(ground));
    }
    widget->setPalette(own);
}

bool frmSection::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_image && event->type() == QEvent::Resize)
        placePicInfo();
    if (m_treeAwaited && event->type() == QEvent::Paint && watched == m_tree->viewport()) {
        m_treeAwaited = false;
        QTimer::singleShot(0, handlers(), [this] { showTree(*m_treeButton, true); });
    }
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        if (const Field *field = fieldOf(watched); field && event->type() == QEvent::FocusIn)
            fillWhenUsed(field->control);
        if (const Field *field = fieldOf(watched))
            paintField(control<QWidget>(field->control), event->type() == QEvent::FocusIn);
    }
    return RecordForm::eventFilter(watched, event);
}

}
