// Access keys of a form: the letter after the first "&" of each caption, the
// captions of every tab of a tabbed container included, and the letters that
// more than one caption uses.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ide/object_model.h"

namespace tavrin::formtools {

// A caption's access key: the character after its first "&", upper-cased;
// a blank for a caption ending in "&"; nullopt for a caption without "&".
// "&&" gives "&", which is no letter and never checked.
std::optional<std::string> AccessKeyOf(std::string_view caption);

// True when the control's Properties collection has the entry.
bool HasControlProperty(ide::IControl& control, std::string_view property_name);

// "Name", or "Name(3)" for a member of a control array.
std::string ControlDisplayName(ide::IControl& control);

// One caption with an access key: a control's, or one tab's of a tabbed
// container (tab >= 0).
struct AccessKeyUse {
  std::string key;
  std::shared_ptr<ide::IControl> control;
  int tab = -1;
};

// How a caption is named to the user: the control's display name, and for a
// tab "Name.TabCaption(n)".
std::string CaptionDisplayName(const AccessKeyUse& use);

// The most tabs of one container that are visited (a broken "Tabs" value
// must not run for ever).
inline constexpr int kMaxTabs = 1000;

// Every caption holding "&", in the designer's order; each container shows
// the tab it showed before.
std::vector<AccessKeyUse> CollectAccessKeys(ide::IDesigner& designer);

struct ShortcutConflict {
  char letter = 'A';
  std::vector<AccessKeyUse> uses;  // latest caption first
};

// The letters A to Z that more than one caption uses, in letter order.
std::vector<ShortcutConflict> FindShortcutConflicts(const std::vector<AccessKeyUse>& uses);

// The caption of a use (for a tab, that tab's caption) and setting it.
std::string ReadCaption(const AccessKeyUse& use);
void WriteCaption(const AccessKeyUse& use, std::string_view caption);

}  // namespace tavrin::formtools
