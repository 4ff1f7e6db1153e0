#include "contacts/frmCategories.h"

#include "contacts/categories.h"
#include "platform/controls/layout.h"
#include "platform/desktop/hourglass.h"
#include "session/shared.h"

#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

namespace vorel {

using namespace Qt::StringLiterals;
namespace layout = controls::layout;

frmCategories::frmCategories(const QString &databasePath, QWidget *parent)
    : Form(u"frmCategories"_s, parent), m_path(databasePath), m_list(new QListWidget(this))
{
    setWindowTitle(u"Categories"_s);
    m_list->setObjectName(u"lstCategories"_s);
    m_list->setAccessibleName(u"Categories that are shown"_s);
    auto *note = new QLabel(u"Clear a tick to put the contacts of that category away. Nothing is deleted."_s, this);
    note->setObjectName(u"lblNote"_s);
    note->setWordWrap(true);
    auto *close = controls::button(u"cmdClose"_s, u"Cl&ose"_s, u"window-close"_s);
    auto *all = new QVBoxLayout(this);
    layout::setMargins(all, 2 * layout::unit);
    all->setSpacing(2 * layout::unit);
    all->addWidget(note);
    all->addWidget(m_list, 1);
    all->addLayout(layout::Row({layout::Stretch{}, close}));
    resize(48 * layout::unit, 52 * layout::unit);
    FillList();
    controls::on(close, &QAbstractButton::clicked, handlers(), [this] { Close(); });
    controls::on(m_list, &QListWidget::itemChanged, handlers(), [this](QListWidgetItem *item) { itemChanged(item); });
    m_list->setFocus();
}

void frmCategories::FillList()
{
    const QSignalBlocker quiet(m_list);
    m_list->clear();
    basic::Trap([this] {
        for (const contacts::CategoryRow &row : contacts::readCategories(m_path)) {
            auto *item = new QListWidgetItem(shownApostrophes(row.name), m_list);
            item->setData(Qt::UserRole, row.name);
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
            item->setCheckState(row.isShown ? Qt::Checked : Qt::Unchecked);
        }
    });
    m_list->setCurrentRow(0);
}

// A tick that could not be stored goes back to what is.
void frmCategories::itemChanged(QListWidgetItem *item)
{
    const desktop::Hourglass busy;
    const bool isShown = item->checkState() == Qt::Checked;
    if (basic::Trap([&] { contacts::showCategory(m_path, item->data(Qt::UserRole).toString(), isShown); }))
        return;
    const QSignalBlocker quiet(m_list);
    item->setCheckState(isShown ? Qt::Unchecked : Qt::Checked);
}

}
