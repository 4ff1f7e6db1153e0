#include "calendar/picker.h"
#include "store/mainfile.h"


namespace vorel {

using namespace Qt::StringLiterals;

class PickerRules : public test::MainFileTest {};

TEST_F(PickerRules, CodesStandForTheirBoxes)
{
    for (const auto &[code, box] : {std::pair{u"R1"_s, u"txtDate"_s}, {u"R2"_s, u"txtDateTo"_s}, {u"R3"_s, u"txtBillingDate"_s},
                                    {u"R4"_s, u"txtPaymentDate"_s}}) {
        const PickerTarget *target = pickerTarget(code);
        ASSERT_TRUE(target) << qPrintable(code);
        EXPECT_EQ(target->screen, u"frmRecord");
        EXPECT_EQ(target->box, box);
    }
    EXPECT_TRUE(pickerTarget(u"A  "_s));            // a fixed text of three characters
    EXPECT_EQ(pickerTarget(u"R5"_s), nullptr);
}

}
