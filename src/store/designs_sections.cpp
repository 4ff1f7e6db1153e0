#include "store/designs.h"

#include "store/designfields.h"

namespace vorel::store {

using dao::FieldDef;
using dao::TableDef;
using namespace design;
using namespace Qt::StringLiterals;

// A week's meals end the table of general health.
static std::vector<FieldDef> withMeals(std::vector<FieldDef> fields)
{
    for (const QString &meal : {u"BREAKFAST"_s, u"LUNCH"_s, u"DINNER"_s}) {
        for (const QString &day : {u"SATURDAY"_s, u"SUNDAY"_s, u"MONDAY"_s, u"TUESDAY"_s, u"WEDNESDAY"_s, u"THURSDAY"_s,
                                   u"FRIDAY"_s})
            fields.push_back(text(meal + day, 255));
    }
    return fields;
}

const std::vector<TableDef> &moviesDesigns()
{
    static const std::vector<TableDef> tables = {
        table(u"MOVIES"_s,
              {counter(u"ID"_s), text(u"TITLE"_s, 100), flag(u"SEEN"_s), text(u"STARS"_s, 255),
               text(u"DIRECTOR"_s, 100), text(u"PRODUCER"_s, 100), text(u"CLASSIFICATION"_s, 15), text(u"RATING"_s, 20),
               text(u"FILENAME"_s, 100), text(u"SOUNDFILENAME"_s, 100), text(u"CATEGORY"_s, 100), memo(u"COMMENTS"_s),
               flag(u"HAVECOPY"_s), text(u"STORAGEID"_s, 10), text(u"MEDIA"_s, 10), text(u"ONLOAN"_s, 60),
               text(u"DATESEEN"_s, 11), text(u"USERNAME"_s, 100), text(u"PASSWORD"_s, 20), text(u"UsersName"_s, 20)}),
    };
    return tables;
}

const std::vector<TableDef> &musicDesigns()
{
    static const std::vector<TableDef> tables = {
        table(u"MUSIC"_s,
              {counter(u"ID"_s), text(u"TITLE"_s, 100), text(u"ARTIST"_s, 100), text(u"DISTRIBUTOR"_s, 100),
               text(u"TYPE"_s, 20), text(u"RATING"_s, 20), text(u"FILENAME"_s, 100), text(u"CATEGORY"_s, 100),
               text(u"SOUNDFILENAME"_s, 100), memo(u"COMMENTS"_s), flag(u"HAVECOPY"_s), text(u"STORAGEID"_s, 10),
               text(u"ONLOAN"_s, 60), text(u"CLASSIFICATION"_s, 20), text(u"USERNAME"_s, 100), text(u"PASSWORD"_s, 20),
               text(u"UsersName"_s, 20)}),
        table(u"Tracks"_s,
              {longer(u"ID"_s), text(u"TRACK"_s, 100)}),
    };
    return tables;
}

const std::vector<TableDef> &booksDesigns()
{
    static const std::vector<TableDef> tables = {
        table(u"BOOKS"_s,
              {counter(u"ID"_s), text(u"USERNAME"_s, 100), text(u"PASSWORD"_s, 20), text(u"TITLE"_s, 255),
               flag(u"READ"_s), text(u"AUTHOR"_s, 100), text(u"PUBLISHER"_s, 100), text(u"RATING"_s, 20),
               text(u"FILENAME"_s, 100), text(u"CATEGORY"_s, 100), memo(u"COMMENTS"_s), flag(u"HAVECOPY"_s),
               text(u"STORAGEID"_s, 10), text(u"ONLOAN"_s, 60), text(u"DATEREAD"_s, 11)}),
    };
    return tables;
}

const std::vector<TableDef> &notesDesigns()
{
    static const std::vector<TableDef> tables = {
        table(u"Notes"_s,
              {counter(u"ID"_s), date(u"DATE"_s), text(u"NAME"_s, 30), text(u"USERNAME"_s, 100),
               text(u"PASSWORD"_s, 20), memo(u"NOTES"_s), text(u"UsersName"_s, 20)}),
    };
    return tables;
}

const std::vector<TableDef> &howToDesigns()
{
    static const std::vector<TableDef> tables = {
        table(u"HowTo"_s,
              {counter(u"ID"_s), text(u"SUBJECT"_s, 100), text(u"HOWTO"_s, 255), text(u"USERNAME"_s, 100),
               text(u"PASSWORD"_s, 20), memo(u"SOLUTION"_s), text(u"UsersName"_s, 20)}),
        table(u"GeneralHealth"_s, withMeals(withPictures(
              {counter(u"ID"_s), longer(u"IDNUM"_s), text(u"USERNAME"_s, 100), text(u"PASSWORD"_s, 20)}, 10))),
        table(u"Health"_s,
              {counter(u"ID"_s), text(u"DATE"_s, 11), text(u"USERNAME"_s, 100), text(u"PASSWORD"_s, 20),
               text(u"FILENAME"_s, 100), memo(u"NOTES"_s)}),
        table(u"HealthData"_s,
              {longer(u"ID"_s), text(u"USERNAME"_s, 100), text(u"DATE"_s, 11), text(u"REASON"_s, 100), real(u"VALUE"_s),
               real(u"VARIATION"_s), text(u"NOTES"_s, 255)}),
        table(u"HealthVisits"_s,
              {longer(u"ID"_s), text(u"PROFESSION"_s, 50), text(u"PROFESSIONNAME"_s, 50), text(u"LOCATION"_s, 50),
               text(u"VISITDATE"_s, 11), text(u"REASON"_s, 100), text(u"NOTES"_s, 255)}),
        table(u"MotorVehicle"_s,
              {counter(u"ID"_s), text(u"USERNAME"_s, 100), text(u"PASSWORD"_s, 20), text(u"VEHICLEMAKE"_s, 100),
               text(u"VEHICLEMODEL"_s, 100), text(u"YEAR"_s, 10), text(u"COLOUR"_s, 20), text(u"SERIALNUMBER"_s, 20),
               text(u"LICENCENO"_s, 20), text(u"CATEGORY"_s, 100), flag(u"LEASED"_s), text(u"DATEPURCHASED"_s, 11),
               text(u"PURCHASEDFROM"_s, 150), text(u"RECEIPTNUM"_s, 40), text(u"PAYMENTMETHOD"_s, 20), money(u"COST"_s),
               money(u"GST"_s), money(u"OTHERTAX"_s), text(u"DATEDISPOSED"_s, 11), text(u"DISPOSEDTO"_s, 150),
               money(u"DISPOSALCOST"_s), money(u"DISPOSALGST"_s), money(u"DISPOSALOTHERTAX"_s),
               text(u"DISPOSALRECEIPTNUM"_s, 40), text(u"DISPOSALPAYMENTMETHOD"_s, 20),
               text(u"INSURANCECOMPANY"_s, 100), text(u"INSURANCEPOLICYNO"_s, 50), text(u"INSURANCEEXPIRYDATE"_s, 11),
               text(u"REGISTRATIONEXPIRYDATE"_s, 11), text(u"NEXTSERVICEDATE"_s, 11), text(u"LEASEEXPIRYDATE"_s, 11),
               text(u"FILENAME"_s, 255), memo(u"NOTES"_s)}),
        table(u"VehicleServiceData"_s,
              {counter(u"BILLID"_s), longer(u"ID"_s), text(u"USERNAME"_s, 100), text(u"DATE"_s, 11),
               text(u"GARAGENAME"_s, 75), text(u"EXPENSEREASON"_s, 150), real(u"PARTSCOST"_s), real(u"LABOURCOST"_s),
               real(u"PST"_s), real(u"GST"_s), real(u"TOTALCOST"_s), text(u"NOTES"_s, 255), flag(u"TOACCOUNTS"_s)}),
        table(u"VehicleLogData"_s,
              {longer(u"ID"_s), text(u"USERNAME"_s, 100), text(u"DATE"_s, 11), text(u"START"_s, 20),
               text(u"FINISH"_s, 20), flag(u"PERSONAL"_s), flag(u"BUSINESS"_s), text(u"REASON"_s, 100),
               text(u"NOTES"_s, 255)}),
        table(u"VehiclePictures"_s, withPictures(
              {longer(u"ID"_s), text(u"USERNAME"_s, 100), text(u"PASSWORD"_s, 20)}, 6)),
    };
    return tables;
}

const std::vector<TableDef> &recipeDesigns()
{
    static const std::vector<TableDef> tables = {
        table(u"Recipe"_s,
              {counter(u"ID"_s), text(u"CATEGORY"_s, 100), text(u"TITLE"_s, 100), text(u"SOURCE"_s, 100),
               text(u"FILENAME"_s, 100), text(u"PASSWORD"_s, 20), memo(u"METHOD"_s), memo(u"FULLRECIPE"_s),
               memo(u"NOTES"_s), text(u"UsersName"_s, 20), text(u"PrepTime"_s, 25), text(u"CookTime"_s, 25),
               text(u"Yield"_s, 25)}),
        table(u"Ingredients"_s,
              {longer(u"ID"_s), text(u"AMOUNT"_s, 10), text(u"MEASURE"_s, 10), text(u"INGREDIENT"_s, 100),
               text(u"OTHER"_s, 70)}),
    };
    return tables;
}

const std::vector<TableDef> &sportsDesigns()
{
    static const std::vector<TableDef> tables = {
        table(u"General"_s,
              {counter(u"ID"_s), text(u"USERNAME"_s, 100), text(u"CLUB"_s, 100), text(u"HANDICAP"_s, 4),
               date(u"DATE"_s), text(u"PASSWORD"_s, 20), text(u"FILENAME"_s, 100), memo(u"NOTES"_s),
               text(u"UsersName"_s, 20)}),
        table(u"Golf"_s,
              {counter(u"ID"_s), date(u"DATE"_s), text(u"COURSE"_s, 130), text(u"PAR"_s, 2), text(u"SCORE"_s, 5),
               real(u"VARIATION"_s), real(u"HANDICAP"_s), text(u"PARTNERS"_s, 130), text(u"USERNAME"_s, 100),
               memo(u"NOTES"_s), text(u"UsersName"_s, 20)}),
        table(u"Personal"_s, withPictures(
              {counter(u"ID"_s), longer(u"IDNUM"_s), text(u"PASSWORD"_s, 20), text(u"USERNAME"_s, 100)}, 10)),
    };
    return tables;
}

const std::vector<TableDef> &journalDesigns()
{
    static const std::vector<TableDef> tables = {
        table(u"Journal"_s,
              {counter(u"ID"_s), date(u"DATE"_s), text(u"NAME"_s, 30), text(u"PASSWORD"_s, 20), memo(u"NOTES"_s),
               memo(u"NOTESDISPLAY"_s), text(u"UsersName"_s, 20)}),
    };
    return tables;
}

const std::vector<TableDef> &passwordsDesigns()
{
    static const std::vector<TableDef> tables = {
        table(u"PASSWORDS"_s,
              {counter(u"ID"_s), text(u"ORGANISATION"_s, 255), text(u"Website"_s, 200), text(u"USERNAME"_s, 150),
               text(u"PASSWORD"_s, 50), text(u"REGONUMBER"_s, 50), text(u"OTHER"_s, 255), flag(u"Confidential"_s),
               text(u"UsersName"_s, 20)}),
    };
    return tables;
}

const std::vector<TableDef> &gardenDesigns()
{
    static const std::vector<TableDef> tables = {
        table(u"Garden"_s,
              {counter(u"ID"_s), text(u"PlantName"_s, 255), text(u"BotanicalName"_s, 255), text(u"Website"_s, 255),
               text(u"PlantTime"_s, 50), text(u"Category"_s, 100), text(u"UsersName"_s, 20), text(u"FILENAME"_s, 255),
               text(u"SORTNAME"_s, 255), memo(u"Notes"_s)}),
        table(u"GardenData"_s, withPictures(
              {longer(u"ID"_s), text(u"PASSWORD"_s, 20), text(u"USERNAME"_s, 100)}, 6)),
    };
    return tables;
}

}
