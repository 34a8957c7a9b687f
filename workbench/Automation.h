#pragma once
// A script that drives the running program through its widgets, for the
// end-to-end tests and for screenshots. It runs only when the environment
// variable GRAMMARDESK_AUTOMATION names a script file.
//
// The script has a `[start]` part for an ordinary start and a `[restart]`
// part for a start after a crash. Commands, one a line:
//   page N | subpage N | select-block N | select-fold N | select-group N | select-hint N
//   dialog-shot OBJECTNAME FILE.png  (TSyntaxAbout, TUserMenuForm, TAddForm)
//   set GRID ROWNAME VALUE...     (types VALUE into a grid cell as a user would)
//   sample TEXT...                (appends a line to the sample text)
//   save | crash | quit
//   report FILE                   (writes what the form shows)
//   screenshot FILE.png

#include <string>
#include <vector>

namespace orl {

class TSynForm;

/// Runs the script part that fits this start, if the variable is set.
void RunAutomationIfSet(TSynForm& form, const std::vector<std::string>& arguments);

} // namespace orl
