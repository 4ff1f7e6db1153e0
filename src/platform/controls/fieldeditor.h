#pragma once

#include "platform/controls/datacontrol.h"
#include "platform/controls/field.h"

// What a kind of field is made of: all that depends on the kind alone.
namespace vorel::controls {

struct FieldEditor {
    enum class Width { All, Middle, Narrow, Own };      // of its line; Own: as wide as it is

    QWidget *(*create)(const Field &field, QWidget *parent);
    BindOptions (*bind)() = nullptr;                    // nullptr: the value as it is
    Width width = Width::All;
    bool painted = true;                                // takes the colours of fields
};
const FieldEditor &editorOf(FieldKind kind);

}
