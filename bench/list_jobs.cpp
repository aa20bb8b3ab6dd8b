// What the list does with a million rows that no file stands behind: previews and sorts.
#include <algorithm>
#include <cstdio>
#include <numeric>
#include <random>

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include "bench/program.h"

namespace tallowbrook::bench {
namespace {

constexpr std::size_t rowCount = 1'000'000;

// "photo_0000001.txt" and so on, in an order that no sort knows, with as many different sizes.
std::vector<std::size_t> ShuffledNumbers() {
  std::vector<std::size_t> numbers(rowCount);
  std::iota(numbers.begin(), numbers.end(), std::size_t{1});
  std::shuffle(numbers.begin(), numbers.end(), std::mt19937_64(1));
  return numbers;
}

std::string NameOf(std::size_t number) {
  char name[32];
  std::snprintf(name, sizeof name, "photo_%07zu.txt", number);
  return name;
}

// Rows as a scan lists them, all of them checked.
FileList& Rows() {
  FileList& list = TheProgram().form.ListView1;
  list.Clear();
  list.ExpectRows(rowCount);
  const FolderId folder = list.Folders().Intern("/home/user/Pictures/");
  for (const std::size_t number : ShuffledNumbers()) {
    FileEntry row;
    row.name = NameOf(number);
    row.folder = folder;
    row.size = static_cast<std::int64_t>(number);
    row.hasFacts = row.Checked = true;
    list.Add(std::move(row));
  }
  return list;
}

double Preview(const std::vector<std::pair<const char*, const char*>>& settings,
               const std::string& newName) {
  Program& p = TheProgram();
  FileList& list = Rows();
  for (const auto& [name, value] : settings) p.form.screen.Find(name)->SetValueText(value);
  const double seconds = Seconds([&] { p.form.preview.PreviewFiles(); });
  p.form.screen.Find("TabIndex")->SetValueText("0");
  Expect(list.Row(1).newName == newName, list.Row(1).newName + " isn't " + newName);
  list.Clear();
  return seconds;
}

double PreviewNumbers() {
  return Preview({}, NameOf(ShuffledNumbers()[0]).replace(13, 0, "-0001"));
}

double FormatNumbers() {
  const std::vector<std::size_t> numbers = ShuffledNumbers();
  return Seconds([&] {
    std::vector<std::string> names;
    char name[64];
    for (std::size_t i = 0; i < rowCount; ++i) {
      std::snprintf(name, sizeof name, "photo_%07zu-%04zu.txt", numbers[i], i + 1);
      names.emplace_back(name);
    }
  });
}

constexpr char pattern[] = R"(([a-z]+)_(\d+)\.(txt))";

double PreviewPattern() {
  const std::string name = NameOf(ShuffledNumbers()[0]);
  return Preview({{"TabIndex", "2"},
                  {"Check_RegExp", "1"},
                  {"Check_CaseSensitive", "1"},
                  {"Combo_Find", pattern},
                  {"Combo_Replace", "$2-$1.$3"}},
                 name.substr(6, 7) + "-photo.txt");
}

// PCRE2's own match, and the replacement put together from the groups.
double MatchPattern() {
  std::vector<std::string> names;
  for (const std::size_t number : ShuffledNumbers()) names.push_back(NameOf(number));
  int error;
  PCRE2_SIZE errorAt;
  pcre2_code* code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern), PCRE2_ZERO_TERMINATED, 0,
                                   &error, &errorAt, nullptr);
  pcre2_jit_compile(code, PCRE2_JIT_COMPLETE);
  pcre2_match_data* match = pcre2_match_data_create_from_pattern(code, nullptr);
  const PCRE2_SIZE* at = pcre2_get_ovector_pointer(match);
  const double seconds = Seconds([&] {
    std::vector<std::string> replaced;
    for (const std::string& name : names) {
      pcre2_jit_match(code, reinterpret_cast<PCRE2_SPTR>(name.data()), name.size(), 0, 0, match,
                      nullptr);
      const auto group = [&](std::size_t i) {
        return std::string_view(name).substr(at[2 * i], at[2 * i + 1] - at[2 * i]);
      };
      std::string& made = replaced.emplace_back();
      made.append(name, 0, at[0]).append(group(2)).append("-").append(group(1)).append(".");
      made.append(group(3)).append(name, at[1]);
    }
  });
  pcre2_match_data_free(match);
  pcre2_code_free(code);
  return seconds;
}

double SortRows(Column column) {
  FileList& list = TheProgram().form.ListView1;
  list.Clear();
  if (list.SortsAscending()) list.SortByColumn(column);
  Rows();
  const double seconds = Seconds([&] { list.SortByColumn(column); });
  Expect(list.Row(1).size == 1 && list.Row(rowCount).size == rowCount, "the rows aren't sorted");
  list.Clear();
  return seconds;
}

template <class Key>
double SortReferences(Key keyOf) {
  FileList& list = Rows();
  std::vector<const FileEntry*> rows;
  for (std::size_t i = 1; i <= rowCount; ++i) rows.push_back(&list.Row(i));
  const double seconds = Seconds([&] {
    std::sort(rows.begin(), rows.end(),
              [&](const FileEntry* a, const FileEntry* b) { return keyOf(*a) < keyOf(*b); });
  });
  list.Clear();
  return seconds;
}

[[maybe_unused]] const bool registered = [] {
  Register({"preview-1m", PreviewNumbers, FormatNumbers});
  Register({"regex-1m", PreviewPattern, MatchPattern});
  Register({"sort-1m-name", [] { return SortRows(Column::FileName); },
            [] { return SortReferences([](const FileEntry& row) -> auto& { return row.name; }); }});
  Register({"sort-1m-size", [] { return SortRows(Column::Size); },
            [] { return SortReferences([](const FileEntry& row) { return row.size; }); }});
  return true;
}();

}  // namespace
}  // namespace tallowbrook::bench
