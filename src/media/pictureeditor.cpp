#include "media/pictureeditor.h"

#include "platform/desktop/desktop.h"

#include <QStandardPaths>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

std::function<bool(const QString &)> &ownEditor()
{
    static std::function<bool(const QString &)> editor;
    return editor;
}

}

void setPictureEditor(std::function<bool(const QString &)> editor)
{
    ownEditor() = std::move(editor);
}

bool editPicture(const QString &path)
{
    if (ownEditor())
        return ownEditor()(path);
    // The simple ones first: a picture is most often only cut or turned.
    for (const QString &name : {u"kolourpaint"_s, u"pinta"_s, u"drawing"_s, u"mtpaint"_s, u"gthumb"_s, u"krita"_s, u"gimp"_s}) {
        const QString program = QStandardPaths::findExecutable(name);
        if (!program.isEmpty() && desktop::ShellExecute(program, {path}))
            return true;
    }
    return desktop::ShellExecute(path);
}

}
