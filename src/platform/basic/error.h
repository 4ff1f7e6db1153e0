#pragma once

#include <QString>
#include <exception>
#include <functional>

namespace vorel::basic {

// A numbered failure with a text that a user can read: the runtime's own (5, 6, 11, 13, 91, 93, 94, ...) and, by
// inheritance, the data engine's (3000 and up).
class Error : public std::exception {
public:
    Error(int number, QString text);
    int number() const { return m_number; }
    const QString &text() const { return m_text; }
    const char *what() const noexcept override { return m_what.constData(); }

private:
    int m_number;
    QString m_text;
    QByteArray m_what;
};

// A runtime error with its standard text, e.g. 13 "Type mismatch".
class BasicError : public Error {
public:
    explicit BasicError(int number);
    static QString standardText(int number);
};

// Runs one step of an event handler or start-up pass: a failure is shown in a message box (title: the product's) and
// the program goes on. Returns false if the step failed. Nothing is caught but Error and std::exception.
bool Trap(const std::function<void()> &step);

// Runs a step whose failure is expected: an Error is swallowed, anything else (bad_alloc, logic_error) is thrown on. Returns
// the error number, 0 when the step passed.
int IgnoreErrors(const std::function<void()> &step);

}
