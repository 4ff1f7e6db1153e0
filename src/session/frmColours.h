#pragma once

class QWidget;

// What screens of the record kind share over their controls.
namespace vorel {

// Text boxes and combo boxes take the back colour of the setting EditColour (black or white text on it, whichever
// reads better); panels and images take the screen's own back colour.
void ApplyFormColours(QWidget *form);
// Empties the text of each text box and combo box.
void ClearForm(QWidget *form);

}
