// The configuration: what belongs to the installation, as lines of key and value in
// tallowbrook.cfg.
//
// Form1 declares the entries, one a line with its default; the routines here walk them. Every key
// is looked up by itself, as in a profile, so that order and foreign lines don't matter.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace tallowbrook {

struct ConfigurationEntry {
  std::string_view key;  // with "=" at its end
  // What holds the value: a flag is "True" or "False", a number decimal text.
  std::variant<bool*, int*, std::string*> target;
  std::string defaultValue;
  // Written, and read by nobody.
  bool isReadBack = true;
};

// A key that is missing, or whose value is empty or doesn't have its entry's form, gives its default.
void ReadConfiguration(std::string_view text, std::span<const ConfigurationEntry> entries);
// The whole file, its lines in the order of the entries.
std::string WriteConfiguration(std::span<const ConfigurationEntry> entries);

}  // namespace tallowbrook
