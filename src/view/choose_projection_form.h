#pragma once

#include "dialogs/design_dialog.h"
#include "view/choose_projection.h"

#include <cstddef>
#include <vector>

namespace quelmont {

/// "Help Me Choose a Projection": what the map is for, and of which region; the answer is a list of
/// projections for them, the best first, with a reason and the largest errors of each. OK takes the line that
/// is selected.
///
/// Reads   the projection's bounds.  Writes  DialogCancelled.
class ChooseProjectionForm : public DesignDialog {
public:
    ChooseProjectionForm();

    /// What stands in the list "Candidates", whose lines are the name, the reason and the errors of each,
    /// parted by "\n".
    const std::vector<ProjectionCandidate>& Candidates() const { return candidates; }
    /// The one that is selected; nullptr when the list is empty.
    const ProjectionCandidate* Chosen() const;

private:
    void AddPurposes();
    void AddRegions();
    /// The list for what is chosen now.
    void Answer();

    MapRegion ownRegion;
    std::vector<ProjectionCandidate> candidates;
};

} // namespace quelmont
