#pragma once

#include "media/picturerows.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace vorel {

namespace controls {
class PictureBox;
}

// The further pictures of a record: sets of six or ten, each with a caption. A click chooses a slot's picture; Ctrl+Left and
// Ctrl+Right, or its menu, move it among the slots.
//     auto *pictures = new PictureSetView("P", panel);
//     pictures->showSetsOf({id, name}, name);
class PictureSetView : public QWidget {
    Q_OBJECT
public:
    PictureSetView(const QString &section, QWidget *parent);

    void showSetsOf(const PictureOwner &owner, const QString &name);    // an ID of 0: no record
    void addSet();                                      // shown then
    bool save();                                        // false: refused, and the reason was shown
    void undo();                                        // back to the stored set
    bool isChanged() const { return m_changed; }
    void retake() { m_changed = true; }                 // its save was taken back by the store

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct SlotBoxes {
        controls::PictureBox *image;
        QLineEdit *caption;
    };

    QLayout *createSlots();
    QLayout *createButtons();
    void showSet(std::size_t place);
    void step(int direction);                           // to another set; the one on show is saved first
    void chooseFor(std::size_t slot);
    void moveBy(std::size_t slot, int direction);
    void showMenu(std::size_t slot, QPoint where);
    void put(std::size_t slot, const QString &path);

    const QString m_section;
    PictureOwner m_owner;
    QString m_name;
    std::vector<PictureSet> m_sets;
    std::size_t m_place = 0;
    std::vector<SlotBoxes> m_slots;
    QLabel *m_position = nullptr;
    QToolButton *m_previous = nullptr, *m_next = nullptr;
    QPushButton *m_show = nullptr;
    bool m_changed = false;
};

}
