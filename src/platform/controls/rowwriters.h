#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <vector>

// What else writes to the current row of a data control, or to rows that hang on it: grids, child grids, picture sets.
namespace vorel::controls {

class RowWriters {
public:
    // A second writer of an owner replaces the first.
    void add(QObject *owner, std::function<bool()> write, std::function<void()> undo, std::function<bool()> changed,
             std::function<void()> retake);
    bool write();               // false: one of them was refused; those behind it are not asked
    bool haveChanges() const;   // as far as they say so
    void undo();
    void forgetWritten();       // what was written is stored for good
    void retake();              // what was written since was taken back by the store: it is unsaved typing again

private:
    struct Writer {
        QPointer<QObject> owner;
        std::function<bool()> write;
        std::function<void()> undo;
        std::function<bool()> changed;
        std::function<void()> retake;
        bool hasWritten = false;
    };
    std::vector<Writer> m_writers;
};

}
