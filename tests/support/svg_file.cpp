#include "support/svg_file.h"

#include <cctype>
#include <cstddef>
#include <cstdlib>
#include <set>
#include <stdexcept>
#include <utility>

namespace quelmont {

namespace {

std::string Resolved(std::string_view text) {
    const std::pair<std::string_view, char> references[] = {
        {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}};
    std::string resolved;
    while (!text.empty()) {
        char letter = text.front();
        std::size_t length = 1;
        if (letter == '&') {
            length = 0;
            for (const auto& [reference, meaning] : references) {
                if (text.starts_with(reference)) {
                    letter = meaning;
                    length = reference.size();
                }
            }
        }
        if (length == 0 || (length == 1 && (letter == '<' || letter == '"'))) {
            throw std::runtime_error("markup inside a text: " + std::string(text));
        }
        resolved += letter;
        text.remove_prefix(length);
    }
    return resolved;
}

class Reader {
public:
    explicit Reader(std::string_view bytes) : rest(bytes) {
        for (const char letter : bytes) {
            if (static_cast<unsigned char>(letter) < 0x20 && letter != '\n') {
                throw std::runtime_error("a control character");
            }
        }
    }

    std::vector<SvgElement> Read() {
        Expect("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
        while (!rest.empty()) {
            if (rest.front() == '\n') {
                rest.remove_prefix(1);
            } else if (rest.starts_with("<!--")) {
                rest.remove_prefix(rest.find("-->") + 3);
            } else if (rest.starts_with("</")) {
                Close();
            } else {
                Open();
            }
        }
        if (!open.empty()) {
            throw std::runtime_error("not closed: " + open.back());
        }
        return std::move(elements);
    }

private:
    void Expect(std::string_view text) {
        if (!rest.starts_with(text)) {
            throw std::runtime_error("not \"" + std::string(text) + "\" but " +
                                     std::string(rest.substr(0, 60)));
        }
        rest.remove_prefix(text.size());
    }

    std::string Until(std::string_view ends) {
        const std::size_t end = rest.find_first_of(ends);
        if (end == std::string_view::npos) {
            throw std::runtime_error("no end of a tag");
        }
        const std::string text(rest.substr(0, end));
        rest.remove_prefix(end);
        return text;
    }

    void Close() {
        Expect("</");
        if (open.empty() || Until(">") != open.back()) {
            throw std::runtime_error("tags that do not match");
        }
        Expect(">");
        open.pop_back();
        if (!inherited.empty()) {
            inherited.pop_back();
        }
    }

    void Open() {
        Expect("<");
        SvgElement element;
        element.name = Until(" />");
        std::map<std::string, std::string> own;
        while (rest.starts_with(" ")) {
            rest.remove_prefix(1);
            const std::string name = Until("=");
            Expect("=\"");
            const std::string value = Resolved(Until("\""));
            Expect("\"");
            if (!own.emplace(name, value).second) {
                throw std::runtime_error("twice: " + name);
            }
        }
        const auto id = own.find("id");
        if (id != own.end() && !ids.insert(id->second).second) {
            throw std::runtime_error("two elements of the name " + id->second);
        }
        const SvgElement above = inherited.empty() ? SvgElement{} : inherited.back();
        element.attributes = own;
        element.attributes.insert(above.attributes.begin(), above.attributes.end());
        element.group = above.group;
        if (rest.starts_with("/>")) {
            Expect("/>");
        } else {
            Expect(">");
            open.push_back(element.name);
            Contents(element, own);
        }
        elements.push_back(std::move(element));
    }

    /// Texts stand in elements without others.
    void Contents(SvgElement& element, std::map<std::string, std::string>& own) {
        if (element.name == "g" || element.name == "svg") {
            SvgElement below = element;
            if (element.name == "g") {
                below.group += (below.group.empty() ? "" : "/") + own["id"];
                below.attributes.erase("id");
            } else {
                below.attributes.clear();
            }
            inherited.push_back(std::move(below));
            return;
        }
        element.text = Resolved(Until("<"));
        Expect("</" + element.name + ">");
        open.pop_back();
    }

    std::string_view rest;
    std::vector<SvgElement> elements;
    std::vector<std::string> open;
    std::vector<SvgElement> inherited; ///< from the drawing and its open groups
    std::set<std::string> ids;
};

} // namespace

std::vector<double> SvgElement::Numbers(const std::string& attribute) const {
    const std::string value = attributes.at(attribute);
    std::vector<double> numbers;
    const char* at = value.c_str();
    while (*at != '\0') {
        if (std::isdigit(static_cast<unsigned char>(*at)) == 0 && *at != '-') {
            ++at;
            continue;
        }
        char* end = nullptr;
        numbers.push_back(std::strtod(at, &end));
        at = end;
    }
    return numbers;
}

std::string SvgElement::At(const std::string& attribute) const {
    const auto found = attributes.find(attribute);
    return found == attributes.end() ? "" : found->second;
}

std::vector<SvgElement> ReadSvg(std::string_view bytes) { return Reader(bytes).Read(); }

std::vector<SvgElement> SvgElements(std::string_view bytes, const std::string& name) {
    std::vector<SvgElement> found;
    for (const SvgElement& element : ReadSvg(bytes)) {
        if (element.name == name) {
            found.push_back(element);
        }
    }
    return found;
}

} // namespace quelmont
