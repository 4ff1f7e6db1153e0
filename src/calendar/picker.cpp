#include "calendar/picker.h"

#include <algorithm>

namespace vorel {

namespace {

constexpr PickerTarget targets[] = {
    {u"A", u"frmCaddy", u""},
    {u"B", u"frmCaddy", u""},
    {u"E", u"frmCaddy", u""},
    {u"R1", u"frmRecord", u"txtDate"},
    {u"R2", u"frmRecord", u"txtDateTo"},
    {u"R3", u"frmRecord", u"txtBillingDate"},
    {u"R4", u"frmRecord", u"txtPaymentDate"},
    {u"H", u"frmHealth", u""},
    {u"H2", u"frmHealth", u""},
    {u"HV", u"frmHealth", u""},
    {u"S1", u"frmSport", u""},
    {u"S2", u"frmSport", u""},
    {u"MP", u"frmVehicle", u""},
    {u"MS", u"frmVehicle", u""},
    {u"M1", u"frmVehicle", u""},
    {u"M2", u"frmVehicle", u""},
    {u"M3", u"frmVehicle", u""},
    {u"M4", u"frmVehicle", u""},
    {u"ME", u"frmVehicle", u""},
    {u"ML", u"frmVehicle", u""},
    {u"D", u"frmInventory", u""},
    {u"Y", u"frmInventory", u""},
    {u"U", u"frmBackup", u"txtBackupDate"},
    {u"J", u"frmNotes", u"txtDate"},
    {u"N", u"frmNotes", u"txtDate"},
    {u"X", u"frmNotes", u"txtDate"},
    {u"AB1", u"frmEnterBill", u"txtDate"},
    {u"AB3", u"frmEnterBill", u"txtDate"},
    {u"AB2", u"frmPayBill", u"txtDate"},
    {u"AI1", u"frmIncome", u"txtDate"},
    {u"AI2", u"frmInvoiceStd", u""},
    {u"AI3", u"frmInvoicePayment", u"txtDate"},
    {u"P", u"", u""},
    {u"O", u"", u""},
    {u"G", u"", u""},
    {u"B0", u"", u""},
    {u"B1", u"", u""},
    {u"B2", u"", u""},
    {u"B3", u"", u""},
    {u"B4", u"", u""},
    {u"B5", u"", u""},
    {u"A0", u"", u""},
    {u"A1", u"", u""},
    {u"A2", u"", u""},
    {u"A3", u"", u""},
    {u"A4", u"", u""},
    {u"A5", u"", u""},
};

}

const PickerTarget *pickerTarget(const QString &code)
{
    const auto found = std::find_if(std::begin(targets), std::end(targets),
                                    [&](const PickerTarget &target) { return target.code == code.trimmed(); });
    return found == std::end(targets) ? nullptr : found;
}

}
