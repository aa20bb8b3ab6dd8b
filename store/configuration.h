// The configuration: what is set once for the program, whatever it renames, as lines of key and
// value in tallowbrook.cfg.
//
// Form1 declares the entries, one a line with its default; the routines here walk them. A line is
// found by its key, as in a profile, wherever it stands and whatever stands around it.
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

// What isn't there, is empty or doesn't have its entry's form is the entry's default.
void ReadConfiguration(std::string_view text, std::span<const ConfigurationEntry> entries);
// The whole file, its lines in the order of the entries.
std::string WriteConfiguration(std::span<const ConfigurationEntry> entries);

}  // namespace tallowbrook
