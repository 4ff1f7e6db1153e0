#include "records/frmRecordTree.h"

#include "platform/basic/error.h"
#include "platform/controls/colours.h"

#include <QAbstractItemModel>
#include <QIcon>
#include <QKeyEvent>
#include <QScrollBar>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

// A tree of up to so many records stands open: all of it is seen at once or after little scrolling.
constexpr std::size_t openUpTo = 60;
constexpr quintptr groupNode = 0;       // a leaf's internal number is its group's row + 1

}

// The rows as they were read, without a copy per node.
class RecordTreeModel : public QAbstractItemModel {
public:
    using QAbstractItemModel::QAbstractItemModel;

    void setGroups(std::vector<records::TreeGroup> groups)
    {
        beginResetModel();
        m_groups = std::move(groups);
        endResetModel();
    }
    const std::vector<records::TreeGroup> &groups() const { return m_groups; }

    // Invalid if no record has that text for its ID.
    QModelIndex find(const QString &idText) const
    {
        bool isNumber = false;
        const qint32 id = idText.toInt(&isNumber);
        if (!isNumber || QString::number(id) != idText)
            return {};
        for (std::size_t g = 0; g < m_groups.size(); ++g) {
            const auto &leaves = m_groups[g].leaves;
            for (std::size_t row = 0; row < leaves.size(); ++row) {
                if (leaves[row].id == id)
                    return createIndex(static_cast<int>(row), 0, static_cast<quintptr>(g) + 1);
            }
        }
        return {};
    }

    QModelIndex index(int row, int column, const QModelIndex &parent) const override
    {
        if (!hasIndex(row, column, parent))
            return {};
        return createIndex(row, column, parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : groupNode);
    }
    QModelIndex parent(const QModelIndex &child) const override
    {
        return child.isValid() && !isGroup(child) ? createIndex(static_cast<int>(child.internalId()) - 1, 0, groupNode) : QModelIndex();
    }
    int rowCount(const QModelIndex &parent) const override
    {
        if (!parent.isValid())
            return static_cast<int>(m_groups.size());
        return isGroup(parent) ? static_cast<int>(group(parent).leaves.size()) : 0;
    }
    int columnCount(const QModelIndex &) const override { return 1; }
    bool hasChildren(const QModelIndex &parent) const override { return rowCount(parent) > 0; }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!index.isValid())
            return {};
        return isGroup(index) ? groupData(index, role) : leafData(index, role);
    }

    void setLook(const QWidget &view)
    {
        m_bold = view.font();
        m_bold.setBold(true);
        // Red, and on a dark ground a lighter tint that reads well there.
        const bool dark = controls::blackOrWhiteOn(view.palette().color(QPalette::Base)) == Qt::white;
        m_red = dark ? controls::blend(Qt::red, Qt::white, 0.4) : QColor(Qt::red);
        m_folder = QIcon::fromTheme(u"folder"_s, view.style()->standardIcon(QStyle::SP_DirIcon));
        m_sheet = QIcon::fromTheme(u"text-x-generic"_s, view.style()->standardIcon(QStyle::SP_FileIcon));
    }

private:
    static bool isGroup(const QModelIndex &index) { return index.internalId() == groupNode; }
    const records::TreeGroup &group(const QModelIndex &index) const { return m_groups[static_cast<std::size_t>(index.row())]; }

    QVariant groupData(const QModelIndex &index, int role) const
    {
        switch (role) {
        case Qt::DisplayRole: return group(index).text;
        case Qt::UserRole: return QString();
        case Qt::FontRole: return m_bold;
        case Qt::ForegroundRole: return QBrush(m_red);
        case Qt::DecorationRole: return m_folder;
        default: return {};
        }
    }

    QVariant leafData(const QModelIndex &index, int role) const
    {
        const auto &leaves = m_groups[static_cast<std::size_t>(index.internalId() - 1)].leaves;
        const records::TreeLeaf &leaf = leaves[static_cast<std::size_t>(index.row())];
        switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole: return leaf.text;
        case Qt::UserRole: return QString::number(leaf.id);
        case Qt::DecorationRole: return m_sheet;
        default: return {};
        }
    }

    std::vector<records::TreeGroup> m_groups;
    QFont m_bold;
    QColor m_red;
    QIcon m_folder, m_sheet;
};

RecordTree::RecordTree(QWidget *parent) : QTreeView(parent), m_model(new RecordTreeModel(this))
{
    setObjectName(u"TreeView"_s);
    setAccessibleName(u"Records"_s);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    m_model->setLook(*this);
    setModel(m_model);
    connect(this, &QAbstractItemView::pressed, this, [this] { m_pressed = true; });
}

bool RecordTree::isEmpty() const
{
    return m_model->groups().empty();
}

void RecordTree::setGroups(std::vector<records::TreeGroup> groups)
{
    QSet<QString> opened;
    for (int row = 0; row < m_model->rowCount({}); ++row) {
        const QModelIndex group = m_model->index(row, 0, {});
        if (isExpanded(group))
            opened.insert(group.data().toString());
    }
    const int place = verticalScrollBar()->value();
    std::size_t leaves = 0;
    for (const records::TreeGroup &group : groups)
        leaves += group.leaves.size();

    setUpdatesEnabled(false);       // hidden, but for the keyboard: it keeps the tree if it is there
    m_model->setGroups(std::move(groups));
    if (leaves <= openUpTo)
        expandAll();
    else
        for (int row = 0; row < m_model->rowCount({}); ++row) {
            const QModelIndex group = m_model->index(row, 0, {});
            if (opened.contains(group.data().toString()))
                setExpanded(group, true);
        }
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(place);
    setUpdatesEnabled(true);
}

void RecordTree::selectNode(const QString &idText)
{
    if (isEmpty())
        return;
    QModelIndex node = m_model->find(idText);
    if (!node.isValid())
        node = m_model->index(0, 0, {});
    setCurrentIndex(node);
    scrollTo(node, EnsureVisible);
}

void RecordTree::tellCurrent()
{
    if (currentIndex().isValid())
        emit NodeClicked(currentIndex().data(Qt::UserRole).toString().toInt());
}

void RecordTree::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->accept();
        tellCurrent();
        return;
    }
    const QPersistentModelIndex before = currentIndex();
    QTreeView::keyPressEvent(event);
    if (currentIndex() != before)
        tellCurrent();
}

void RecordTree::mousePressEvent(QMouseEvent *event)
{
    m_pressed = false;
    QTreeView::mousePressEvent(event);
}

// Told when the button is let go: what the handler may ask the user then stands over no pressed mouse.
void RecordTree::mouseReleaseEvent(QMouseEvent *event)
{
    QTreeView::mouseReleaseEvent(event);
    if (std::exchange(m_pressed, false))
        tellCurrent();
}

void RecordTree::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        m_model->setLook(*this);
    QTreeView::changeEvent(event);
}

void FillRecordTree(RecordTree &tree, records::TreeMode mode, const QString &databasePath, const QString &table, const QString &field)
{
    std::vector<records::TreeGroup> groups;
    basic::Trap([&] {
        const auto show = qScopeGuard([&] { tree.setGroups(std::move(groups)); });
        records::readRecordTree(mode, databasePath, table, field, groups);
    });
}

void SelectTreeNode(RecordTree &tree, const QString &idText)
{
    tree.selectNode(idText);
}

}
