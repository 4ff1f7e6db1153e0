#pragma once

#include "platform/controls/datacontrol.h"
#include "platform/controls/form.h"
#include "records/recordrows.h"
#include "records/viewpage.h"

#include <QHash>

class QFormLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTabBar;

namespace vorel {

namespace controls {
class PictureBox;
}
class MainScreen;
class RecordTree;
class SectionPanel;

// The one frame of the record sections: a tree of the records, the picture of the current one, its fields on panels. What
// it shows is the section's table; a screen of its own has a constructor that ends with Load, and its own rules:
//     frmBooks(QWidget *parent) : frmSection(records::booksRecord(), parent) { Load(); }
// Every road away from a row goes through DataControl::Leave, which writes it.
class frmSection : public controls::Form {
    Q_OBJECT
public:
    ~frmSection() override;

    controls::DataControl &dtaData() { return *m_data; }
    void AddNewRecord(const QString &sourceID = {});    // a blank row, stored at once; the source is for the callers' sake
    void AllowInput();
    void FillLists();
    void CheckOptions();
    void GetFilePath();
    void ShowInfo(int tab);                             // from 1
    void GetColours();
    void ShowPic();

protected:
    frmSection(const records::RecordDesign &design, QWidget *parent);
    void Load();

    // The rules of a section's own.
    virtual void createOwn() {}                         // more controls; the table's stand on their panels
    virtual void rowShown() {}                          // another row, or none, is on show
    virtual void beforeSave();                          // cmdUpdate is about to write
    // The rows of other tables that hang on the record go with it, in its transaction.
    virtual void deleteChildren(dao::Database &, qint32) {}
    virtual void afterSave() {}                         // ... has written; then the lists are filled anew
    virtual std::vector<records::ViewBlock> pageBlocks() const;

    bool QueryUnload() override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

    template <class W = QWidget> W *control(const QString &name) const { return qobject_cast<W *>(m_controls.value(name)); }
    QString text(const QString &name) const;
    void setText(const QString &name, const QString &text);     // an equal text leaves the cursor where it is
    bool ticked(const QString &name) const;
    SectionPanel *panel(const QString &name) const { return m_panels.value(name); }
    qint32 currentId() const;                           // 0 without a row
    void keep(QWidget *made);                           // a control made by createOwn takes part under its name
    QPushButton *addButton(const QString &name, const QString &caption, const QString &icon, const QString &tip);
    void placeBesideTrees(QWidget *made);
    void placeBeside(const QString &field, QWidget *made);      // at the end of a field's line
    void showTree(records::TreeMode mode, const QString &field);
    const records::RecordDesign &design() const { return m_design; }

private:
    // Fields (frmSectionFields.cpp)
    void createFields();
    QWidget *createWidget(const records::Field &field);
    QWidget *withKeys(const records::Field &field, QWidget *widget);
    void placeField(const records::Field &field, QWidget *widget);
    QFormLayout *formOf(const records::Field &field);
    controls::BindOptions bindOptions(const records::Field &field) const;
    void limitTexts();
    void pickDate(const records::Field &field);
    bool filterKey(const records::Field &field, QObject *watched, QEvent *event);
    void paintField(QWidget *widget, bool focused);
    void chooseSound(const QString &control);
    QString choosePath(const QString &caption, const QString &name);

    // Layout (frmSectionLayout.cpp)
    void createButtons();
    QLayout *createLeft();
    QLayout *createRight();
    QLayout *createKeys();
    QWidget *createPicture();
    void composeScreen();
    void orderTabs();
    void placePicInfo();
    QImage groundPicture() const;

    void loadSettings();
    void connectHandlers();
    void dtaData_Reposition();
    void TreeView_NodeClick(qint32 id);
    void treeButton_Click(const records::TreeButton &button);
    void highlight(const QString &name);
    void selectNode();
    void holdMainTimer(QWidget *box);
    void cmdUpdate_Click();
    void cmdDelete_Click();
    void cmdView_Click();
    void cmdColor_Click();

    const records::RecordDesign &m_design;
    controls::DataControl *m_data;
    MainScreen *m_main = nullptr;
    QHBoxLayout *m_treeKeys = nullptr;
    RecordTree *m_tree = nullptr;
    controls::PictureBox *m_image = nullptr;
    QLabel *m_empty = nullptr;
    QTabBar *m_tabs = nullptr;
    QStackedWidget *m_stack = nullptr;
    controls::DataNavigator *m_navigator = nullptr;
    QHash<QString, QWidget *> m_controls;               // by objectName
    QHash<QString, QLabel *> m_labels;                  // by field control
    QHash<QString, QWidget *> m_lines;                  // by field control: the field with its keys
    QHash<QString, SectionPanel *> m_panels;
    QHash<QString, QFormLayout *> m_groups;
    QHash<QObject *, const records::Field *> m_fieldOf; // also by the text box within a list
    QString m_path;                                     // of the picture on show, emptied where its file has gone
    QColor m_back, m_fieldColour, m_focusColour;        // invalid: the palette's own
    bool m_new = false;                                 // from AddNewRecord until the next cmdUpdate
    bool m_ending = false;
};

}
