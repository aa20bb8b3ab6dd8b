// tallowbrook.cfg: any bytes as the configuration of a start. Aborts if anything is thrown, or if
// what is written then isn't read as the same: but for texts that hold the key of a later line,
// which hide that line wherever they stand.
#include <cstdint>

#include "fuzzing/require.h"
#include "fuzzing/whole_program.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tallowbrook;
  const std::string path = "/data/tallowbrook.cfg";
  TextFiles files;
  files.texts[path] = {reinterpret_cast<const char*>(data), size};
  std::string written[2];
  for (std::string& text : written) {
    WholeProgram program(files);
    Require(program.form.WindowTop >= 1 && program.form.WindowLeft >= 1);
    if (program.form.AutoUpdateLastCheck.find('=') != std::string::npos) return 0;
    program.form.ExitProgram();
    text = files.texts[path];
  }
  // The width is written and never read.
  for (std::string& text : written) {
    const std::size_t at = text.find("WindowWidth=");
    Require(at != std::string::npos);
    text.erase(at, text.find('\n', at) - at);
  }
  Require(written[0] == written[1]);
  return 0;
}
