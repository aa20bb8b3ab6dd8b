#include "shell/options.h"

namespace tallowbrook {

Options::Options(const OptionValues& values)
    : Frame3(screen, {.name = "Frame3", .caption = "General Options"}),
      Check_StartupTips(screen, {.name = "Check_StartupTips", .caption = "Show Startup Tips"},
                        values.DisplayStartupTipsNew == 1),
      Check_AutoUpdate(
          screen,
          {.name = "Check_AutoUpdate", .caption = "Automatically Check for program updates"},
          values.AutoUpdate),
      Check_LoadSavedSettings(screen,
                              {.name = "Check_LoadSavedSettings",
                               .caption = "Load previously used settings at program startup"},
                              values.LoadSavedSettings),
      Frame1(screen, {.name = "Frame1", .caption = "Display File Date As"}),
      Option_DateCreated(screen, {.name = "Option_DateCreated", .caption = "Date Created"}, "Date",
                         values.DateColumnMode == 1),
      Option_DateModified(screen, {.name = "Option_DateModified", .caption = "Date Modified"},
                          "Date", values.DateColumnMode != 1),
      Check_ShowEXIFDateCreated(
          screen,
          {.name = "Check_ShowEXIFDateCreated", .caption = "Show EXIF Date Created (if available)"},
          values.ShowEXIFDateCreated == 1),
      Command_Save(screen, {.name = "Command_Save", .caption = "Save"}),
      Command_Done(screen, {.name = "Command_Done", .caption = "Close"}) {
  Command_Save.rule = [this, values] { Save(values); };
  Command_Done.rule = [this] {
    if (close) close();
  };
}

void Options::Save(const OptionValues& values) {
  values.LoadSavedSettings = Check_LoadSavedSettings.On();
  values.AutoUpdate = Check_AutoUpdate.On();
  values.operations.SetDateColumnMode(Option_DateCreated.On() ? 1 : 0);
  values.ShowEXIFDateCreated = Check_ShowEXIFDateCreated.Value();
  values.DisplayStartupTipsNew = Check_StartupTips.Value();
  if (close) close();
}

}  // namespace tallowbrook
