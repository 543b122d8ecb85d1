#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace quelmont {

/// Numbers of the run-time errors.
constexpr int ErrorInvalidCall = 5;
constexpr int ErrorOverflow = 6;
constexpr int ErrorOutOfMemory = 7;
constexpr int ErrorSubscript = 9;
constexpr int ErrorDivisionByZero = 11;
constexpr int ErrorTypeMismatch = 13;
constexpr int ErrorBadFileNumber = 52;
constexpr int ErrorFileNotFound = 53;
constexpr int ErrorBadFileMode = 54;
constexpr int ErrorFileAlreadyOpen = 55;
constexpr int ErrorDeviceIo = 57;
constexpr int ErrorDiskFull = 61;
constexpr int ErrorInputPastEnd = 62;
constexpr int ErrorTooManyFiles = 67;
constexpr int ErrorPermissionDenied = 70;
constexpr int ErrorPathFileAccess = 75;
constexpr int ErrorPathNotFound = 76;

/// The message of an error number; "Application-defined or object-defined error" for any other.
std::string_view ErrorDescription(int number);

/// The one exception type of the program. It never leaves a routine that has an error handler: such a
/// routine shows a message box, cleans up and ends.
class RunTimeError : public std::exception {
public:
    explicit RunTimeError(int number_) : number(number_) {}
    int Number() const { return number; }
    std::string Description() const { return std::string(ErrorDescription(number)); }
    const char* what() const noexcept override { return ErrorDescription(number).data(); }

private:
    int number;
};

} // namespace quelmont
