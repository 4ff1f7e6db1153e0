#pragma once

#include "platform/controls/grid.h"
#include "session/recorddesign.h"

#include <QWidget>

namespace vorel {

// The rows of another table that belong to the record on show, in a grid on a panel. What is typed in it is written with
// the record, and holds the record back where it is refused.
class ChildGridView : public QWidget {
    Q_OBJECT
public:
    ChildGridView(const records::ChildGrid &design, const QString &path, controls::DataControl *parent, QWidget *panel);

    controls::Grid *grid() const { return m_grid; }
    controls::DataControl *data() const { return m_data; }
    void showRowsOf(const QString &key);                // the record's number or name; "" = no record
    const records::ChildGrid &design() const { return m_design; }

signals:
    void rowsChanged();                                 // a row was stored or deleted

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void createColumns();
    void sizeColumns();
    void deleteRow();
    basic::Value keyValue() const;

    const records::ChildGrid &m_design;
    QString m_key;
    controls::DataControl *m_data;
    controls::Grid *m_grid;
};

}
