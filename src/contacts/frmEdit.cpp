#include "contacts/frmEdit.h"

#include "platform/controls/form.h"
#include "platform/controls/layout.h"
#include "session/shared.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace vorel {

using namespace Qt::StringLiterals;
namespace layout = controls::layout;

std::optional<QString> enlargedEdit(const QString &caption, const QString &text, qsizetype room, QWidget *parent)
{
    controls::Form form(u"frmEdit"_s, parent);
    form.setWindowTitle(caption);
    auto *edit = new QLineEdit(&form);
    edit->setObjectName(u"txtEdit"_s);
    edit->setAccessibleName(caption);
    QFont large = edit->font();
    large.setPointSizeF(large.pointSizeF() * 2);
    edit->setFont(large);
    edit->setMinimumWidth(70 * layout::unit);
    if (room > 0)
        edit->setMaxLength(static_cast<int>(room));
    edit->setText(text);
    auto *keep = controls::button(u"cmdUpdate"_s, u"&OK"_s, u"dialog-ok"_s);
    auto *leave = controls::button(u"cmdClose"_s, u"&Cancel"_s, u"dialog-cancel"_s);
    auto *all = new QVBoxLayout(&form);
    layout::setMargins(all, 2 * layout::unit);
    all->setSpacing(2 * layout::unit);
    all->addWidget(edit);
    all->addLayout(layout::Row({layout::Stretch{}, keep, leave}));
    bool isKept = false;
    const auto accept = [&] {
        isKept = true;
        form.Close();
    };
    controls::on(keep, &QAbstractButton::clicked, form.handlers(), accept);
    controls::on(edit, &QLineEdit::returnPressed, form.handlers(), accept);
    controls::on(leave, &QAbstractButton::clicked, form.handlers(), [&form] { form.Close(); });
    edit->selectAll();
    edit->setFocus();
    form.ShowModal();
    if (!isKept)
        return std::nullopt;
    return graveApostrophes(edit->text());
}

}
