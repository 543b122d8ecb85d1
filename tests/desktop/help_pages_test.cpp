// The pages of the help beside the program that they tell of: every dialog, control and item of a menu has
// its place there, and what a page sets in bold stands on the screen.

#include "desktop/desktop_fixture.h"
#include "desktop/dialog_catalogue.h"
#include "desktop/message_box.h"

#include "mainwindow/main_menu.h"
#include "mapfiles/feature_rows.h"
#include "mapfiles/map_formats.h"
#include "platform/help_pages.h"

#include <QAbstractButton>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace quelmont {
namespace {

using testing::IsEmpty;

const std::filesystem::path PagesFolder = QUELMONT_HELP_PAGES;
const std::filesystem::path SourceFolder = QUELMONT_SOURCES;

std::string ReadFile(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A text without the marks of its mnemonic and the blanks around it.
std::string Shown(std::string_view text) {
    std::string shown;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '&' && at + 1 < text.size() && text[at + 1] != ' ') {
            ++at;
        }
        shown += text[at];
    }
    const std::size_t first = shown.find_first_not_of(' ');
    const std::size_t last = shown.find_last_not_of(' ');
    return first == std::string::npos ? "" : shown.substr(first, last - first + 1);
}

/// A caption without the count behind it: "TrueType Fonts (12)".
std::string WithoutCount(const std::string& caption) {
    return std::regex_replace(caption, std::regex(" \\([0-9]+\\)$"), "");
}

struct Page {
    std::string name;
    std::string text; ///< without its examples
    std::set<std::string> headings;
    std::set<std::string> sections; ///< the headings as links name them
    std::set<std::string> bold;
    std::vector<std::string> links; ///< of pictures too
};

std::vector<std::string> Matches(const std::string& text, const char* pattern) {
    const std::regex expression(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match) {
        found.push_back((*match)[1]);
    }
    return found;
}

/// A heading as links name it: small letters, blanks as "-", no other marks.
std::string SectionOf(const std::string& heading) {
    std::string section;
    for (const char letter : heading) {
        if (letter == ' ' || letter == '-') {
            section += '-';
        } else if ((letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9')) {
            section += letter;
        } else if (letter >= 'A' && letter <= 'Z') {
            section += static_cast<char>(letter - 'A' + 'a');
        }
    }
    return section;
}

/// The prose of a page: no indented or fenced examples, no code within a line.
std::string WithoutExamples(const std::string& text) {
    std::string prose;
    bool fenced = false;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("```")) {
            fenced = !fenced;
        } else if (!fenced && !line.starts_with("    ")) {
            prose += line + "\n";
        }
    }
    return std::regex_replace(prose, std::regex("`[^`]*`"), "");
}

Page ReadPage(const std::filesystem::path& file) {
    Page page;
    page.name = file.stem().string();
    page.text = WithoutExamples(ReadFile(file));
    for (const std::string& heading : Matches(page.text, "(?:^|\n)#+ ([^\n]*)")) {
        page.headings.insert(heading);
        page.sections.insert(SectionOf(heading));
    }
    for (const std::string& bold : Matches(page.text, "\\*\\*([^*]+)\\*\\*")) {
        page.bold.insert(std::regex_replace(bold, std::regex("\n *"), " "));
    }
    page.links = Matches(page.text, "\\]\\(([^)]+)\\)");
    return page;
}

const std::map<std::string, Page>& Pages() {
    static const std::map<std::string, Page> pages = [] {
        std::map<std::string, Page> read;
        for (const auto& entry : std::filesystem::directory_iterator(PagesFolder)) {
            if (entry.path().extension() == ".md") {
                read.emplace(entry.path().stem().string(), ReadPage(entry.path()));
            }
        }
        return read;
    }();
    return pages;
}

/// What is wrong with a place in the help; empty if it is there.
std::string Fault(const HelpPlace& place) {
    const auto page = Pages().find(std::string(place.page));
    if (page == Pages().end()) {
        return "there is no page " + std::string(place.page);
    }
    const std::string section(place.section);
    return section.empty() || page->second.sections.contains(section)
               ? ""
               : page->first + " has no section " + section;
}

