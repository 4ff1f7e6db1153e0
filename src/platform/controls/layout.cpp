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

QLayout *box(QBoxLayout *layout, std::initializer_list<Item> items)
{
    layout->setSpacing(unit);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const Item &item : items) {
        std::visit(Either {
            [&](QWidget *widget) { layout->addWidget(widget); },
            [&](QLayout *inner) { layout->addLayout(inner); },
            [&](Stretch stretch) { layout->addStretch(stretch.factor); },
            [&](Space space) { layout->addSpacing(space.pixels); },
        }, item);
    }
    return layout;
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
    auto *form = new QFormLayout;
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(unit);
    form->setVerticalSpacing(unit);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setRowWrapPolicy(QFormLayout::DontWrapRows);
    for (const FormRow &row : rows) {
        auto *label = new QLabel(row.label);
        std::visit(Either {
            [&](QWidget *widget) {
                label->setBuddy(widget);
                form->addRow(label, widget);
            },
            [&](QLayout *inner) {
                label->setBuddy(firstField(inner));
                form->addRow(label, inner);
            },
            [&](Stretch) { form->addRow(label, new QWidget); },
            [&](Space space) {
                auto *gap = new QWidget;
                gap->setFixedHeight(space.pixels);
                form->addRow(label, gap);
            },
        }, row.field);
    }
    return form;
}

QWidget *Group(const QString &name, const QString &title, QLayout *content)
{
    auto *group = new QGroupBox(title);
    group->setObjectName(name);
    setMargins(content, unit);
    group->setLayout(content);
    return group;
}

void setMargins(QLayout *layout, int pixels)
{
    layout->setContentsMargins(pixels, pixels, pixels, pixels);
}

void chainTabs(std::initializer_list<QWidget *> widgets)
{
    QWidget *before = nullptr;
    for (QWidget *widget : widgets) {
        if (before && widget)
            QWidget::setTabOrder(before, widget);
        before = widget ? widget : before;
    }
}

void setRoomyRows(QAbstractItemView *list)
{
    list->setItemDelegate(new RoomyDelegate(list));
}

}
