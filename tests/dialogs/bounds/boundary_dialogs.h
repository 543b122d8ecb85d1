#pragma once

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "projection/projection_table.h"
#include "support/fresh_program.h"

#include <map>
#include <string>
#include <vector>

namespace quelmont {

/// The program as it starts, with a projection chosen.
class BoundaryDialogs : public FreshProgramTest {
protected:
    BoundaryDialogs() { ConstantDefs(); }

    static void Choose(std::int16_t projNum) {
        Design.ProjNum = projNum;
        Design.ProjName = FindProjection(projNum)->ProjName;
    }
    static bool& IsSet() { return Design.ProjGridSet[static_cast<std::size_t>(Design.ProjNum)]; }
    static AskedBox OkBox(const char* title, const char* text) {
        return {title, text, BoxButtons::Ok, BoxIcon::Exclamation, BoxAnswer::Ok};
    }
    static AskedBox RetryBox(const char* title, const char* text, BoxAnswer answer) {
        return {title, text, BoxButtons::RetryCancel, BoxIcon::Exclamation, answer};
    }
    static std::vector<std::string> Texts(const Form& form) {
        std::vector<std::string> texts;
        for (const Control& control : form.Controls()) {
            if (control.kind == ControlKind::Edit) {
                texts.push_back(control.text);
            }
        }
        return texts;
    }
    static void TypeAll(Form& form, const std::map<std::string, std::string>& texts) {
        for (const auto& [control, text] : texts) {
            form.Type(control, text);
        }
    }
};

} // namespace quelmont
