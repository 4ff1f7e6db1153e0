#pragma once

#include "platform/controls/datacontrol.h"

// What the data control needs of a widget that shows a field: one adapter per kind of widget.
namespace vorel::controls::adapter {

// A text that identifies what the widget shows; the same text means the same content.
QString content(const QWidget &widget);
QString text(const QWidget &widget);
void setText(QWidget &widget, const QString &text);
void fill(QWidget &widget, const dao::Value &value, const BindOptions &options);
// What the widget's content is as a field's value. May throw what options.store throws.
dao::Value stored(const QWidget &widget, const BindOptions &options, dao::DataType type);
// Runs the step after each change of the content. Nothing for a label: it changes by code alone.
void onChange(QWidget &widget, QObject *context, const std::function<void()> &step);
// More than so many characters, as they are stored, are not taken in. 0 = no limit.
void limit(QWidget &widget, int size, const BindOptions &options);

}