/// Whether a page speaks of a text that stands on the screen: in bold, or in a heading.
bool SpeaksOf(std::string_view name, const std::string& text) {
    const Page& page = Pages().at(std::string(name));
    return page.bold.contains(text) ||
           std::any_of(page.headings.begin(), page.headings.end(),
                       [&](const std::string& heading) { return heading.find(text) != std::string::npos; });
}

/// The string literals of the sources in which boxes and file dialogs are asked for: whole sentences and
/// titles, not the names of things.
std::set<std::string> TextsOfBoxes() {
    std::set<std::string> texts;
    for (const char* const room : {"dialogs", "mainwindow", "desktop"}) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(SourceFolder / room)) {
            if (entry.path().extension() != ".cpp") {
                continue;
            }
            for (const std::string& literal :
                 Matches(ReadFile(entry.path()), "\"([^\"\\\\\n]* [^\"\\\\\n]*)\"")) {
                texts.insert(Shown(literal));
            }
        }
    }
    return texts;
}

void AddButtonsOfBoxes(std::set<std::string>& texts) {
    for (const BoxButtons buttons :
         {BoxButtons::Ok, BoxButtons::RetryCancel, BoxButtons::YesNo, BoxButtons::SaveDiscardCancel,
          BoxButtons::RecallDiscard, BoxButtons::AbortRetryIgnore}) {
        MessageBox box("Title", "Text", buttons, BoxIcon::Information, nullptr);
        for (const QAbstractButton* button : box.findChildren<QAbstractButton*>()) {
            texts.insert(Shown(button->text().toStdString()));
        }
    }
}

void AddMapFormats(std::set<std::string>& texts) {
    for (const MapFormat& format : MapFormats()) {
        for (const FeatureRow& row : format.rows) {
            texts.insert(Shown(row.name));
        }
    }
    const std::string filters = MapFileFilters();
    for (const std::string& filter : Matches(filters, "([^|]+)")) {
        texts.insert(filter);
    }
}

void AddMenus(std::set<std::string>& texts) {
    for (const Menu menu : {Menu::mnuBar, Menu::mnuInput, Menu::mnuEdit, Menu::mnuView, Menu::mnuProj,
                            Menu::mnuProjMollweide, Menu::mnuDesign, Menu::mnuAbout}) {
        for (const MenuEntry& entry : MenuEntries(menu)) {
            texts.insert(Shown(entry.text));
        }
    }
}

class HelpPages : public DesktopTest {
protected:
    HelpPages() { Start(); }

    /// Every text that the program shows.
    static std::set<std::string> ShownTexts() {
        std::set<std::string> texts = TextsOfBoxes();
        AddMenus(texts);
        AddMapFormats(texts);
        AddButtonsOfBoxes(texts);
        for (const CataloguedDialog& dialog : DialogCatalogue()) {
            const std::unique_ptr<Form> form = dialog.make();
            texts.insert(form->Caption());
            for (const Control& control : form->Controls()) {
                texts.insert(Shown(control.text));
                texts.insert(WithoutCount(Shown(control.caption)));
                for (const std::string& item : control.items) {
                    texts.insert(Shown(item));
                }
                for (const GridCell& cell : control.cells) {
                    texts.insert(Shown(cell.text));
                }
            }
        }
        return texts;
    }
};

TEST_F(HelpPages, TellOfEveryDialogAndEveryControlThatCanHaveTheFocus) {
    for (const CataloguedDialog& dialog : DialogCatalogue()) {
        const std::unique_ptr<Form> form = dialog.make();
        EXPECT_NE(HelpContextOf(form->ClassName(), ""), 0) << form->ClassName();
        for (const Control& control : form->Controls()) {
            const std::string label = Shown(control.caption.empty() ? control.text : control.caption);
            const HelpPlace place = PlaceOfHelp(HelpContextOf(form->ClassName(), control.name));
            EXPECT_EQ(Fault(place), "") << form->ClassName() << " " << control.name;
            if (CanHaveFocus(control.kind) && label != "OK" && label != "Cancel") {
                EXPECT_TRUE(SpeaksOf(place.page, WithoutCount(label)))
                    << place.page << " does not speak of \"" << label << "\" of " << form->ClassName();
            }
        }
    }
}

