#pragma once

#include "core/map_design.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <string_view>

namespace quelmont {

/// The changes of the design that can be taken back, and those that were. Whoever learns of a change hands
/// it on here. The items of the Edit menu name what they would take back or bring back.
///
/// A design that was put back is the one before, to the last digit of the file that it would be saved as. The
/// picture follows. Files that were exported are no change; the name of the design's own file goes back with
/// a recall alone.
class UndoSteps {
public:
    /// Older steps are forgotten.
    static constexpr std::size_t Most = 200;

    /// The design as it is counts as unchanged: the program has begun, or the design was saved.
    void Noted();
    /// A change was accepted, under the name of a menu item.
    void Accepted(std::string_view name);
    /// Another design was recalled.
    void Recalled();

    /// Takes the last change back, or brings the one back that was taken back last. False when there is none.
    bool Undo();
    bool Redo();

    std::size_t StepsBack() const { return undo.size(); }
    std::size_t StepsForward() const { return redo.size(); }

private:
    /// A design, and what of the window's state belongs to it.
    struct Version {
        MapDesign design;
        bool hasFile = false;
        std::string savedDesign;
        std::string text; ///< to compare it by
    };
    using VersionPointer = std::shared_ptr<const Version>;
    struct Step {
        std::string name;
        VersionPointer version; ///< to which the step leads
        bool recall = false;
    };

    static VersionPointer Present();
    void Add(std::string name, bool recall);
    bool Go(std::deque<Step>& from, std::deque<Step>& to);
    void ShowItems() const;

    std::deque<Step> undo, redo;
    VersionPointer now;
};

} // namespace quelmont
