#pragma once

#include "platform/controls/datacontrol.h"
#include "platform/controls/field.h"
#include "platform/controls/fieldeditor.h"
#include "platform/controls/form.h"

#include <QHash>
#include <deque>

class QFormLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;

namespace vorel::controls {

class KeyRow;

// A screen over the current row of a data control: a table of fields becomes controls with labels, bound, limited to what
// their fields hold, in the order of the Tab key. Whatever closes the screen writes the row through DataControl::Leave.
// A refusal of a field is shown with the field's name, and the cursor goes there.
class RecordForm : public Form {
    Q_OBJECT
public:
    DataControl &dtaData() { return *m_data; }
    static QFormLayout *createFormLayout();

protected:
    RecordForm(const QString &name, const QString &dataName, QWidget *parent);

    // Building. A field is created, bound and placed in the order of the table; the labels' buddies are set.
    void createFields(const std::vector<Field> &fields);
    // Where the field's line goes; nullptr: it is created and bound, and the screen places lineOf() and labelOf() itself.
    virtual QFormLayout *formOf(const Field &) { return nullptr; }
    virtual QWidget *createWidget(const Field &field);              // as editorOf() the kind says
    virtual BindOptions bindOptions(const Field &field) const;      // likewise
    virtual QWidgetList buttonsBeside(const Field &) { return {}; } // at the end of the field's line
    // A button that is kept under its name. An icon without a caption gets the tip for its accessible name.
    QPushButton *addButton(const ScreenKey &key);
    // A control that the screen created takes part under its objectName.
    void keep(QWidget *widget);
    void placeBeside(const QString &field, QWidget *widget);        // at the end of a field's line
    // The row at the foot: the buttons of the record, lblState, the buttons of the screen. All must be kept.
    KeyRow *createKeyRow(const QStringList &left, const QStringList &right);
    static void chainTabs(const QWidgetList &widgets);              // what takes no focus, and repetitions, are left out
    QWidgetList fieldChain() const;                                 // the fields with their buttons, as read

    // A control by its name, never null: an unknown name or another type throws error 424, which names it.
    template <class W = QWidget> W *control(const QString &name) const
    {
        if (auto *found = qobject_cast<W *>(m_controls.value(name)))
            return found;
        throwNoControl(name);
    }
    template <class W = QWidget> W *control(const QString &array, int index) const { return control<W>(memberName(array, index)); }
    static QString memberName(const QString &array, int index);     // "txtdob(3)"
    bool hasControl(const QString &name) const { return m_controls.contains(name); }
    const QHash<QString, QWidget *> &controls() const { return m_controls; }
    const Field *fieldOf(const QObject *widget) const;              // also of the text box within a list; nullptr = none
    const std::deque<Field> &fields() const { return m_fields; }
    QString text(const QString &name) const;
    void setText(const QString &name, const QString &text);         // an equal text leaves the cursor where it is
    bool ticked(const QString &name) const;
    void setTicked(const QString &name, bool on);
    QWidget *lineOf(const QString &field) const;                    // the field with what is beside it
    QLabel *labelOf(const QString &field) const;                    // nullptr = it has none
    void showField(const QString &field, bool visible);             // with its label and its line

    // Behaviour.
    void onClick(const QString &button, std::function<void()> handler);     // under the trap
    void addShortcut(const QKeySequence &keys, const QString &button);
    // Ctrl+N cmdNew, Ctrl+S cmdUpdate, Alt+Left and Alt+Right through the rows, cmdClose.
    void useRecordKeys();
    virtual void pickDate(const Field &) {}                         // the date's button, F4, Alt+Down, double click
    virtual void revealField(QWidget *) {}                          // its tab comes up
    virtual void runAction(const Field &) {}                        // of a field that has one
    void setRecordTitle(const QString &screen, const QString &record);      // "*" is added while there is unsaved typing
    void showState(const QString &words);                           // beside the buttons, until the row changes
    bool QueryUnload() override { return m_data->Leave(); }
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void createField(const Field &field, bool opensLine);
    QWidget *createLine(const Field &field, QWidget *widget, bool opensLine);
    QLabel *createLabel(const Field &field, QWidget *widget);
    void placeField(const Field &field, QWidget *widget, bool opensLine);
    void keepGraveAccents(QWidget *widget);
    bool filterKey(const Field &field, QEvent *event);
    bool filterAction(const Field &field, QObject *watched, QEvent *event);
    void showRefusal(const QString &text);
    [[noreturn]] void throwNoControl(const QString &name) const;

    DataControl *m_data;
    std::deque<Field> m_fields;                     // references into it stay valid
    QHash<QString, QWidget *> m_controls;           // by objectName
    QHash<QString, QLabel *> m_labels;              // by field control
    QHash<QString, QWidget *> m_lines;              // by field control
    QHash<const QObject *, const Field *> m_fieldOf;
    QHBoxLayout *m_line = nullptr;                  // that the next field may be put beside
    QLabel *m_state = nullptr;
};

}
