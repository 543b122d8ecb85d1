#pragma once

#include "export_fixture.h"
#include "output/cgm/cgm_writer.h"
#include "support/cgm_file.h"

#include <string>
#include <vector>

namespace quelmont {

/// A program about to export a CGM file.
class CgmTest : public ExportTest {
protected:
    CgmTest() {
        Writers().cgm = &writer;
        Design.OutputCgm = true;
        Design.CgmFileName = target;
        ResetLineState();
    }

    static void Begin() { PrintFileHeader(); }
    std::string End() {
        FinishFile();
        return ReadWholeFile(target);
    }
    std::vector<std::string> EndWithElements() { return CgmBody(End()); }

    CgmWriter writer;
};

} // namespace quelmont
