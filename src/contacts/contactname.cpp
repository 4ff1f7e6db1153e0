#include "contacts/contactname.h"

#include "session/recordtree.h"
#include "session/shared.h"

namespace vorel::contacts {

using namespace Qt::StringLiterals;

namespace {

QString inCase(const QString &text, bool capitals)
{
    const QString name = text.trimmed();
    return capitals ? name.toUpper() : records::MixedCaseName(name);
}

}

ContactName applyNameRule(ContactName name, bool capitals)
{
    name.companyName = inCase(name.companyName, capitals);
    name.lastName = name.isPrivate ? inCase(name.lastName, capitals) : name.companyName;
    const QString first = name.firstName.trimmed();
    if (name.isPrivate || !name.lastName.isEmpty()) {
        name.sortName = first.isEmpty() ? name.lastName : name.lastName + u", "_s + first;
        if (!capitals)                      // under capitals a first name stays as it was typed
            name.sortName = records::MixedCaseName(name.sortName);
    } else {
        name.sortName = name.companyName;
    }
    name.fullName = capitals ? name.sortName.trimmed() : inCase(name.sortName, false);
    if (!name.isPrivate) {
        name.firstName.clear();
        name.middleName.clear();
    }
    if (const QString middle = name.middleName.trimmed(); !middle.isEmpty())
        name.fullName += u' ' + middle;
    if (name.sortName.isEmpty()) {
        name.sortName = u" "_s;
        if (name.fullName.isEmpty())
            name.fullName = name.sortName;
        name.lastName = name.sortName;
    }
    name.sortName = graveApostrophes(name.sortName);
    name.fileAs = name.sortName;
    return name;
}

void makeBusiness(ContactName &name)
{
    name.isPrivate = false;
    if (name.companyName.trimmed().isEmpty())
        name.companyName = (name.lastName.trimmed() + u' ' + name.firstName.trimmed()).trimmed();
    name.firstName.clear();
    name.middleName.clear();
}

}
