#include "addin/help_commands.h"

#include <chrono>

#include "builders/about_dialog.h"

namespace tavrin::addin {
namespace {

long long Today() {
  using namespace std::chrono;
  return duration_cast<days>(system_clock::now().time_since_epoch()).count();
}

bool ViewTipOfTheDay(const Context& context) {
  return context.settings && context.settings->YesNo(settings::Item::kViewTipOfTheDay);
}

}  // namespace

int TipOfDay(builders::TipSet set, long long days_since_epoch) {
  const long long count = static_cast<long long>(builders::TipsOf(set).size());
  return static_cast<int>(((days_since_epoch % count) + count) % count);
}

void ShowTipOfTheDay(Context& context, builders::TipSet set, const SaveStartupChoice& save) {
  const int first = TipOfDay(set, Today());
  if (!context.dialogs) {
    context.ui.MessageBox(std::string(builders::TipsOf(set)[first]), platform::Buttons::kOk,
                          platform::Icon::kInformation, std::string(builders::kTipDialogTitle));
    return;
  }
  const bool was_on = ViewTipOfTheDay(context);
  builders::TipOfTheDayDialog dialog(set, first, was_on);
  context.dialogs->Show(dialog);  // Close and Escape keep the check box alike
  if (dialog.ShowAtStartup() != was_on && save) save(dialog.ShowAtStartup());
}

void ShowStartupTip(Context& context, const SaveStartupChoice& save) {
  if (context.dialogs && ViewTipOfTheDay(context))
    ShowTipOfTheDay(context, builders::TipSet::kStartup, save);
}

void ShowAbout(Context& context) {
  if (!context.dialogs) {
    context.ui.MessageBox(builders::AboutText(), platform::Buttons::kOk,
                          platform::Icon::kInformation, std::string(builders::kAboutDialogTitle));
    return;
  }
  builders::AboutDialog dialog;
  context.dialogs->Show(dialog);
}

}  // namespace tavrin::addin
