#pragma once

#include <cpl_error.h>

#include <string>
#include <vector>

namespace quelmont {

/// What GDAL reports on this thread as long as it lives, instead of on the error stream.
class GdalErrors {
public:
    GdalErrors();
    ~GdalErrors();
    GdalErrors(const GdalErrors&) = delete;
    GdalErrors& operator=(const GdalErrors&) = delete;

    /// Whether anything failed since the last call of Forget.
    bool Failed() const { return failed; }
    /// The first failure since then; "unknown reason" if GDAL gave none.
    std::string Reason() const;
    void Forget();
    /// ConvertError with the name of a file and the reason, if anything failed.
    void ThrowIfFailed(const std::string& name) const;
    [[noreturn]] void Throw(const std::string& name) const;

    /// Each warning once, in the order in which they came; at most MostWarnings.
    const std::vector<std::string>& Warnings() const { return warnings; }
    static constexpr std::size_t MostWarnings = 10;

private:
    static void CPL_STDCALL Take(CPLErr kind, CPLErrorNum number, const char* message);

    bool failed = false;
    std::string reason;
    std::vector<std::string> warnings;
};

} // namespace quelmont
