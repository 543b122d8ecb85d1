#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace quelmont {

/// What one room declared to the build.
struct Room {
    std::string name;
    int floor = 0;
    std::vector<std::string> below; ///< the rooms that it may include from
};

/// Reads lines of "name floor rooms,comma,separated".
std::vector<Room> ReadRooms(const std::string& text);

/// A room that declares one which does not exist or does not lie on a lower floor: one sentence
/// each.
std::vector<std::string> BadDeclarations(const std::vector<Room>& rooms);

/// The rooms that a room is linked with: those that it declares, those that these declare, and so on.
std::set<std::string> LinkedRooms(const std::vector<Room>& rooms, const std::string& name);

/// Every include below root/src and root/apps that breaks a wall, one sentence each:
///  - of a room that was not declared or does not lie lower, or of no room at all;
///  - of Qt below the floor of the Qt surfaces;
///  - of Qt Widgets anywhere but in the desktop; widgetHeaders are the names of its headers.
/// A program under apps may include from every room. Folders below a room belong to it.
std::vector<std::string> BadIncludes(const std::vector<Room>& rooms, const std::filesystem::path& root,
                                     const std::set<std::string>& widgetHeaders);

/// Lines below root/src and root/apps that read or write a broken number in a way that follows the
/// locale of the process.
std::vector<std::string> LocaleDependentLines(const std::filesystem::path& root);

} // namespace quelmont
