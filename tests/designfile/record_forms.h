#pragma once

#include <map>
#include <string>

namespace quelmont {

/// The example of each record in record_forms.md, by its number, without its line end. Of a record with
/// several lines it is the first one; those that the page shortens are left out.
std::map<int, std::string> RecordExamples();

} // namespace quelmont
