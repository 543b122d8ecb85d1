#pragma once

#include <string_view>

namespace quelmont {

/// What a change of the design is about.
enum class ChangeKind { Bounds, Look, MapFiles, Size };

/// Whoever wants to know that the design was changed: to keep it, to take the change back.
class Changes {
public:
    virtual ~Changes() = default;
    /// A change was accepted, under the name of the menu item that led to it; the design holds it.
    virtual void Accepted(std::string_view name, ChangeKind kind) = 0;
    /// The design as it is now need not be kept: the program has just started, or the design was saved or
    /// recalled.
    virtual void Noted() {}
    /// Another design was recalled; the design holds it. Noted follows.
    virtual void Recalled() {}
    /// Undo takes the last change back; redo makes the one again that was taken back last.
    virtual void Undo() {}
    virtual void Redo() {}
};

} // namespace quelmont
