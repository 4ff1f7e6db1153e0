#include "platform/controls/griddelegate.h"

#include <QComboBox>
#include <QLineEdit>

// The box in which a cell is typed into: a plain one, or one with a list of choices.
namespace vorel::controls {

namespace {

constexpr int leastHeight = 22;         // below this the frame of the editor covers its text

QLineEdit *lineOf(QWidget *editor)
{
    auto *combo = qobject_cast<QComboBox *>(editor);
    return combo ? combo->lineEdit() : qobject_cast<QLineEdit *>(editor);
}

// The choices are shown in rows as high as the grid's.
QComboBox *listBox(QWidget *parent, const CellEdit &edit, int rowHeight)
{
    auto *combo = new QComboBox(parent);
    combo->setObjectName(edit.listName);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    basic::Trap([&] { combo->addItems(edit.list()); });
    const int height = std::max(rowHeight, combo->fontMetrics().height() + 2);
    for (int i = 0; i < combo->count(); ++i)
        combo->setItemData(i, QSize(0, height), Qt::SizeHintRole);
    return combo;
}

}

void GridDelegate::forgetEditor(const QWidget *editor)
{
    if (m_editor == editor)
        m_editor.clear();
}

void GridDelegate::openList() const
{
    if (auto *combo = qobject_cast<QComboBox *>(m_editor.data()))
        combo->showPopup();
}

QWidget *GridDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const CellEdit *edit = m_model.edit(index.column());
    if (!edit)
        return nullptr;
    const GridColumn &column = m_model.columns()[static_cast<std::size_t>(index.column())];
    m_editor = edit->list ? static_cast<QWidget *>(listBox(parent, *edit, option.rect.height())) : new QLineEdit(parent);
    if (m_editor->objectName().isEmpty())
        m_editor->setObjectName(QStringLiteral("txtCell"));
    QLineEdit *line = lineOf(m_editor);
    line->setAlignment(column.alignment | Qt::AlignVCenter);
    m_editor->setAccessibleName(column.caption);
    emit opened();
    return m_editor;
}

void GridDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QString text = index.data(Qt::EditRole).toString();
    if (auto *combo = qobject_cast<QComboBox *>(editor)) {
        combo->setCurrentIndex(combo->findText(text, Qt::MatchFixedString));
        combo->setEditText(text);
    } else if (QLineEdit *line = lineOf(editor); line && line->text() != text) {
        line->setText(text);
    }
}

void GridDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    if (const QLineEdit *line = lineOf(editor))
        model->setData(index, line->text(), Qt::EditRole);
}

// A low row's cell opens a little higher than it is, so that the text is not cut.
void GridDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex &) const
{
    QRect place = option.rect;
    const int height = std::max(place.height(), std::max(leastHeight, editor->fontMetrics().height() + 6));
    place.setTop(std::max(0, place.center().y() - height / 2));
    place.setHeight(height);
    editor->setGeometry(place);
}

}
