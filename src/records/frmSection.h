#pragma once

#include "platform/controls/recordform.h"
#include "records/recordrows.h"
#include "records/viewpage.h"
#include "session/recordcall.h"
#include "session/sectiondesign.h"

class QStackedWidget;
class QTabBar;

namespace vorel {

namespace controls {
class PictureBox;
}
class ChildGridView;
class PictureSetView;
class RecordTree;
class SectionPanel;

// The one frame of the record sections: a tree of the records, the picture of the current one, its fields on panels, the
// rows of other tables that belong to it. What it shows is the section's design; a screen of its own has a constructor that
// ends with Load, and its own rules:
//     frmBooks(QWidget *parent) : frmSection(records::booksRecord(), parent) { Load(); }
class frmSection : public controls::RecordForm {
    Q_OBJECT
public:
    RecordOutcome outcome() const { return m_outcome; }
    void AddNewRecord(const QString &sourceID = {});    // a blank row, stored at once; a source has no meaning here
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
    virtual void createOwn() {}                         // more controls; those of the design are on their panels
    virtual void rowShown() {}                          // another row, or none, is on show
    virtual bool prepareSave() { return true; }         // cmdUpdate is about to write; false: it does not
    virtual void tidyRow(bool changed) { Q_UNUSED(changed); }   // a row is written or left, by whichever way
    virtual void afterSave() {}                         // cmdUpdate has written; then the lists are filled again
    virtual void beforeDelete() {}                      // the row on show is about to go
    virtual void afterDelete(qint32 id) { Q_UNUSED(id); }
    virtual void newClicked(int tab);                   // cmdNew; a new record, on the tab of the pictures a new set
    virtual void tabShown(int tab) { Q_UNUSED(tab); }   // from 1
    virtual void childChanged(const QString &grid) { Q_UNUSED(grid); }
    virtual std::vector<records::ViewBlock> pageBlocks() const;
    virtual QString pageHeading() const { return m_design.pageHeading; }

    QWidget *createWidget(const controls::Field &field) override;
    controls::BindOptions bindOptions(const controls::Field &field) const override;
    QWidgetList buttonsBeside(const controls::Field &field) override;
    QFormLayout *formOf(const controls::Field &field) override;
    void pickDate(const controls::Field &field) override;
    void revealField(QWidget *widget) override;
    void runAction(const controls::Field &field) override;      // opens the address that the field holds
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

    SectionPanel *panel(const QString &name) const;     // error 424 for an unknown name
    qint32 currentId() const;                           // 0 without a row
    void placeBesideTrees(QWidget *widget);
    void rebuildTree();                                 // as its button says
    void showTree(const records::TreeButton &button, bool isJustRead = false);   // whatever the buttons show
    ChildGridView *child(const QString &grid) const { return m_children.value(grid); }
    const records::RecordDesign &design() const { return m_design; }

private:
    // Fields (frmSectionFields.cpp)
    void paintField(QWidget *widget, bool focused);
    void chooseSound(const QString &control);
    void fillList(const records::Choices &list);
    void fillWhenUsed(const QString &control);
    QString choosePath(PathKind kind, const QString &name);

    // Layout (frmSectionLayout.cpp)
    void createButtons();
    QLayout *createLeft();
    QWidget *createTree();
    QWidget *createSearch();
    QLayout *createRight();
    void createChildren();
    QWidget *createPicture();
    void composeScreen();
    void orderTabs();
    void placePicInfo();
    QImage groundPicture() const;
    QStringList recordKeys() const;
    QStringList screenKeys() const;

    void loadSettings();
    void connectHandlers();
    void connectKeys();
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
    void showChildren();
    void keepCopyNumber();
    qint32 neighbourId() const;                         // of the record to show when the current one is deleted; 0 = none

    const records::RecordDesign &m_design;
    RecordOutcome m_outcome;
    const records::TreeButton *m_treeButton = nullptr;  // whose tree is on show; nullptr = no tree
    QHBoxLayout *m_treeKeys = nullptr;
    RecordTree *m_tree = nullptr;                       // nullptr = a screen without one
    controls::PictureBox *m_image = nullptr;
    QLabel *m_empty = nullptr;
    QTabBar *m_tabs = nullptr;
    QStackedWidget *m_stack = nullptr;
    controls::DataNavigator *m_navigator = nullptr;
    PictureSetView *m_pictures = nullptr;
    std::vector<SectionPanel *> m_panels;
    QHash<QString, QFormLayout *> m_groups;
    QHash<QString, ChildGridView *> m_children;         // by the grid's name
    std::vector<const records::Choices *> m_unread;     // lists that are read when they are used
    QString m_path;                                     // of the picture on show, emptied if its file no longer exists
    QColor m_back, m_fieldColour, m_focusColour;        // invalid: the palette's own
    bool m_treeAwaited = false;                         // read once the screen is painted
    bool m_new = false;                                 // from AddNewRecord until the next cmdUpdate
};

}
