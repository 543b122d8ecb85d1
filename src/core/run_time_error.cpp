#include "core/run_time_error.h"

#include <array>

namespace quelmont {

namespace {

struct Phrase {
    int number;
    std::string_view text;
};

// clang-format off
constexpr std::array Phrases = {
    Phrase{ErrorInvalidCall,       "Invalid procedure call or argument"},
    Phrase{ErrorOverflow,          "Overflow"},
    Phrase{ErrorOutOfMemory,       "Out of memory"},
    Phrase{ErrorSubscript,         "Subscript out of range"},
    Phrase{ErrorDivisionByZero,    "Division by zero"},
    Phrase{ErrorTypeMismatch,      "Type mismatch"},
    Phrase{ErrorBadFileNumber,     "Bad file name or number"},
    Phrase{ErrorFileNotFound,      "File not found"},
    Phrase{ErrorBadFileMode,       "Bad file mode"},
    Phrase{ErrorFileAlreadyOpen,   "File already open"},
    Phrase{ErrorDeviceIo,          "Device I/O error"},
    Phrase{ErrorDiskFull,          "Disk full"},
    Phrase{ErrorInputPastEnd,      "Input past end of file"},
    Phrase{ErrorTooManyFiles,      "Too many files"},
    Phrase{ErrorPermissionDenied,  "Permission denied"},
    Phrase{ErrorPathFileAccess,    "Path/File access error"},
    Phrase{ErrorPathNotFound,      "Path not found"},
};
// clang-format on

} // namespace

std::string_view ErrorDescription(int number) {
    for (const Phrase& phrase : Phrases) {
        if (phrase.number == number) {
            return phrase.text;
        }
    }
    return "Application-defined or object-defined error";
}

} // namespace quelmont
