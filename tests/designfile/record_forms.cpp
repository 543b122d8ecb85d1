#include "designfile/record_forms.h"

#include "support/temporary_folder.h"

#include <sstream>

namespace quelmont {

std::map<int, std::string> RecordExamples() {
    std::istringstream page(ReadWholeFile(QUELMONT_RECORD_FORMS));
    std::map<int, std::string> examples;
    int number = 0;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("### ")) {
            number = std::stoi(line.substr(4));
        } else if (number > 0 && line.starts_with("    |") && line.find("(...)") == std::string::npos) {
            examples[number] = line.substr(5, line.rfind('|') - 5);
        }
    }
    return examples;
}

} // namespace quelmont
