#include "platform/runtime_error.h"

namespace headerdtc {

const char* descriptionOf(ErrorNumber number) {
    switch (number) {
        case ErrorNumber::InvalidProcedureCall:
            return "Invalid procedure call or argument";
        case ErrorNumber::Overflow:
            return "Overflow";
        case ErrorNumber::SubscriptOutOfRange:
            return "Subscript out of range";
        case ErrorNumber::TypeMismatch:
            return "Type mismatch";
        case ErrorNumber::FileNotFound:
            return "File not found";
        case ErrorNumber::DeviceIoError:
            return "Device I/O error";
        case ErrorNumber::DiskFull:
            return "Disk full";
        case ErrorNumber::PermissionDenied:
            return "Permission denied";
        case ErrorNumber::PathFileAccessError:
            return "Path/File access error";
        case ErrorNumber::PathNotFound:
            return "Path not found";
        case ErrorNumber::ObjectVariableNotSet:
            return "Object variable or With block variable not set";
        case ErrorNumber::InvalidPropertyValue:
            return "Invalid property value";
        case ErrorNumber::InvalidPropertyArrayIndex:
            return "Invalid property array index";
        case ErrorNumber::PropertyIsReadOnly:
            return "Property is read-only";
        case ErrorNumber::CannotCreateObject:
            return "ActiveX component can't create object";
        case ErrorNumber::NoSuchProperty:
            return "Object doesn't support this property or method";
        case ErrorNumber::WrongNumberOfArguments:
            return "Wrong number of arguments or invalid property assignment";
        case ErrorNumber::KeyAlreadyExists:
            return "This key is already associated with an element of this collection";
    }
    return "Application-defined or object-defined error";
}

std::string errorReport(std::string_view procedure, const RuntimeError& error,
                        ErrorReportStyle style) {
    std::string text = "Error in '";
    text += procedure;
    text += "': ";
    text += error.description();
    text += style == ErrorReportStyle::BlankBeforeNumber ? " (" : "(";
    text += std::to_string(error.number());
    text += ')';
    return text;
}

}  // namespace headerdtc
