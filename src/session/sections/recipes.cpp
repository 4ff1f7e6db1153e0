#include "session/sections/parts.h"

namespace vorel::sections {

SectionDesign recipes()
{
    return {
        .id = SectionId::Recipes,
        .name = u"RECIPES"_s,
        .code = u"R"_s,
        .file = DataFile::Recipe,
        .list = ListDesign{
            .title = u"RECIPES"_s,
            .query = u"SELECT [ID],'',[CATEGORY],[TITLE],' ' as PBUT,[FILENAME] FROM [RECIPE] ORDER BY [CATEGORY],[TITLE]"_s,
            .columns = {hidden(u"ID"_s), hidden(u"''"_s), shown(u"CATEGORY"_s), shown(u"TITLE"_s), numberedButton(),
                        hidden(u"FILENAME"_s)},
            .searched = {u"TITLE"_s},
            .rules = {pictureRule()}},
        .grid = GridDesign{.word = u"RECIPE"_s, .widths = {2000, 1000, 1000},
                           .empty = u"No recipes yet.\nPress New to enter the first one."_s},
        .button = ButtonDesign{15, u" Recipes "_s, u" Recipes "_s, u"food"_s, RailGroup::Collections, 3,
                               {u"RECIPES"_s, {u" Your recipes by category, with ingredients, method and a picture."_s}}},
        .feature = FeatureDesign{u"Recipes"_s, {u"mnuViewRecipes"_s}},
        .rowTip = RowTipDesign{u"RECIPE"_s,
                               {text(u" RECIPE:"_s, u"TITLE"_s), text(u" CATEGORY:"_s, u"CATEGORY"_s), text(u" SOURCE:"_s, u"SOURCE"_s),
                                text(u" PREPARATION:"_s, u"PrepTime"_s), text(u" COOKING:"_s, u"CookTime"_s),
                                text(u" YIELD:"_s, u"Yield"_s), text(u" NOTES:"_s, u"NOTES"_s)}},
        .screen = RecordScreenDesign{.name = u"frmRecipes"_s},
        .pictures = PicturesDesign{u"RecipePictures"_s, {{u"Recipe Picture"_s}}, u"\\recipes.jpg"_s},
        .help = HelpDesign{u"\\INFORECIPE.RTF"_s, u"recipes"_s, u"Recipes"_s},
    };
}

}
