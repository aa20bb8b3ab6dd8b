#include "store/configuration.h"

#include "base/decimal.h"
#include "base/letter_case.h"
#include "store/profile_file.h"

namespace tallowbrook {

namespace {

struct ReadValue {
  std::string_view value;

  void operator()(bool* flag) const {
    for (const bool on : {false, true}) {
      if (EqualIgnoringCase(value, on ? "True" : "False")) *flag = on;
    }
  }
  void operator()(int* number) const {
    if (const auto whole = WholeNumber(value)) *number = *whole;
  }
  void operator()(std::string* text) const { *text = value; }
};

struct WriteValue {
  std::string operator()(const bool* flag) const { return *flag ? "True" : "False"; }
  std::string operator()(const int* number) const { return std::to_string(*number); }
  std::string operator()(const std::string* text) const { return *text; }
};

}  // namespace

void ReadConfiguration(std::string_view text, std::span<const ConfigurationEntry> entries) {
  for (const ConfigurationEntry& entry : entries) {
    if (!entry.isReadBack) continue;
    std::visit(ReadValue{entry.defaultValue}, entry.target);
    std::visit(ReadValue{GetVar(text, entry.key, entry.defaultValue)}, entry.target);
  }
}

std::string WriteConfiguration(std::span<const ConfigurationEntry> entries) {
  std::string text;
  for (const ConfigurationEntry& entry : entries) {
    text.append(entry.key).append(std::visit(WriteValue{}, entry.target)).append("\r\n");
  }
  return text;
}

}  // namespace tallowbrook