TEST_F(HelpPages, TellOfEveryItemOfTheMenus) {
    for (const Menu menu : {Menu::mnuBar, Menu::mnuInput, Menu::mnuEdit, Menu::mnuView, Menu::mnuProj,
                            Menu::mnuProjMollweide, Menu::mnuDesign, Menu::mnuAbout, Menu::mnuRecent}) {
        for (const MenuEntry& entry : MenuEntries(menu)) {
            if (entry.IsSeparator() || !entry.Ready()) {
                continue;
            }
            ASSERT_NE(HelpContextOf(menu, entry.index), 0) << entry.text;
            const HelpPlace place = PlaceOfHelp(HelpContextOf(menu, entry.index));
            EXPECT_EQ(Fault(place), "") << entry.text;
            if (menu != Menu::mnuRecent) {
                EXPECT_TRUE(SpeaksOf(place.page, Shown(entry.text)))
                    << place.page << " does not speak of " << entry.text;
            }
        }
    }
}

TEST_F(HelpPages, SetNothingInBoldThatTheProgramDoesNotShow) {
    const std::set<std::string> shown = ShownTexts();
    for (const auto& [name, page] : Pages()) {
        for (const std::string& bold : page.bold) {
            EXPECT_TRUE(shown.contains(bold)) << name << " sets \"" << bold << "\" in bold";
        }
    }
}

TEST_F(HelpPages, AreTheOnesOfDialogsAndControlsThatExist) {
    std::map<std::string, std::set<std::string>> controls;
    for (const CataloguedDialog& dialog : DialogCatalogue()) {
        const std::unique_ptr<Form> form = dialog.make();
        controls[form->ClassName()].insert("");
        for (const Control& control : form->Controls()) {
            controls[form->ClassName()].insert(control.name);
        }
    }
    for (const ControlHelp& row : HelpOfControls()) {
        EXPECT_TRUE(controls[std::string(row.form)].contains(std::string(row.control)))
            << row.form << " " << row.control;
    }
    for (const MenuHelp& row : HelpOfMenus()) {
        const auto entries = MenuEntries(row.menu);
        EXPECT_TRUE(std::any_of(
            entries.begin(), entries.end(),
            [&](const MenuEntry& entry) { return entry.index == row.index && !entry.IsSeparator(); }))
            << row.place.page << " " << row.index;
    }
}

TEST(HelpLinks, LeadToPagesSectionsAndPicturesThatAreThere) {
    for (const auto& [name, page] : Pages()) {
        for (const std::string& link : page.links) {
            if (link.ends_with(".png")) {
                EXPECT_TRUE(std::filesystem::is_regular_file(PagesFolder / link)) << name << ": " << link;
                continue;
            }
            const std::size_t mark = link.find('#');
            const std::string section = mark == std::string::npos ? "" : link.substr(mark + 1);
            const std::string file = link.substr(0, mark);
            ASSERT_TRUE(file.ends_with(".md")) << name << ": " << link;
            const std::string target = file.substr(0, file.size() - 3);
            EXPECT_EQ(Fault({target, section}), "") << name << ": " << link;
        }
    }
}

TEST(HelpLinks, LeadFromTheContentsToEveryPage) {
    std::set<std::string> reached = {std::string(HelpContentsPage)};
    std::vector<std::string> open(reached.begin(), reached.end());
    while (!open.empty()) {
        const std::string name = open.back();
        open.pop_back();
        for (const std::string& link : Pages().at(name).links) {
            const std::string target = link.substr(0, link.find(".md"));
            if (Pages().contains(target) && reached.insert(target).second) {
                open.push_back(target);
            }
        }
    }
    std::vector<std::string> lost;
    for (const auto& [name, page] : Pages()) {
        if (!reached.contains(name)) {
            lost.push_back(name);
        }
    }
    EXPECT_THAT(lost, IsEmpty());
}

} // namespace
} // namespace quelmont
