#pragma once

#include <QString>

namespace vorel::contacts {

// What a contact is called. The screen, the short form, imports and the repair all build its names by applyNameRule.
struct ContactName {
    bool isPrivate = true;              // a person; else a business
    QString lastName{}, firstName{}, middleName{}, companyName{};
    QString fullName{};                 // "Smith, Jo Ann"
    QString sortName{};                 // "Smith, Jo"; no apostrophes, never empty
    QString fileAs{};
    bool operator==(const ContactName &) const = default;
};

// capitals: last names and companies in capitals (namesInCapitals()), else all names in mixed case. A business takes its company for
// the last name and has no first and middle name. A contact without any name is called by one blank.
ContactName applyNameRule(ContactName name, bool capitals);

// The change of a person into a business: a missing company is made of the names, which the rule empties afterwards.
void makeBusiness(ContactName &name);

}
