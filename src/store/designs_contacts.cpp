#include "store/designs.h"

#include "store/designfields.h"

namespace vorel::store {

using dao::TableDef;
using namespace design;
using namespace Qt::StringLiterals;

const std::vector<TableDef> &contactsDesigns()
{
    static const std::vector<TableDef> tables = {
        table(u"Contacts"_s,
              {counter(u"ID"_s), text(u"Anniversary"_s, 50), text(u"AssistantName"_s, 50),
               text(u"AssistantTelephoneNumber"_s, 50), text(u"Birthday"_s, 11), memo(u"Body"_s),
               text(u"Business2TelephoneNumber"_s, 50), text(u"BusinessAddress"_s, 200),
               text(u"BusinessAddressCity"_s, 50), text(u"BusinessAddressCountry"_s, 50),
               text(u"BusinessAddressPostalCode"_s, 10), text(u"BusinessAddressPostOfficeBox"_s, 20),
               text(u"BusinessAddressState"_s, 20), text(u"BusinessAddressStreet"_s, 100),
               text(u"BusinessFaxNumber"_s, 50), text(u"BusinessHomePage"_s, 200),
               text(u"BusinessTelephoneNumber"_s, 50), text(u"CallbackTelephoneNumber"_s, 50),
               text(u"CarTelephoneNumber"_s, 50), text(u"Categories"_s, 200), text(u"Children"_s, 200),
               text(u"Companies"_s, 50), text(u"CompanyAndFullName"_s, 200), text(u"CompanyLastFirstNoSpace"_s, 100),
               text(u"CompanyLastFirstSpaceOnly"_s, 100), text(u"CompanyMainTelephoneNumber"_s, 50),
               text(u"CompanyName"_s, 200), text(u"ComputerNetworkName"_s, 100), text(u"ConversationIndex"_s, 2),
               text(u"ConversationTopic"_s, 100), text(u"CreationTime"_s, 25), text(u"CustomerID"_s, 20),
               text(u"Department"_s, 200), text(u"Email1Address"_s, 75), text(u"Email1DisplayName"_s, 75),
               text(u"Email2Address"_s, 75), text(u"Email2DisplayName"_s, 75), text(u"Email3Address"_s, 75),
               text(u"Email3AddressType"_s, 12), text(u"Email3DisplayName"_s, 75), text(u"FileAs"_s, 200),
               text(u"FirstName"_s, 100), text(u"FormDescription"_s, 50), text(u"FTPSite"_s, 100),
               text(u"Fullname"_s, 200), text(u"FullNameAndCompany"_s, 200), text(u"Gender"_s, 10),
               text(u"GovernmentIDNumber"_s, 25), text(u"Hobby"_s, 200), text(u"Home2TelephoneNumber"_s, 50),
               text(u"HomeAddress"_s, 200), text(u"HomeAddressCity"_s, 50), text(u"HomeAddressCountry"_s, 50),
               text(u"HomeAddressPostalCode"_s, 10), text(u"HomeAddressPostOfficeBox"_s, 20),
               text(u"HomeAddressState"_s, 20), text(u"HomeAddressStreet"_s, 100), text(u"HomeFaxNumber"_s, 50),
               text(u"HomeTelephoneNumber"_s, 50), text(u"IMAddress"_s, 50), text(u"Initials"_s, 10),
               text(u"InternetFreeBusyAddress"_s, 50), text(u"ISDNNumber"_s, 50), text(u"JobTitle"_s, 60),
               text(u"Language"_s, 100), text(u"LastFirstAndSuffix"_s, 50), text(u"LastFirstNoSpace"_s, 50),
               text(u"LastFirstNoSpaceAndSuffix"_s, 50), text(u"LastFirstNoSpaceCompany"_s, 50),
               text(u"LastFirstSpaceOnly"_s, 50), text(u"LastFirstSpaceOnlyCompany"_s, 50),
               text(u"LastModificationTime"_s, 22), text(u"LastName"_s, 100), text(u"LastNameAndFirstName"_s, 100),
               text(u"MailingAddress"_s, 200), text(u"MailingAddressCity"_s, 50), text(u"MailingAddressCountry"_s, 50),
               text(u"MailingAddressPostalCode"_s, 10), text(u"MailingAddressPostOfficeBox"_s, 20),
               text(u"MailingAddressState"_s, 20), text(u"MailingAddressStreet"_s, 100), text(u"ManagerName"_s, 100),
               text(u"MiddleName"_s, 100), text(u"MobileTelephoneNumber"_s, 50), text(u"NetMeetingAlias"_s, 50),
               text(u"NetMeetingServer"_s, 50), text(u"NickName"_s, 50), text(u"OfficeLocation"_s, 150),
               text(u"OrganizationalIDNumber"_s, 20), text(u"OtherAddress"_s, 200), text(u"OtherAddressCity"_s, 50),
               text(u"OtherAddressCountry"_s, 50), text(u"OtherAddressPostalCode"_s, 10),
               text(u"OtherAddressPostOfficeBox"_s, 20), text(u"OtherAddressState"_s, 20),
               text(u"OtherAddressStreet"_s, 100), text(u"OtherFaxNumber"_s, 50), text(u"OtherTelephoneNumber"_s, 50),
               text(u"PagerNumber"_s, 50), text(u"PersonalHomePage"_s, 200), text(u"PrimaryTelephoneNumber"_s, 50),
               text(u"Profession"_s, 100), text(u"RadioTelephoneNumber"_s, 50), text(u"ReferredBy"_s, 50),
               text(u"Spouse"_s, 100), text(u"Subject"_s, 120), text(u"Suffix"_s, 10), text(u"TelexNumber"_s, 50),
               text(u"Title"_s, 15), text(u"Webpage"_s, 200), text(u"Email4Address"_s, 75),
               text(u"Email4DisplayName"_s, 75), text(u"SORTNAME"_s, 200), text(u"SALUTATION"_s, 10),
               text(u"Contact"_s, 200), text(u"Category"_s, 50), text(u"DOBOTHERNAME"_s, 50), text(u"DOBSURNAME"_s, 50),
               flag(u"DOB1EMAIL"_s), flag(u"DOBCARD1"_s), text(u"DOB2"_s, 11), text(u"DOBOTHERNAME2"_s, 50),
               text(u"DOBSURNAME2"_s, 50), flag(u"DOB2EMAIL"_s), flag(u"DOBCARD2"_s), text(u"DOB3"_s, 11),
               text(u"DOBOTHERNAME3"_s, 50), text(u"DOBSURNAME3"_s, 50), flag(u"DOB3EMAIL"_s), flag(u"DOBCARD3"_s),
               text(u"DOB4"_s, 11), text(u"DOBOTHERNAME4"_s, 50), text(u"DOBSURNAME4"_s, 50), flag(u"DOB4EMAIL"_s),
               flag(u"DOBCARD4"_s), text(u"DOB5"_s, 11), text(u"DOBOTHERNAME5"_s, 50), text(u"DOBSURNAME5"_s, 50),
               flag(u"DOB5EMAIL"_s), flag(u"DOBCARD5"_s), text(u"DOB6"_s, 11), text(u"DOBOTHERNAME6"_s, 50),
               text(u"DOBSURNAME6"_s, 50), flag(u"DOB6EMAIL"_s), flag(u"DOBCARD6"_s), text(u"DOB7"_s, 11),
               text(u"DOBOTHERNAME7"_s, 50), text(u"DOBSURNAME7"_s, 50), flag(u"DOB7EMAIL"_s), flag(u"DOBCARD7"_s),
               text(u"DOB8"_s, 11), text(u"DOBOTHERNAME8"_s, 50), text(u"DOBSURNAME8"_s, 50), flag(u"DOB8EMAIL"_s),
               flag(u"DOBCARD8"_s), text(u"ANNIVERSARYNAME1"_s, 50), text(u"ANNIVERSARYREASON1"_s, 50),
               text(u"ANNIVERSARYDATE1"_s, 11), flag(u"ANNIVERSARY1EMAIL"_s), text(u"ANNIVERSARYNAME2"_s, 50),
               text(u"ANNIVERSARYREASON2"_s, 50), text(u"ANNIVERSARYDATE2"_s, 11), flag(u"ANNIVERSARY2EMAIL"_s),
               text(u"ANNIVERSARYNAME3"_s, 50), text(u"ANNIVERSARYREASON3"_s, 50), text(u"ANNIVERSARYDATE3"_s, 11),
               flag(u"ANNIVERSARY3EMAIL"_s), text(u"ANNIVERSARYNAME4"_s, 50), text(u"ANNIVERSARYREASON4"_s, 50),
               text(u"ANNIVERSARYDATE4"_s, 11), flag(u"ANNIVERSARY4EMAIL"_s), text(u"ANNIVERSARYNAME5"_s, 50),
               text(u"ANNIVERSARYREASON5"_s, 50), text(u"ANNIVERSARYDATE5"_s, 11), flag(u"ANNIVERSARY5EMAIL"_s),
               text(u"ANNIVERSARYNAME6"_s, 50), text(u"ANNIVERSARYREASON6"_s, 50), text(u"ANNIVERSARYDATE6"_s, 11),
               flag(u"ANNIVERSARY6EMAIL"_s), flag(u"Private"_s), flag(u"PRINT"_s), text(u"FILENAME"_s, 255),
               flag(u"Emergency"_s), flag(u"ChristmasCard"_s), memo(u"NOTES"_s), text(u"ENTRYID"_s, 100),
               text(u"UsersName"_s, 20), flag(u"PrintAddressBook"_s), integer(u"NewImport"_s), flag(u"Invisible"_s),
               flag(u"Active"_s)}),
        table(u"ContactData"_s, withPictures(
              {counter(u"IDNUM"_s), longer(u"ID"_s), text(u"PASSWORD"_s, 20), text(u"USERNAME"_s, 100)}, 6)),
        table(u"Category"_s,
              {text(u"Category"_s, 50), flag(u"Invisible"_s)}),
    };
    return tables;
}

}
