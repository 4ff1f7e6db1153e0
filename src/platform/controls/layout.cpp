#include "platform/controls/layout.h"

#include <QAbstractItemView>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace vorel::controls::layout {

namespace {

template <class... Cases> struct Either : Cases... { using Cases::operator()...; };
template <class... Cases> Either(Cases...) -> Either<Cases...>;

class RoomyDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, unit);
    }
};

QLayout *box(QBoxLayout *made, std::initializer_list<Item> items)
{
    made->setSpacing(unit);
    made->setContentsMargins(0, 0, 0, 0);
    for (const Item &item : items) {
        std::visit(Either {
            [&](QWidget *widget) { made->addWidget(widget); },
            [&](QLayout *inner) { made->addLayout(inner); },
            [&](Stretch stretch) { made->addStretch(stretch.factor); },
            [&](Space space) { made->addSpacing(space.pixels); },
        }, item);
    }
    return made;
}

// The field that a label's mnemonic goes to: the first one of a row that takes the keyboard.
QWidget *firstField(QLayout *inner)
{
    for (int i = 0; i < inner->count(); ++i) {
        QLayoutItem *item = inner->itemAt(i);
        if (item->widget() && item->widget()->focusPolicy() != Qt::NoFocus)
            return item->widget();
        if (QWidget *deeper = item->layout() ? firstField(item->layout()) : nullptr)
            return deeper;
    }
    return nullptr;
}

}

QLayout *Row(std::initializer_list<Item> items)
{
    return box(new QHBoxLayout, items);
}

QLayout *Column(std::initializer_list<Item> items)
{
    return box(new QVBoxLayout, items);
}

QLayout *Fields(std::initializer_list<FormRow> rows)
{
    auto *made = new QFormLayout;
    made->setContentsMargins(0, 0, 0, 0);
    made->setHorizontalSpacing(unit);
    made->setVerticalSpacing(unit);
    made->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    made->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    made->setRowWrapPolicy(QFormLayout::DontWrapRows);
    for (const FormRow &row : rows) {
        auto *label = new QLabel(row.label);
        std::visit(Either {
            [&](QWidget *widget) {
                label->setBuddy(widget);
                made->addRow(label, widget);
            },
            [&](QLayout *inner) {
                label->setBuddy(firstField(inner));
                made->addRow(label, inner);
            },
            [&](Stretch) { made->addRow(label, new QWidget); },
            [&](Space space) {
                auto *gap = new QWidget;
                gap->setFixedHeight(space.pixels);
                made->addRow(label, gap);
            },
        }, row.field);
    }
    return made;
}

QWidget *Group(const QString &name, const QString &title, QLayout *content)
{
    auto *made = new QGroupBox(title);
    made->setObjectName(name);
    setMargins(content, unit);
    made->setLayout(content);
    return made;
}

void setMargins(QLayout *layout, int pixels)
{
    layout->setContentsMargins(pixels, pixels, pixels, pixels);
}

void setRoomyRows(QAbstractItemView *list)
{
    list->setItemDelegate(new RoomyDelegate(list));
}

}
