// The English texts of the workbench, built in, so that a missing or partial
// language file still gives every caption, label and question its words.

#include "workbench/EnglishTexts.h"

#include <algorithm>
#include <array>

namespace orl {

namespace {

struct TEnglishText {
  std::u16string_view Section, Id, Text;
};

constexpr std::array<TEnglishText, 96> kEnglishTexts{{
    {u"GrammarDesk", u"000", u"Orl GrammarDesk"},
    {u"GrammarDesk", u"002", u"Import"},
    {u"GrammarDesk", u"003", u"UltraEdit Wordfile..."},
    {u"GrammarDesk", u"050", u"Options"},
    {u"GrammarDesk", u"051", u"Keywords"},
    {u"GrammarDesk", u"052", u"Tags"},
    {u"GrammarDesk", u"054", u"User Menu (Ctrl+Space)"},
    {u"GrammarDesk", u"055", u"Class completion"},
    {u"GrammarDesk", u"056", u"Tag completion"},
    {u"GrammarDesk", u"057", u"Hints"},
    {u"GrammarDesk", u"059", u"Syntax sample"},
    {u"GrammarDesk", u"060", u"Author information"},
    {u"GrammarDesk", u"070", u"Options"},
    {u"GrammarDesk", u"071", u"Block"},
    {u"GrammarDesk", u"072", u"Fold"},
    {u"GrammarDesk", u"073", u"Fold options"},
    {u"GrammarDesk", u"080", u"Option"},
    {u"GrammarDesk", u"081", u"Option"},
    {u"GrammarDesk", u"082", u"Block name"},
    {u"GrammarDesk", u"083", u"Code fold"},
    {u"GrammarDesk", u"084", u"Option"},
    {u"GrammarDesk", u"085", u"Option"},
    {u"GrammarDesk", u"086", u"Keyword groups"},
    {u"GrammarDesk", u"087", u"Keywords of the group"},
    {u"GrammarDesk", u"088", u"Tag groups"},
    {u"GrammarDesk", u"089", u"Tags of the group"},
    {u"GrammarDesk", u"090", u"List of functions, tags or whatever you want to display with \"Ctrl+Space\""},
    {u"GrammarDesk", u"091", u"Classes"},
    {u"GrammarDesk", u"092", u"Members of the class"},
    {u"GrammarDesk", u"093", u"Attributes of the tag"},
    {u"GrammarDesk", u"094", u"Id / func"},
    {u"GrammarDesk", u"095", u"Enter a sample text that will be displayed in the options dialog:"},
    {u"GrammarDesk", u"096", u"Add information about the syntax definition file and who wrote it."},
    {u"GrammarDesk", u"097", u"Add default author information lines"},
    {u"GrammarDesk", u"098", u"Add-ons information"},
    {u"GrammarDesk", u"099", u"Author"},
    {u"GrammarDesk", u"100", u"Date (yyyy-mm-dd)"},
    {u"GrammarDesk", u"101", u"Version"},
    {u"GrammarDesk", u"102", u"Desc / Header"},
    {u"GrammarDesk", u"103", u"Identifier / function"},
    {u"GrammarDesk", u"104", u"Description"},
    {u"GrammarDesk", u"200", u"The syntax definition was written in the older layout and has been converted."},
    {u"GrammarDesk", u"201", u"It is saved in the current layout when you save it."},
    {u"GrammarDesk", u"202", u"Press \"New\" or \"Open\" to edit a syntax definition."},
    {u"GrammarDesk", u"203", u"The syntax definition has been modified. Do you want to save the changes?"},
    {u"GrammarDesk", u"204", u"The new syntax definition has not been saved yet. Do you want to save it?"},
    {u"GrammarDesk", u"205", u"Delete the selected hints?"},
    {u"GrammarDesk", u"300", u"Add"},
    {u"GrammarDesk", u"301", u"Edit"},
    {u"GrammarDesk", u"302", u"Delete"},
    {u"GrammarDesk", u"303", u"Sort"},
    {u"GrammarDesk", u"304", u"Add Default"},
    {u"GrammarDesk", u"305", u"Option"},
    {u"GrammarDesk", u"306", u"Value"},
    {u"GrammarDesk", u"307", u"Block Option"},
    {u"GrammarDesk", u"308", u"Fold Option"},
    {u"GrammarDesk", u"309", u"Caption shown in the list:"},
    {u"GrammarDesk", u"310", u"Type a word and press Add; each row of the list becomes one word:"},
    {u"GrammarDesk", u"311", u"Text to insert:"},
    {u"GrammarDesk", u"312", u"Menu item"},
    {u"GrammarDesk", u"313", u"Name:"},
    {u"GrammarDesk", u"314", u"Word:"},
    {u"GrammarDesk", u"315", u"Class or tag name:"},
    {u"GrammarDesk", u"316", u"The item stands for another group (@)"},
    {u"GrammarDesk", u"317", u"Sort by image"},
    {u"GrammarDesk", u"318", u"Choose the image"},
    {u"GrammarDesk", u"319", u"Move up"},
    {u"GrammarDesk", u"320", u"Move down"},
    {u"GrammarDesk", u"206", u"Unsaved changes of an earlier session were found. Restore them? No discards them."},
    {u"GrammarDesk", u"207", u"The word-file converter could not be started."},
    {u"GrammarDesk", u"208", u"The word-file converter did not finish and was stopped."},
    {u"GrammarDesk", u"209", u"The word-file converter left no definition."},
    {u"Menu", u"m00", u"File"},
    {u"Menu", u"0001", u"Open..."},
    {u"Menu", u"0002", u"Recent files"},
    {u"Menu", u"0004", u"Save"},
    {u"Menu", u"0005", u"Save As..."},
    {u"Menu", u"0015", u"Close"},
    {u"Menu", u"0011", u"Exit"},
    {u"Menu", u"m07", u"Help"},
    {u"Menu", u"7000", u"Content..."},
    {u"Menu", u"7001", u"About..."},
    {u"Misc", u"101", u"New"},
    {u"Misc", u"130", u"Clear the list"},
    {u"Buttons", u"100", u"OK"},
    {u"Buttons", u"101", u"Cancel"},
    {u"Buttons", u"161", u"New"},
    {u"Buttons", u"102", u"Yes"},
    {u"Buttons", u"103", u"No"},
    {u"Addons", u"011", u"Default file extensions"},
    {u"Hints", u"007", u"Cut"},
    {u"Hints", u"008", u"Copy"},
    {u"Hints", u"009", u"Paste"},
    {u"Hints", u"112", u"Capitalize"},
    {u"Hints", u"113", u"Uppercase"},
    {u"Hints", u"114", u"Lowercase"},
}};

} // namespace

std::u16string_view EnglishText(std::u16string_view section, std::u16string_view id) {
  const auto found = std::find_if(kEnglishTexts.begin(), kEnglishTexts.end(),
                                  [&](const TEnglishText& t) { return t.Section == section && t.Id == id; });
  return found == kEnglishTexts.end() ? std::u16string_view() : found->Text;
}

} // namespace orl
