#include "walls/walls.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <optional>
#include <regex>
#include <sstream>

namespace quelmont {

namespace {

/// The lowest floor that may know Qt.
constexpr int QtFloor = 8;
constexpr std::string_view WidgetRoom = "desktop";

const Room* Find(const std::vector<Room>& rooms, const std::string& name) {
    const auto found =
        std::find_if(rooms.begin(), rooms.end(), [&](const Room& room) { return room.name == name; });
    return found == rooms.end() ? nullptr : &*found;
}

std::string FirstPart(const std::string& path) { return path.substr(0, path.find('/')); }

using LineVisitor =
    std::function<void(const std::string& folder, const std::string& where, const std::string& line)>;

/// Visits every line of the C++ sources below root/top; folder is the first folder below top.
void VisitLines(const std::filesystem::path& root, const std::string& top, const LineVisitor& visit) {
    static const std::set<std::string> extensions = {".h", ".cpp", ".hpp", ".cc", ".inc"};
    if (!std::filesystem::is_directory(root / top)) {
        return;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / top)) {
        if (!entry.is_regular_file() || !extensions.contains(entry.path().extension().string())) {
            continue;
        }
        const std::string path = entry.path().lexically_relative(root / top).generic_string();
        const std::string folder = path.find('/') == std::string::npos ? "" : FirstPart(path);
        const std::string prefix = top + "/" + path + ":";
        std::ifstream file(entry.path());
        std::string line;
        for (int number = 1; std::getline(file, line); ++number) {
            visit(folder, prefix + std::to_string(number), line);
        }
    }
}

struct Include {
    std::string name;
    bool quoted = false;
};

std::optional<Include> IncludeOf(const std::string& line) {
    static const std::regex pattern(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
    std::smatch match;
    if (!std::regex_search(line, match, pattern)) {
        return std::nullopt;
    }
    return Include{match[2].str(), match[1].str() == "\""};
}

bool IsQtHeader(const std::string& name) {
    static const std::regex pattern(R"(^(Q[A-Za-z0-9_/]*|Qt[A-Za-z]+/.*|q[a-z0-9_]+\.h)$)");
    return std::regex_match(name, pattern);
}

bool IsWidgetHeader(const std::string& name, const std::set<std::string>& widgetHeaders) {
    return name.rfind("QtWidgets", 0) == 0 || widgetHeaders.contains(name);
}

/// What is wrong with an include in a file of a room, or of a program when room is null.
std::string Fault(const std::vector<Room>& rooms, const Room* room, const Include& include,
                  const std::set<std::string>& widgetHeaders) {
    if (IsQtHeader(include.name)) {
        if (IsWidgetHeader(include.name, widgetHeaders) && (room == nullptr || room->name != WidgetRoom)) {
            return "only desktop may know Qt Widgets";
        }
        return room != nullptr && room->floor < QtFloor ? "below the Qt surfaces nothing knows Qt" : "";
    }
    const std::string name = FirstPart(include.name);
    const Room* const target = include.name.find('/') == std::string::npos ? nullptr : Find(rooms, name);
    if (target == nullptr) {
        const bool generated = include.name.size() > 4 && include.name.ends_with(".moc");
        return include.quoted && !generated ? "this is the header of no room" : "";
    }
    if (room == nullptr || room == target) {
        return "";
    }
    if (target->floor >= room->floor) {
        return name + " does not lie below " + room->name;
    }
    const bool declared = std::find(room->below.begin(), room->below.end(), name) != room->below.end();
    return declared ? "" : room->name + " did not declare " + name;
}

} // namespace

std::vector<Room> ReadRooms(const std::string& text) {
    std::vector<Room> rooms;
    std::istringstream lines(text);
    std::string line;
    while (std::getline(lines, line)) {
        std::istringstream fields(line);
        Room room;
        std::string below;
        if (!(fields >> room.name >> room.floor)) {
            continue;
        }
        fields >> below;
        std::istringstream names(below);
        for (std::string name; std::getline(names, name, ',');) {
            room.below.push_back(name);
        }
        rooms.push_back(room);
    }
    return rooms;
}

std::set<std::string> LinkedRooms(const std::vector<Room>& rooms, const std::string& name) {
    std::set<std::string> linked;
    if (const Room* const room = Find(rooms, name)) {
        for (const std::string& below : room->below) {
            linked.insert(below);
            linked.merge(LinkedRooms(rooms, below));
        }
    }
    return linked;
}

std::vector<std::string> BadDeclarations(const std::vector<Room>& rooms) {
    std::vector<std::string> faults;
    for (const Room& room : rooms) {
        for (const std::string& name : room.below) {
            const Room* const target = Find(rooms, name);
            if (target == nullptr) {
                faults.push_back(room.name + " declares " + name + ", which is no room");
            } else if (target->floor >= room.floor) {
                faults.push_back(room.name + " declares " + name + ", which does not lie below it");
            }
        }
    }
    return faults;
}

std::vector<std::string> BadIncludes(const std::vector<Room>& rooms, const std::filesystem::path& root,
                                     const std::set<std::string>& widgetHeaders) {
    std::vector<std::string> faults;
    const auto visit = [&](const Room* room, const std::string& where, const std::string& line) {
        const std::optional<Include> include = IncludeOf(line);
        const std::string fault = include ? Fault(rooms, room, *include, widgetHeaders) : "";
        if (!fault.empty()) {
            faults.push_back(where + ": " + include->name + ": " + fault);
        }
    };
    VisitLines(root, "src",
               [&](const std::string& folder, const std::string& where, const std::string& line) {
                   const Room* const room = Find(rooms, folder);
                   if (room != nullptr) {
                       visit(room, where, line);
                   } else if (where.ends_with(":1")) {
                       faults.push_back(where + ": this file lies in no room");
                   }
               });
    VisitLines(root, "apps", [&](const std::string&, const std::string& where, const std::string& line) {
        visit(nullptr, where, line);
    });
    return faults;
}

std::vector<std::string> LocaleDependentLines(const std::filesystem::path& root) {
    static const std::regex reading(R"(\b(strto(d|f|ld)|atof|sto(d|f|ld))\s*\()");
    static const std::regex writing(R"(printf\s*\(.*%[-+ #0]*[0-9*]*(\.[0-9*]+)?[lL]?[aefgAEFG])");
    std::vector<std::string> faults;
    const auto visit = [&](const std::string&, const std::string& where, const std::string& line) {
        if (std::regex_search(line, reading) || std::regex_search(line, writing)) {
            faults.push_back(where + ": " + line);
        }
    };
    VisitLines(root, "src", visit);
    VisitLines(root, "apps", visit);
    return faults;
}

} // namespace quelmont
