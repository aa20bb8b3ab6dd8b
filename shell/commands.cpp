#include "shell/commands.h"

#include <algorithm>

#include "shell/form1.h"

namespace tallowbrook {

namespace {

void Nothing(Form1&, int) {}

void Toggle(Form1& form, int number) {
  form.ribbon.ToggleChecked(number);
}

// From what the switch stands for at present.
bool Toggled(Form1& form, int number) {
  form.SetupCommandBars();
  form.ribbon.ToggleChecked(number);
  return form.ribbon.Checked[number];
}

void ChooseStyle(Form1& form, int number) {
  form.ApplyStyle(form.StylePath(number));
}

void ShowDateColumn(Form1& form, int number) {
  form.ribbon.Checked[commandDateCreated] = number == commandDateCreated;
  form.ribbon.Checked[commandDateModified] = number == commandDateModified;
  form.operations.SetDateColumnMode(number == commandDateCreated ? 1 : 0);
}

// clang-format off
constexpr Command commands[] = {
    {commandSelectTab, "", [](Form1& form, int) { form.RibbonTab = form.ribbon.SelectedTab; }},
    {commandStyleBlue, "", ChooseStyle},
    {commandStyleBlack, "", ChooseStyle},
    {commandStyleAqua, "", ChooseStyle},
    {commandStyleSilver, "", ChooseStyle},
    {9604, "", Nothing},
    {9607, "", Nothing},
    {commandExit, "Close Tallowbrook", [](Form1& form, int) { form.ExitProgram(); }},
    {100000, "", Toggle},
    {101000, "", Toggle},
    {102000, "", Toggle},
    {103000, "", Toggle},
    {104000, "", Toggle},
    {105000, "", Toggle},
    {commandWebsite, "Open the program's site", [](Form1& form, int) { form.OpenSite("/products_tallowbrook.cfm"); }},
    {commandCheckForUpdates, "Ask whether there is a newer version", [](Form1& form, int) { form.update.CheckForUpdates(1); }},
    {commandAbout, "What program this is", [](Form1& form, int) { form.OpenAboutDialog(); }},
    {commandReportBug, "Tell us what doesn't work", [](Form1& form, int) { form.OpenSite("/products_comments.cfm?prod=tallowbrook&type=bug"); }},
    {commandSuggestFeature, "Tell us what is missing", [](Form1& form, int) { form.OpenSite("/products_comments.cfm?prod=tallowbrook&type=feature"); }},
    {commandViewLog, "Show what was renamed, and undo it", [](Form1& form, int) { form.OpenHistoryWindow(); }},
    {commandSaveProfile, "Put the present settings in place of the current profile", [](Form1& form, int) { form.SaveCurrentProfile(); }},
    {commandSaveProfileAs, "Keep the present settings as a new profile", [](Form1& form, int) { form.OpenSaveProfileDialog(); }},
    {114101, "", Nothing},
    {commandLoadProfile, "Take over the settings of a profile", [](Form1& form, int) { form.LoadSelectedProfile(); }},
    {commandManageProfiles, "Rename, replace and delete profiles", [](Form1& form, int) { form.OpenManageProfiles(); }},
    {commandAutoUpdate, "", [](Form1& form, int number) { form.AutoUpdate = Toggled(form, number); }},
    {commandStartupTips, "", [](Form1& form, int number) { form.DisplayStartupTipsNew = Toggled(form, number) ? 1 : 0; }},
    {commandReset, "Set the pages back to how a first start shows them", [](Form1& form, int) { form.pages.ResetSettings(); }},
    {commandDateCreated, "", ShowDateColumn},
    {commandExifDate, "", [](Form1& form, int number) { form.scan.ShowEXIFDateCreated = Toggled(form, number) ? 1 : 0; }},
    {commandDateModified, "", ShowDateColumn},
    {commandLoadSettings, "", [](Form1& form, int number) { form.LoadSavedSettings = Toggled(form, number); }},
    {commandOptions, "What the program does at its start, and which dates it lists", [](Form1& form, int) { form.OpenOptions(); }},
};

constexpr StyleChoice styles[] = {
    {commandStyleBlue, "Blue", "Office2007Blue.dll"},
    {commandStyleBlack, "Black", "Office2007Black.dll"},
    {commandStyleSilver, "Silver", "Office2007Silver.dll"},
    {commandStyleAqua, "Aqua", "Office2007Aqua.dll"},
};
// clang-format on

static_assert(std::ranges::is_sorted(commands, {}, &Command::number));

}  // namespace

std::span<const Command> Commands() {
  return commands;
}

const Command* FindCommand(int number) {
  const auto* found = std::ranges::lower_bound(commands, number, {}, &Command::number);
  return found != std::end(commands) && found->number == number ? found : nullptr;
}

std::span<const StyleChoice> Styles() {
  return styles;
}

}  // namespace tallowbrook
