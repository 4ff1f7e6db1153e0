#pragma once

#include "session/recordtree.h"

#include <QTreeView>

namespace vorel {

class RecordTreeModel;

// The records of a section in groups, to any depth. A node's Tag (Qt::UserRole) is the record's ID as text, empty for a
// group.
class RecordTree : public QTreeView {
    Q_OBJECT
public:
    explicit RecordTree(QWidget *parent = nullptr);     // objectName "TreeView"

    // The groups that the user has opened and the place to which the tree is scrolled stay as they are.
    void setNodes(std::vector<records::TreeNode> nodes);
    bool isEmpty() const;
    void selectNode(const QString &idText);             // see SelectTreeNode

signals:
    // By the user's mouse or keys alone; 0 for a group. The node is the current one already.
    void NodeClicked(qint32 id);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void tellCurrent();
    RecordTreeModel *m_model;
    bool m_pressed = false;
};

// Reads the rows and shows them. A failure is shown by the general trap; what was read until then is in the tree, and the
// caller goes on.
void FillRecordTree(RecordTree &tree, records::TreeReader read, const records::TreeRequest &request);
// Selects the node of that Tag and scrolls it into view; without one the first node. Nothing in an empty tree.
void SelectTreeNode(RecordTree &tree, const QString &idText);

}
