#include "session/sections/parts.h"

namespace vorel::sections {

SectionDesign health()
{
    return {
        .id = SectionId::Health,
        .name = u"Health"_s,
        .code = u"O"_s,
        .file = DataFile::HowTo,
        .list = ListDesign{
            .title = u"HEALTH"_s,
            .query = u"SELECT [ID],[DATE],[USERNAME],' ' as PBUT,[FILENAME] FROM [HEALTH] ORDER BY [DATE]"_s,
            .columns = {hidden(u"ID"_s), shown(u"DATE"_s), shown(u"USERNAME"_s, u"NAME"_s), button(), hidden(u"FILENAME"_s)},
            .growing = {u"USERNAME"_s},
            .rules = {pictureRule()}},
        .grid = GridDesign{.word = u"HEALTH"_s, .widths = {2000, 1000}, .styleSet = u"HEALTH"_s,
                           .colour = GridColourDesign{u"HealthGridColour"_s},
                           .empty = u"No records yet.\nPress New to enter the first one."_s},
        .button = ButtonDesign{20, u"Health"_s, u" Health - doctors visits, weight food and diet records "_s, u"emblem-favorite"_s,
                               RailGroup::People, 2,
                               {u"HEALTH"_s, {u" Record doctors visits, weight, food and diet for each person."_s}}},
        .feature = FeatureDesign{u"Health"_s},
        .rowTip = RowTipDesign{u"HEALTH"_s,
                               {day(u" DATE:"_s, u"DATE"_s), text(u" NAME:"_s, u"USERNAME"_s), text(u" NOTES:"_s, u"NOTES"_s)}},
        .screen = RecordScreenDesign{.name = u"frmHealth"_s},
        .pictures = PicturesDesign{u"HealthPictures"_s,
                                   {{u"Health Picture"_s}},
                                   {},
                                   PictureSetDesign{u"Health Picture "_s, u"select * from [GENERALHEALTH] WHERE [USERNAME]="_s,
                                                    u"DELETE * FROM [GENERALHEALTH] where [IDNUM]="_s, u"USERNAME"_s, u"IDNUM"_s, 10}},
        .help = HelpDesign{u"\\INFOHEALTH.RTF"_s, u"health"_s},
    };
}

}
