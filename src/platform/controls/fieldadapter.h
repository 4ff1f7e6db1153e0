#pragma once

#include "platform/controls/datacontrol.h"

// What the data control needs of a widget that shows a field: one adapter per kind of widget.
namespace vorel::controls::adapter {

// A text that stands for what the widget shows; the same text means the same content.
QString content(const QWidget &widget);
void fill(QWidget &widget, const dao::Value &value, const BindOptions &options);
// What the widget's content is as a field's value. May throw what options.store throws.
dao::Value stored(const QWidget &widget, const BindOptions &options, dao::DataType type);

}
