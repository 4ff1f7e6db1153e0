#include "session/sections/parts.h"

namespace vorel::sections {

SectionDesign profile()
{
    return {
        .id = SectionId::Profile,
        .name = u"Profile"_s,
        .code = u"L"_s,
        .refreshesReminders = false,
        .list = ListDesign{
            .title = u"PROFILE"_s,
            .query = u"SELECT [ID],[SURNAME],[OTHERNAMES],' ' as PBUT,[FILENAME] FROM [PROFILE] ORDER BY [SURNAME],[OTHERNAMES]"_s,
            .columns = {hidden(u"ID"_s), shown(u"SURNAME"_s, u"NAME"_s), shown(u"OTHERNAMES"_s, u"OTHER NAMES"_s), button(),
                        hidden(u"FILENAME"_s)},
            .rules = {pictureRule()}},
        .grid = GridDesign{.word = u"PROFILE"_s, .widths = {2000, 1000}, .styleSet = u"PROFILE"_s,
                           .colour = GridColourDesign{u"ProfileGridColour"_s},
                           .empty = u"No profiles yet.\nPress New to enter the first one."_s},
        .button = ButtonDesign{19, u" Profile   "_s, u" Profile "_s, u"user-identity"_s, RailGroup::People, 1,
                               {u"PROFILE"_s, {u" Record the story of each member of your family, with pictures."_s}}},
        .feature = FeatureDesign{u"Profile"_s},
        .rowTip = RowTipDesign{u"PROFILE"_s,
                               {text(u" NAME:"_s, u"SURNAME"_s), text(u" OTHER NAMES:"_s, u"OTHERNAMES"_s), date(u" BORN:"_s, u"DOB"_s),
                                text(u" CATEGORY:"_s, u"CATEGORY"_s), text(u" NOTES:"_s, u"NOTES"_s)}},
        .screen = RecordScreenDesign{.name = u"frmProfile"_s},
        .pictures = PicturesDesign{u"ProfilePictures"_s,
                                   {{u"Profile Picture"_s}},
                                   {},
                                   PictureSetDesign{u"Profile Other Picture "_s, u"select * from [PROFILEDATA] WHERE [ID]="_s,
                                                    u"DELETE * FROM [PROFILEDATA] where [ID]="_s, u"ID"_s, u"ID"_s, 6}},
        .help = HelpDesign{u"\\INFOPROFILE.RTF"_s, u"profile"_s},
    };
}

}
