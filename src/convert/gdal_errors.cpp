#include "convert/gdal_errors.h"

#include "convert/map_line.h"

#include <algorithm>

namespace quelmont {

GdalErrors::GdalErrors() { CPLPushErrorHandlerEx(&GdalErrors::Take, this); }

GdalErrors::~GdalErrors() { CPLPopErrorHandler(); }

std::string GdalErrors::Reason() const { return reason.empty() ? "unknown reason" : reason; }

void GdalErrors::Forget() {
    failed = false;
    reason.clear();
}

void GdalErrors::ThrowIfFailed(const std::string& name) const {
    if (failed) {
        Throw(name);
    }
}

void GdalErrors::Throw(const std::string& name) const {
    const std::string why = Reason();
    // A reason may contain the name of the file already.
    throw ConvertError(why.find(name) == std::string::npos ? name + ": " + why : why);
}

void CPL_STDCALL GdalErrors::Take(CPLErr kind, CPLErrorNum /*number*/, const char* message) {
    auto* const errors = static_cast<GdalErrors*>(CPLGetErrorHandlerUserData());
    if (kind == CE_Warning) {
        std::vector<std::string>& kept = errors->warnings;
        if (kept.size() < MostWarnings && std::find(kept.begin(), kept.end(), message) == kept.end()) {
            kept.emplace_back(message);
        }
    } else if (kind >= CE_Failure && !errors->failed) {
        errors->failed = true;
        errors->reason = message;
    }
}

} // namespace quelmont
