// Sorting of names by small pieces of their folded form.
//
// Comparing two names of a million costs two visits to far memory, twenty times a name. So each
// name is folded once into a key whose bytes compare as the names do, and the sort moves records
// that carry the next eight bytes of the key behind what all keys of the run have in common. Runs
// that are equal in these eight bytes are sorted by the next ones.
#include "platform/name_order.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "base/letter_case.h"
#include "base/text.h"

namespace tallowbrook {
namespace {

struct Record {
  std::uint64_t piece;  // the key's bytes at the present depth, zeros behind its end
  const char* key;
  std::uint32_t index;
};
using Names = std::span<const std::string_view>;

// A stray byte's code is written in the three bytes of its range, so that bytes keep the order of
// the codes.
void AppendKeyCharacter(std::string& keys, char32_t code) {
  if (code < 0xDC00 || code > 0xDCFF) return AppendCharacter(keys, code);
  keys += static_cast<char>(0xED);
  keys += static_cast<char>(0x80 | (code >> 6 & 0x3F));
  keys += static_cast<char>(0x80 | (code & 0x3F));
}

void AppendKey(std::string& keys, std::string_view name) {
  if (IsAscii(name)) {
    const std::size_t start = keys.size();
    keys.append(name);
    for (std::size_t i = start; i < keys.size(); ++i) {
      if (keys[i] >= 'A' && keys[i] <= 'Z') keys[i] = static_cast<char>(keys[i] | 0x20);
    }
  } else {
    while (!name.empty()) {
      const Character character = FirstCharacter(name);
      AppendKeyCharacter(keys, FoldCase(character.code));
      name.remove_prefix(character.length);
    }
  }
  keys += '\0';
}

// One key a name, each ended by a NUL.
std::string MakeKeys(Names names) {
  std::size_t bytes = 0;
  for (std::string_view name : names) bytes += name.size() + 1;
  std::string keys;
  keys.reserve(bytes);
  for (std::string_view name : names) AppendKey(keys, name);
  return keys;
}

std::vector<Record> MakeRecords(const std::string& keys, std::size_t count) {
  std::vector<Record> records(count);
  const char* key = keys.data();
  for (std::uint32_t i = 0; i < count; ++i) {
    records[i] = {0, key, i};
    key += std::strlen(key) + 1;
  }
  return records;
}

std::uint64_t PieceAt(const char* key) {
  std::uint64_t piece = 0;
  for (int i = 0; i < 8; ++i) {
    piece = piece << 8 | static_cast<unsigned char>(*key);
    if (*key != '\0') ++key;
  }
  return piece;
}

// How many bytes from `depth` on all keys of the run share.
std::size_t CommonLength(std::span<const Record> run, std::size_t depth) {
  const char* first = run[0].key + depth;
  std::size_t length = std::strlen(first);
  for (const Record& record : run) {
    const char* key = record.key + depth;
    std::size_t same = 0;
    while (same < length && key[same] == first[same]) ++same;
    length = same;
  }
  return length;
}

// `sortEqual` sorts runs whose keys are equal.
template <class SortEqual>
void SortRun(std::span<Record> run, std::size_t depth, bool ascending, SortEqual sortEqual) {
  depth += CommonLength(run, depth);
  for (Record& record : run) record.piece = PieceAt(record.key + depth);
  std::sort(run.begin(), run.end(), [ascending](const Record& a, const Record& b) {
    return ascending ? a.piece < b.piece : b.piece < a.piece;
  });
  for (std::size_t start = 0, end = 0; start < run.size(); start = end) {
    const std::uint64_t piece = run[start].piece;
    while (end < run.size() && run[end].piece == piece) ++end;
    if (end - start < 2) continue;
    const auto equal = run.subspan(start, end - start);
    const bool keysEnd = (piece & 0xFF) == 0;
    keysEnd ? sortEqual(equal) : SortRun(equal, depth + 8, ascending, sortEqual);
  }
}

std::vector<std::uint32_t> IndexesOf(const std::vector<Record>& records) {
  std::vector<std::uint32_t> order;
  order.reserve(records.size());
  for (const Record& record : records) order.push_back(record.index);
  return order;
}

}  // namespace

std::vector<std::uint32_t> OrderOfNames(Names names) {
  const std::string keys = MakeKeys(names);
  std::vector<Record> records = MakeRecords(keys, names.size());
  const auto byBytes = [names](std::span<Record> run) {
    std::ranges::sort(run, {}, [names](const Record& record) { return names[record.index]; });
  };
  if (records.size() > 1) SortRun(records, 0, true, byBytes);
  return IndexesOf(records);
}

std::vector<std::uint32_t> OrderOfKeys(const std::string& keys, std::size_t count, bool ascending) {
  std::vector<Record> records = MakeRecords(keys, count);
  const auto asTheyStood = [](std::span<Record> run) {
    std::ranges::sort(run, {}, &Record::index);
  };
  if (records.size() > 1) SortRun(records, 0, ascending, asTheyStood);
  return IndexesOf(records);
}

}  // namespace tallowbrook
