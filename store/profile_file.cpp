#include "store/profile_file.h"

#include <algorithm>
#include <set>

#include "base/decimal.h"
#include "base/text.h"

namespace tallowbrook {

namespace {

constexpr std::string_view lineBreak = "\r\n";
constexpr std::string_view startOfAny = "<<<Start Profile ";
constexpr std::string_view endOfAny = "<<<End Profile ";
constexpr std::string_view markerEnd = ">>>";
constexpr auto npos = std::string_view::npos;

std::string Marker(std::string_view head, std::int32_t id) {
  return std::string(head).append(std::to_string(id)).append(markerEnd);
}

// Where a text stands from a place on, its letters in whatever case.
std::size_t FindFrom(std::string_view text, std::string_view sought, std::size_t from) {
  if (from > text.size()) return npos;
  const std::size_t at = FindIgnoringCase(text.substr(from), sought);
  return at == npos ? npos : from + at;
}

// Where a block begins, where its end marker or whatever else ends it begins, and what follows.
struct BlockPlace {
  std::size_t start = npos;
  std::size_t end = npos;
  std::size_t next = npos;
};

BlockPlace PlaceOf(std::string_view text, std::int32_t id) {
  BlockPlace place;
  place.start = FindIgnoringCase(text, Marker(startOfAny, id));
  if (place.start == npos) return place;
  const std::string endMarker = Marker(endOfAny, id);
  const std::size_t following = std::min(FindFrom(text, startOfAny, place.start + 1), text.size());
  place.end = text.substr(0, following).find(endMarker, place.start);
  if (place.end == npos) {
    place.end = place.next = following;
    return place;
  }
  place.next = place.end + endMarker.size();
  if (text.substr(place.next).starts_with(lineBreak)) place.next += lineBreak.size();
  return place;
}

}  // namespace

std::string_view GetVar(std::string_view text, std::string_view key,
                        std::string_view defaultValue) {
  const std::size_t at = text.find(key);
  if (at == npos) return defaultValue;
  std::string_view value = text.substr(at + key.size());
  value = TrimBlanks(value.substr(0, value.find_first_of(lineBreak)));
  return value.empty() ? defaultValue : value;
}

bool HasProfile(std::string_view text, std::int32_t id) {
  return FindIgnoringCase(text, Marker(startOfAny, id)) != npos;
}

std::string_view ProfileBlock(std::string_view text, std::int32_t id) {
  const BlockPlace place = PlaceOf(text, id);
  if (place.start == npos) return {};
  return text.substr(place.start, place.end - place.start);
}

std::string WithoutProfile(std::string_view text, std::int32_t id) {
  constexpr std::size_t shorterThanAnyBlock = 120;
  const BlockPlace place = PlaceOf(text, id);
  if (place.start == npos) return std::string(text);
  const std::size_t kept = place.start + 1;  // with the marker's first "<"
  std::string rest(kept > shorterThanAnyBlock ? text.substr(0, kept) : "");
  // Places count from 1 in this comparison, and from the start of the end marker.
  if (text.size() > place.end + 1 + shorterThanAnyBlock) rest.append(text.substr(place.next));
  return rest;
}

std::int32_t CountProfiles(std::string_view text) {
  std::int32_t count = 0;
  for (std::size_t at = FindFrom(text, startOfAny, 0); at != npos;
       at = FindFrom(text, startOfAny, at + startOfAny.size())) {
    ++count;
  }
  return count;
}

std::int32_t AvailableProfileID(std::string_view text) {
  constexpr std::int32_t highest = 9999;
  constexpr std::size_t longestId = 4 + markerEnd.size();
  std::set<std::string_view> taken;
  for (std::size_t at = FindFrom(text, startOfAny, 0); at != npos;
       at = FindFrom(text, startOfAny, at + startOfAny.size())) {
    const std::string_view id = text.substr(at + startOfAny.size(), longestId);
    if (const std::size_t end = id.find(markerEnd); end != npos) taken.insert(id.substr(0, end));
  }
  for (std::int32_t id = 1; id <= highest; ++id) {
    if (!taken.contains(std::to_string(id))) return id;
  }
  return 0;
}

std::vector<ProfileEntry> ListProfiles(std::string_view text) {
  constexpr std::size_t step = 10;
  std::vector<ProfileEntry> profiles;
  for (std::size_t at = FindFrom(text, startOfAny, 0); at != npos;
       at = FindFrom(text, startOfAny, at + step)) {
    std::string_view block = text.substr(at, FindFrom(text, startOfAny, at + step) - at);
    block = block.substr(0, block.find(endOfAny));
    const auto id = WholeNumber<std::int32_t>(GetVar(block, "ProfileID=", "0"));
    if (id.value_or(0) != 0) {
      profiles.push_back({std::string(GetVar(block, "ProfileName=", "")), *id});
    }
  }
  return profiles;
}

ProfileWriter::ProfileWriter(std::int32_t id)
    : id_(id), text_(Marker(startOfAny, id).append(lineBreak)) {}

void ProfileWriter::Add(std::string_view key, std::string_view value) {
  value = value.substr(0, value.find_first_of(lineBreak));
  const bool forges =
      FindIgnoringCase(value, startOfAny) != npos || FindIgnoringCase(value, endOfAny) != npos;
  text_.append(key).append(forges ? "" : value).append(lineBreak);
}

std::string ProfileWriter::Finish() && {
  text_.append(Marker(endOfAny, id_)).append(lineBreak);
  return std::move(text_);
}

}  // namespace tallowbrook
