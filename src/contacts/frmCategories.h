#pragma once

#include "platform/controls/form.h"

class QListWidget;
class QListWidgetItem;

namespace vorel {

// The categories of the contacts with a tick each; clearing it puts the category's contacts away.
class frmCategories : public controls::Form {
    Q_OBJECT
public:
    explicit frmCategories(const QString &databasePath, QWidget *parent = nullptr);

private:
    void FillList();
    void itemChanged(QListWidgetItem *item);

    const QString m_path;
    QListWidget *m_list;
};

}
