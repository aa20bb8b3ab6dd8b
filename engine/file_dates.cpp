#include "engine/file_dates.h"

#include "base/text.h"

namespace tallowbrook {
namespace {

constexpr std::string_view anyCommand = "<Date";

struct DateCommandKind {
  std::string_view keyword;
  FileTime time;
  std::int64_t FileTimes::*before;
};
constexpr DateCommandKind kinds[] = {
    {"<DateCreated,", FileTime::Created, &FileTimes::created},
    {"<DateModified,", FileTime::Modified, &FileTimes::modified},
    {"<DateAccessed,", FileTime::Accessed, &FileTimes::accessed},
};

const DateCommandKind* KindOf(std::string_view command) {
  for (const DateCommandKind& kind : kinds) {
    if (command.find(kind.keyword) != std::string_view::npos) return &kind;
  }
  return nullptr;
}

// With the time at midnight too.
std::string FullDateText(Date date) {
  const DateFields fields = FieldsOf(date);
  const bool isMidnight = fields.hour == 0 && fields.minute == 0 && fields.second == 0;
  return GeneralDateText(date) + (isMidnight ? " 12:00:00 AM" : "");
}

Date DateOf(std::string_view keyword, std::string_view command) {
  const std::optional<std::string> text = GetKeywordArgument(keyword, command, 1);
  const std::optional<Date> date = text ? ParseDateText(*text) : std::nullopt;
  return date.value_or(Date{});
}

}  // namespace

std::string FileDateCommands::ProcessAttributes(const std::string& path,
                                                const std::string& command) {
  if (FindIgnoringCase(command, anyCommand) == std::string_view::npos) return {};
  return ApplyFileDate(path, command);
}

std::string FileDateCommands::ApplyFileDate(const std::string& path, const std::string& command) {
  if (FindIgnoringCase(command, anyCommand) == std::string_view::npos) return "False";
  const DateCommandKind* kind = KindOf(command);
  const Date date = kind != nullptr ? DateOf(kind->keyword, command) : Date{};
  const auto time = kind != nullptr ? std::optional(kind->time) : std::nullopt;
  const std::optional<FileTimes> before = files_.SetTime(path, time, clock_.Posix(date));
  if (!before) return {};
  if (kind == nullptr) return FullDateText(*MakeDate({1601, 1, 1})) + ">";
  return std::string(kind->keyword) + FullDateText(UniversalDate((*before).*(kind->before))) + ">";
}

std::optional<Date> GetFileCreated(const std::optional<FileFacts>& facts) {
  if (!facts || UniversalDate(facts->created) <= Date{}) return std::nullopt;
  return UniversalDate(facts->created);
}

std::optional<std::string> GetKeywordArgument(std::string_view keyword, std::string_view mask,
                                              std::size_t index) {
  const std::size_t start = FindIgnoringCase(mask, keyword);
  if (start == std::string_view::npos) return std::nullopt;
  const std::size_t behind = start + keyword.size();
  const std::size_t end = mask.find('>', behind);
  if (end == std::string_view::npos) return std::nullopt;
  if (index == 0) return std::string(mask.substr(start, end + 1 - start));
  const auto arguments = Split(mask.substr(behind, end - behind), ',');
  if (index > arguments.size()) return std::nullopt;
  return std::string(arguments[index - 1]);
}

}  // namespace tallowbrook
