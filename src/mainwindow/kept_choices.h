#pragma once

#include <span>
#include <string>
#include <string_view>

namespace quelmont {

/// A choice of the person that outlasts the program, but belongs to no map design: a line of the settings
/// file.
struct KeptChoice {
    const char* key;
    /// The choice as it is now, one line of text.
    std::string (*text)();
    /// Makes the choice what a line tells. A line that means nothing leaves it as it is.
    void (*take)(std::string_view text);
    bool drawn = false;  ///< the picture of the map depends on it
    bool ofView = false; ///< how the map is looked at, and not what is on it
};

/// All of them. A new one needs its row in the table behind this, and nothing else.
std::span<const KeptChoice> KeptChoices();

/// Takes the choices over from the settings; one that is not there stays as it is.
void ReadKeptChoices();

/// Writes the choices that have changed since they were read or written. Where the settings cannot be written
/// nothing happens.
void KeepChoices();

/// The choices as they are now are those of a program that has no settings.
void NoteChoices();

/// The choices that the picture depends on, as one text to be compared.
std::string DrawnChoices();
/// Those of them that say what is on the map.
std::string MapChoices();

} // namespace quelmont
