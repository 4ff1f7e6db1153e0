#include "records/frmRecordTree.h"

#include "platform/basic/error.h"
#include "platform/controls/colours.h"
#include "session/shared.h"

#include <QAbstractItemModel>
#include <QIcon>
#include <QKeyEvent>
#include <QScrollBar>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

// A tree of up to so many records is opened whole: all of it is seen at once or after little scrolling.
constexpr std::size_t openUpTo = 60;

// Several authors are one group: their lines read on.
QString oneLine(QString text)
{
    return text.replace(u"\r\n"_s, u", "_s).replace(u'\n', u", "_s);
}

}

// The nodes as they were read, and beside them a table of their places: children lie in one run, so that a number says
// parent and row of any node.
class RecordTreeModel : public QAbstractItemModel {
public:
    using QAbstractItemModel::QAbstractItemModel;

    void setNodes(std::vector<records::TreeNode> nodes)
    {
        beginResetModel();
        m_root.children = std::move(nodes);
        m_places.assign(1, {&m_root, 0, 0, 0});
        for (std::size_t i = 0; i < m_places.size(); ++i) {
            m_places[i].firstChild = m_places.size();
            int row = 0;
            for (const records::TreeNode &child : m_places[i].node->children)
                m_places.push_back({&child, i, row++, 0});
        }
        endResetModel();
    }
    bool isEmpty() const { return m_root.children.empty(); }
    std::size_t nodeCount() const { return m_places.size() - 1; }

    // Invalid if no record has that text for its ID.
    QModelIndex find(const QString &idText) const
    {
        bool isNumber = false;
        const qint32 id = idText.toInt(&isNumber);
        if (!isNumber || id == 0 || QString::number(id) != idText)
            return {};
        for (std::size_t i = 1; i < m_places.size(); ++i) {
            if (m_places[i].node->id == id)
                return indexOf(i);
        }
        return {};
    }

    QModelIndex index(int row, int column, const QModelIndex &parent) const override
    {
        return hasIndex(row, column, parent) ? indexOf(place(parent).firstChild + static_cast<std::size_t>(row)) : QModelIndex();
    }
    QModelIndex parent(const QModelIndex &child) const override
    {
        return child.isValid() ? indexOf(place(child).parent) : QModelIndex();
    }
    int rowCount(const QModelIndex &parent) const override { return static_cast<int>(place(parent).node->children.size()); }
    int columnCount(const QModelIndex &) const override { return 1; }
    bool hasChildren(const QModelIndex &parent) const override { return rowCount(parent) > 0; }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!index.isValid())
            return {};
        const records::TreeNode &node = *place(index).node;
        const bool isGroup = node.id == 0;
        switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole: return isGroup && node.text.isEmpty() ? u"(none)"_s : shownApostrophes(oneLine(node.text));
        case Qt::UserRole: return isGroup ? QString() : QString::number(node.id);
        case Qt::FontRole: return isGroup ? QVariant(m_bold) : QVariant();
        case Qt::ForegroundRole: return isGroup ? QVariant(QBrush(m_red)) : node.marked ? QVariant(QBrush(m_mark)) : QVariant();
        case Qt::DecorationRole: return isGroup ? m_folder : m_sheet;
        default: return {};
        }
    }

    void setLook(const QWidget &view)
    {
        m_bold = view.font();
        m_bold.setBold(true);
        // Red, and on a dark background a lighter tint that can be read.
        const bool dark = controls::blackOrWhiteOn(view.palette().color(QPalette::Base)) == Qt::white;
        m_red = dark ? controls::blend(Qt::red, Qt::white, 0.4) : QColor(Qt::red);
        m_mark = dark ? controls::blend(Qt::blue, Qt::white, 0.6) : QColor(Qt::blue);
        m_folder = QIcon::fromTheme(u"folder"_s, view.style()->standardIcon(QStyle::SP_DirIcon));
        m_sheet = QIcon::fromTheme(u"text-x-generic"_s, view.style()->standardIcon(QStyle::SP_FileIcon));
    }

private:
    struct Place {
        const records::TreeNode *node;
        std::size_t parent;
        int row;
        std::size_t firstChild;
    };

    QModelIndex indexOf(std::size_t number) const
    {
        return number == 0 ? QModelIndex() : createIndex(m_places[number].row, 0, static_cast<quintptr>(number));
    }
    const Place &place(const QModelIndex &index) const { return m_places[index.isValid() ? index.internalId() : 0]; }

    records::TreeNode m_root;
    std::vector<Place> m_places{{&m_root, 0, 0, 1}};        // the root first
    QFont m_bold;
    QColor m_red, m_mark;
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
    connect(this, &QTreeView::expanded, this, [this](const QModelIndex &opened) {       // a group opens with what is below its leaves
        for (int row = 0; !opened.parent().isValid() && row < m_model->rowCount(opened); ++row)
            if (const QModelIndex leaf = m_model->index(row, 0, opened); m_model->hasChildren(leaf))
                expand(leaf);
    });
}

bool RecordTree::isEmpty() const
{
    return m_model->isEmpty();
}

void RecordTree::setNodes(std::vector<records::TreeNode> nodes)
{
    QSet<QString> opened;
    for (int row = 0; row < m_model->rowCount({}); ++row) {
        const QModelIndex group = m_model->index(row, 0, {});
        if (isExpanded(group))
            opened.insert(group.data().toString());
    }
    const int place = verticalScrollBar()->value();

    setUpdatesEnabled(false);       // hidden, but for the keyboard: it keeps the tree if it is there
    m_model->setNodes(std::move(nodes));
    const int groups = m_model->rowCount({});
    if (m_model->nodeCount() <= openUpTo + static_cast<std::size_t>(groups)) {
        expandAll();
    } else {
        for (int row = 0; row < groups; ++row) {
            const QModelIndex group = m_model->index(row, 0, {});
            if (opened.contains(group.data().toString()))
                expandRecursively(group);
        }
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

// Emitted on mouse release, so that a question never opens while a button is held.
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

void FillRecordTree(RecordTree &tree, records::TreeReader read, const records::TreeRequest &request)
{
    std::vector<records::TreeNode> nodes;
    basic::Trap([&] {
        const auto show = qScopeGuard([&] { tree.setNodes(std::move(nodes)); });
        read(request, nodes);
    });
}

void SelectTreeNode(RecordTree &tree, const QString &idText)
{
    tree.selectNode(idText);
}

}
