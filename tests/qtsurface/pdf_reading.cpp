#include "qtsurface/pdf_reading.h"

#include <QByteArray>

#include <map>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace quelmont {

namespace {

/// Offsets of objects, the newest table first.
std::map<int, std::size_t> Offsets(const std::string& bytes, std::string& firstTrailer) {
    std::map<int, std::size_t> offsets;
    std::size_t table = std::stoul(bytes.substr(bytes.rfind("startxref") + 9));
    for (bool isLast = false; !isLast;) {
        const std::size_t trailerAt = bytes.find("trailer", table);
        if (bytes.compare(table, 4, "xref") != 0 || trailerAt == std::string::npos) {
            throw std::runtime_error("no table where one should be");
        }
        const std::string entries = bytes.substr(table + 4, trailerAt - table - 4);
        static const std::regex section(R"((\d+) (\d+)\s*\n)");
        static const std::regex entry(R"((\d{10}) \d{5} ([nf]))");
        auto at = entries.cbegin();
        std::smatch match;
        while (
            std::regex_search(at, entries.cend(), match, section, std::regex_constants::match_continuous) ||
            std::regex_search(at, entries.cend(), match, std::regex(R"(\s*(\d+) (\d+)\s*\n)"),
                              std::regex_constants::match_continuous)) {
            const int first = std::stoi(match[1]);
            const int count = std::stoi(match[2]);
            at = match[0].second;
            for (int i = 0; i < count; ++i) {
                if (!std::regex_search(at, entries.cend(), match, entry)) {
                    throw std::runtime_error("a table without its entries");
                }
                if (match[2] == "n") {
                    offsets.emplace(first + i, std::stoul(match[1]));
                }
                at = match[0].second;
            }
        }
        const std::string trailer = bytes.substr(trailerAt, bytes.find("startxref", trailerAt) - trailerAt);
        firstTrailer = firstTrailer.empty() ? trailer : firstTrailer;
        const std::size_t before = trailer.find("/Prev ");
        isLast = before == std::string::npos;
        table = isLast ? 0 : std::stoul(trailer.substr(before + 6));
    }
    return offsets;
}

class Reader {
public:
    explicit Reader(const std::string& bytes_) : bytes(bytes_), offsets(Offsets(bytes, trailer)) {}

    std::string Object(int number) const {
        const std::size_t at = offsets.at(number);
        const std::string head = std::to_string(number) + " 0 obj";
        if (bytes.compare(at, head.size(), head) != 0) {
            throw std::runtime_error("object " + std::to_string(number) + " is not where its table says");
        }
        return bytes.substr(at, bytes.find("endobj", at) - at);
    }
    int Follow(const std::string& object, const std::string& key) const {
        std::smatch match;
        if (!std::regex_search(object, match, std::regex(key + R"( (\d+) 0 R)"))) {
            throw std::runtime_error(key + " is missing");
        }
        return std::stoi(match[1]);
    }
    std::string Stream(int number) const {
        const std::string object = Object(number);
        std::size_t length = 0;
        std::smatch match;
        const std::string dictionary = object.substr(0, object.find("stream"));
        if (std::regex_search(dictionary, match, std::regex(R"(/Length (\d+) 0 R)"))) {
            const std::string told = Object(std::stoi(match[1]));
            length = std::stoul(told.substr(told.find("obj") + 3));
        } else if (std::regex_search(dictionary, match, std::regex(R"(/Length (\d+))"))) {
            length = std::stoul(match[1]);
        }
        const std::size_t begin = bytes.find("stream", offsets.at(number)) + 7;
        const std::string data = bytes.substr(begin, length);
        if (dictionary.find("FlateDecode") == std::string::npos) {
            return data;
        }
        QByteArray packed(4, '\0');
        packed += QByteArray::fromStdString(data);
        return qUncompress(packed).toStdString();
    }

    std::string trailer;

private:
    const std::string& bytes;
    std::map<int, std::size_t> offsets;
};

std::vector<int> References(const std::string& text) {
    std::vector<int> numbers;
    static const std::regex reference(R"((\d+) 0 R)");
    for (std::sregex_iterator at(text.begin(), text.end(), reference), end; at != end; ++at) {
        numbers.push_back(std::stoi((*at)[1]));
    }
    return numbers;
}

std::string Between(const std::string& text, const std::string& from, const std::string& to) {
    const std::size_t begin = text.find(from) + from.size();
    return text.substr(begin, text.find(to, begin) - begin);
}

} // namespace

PdfText ReadPdf(const std::string& bytes) {
    const Reader reader(bytes);
    const std::string tree =
        reader.Object(reader.Follow(reader.Object(reader.Follow(reader.trailer, "/Root")), "/Pages"));
    PdfText text;
    text.pages = std::stoi(Between(tree, "/Count ", "\n"));
    for (const int page : References(Between(tree, "[", "]"))) {
        const std::string object = reader.Object(page);
        const bool isList = object.find("/Contents [") != std::string::npos;
        std::string content;
        for (const int stream : isList ? References(Between(object, "/Contents [", "]"))
                                       : std::vector<int>{reader.Follow(object, "/Contents")}) {
            content += reader.Stream(stream) + "\n";
        }
        text.contents.push_back(content);
    }
    return text;
}

int CountOf(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) {
        ++count;
    }
    return count;
}

int OperatorsOf(const std::string& content, const std::string& name) {
    std::istringstream words(content);
    int count = 0;
    int beforePath = 0; // the count before the path that may be a clip
    for (std::string word; words >> word;) {
        if (word == "m") {
            beforePath = count;
        }
        count = word == "W*" ? beforePath : count + (word == name ? 1 : 0);
    }
    return count;
}

} // namespace quelmont
