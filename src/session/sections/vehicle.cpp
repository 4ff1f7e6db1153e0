#include "session/sections/parts.h"

namespace vorel::sections {

SectionDesign vehicle()
{
    return {
        .id = SectionId::Vehicle,
        .name = u"Vehicle"_s,
        .code = u"MV"_s,
        .file = DataFile::HowTo,
        .refreshesReminders = false,
        .list = ListDesign{
            .title = u"MOTOR VEHICLE"_s,
            .query = u"SELECT [ID],[VEHICLEMAKE],[VEHICLEMODEL],[YEAR],' ' as PBUT,[FILENAME] FROM [MOTORVEHICLE] "
                     "ORDER BY [VEHICLEMAKE],[VEHICLEMODEL],[YEAR]"_s,
            .columns = {hidden(u"ID"_s), shown(u"VEHICLEMAKE"_s, u"MAKE"_s), shown(u"VEHICLEMODEL"_s, u"MODEL"_s), shown(u"YEAR"_s),
                        button(), hidden(u"FILENAME"_s)},
            .growing = {u"VEHICLEMODEL"_s, u"VEHICLEMAKE"_s},
            .rules = {pictureRule()}},
        .grid = GridDesign{.word = u"VEHICLE"_s, .widths = {2000, 2000, 2000}, .styleSet = u"VEHICLE"_s,
                           .colour = GridColourDesign{u"VehicleGridColour"_s},
                           .empty = u"No vehicles yet.\nPress New to enter the first one."_s},
        .button = ButtonDesign{22, u" Vehicle "_s, u" Motor Vehicle "_s, u"car"_s, RailGroup::Household, 1,
                               {u"VEHICLE"_s, {u" Record each vehicle, its services and costs, and keep a log of its journeys."_s}}},
        .feature = FeatureDesign{u"Vehicle"_s},
        .rowTip = RowTipDesign{u"MOTORVEHICLE"_s,
                               {text(u" MAKE:"_s, u"VEHICLEMAKE"_s), text(u" MODEL:"_s, u"VEHICLEMODEL"_s), text(u" YEAR:"_s, u"YEAR"_s),
                                text(u" COLOUR:"_s, u"COLOUR"_s), text(u" LICENCE:"_s, u"LICENCENO"_s),
                                date(u" REGISTERED UNTIL:"_s, u"REGISTRATIONEXPIRYDATE"_s),
                                date(u" INSURED UNTIL:"_s, u"INSURANCEEXPIRYDATE"_s), date(u" NEXT SERVICE:"_s, u"NEXTSERVICEDATE"_s),
                                text(u" NOTES:"_s, u"NOTES"_s)}},
        .screen = RecordScreenDesign{.name = u"frmVehicle"_s},
        .pictures = PicturesDesign{u"VehiclePictures"_s,
                                   {{u"Motor Vehicle Picture"_s}},
                                   {},
                                   PictureSetDesign{u"Vehicle Other Picture "_s, u"select * from [VEHICLEPICTURES] WHERE [ID]="_s,
                                                    u"DELETE * FROM [VEHICLEPICTURES] where [ID]="_s, u"ID"_s, u"ID"_s, 6}},
        .help = HelpDesign{u"\\INFOVEHICLE.RTF"_s, u"vehicle"_s},
    };
}

}
