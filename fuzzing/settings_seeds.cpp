// Profiles, configurations and tips: whole ones, empty ones, and lines that say something odd.
#include "fuzzing/seeds.h"
#include "fuzzing/whole_program.h"

namespace tallowbrook {

namespace {

// What the program itself writes after a start and an end.
std::string Written(const char* path) {
  TextFiles files;
  WholeProgram program(files);
  program.form.profiles.SaveProfile(3, "third");
  program.form.profiles.SaveProfile(1, "first");
  program.form.ExitProgram();
  return files.texts[path];
}

}  // namespace

Seeds ProfileSeeds() {
  const std::string written = Written("/data/profile.cfg");
  Seeds seeds = {
      "",
      written,
      written.substr(0, written.size() / 3) + written,
      "<<<Start Profile 1>>>\r\nProfileID=1\r\nCombo_Unique=2\r\nCombo_UniqueDateStart0=1\r\n"
      "Combo_UniqueDateStart1=30\r\nTabIndex=99\r\nText_UniqueStart=zzzz\r\n<<<End Profile 1>>>",
      "<<<Start Profile -5>>>\nProfileID=-5\n<<<end profile -5>>>",
      "<<<<<<Start Profile 0>>>"};
  AddDisturbed(seeds);
  return seeds;
}

Seeds ConfigurationSeeds() {
  Seeds seeds = {"", Written("/data/tallowbrook.cfg"),
                 "WindowHeight=99999999999\r\nWindowTop=-7\r\nFirstRun=maybe",
                 "FirstRun=False\r\nAutoUpdateLastCheck=FirstRun=F",
                 "AutoUpdateLastCheck=2/30/2024\r\nWindowLeft=1e9\r\nThumbnailWarning= 1.5 "};
  AddDisturbed(seeds);
  return seeds;
}

Seeds TipSeeds() {
  Seeds seeds = {
      "", "~", "no tip", "first~second~third", "~one\r\n~two~~", std::string("~\0~\xff", 4)};
  AddDisturbed(seeds);
  return seeds;
}

}  // namespace tallowbrook
