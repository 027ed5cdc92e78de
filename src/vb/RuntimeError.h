#pragma once
// The run-time error of the platform: a number and a text. The data engine and
// the conversions throw it; the one top-level handler shows it and ends the
// process, tests catch it.
#include <QString>
#include <stdexcept>

class RuntimeError : public std::runtime_error {
public:
    // Numbers of the errors this system raises itself.
    enum : int {
        InvalidProcedureCall = 5,
        Overflow = 6,
        DivisionByZero = 11,
        TypeMismatch = 13,
        ObjectRequired = 424,
        FileNotFound = 53,
        PathNotFound = 76,
        InvalidUseOfNull = 94,
        InputPastEndOfFile = 62,
        BadArguments = 3001,        // argument of the wrong type or out of range
        ItemNotFound = 3265,        // no field of that name
        ObjectClosed = 3704,        // operation on a closed object
        NoCurrentRecord = 3021,     // BOF or EOF is true, or the record was deleted
        DatabaseError = -2147467259 // the provider's generic failure (0x80004005)
    };

    RuntimeError(int number, const QString& description)
        : std::runtime_error(description.toStdString()), number_(number), description_(description)
    {
    }

    int Number() const { return number_; }
    const QString& Description() const { return description_; }

private:
    int number_;
    QString description_;
};
