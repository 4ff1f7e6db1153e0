#pragma once

#include <QLayout>
#include <QString>
#include <initializer_list>
#include <variant>

class QAbstractItemView;
class QWidget;

// Forms that read as their picture. One spacing grid of 8 px.
namespace vorel::controls::layout {

inline constexpr int unit = 8;

struct Stretch { int factor = 1; };
struct Space { int pixels = unit; };
using Item = std::variant<QWidget *, QLayout *, Stretch, Space>;

QLayout *Row(std::initializer_list<Item> items);
QLayout *Column(std::initializer_list<Item> items);
// Labelled rows: the label's text (with its mnemonic) and the field, label buddies set.
struct FormRow { QString label; Item field; };
QLayout *Fields(std::initializer_list<FormRow> rows);
QWidget *Group(const QString &name, const QString &title, QLayout *content);
void setMargins(QLayout *layout, int pixels);
void chainTabs(std::initializer_list<QWidget *> widgets);       // the order of the Tab key; all in one window
void setRoomyRows(QAbstractItemView *list);     // rows with some air, for lists that are read rather than worked in

}
