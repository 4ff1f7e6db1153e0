#pragma once

#include <QString>

namespace vorel {

// The four-function calculator, key by key; no widget. It works from left to right, in double precision.
class Calculator {
public:
    enum class Key { Plus, Minus, Multiply, Divide, Equals };
    enum class Outcome { Done, DivisionByZero, Overflow };     // of the last two nothing has changed

    void Number(int digit);             // 0..9
    void Decimal();
    Outcome Operator(Key key);
    Outcome Percent();                  // readout * running value / 100
    void Cancel();                      // everything
    void CancelEntry();                 // what is being typed
    void Back();                        // the last character typed

    // What the display shows, with the regional decimal point.
    QString Readout() const;
    bool isClear() const { return m_value == 0 && m_entry.isEmpty() && m_operator == Key::Equals; }

private:
    double entered() const;
    void begin();

    Key m_operator = Key::Equals;       // the last one pressed, still to be worked
    double m_value = 0;                 // the running value
    double m_shown = 0;                 // a number on the display that was not typed
    QString m_entry;                    // the typed one, with "." as its point
    bool m_hasEntry = false;            // the display holds a second operand, typed or a percentage
    bool m_typing = false;
};

}
