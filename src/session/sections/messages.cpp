#include "session/sections/parts.h"

namespace vorel::sections {

SectionDesign messages()
{
    SectionColumn sent = shown(u"Date"_s, u"DATE"_s);
    sent.isTimed = true;
    return {
        .id = SectionId::Messages,
        .name = u"Messages"_s,
        .code = u"M"_s,
        .list = ListDesign{
            .title = u"MESSAGES"_s,
            .query = u"SELECT [ID],[Date],[From],[To],[Message],[Read] FROM [Messages] ORDER BY [DATE],[FROM]"_s,
            .columns = {hidden(u"ID"_s), sent, shown(u"From"_s, u"FROM"_s), shown(u"To"_s, u"TO"_s),
                        shown(u"Message"_s, u"MESSAGE"_s), shown(u"Read"_s, u"READ"_s)},
            .growing = {u"Message"_s},
            .addsUserName = true},
        .grid = GridDesign{.word = u"MESSAGES"_s, .widths = {1100, 1200, 1200, 1500, 600}, .styleSet = u"MESSAGES"_s,
                           .colour = GridColourDesign{u"MessagesGridColour"_s},
                           .empty = u"No messages.\nPress New to write one."_s},
        .button = ButtonDesign{13, u"Messages "_s, u" Messages "_s, u"mail-message"_s, RailGroup::Lists, 4,
                               {u"MESSAGES"_s,
                                {u" Leave messages for the other users of this program."_s,
                                 u" A green panel below shows when one waits for you."_s}}},
        .feature = FeatureDesign{u"Messages"_s, {u"mnuMessages"_s}},
        .rowTip = RowTipDesign{u"MESSAGES"_s,
                               {day(u" DATE:"_s, u"DATE"_s), text(u" FROM:"_s, u"FROM"_s), text(u" TO:"_s, u"TO"_s),
                                text(u" MESSAGE:"_s, u"MESSAGE"_s)}},
        .screen = RecordScreenDesign{.name = u"frmMessage"_s},
        .help = HelpDesign{u"\\INFOMESSAGES.RTF"_s},
    };
}

}
