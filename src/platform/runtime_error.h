#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace headerdtc {

// The established run-time error numbers that the control itself raises.
enum class ErrorNumber : int {
    InvalidProcedureCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    DeviceIoError = 57,
    DiskFull = 61,
    PermissionDenied = 70,
    PathFileAccessError = 75,
    PathNotFound = 76,
    ObjectVariableNotSet = 91,
    InvalidPropertyValue = 380,
    InvalidPropertyArrayIndex = 381,
    PropertyIsReadOnly = 383,
    CannotCreateObject = 429,
    NoSuchProperty = 438,
    WrongNumberOfArguments = 450,
    KeyAlreadyExists = 457,
};

// The established description of a run-time error number.
const char* descriptionOf(ErrorNumber number);

// A run-time failure: a number and a description, both shown to the author. A database
// failure carries the driver's native number and text.
class RuntimeError : public std::runtime_error {
  public:
    RuntimeError(int number, const std::string& description)
        : std::runtime_error(description), number_(number) {}
    explicit RuntimeError(ErrorNumber number)
        : RuntimeError(static_cast<int>(number), descriptionOf(number)) {}
    // The established description, followed by ": " and what exactly was wrong.
    RuntimeError(ErrorNumber number, const std::string& detail)
        : RuntimeError(static_cast<int>(number), descriptionOf(number) + (": " + detail)) {}

    int number() const { return number_; }
    std::string description() const { return what(); }

  private:
    int number_;
};

// How an error report is joined: the control's usual one has a blank before the number.
enum class ErrorReportStyle { BlankBeforeNumber, NoBlankBeforeNumber };

// "Error in '" + procedure + "': " + description + " (" + number + ")".
std::string errorReport(std::string_view procedure, const RuntimeError& error,
                        ErrorReportStyle style = ErrorReportStyle::BlankBeforeNumber);

}  // namespace headerdtc
