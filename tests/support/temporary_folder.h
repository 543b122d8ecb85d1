#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quelmont {

/// A new empty folder of the system, removed with all that it holds.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// Its path without a separator at the end.
    const std::string& Path() const { return path; }
    /// The path of something in it.
    std::string operator/(std::string_view name) const { return path + "/" + std::string(name); }
    /// What lies in it, in no order.
    std::vector<std::string> Names() const;

private:
    std::string path;
};

/// A whole file's bytes, and the way back; std::runtime_error when that fails.
std::string ReadWholeFile(const std::string& name);
void WriteWholeFile(const std::string& name, std::string_view contents);

} // namespace quelmont
