#include "session/sections/parts.h"

namespace vorel::sections {

SectionDesign golf()
{
    return {
        .id = SectionId::Golf,
        .name = u"Golf"_s,
        .code = u"Q"_s,
        .file = DataFile::Sports,
        .list = ListDesign{
            .title = u"SPORT - GOLF"_s,
            .query = u"SELECT [ID],[DATE],[USERNAME],' ' as PBUT,[FILENAME] FROM [GENERAL] ORDER BY [DATE]"_s,
            .columns = {hidden(u"ID"_s), shown(u"DATE"_s), shown(u"USERNAME"_s, u"NAME"_s), button(), hidden(u"FILENAME"_s)},
            .rules = {pictureRule()}},
        .grid = GridDesign{.word = u"SPORT"_s, .widths = {2000, 1000}, .styleSet = u"SPORT"_s,
                           .colour = GridColourDesign{u"SportGridColour"_s},
                           .empty = u"No scores yet.\nPress New to enter the first one."_s},
        .button = ButtonDesign{21, u" Golf "_s, u" Golf Scores "_s, u"games-achievements"_s, RailGroup::People, 3,
                               {u"GOLF"_s, {u" Record your golf scores and follow your handicap."_s}}},
        .feature = FeatureDesign{u"Golf"_s},
        .rowTip = RowTipDesign{u"GENERAL"_s,
                               {day(u" DATE:"_s, u"DATE"_s), text(u" NAME:"_s, u"USERNAME"_s), text(u" CLUB:"_s, u"CLUB"_s),
                                text(u" HANDICAP:"_s, u"HANDICAP"_s), text(u" NOTES:"_s, u"NOTES"_s)}},
        .screen = RecordScreenDesign{.name = u"frmSport"_s},
        .pictures = PicturesDesign{u"SportsPictures"_s,
                                   {{u"Sport Picture"_s}},
                                   u"\\DefaultPicS.jpg"_s,
                                   PictureSetDesign{u"Sport Picture "_s, u"select * from [PERSONAL] WHERE [IDNUM]="_s,
                                                    u"DELETE * FROM [PERSONAL] where [IDNUM]="_s, u"IDNUM"_s, u"IDNUM"_s, 10}},
        .help = HelpDesign{u"\\INFOSPORT.RTF"_s, u"sport"_s},
    };
}

}
