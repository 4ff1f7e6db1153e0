#include "platform/basic/error.h"

#include "platform/basic/prompts.h"

namespace vorel::basic {

using namespace Qt::StringLiterals;

namespace {

struct StandardText {
    int number;
    QStringView text;
};

constexpr StandardText standardTexts[] = {
    {5, u"Invalid procedure call or argument"},
    {6, u"Overflow"},
    {7, u"Out of memory"},
    {9, u"Subscript out of range"},
    {11, u"Division by zero"},
    {13, u"Type mismatch"},
    {28, u"Out of stack space"},
    {35, u"Sub or Function not defined"},
    {51, u"Internal error"},
    {52, u"Bad file name or number"},
    {53, u"File not found"},
    {54, u"Bad file mode"},
    {55, u"File already open"},
    {57, u"Device I/O error"},
    {58, u"File already exists"},
    {61, u"Disk full"},
    {62, u"Input past end of file"},
    {67, u"Too many files"},
    {68, u"Device unavailable"},
    {70, u"Permission denied"},
    {71, u"Disk not ready"},
    {74, u"Can't rename with different drive"},
    {75, u"Path/File access error"},
    {76, u"Path not found"},
    {91, u"Object variable or With block variable not set"},
    {92, u"For loop not initialized"},
    {93, u"Invalid pattern string"},
    {94, u"Invalid use of Null"},
    {321, u"Invalid file format"},
    {380, u"Invalid property value"},
    {424, u"Object required"},
    {457, u"This key is already associated with an element of this collection"},
    {481, u"Invalid picture"},
    {482, u"Printer error"},
};

}

Error::Error(int number, QString text) : m_number(number), m_text(std::move(text)), m_what(m_text.toUtf8()) {}

BasicError::BasicError(int number) : Error(number, standardText(number)) {}

QString BasicError::standardText(int number)
{
    for (const StandardText &entry : standardTexts) {
        if (entry.number == number)
            return entry.text.toString();
    }
    return u"Application-defined or object-defined error"_s;
}

bool Trap(const std::function<void()> &step)
{
    try {
        step();
        return true;
    } catch (const Error &error) {
        MsgBox(error.text(), {}, Icon::Exclamation);
    } catch (const std::exception &error) {
        MsgBox(QString::fromUtf8(error.what()), {}, Icon::Exclamation);
    }
    return false;
}

int IgnoreErrors(const std::function<void()> &step)
{
    try {
        step();
        return 0;
    } catch (const Error &error) {
        return error.number();
    }
}

}
