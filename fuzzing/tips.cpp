// startuptips.txt: any bytes as tips, all shown in turn. Aborts if anything is thrown, or if the
// round doesn't come back to where it began.
#include <cstdint>

#include "fuzzing/require.h"
#include "fuzzing/whole_program.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tallowbrook;
  const std::string text(reinterpret_cast<const char*>(data), size);
  TextFiles files;
  files.texts["/tips"] = text;
  static TextFiles none;
  static WholeProgram program(none);
  StartupTips tips(files, program.clock, program.random, program.form.DisplayStartupTipsNew);
  const auto separators = std::count(text.begin(), text.end(), '~');
  Require(tips.Load("/tips") == (separators > 0));
  const std::string first = tips.Lbl_Tip.Caption();
  for (std::ptrdiff_t i = 0; i < separators; ++i) tips.Cmd_Next.Press();
  Require(tips.Lbl_Tip.Caption() == first);
  for (std::ptrdiff_t i = 0; i < separators; ++i) tips.Cmd_Previous.Press();
  Require(tips.Lbl_Tip.Caption() == first);
  return 0;
}
