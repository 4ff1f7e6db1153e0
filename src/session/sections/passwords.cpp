#include "session/sections/parts.h"

namespace vorel::sections {

SectionDesign passwords()
{
    return {
        .id = SectionId::Passwords,
        .name = u"Passwords"_s,
        .code = u"W"_s,
        .file = DataFile::DataP,
        .isGuarded = true,
        .list = ListDesign{
            .title = u"PASSWORDS"_s,
            .query = u"SELECT [ID],[Organisation],[Username],[Password] FROM [Passwords] ORDER BY [Organisation]"_s,
            .columns = {hidden(u"ID"_s), shown(u"Organisation"_s, u"ORGANISATION"_s), shown(u"Username"_s, u"USERNAME"_s),
                        shown(u"Password"_s, u"PASSWORD"_s)}},
        .grid = GridDesign{.word = u"PASSWORDS"_s, .widths = {2000, 1500, 1500}, .styleSet = u"PASSWORDS"_s,
                           .colour = GridColourDesign{u"PasswordsGridColour"_s},
                           .empty = u"No passwords yet.\nPress New to enter the first one."_s},
        .button = ButtonDesign{4, u"Passwords "_s, u" Passwords  "_s, u"dialog-password"_s, RailGroup::Household, 2,
                               {u"PASSWORDS"_s, {u" Enter all of your Internet passwords in this SECURE section"_s,
                                                 u" They are kept in an encrypted file."_s}}},
        .feature = FeatureDesign{u"Passwords"_s, {u"mnuPrintPasswords"_s}},
        .print = PrintDesign{u"mnuPrintPasswords"_s, u"Pass&words"_s,
            {.titleWord = u"PASSWORDS as at "_s, .file = DataFile::DataP,
             .query = u"Select * from [Passwords] order by [Organisation]"_s, .rowLimit = 54,
             .columns = {column(u"ORGANISATION"_s, 1, 36), column(u"USERNAME"_s, 42), column(u"PASSWORD"_s, 74)}}},
        // The password itself is shown in the row, where the user has asked for it.
        .rowTip = RowTipDesign{u"PASSWORDS"_s,
                               {text(u" ORGANISATION:"_s, u"ORGANISATION"_s), text(u" USERNAME:"_s, u"USERNAME"_s),
                                text(u" WEB:"_s, u"Website"_s), text(u" REGISTRATION:"_s, u"REGONUMBER"_s),
                                text(u" OTHER:"_s, u"OTHER"_s)},
                               false},
        .screen = RecordScreenDesign{.name = u"frmPasswords"_s},
        .help = HelpDesign{u"\\INFOPASSWORDS.RTF"_s, u"admin"_s},
    };
}

}
