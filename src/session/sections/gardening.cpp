#include "session/sections/parts.h"

namespace vorel::sections {

SectionDesign gardening()
{
    return {
        .id = SectionId::Gardening,
        .name = u"Gardening"_s,
        .code = u"Z"_s,
        .file = DataFile::Garden,
        .list = ListDesign{
            .title = u"GARDENING"_s,
            .query = u"SELECT [ID],'',[CATEGORY],[PLANTNAME],' ' as PBUT,[FILENAME] FROM [GARDEN] ORDER BY [CATEGORY],[PLANTNAME]"_s,
            .columns = {hidden(u"ID"_s), hidden(u"''"_s), shown(u"CATEGORY"_s), shown(u"PLANTNAME"_s, u"PLANT NAME"_s),
                        numberedButton(), hidden(u"FILENAME"_s)},
            .searched = {u"PLANTNAME"_s},
            .rules = {pictureRule()}},
        .grid = GridDesign{.word = u"GARDEN"_s, .widths = {2000, 1000, 1000},
                           .empty = u"No plants yet.\nPress New to enter the first one."_s},
        .button = ButtonDesign{16, u" Gardening "_s, u" Gardening "_s, u"flower-shape"_s, RailGroup::Collections, 4,
                               {u"GARDENING"_s, {u" Your plants, when to plant them and how they are doing."_s}}},
        .feature = FeatureDesign{u"Garden"_s},
        .rowTip = RowTipDesign{u"GARDEN"_s,
                               {text(u" PLANT NAME:"_s, u"PlantName"_s), text(u" BOTANICAL NAME:"_s, u"BotanicalName"_s),
                                text(u" CATEGORY:"_s, u"Category"_s), text(u" PLANTING TIME:"_s, u"PlantTime"_s),
                                text(u" WEB:"_s, u"Website"_s), text(u" NOTES:"_s, u"Notes"_s)}},
        .screen = RecordScreenDesign{.name = u"frmGarden"_s},
        .pictures = PicturesDesign{u"GardenPictures"_s,
                                   {{u"Garden Picture"_s}},
                                   u"\\garden.jpg"_s,
                                   PictureSetDesign{u"Garden Other Picture "_s, u"SELECT * FROM [GARDENDATA] where [ID]="_s,
                                                    u"DELETE * FROM [GARDENDATA] where [ID]="_s, u"ID"_s, u"ID"_s, 6}},
        .help = HelpDesign{u"\\INFOGARDEN.RTF"_s, u"garden"_s},
    };
}

}
