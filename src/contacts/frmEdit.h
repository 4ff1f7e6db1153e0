#pragma once

#include <QString>
#include <optional>

class QWidget;

namespace vorel {

// The enlarged edit screen (frmEdit): one text in large letters, modal. room: how many characters the field holds, 0 = any number.
// nullopt: left without a change.
std::optional<QString> enlargedEdit(const QString &caption, const QString &text, qsizetype room, QWidget *parent);

}
