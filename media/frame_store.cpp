#include "media/frame_store.h"

#include <random>
#include <utility>

#include "media/file_failure.h"

namespace tallowbrook {
namespace {

// Of each run of the program another one: ids that were made to share the slots of a known table
// would fill it slowly.
std::size_t SecretFactor() {
  static const std::size_t factor = [] {
    std::random_device chance;
    return (std::size_t{chance()} << 32 | chance()) | 1;
  }();
  return factor;
}

[[noreturn]] void RaiseHere(std::uint32_t number) {
  Raise(number, "cMP3ID3v2");
}

}  // namespace

std::string_view FrameStore::IdOf(const Frame& frame) const {
  return std::string_view(bytes_).substr(frame.at, frame.length);
}

std::string_view FrameStore::Id(std::int32_t place) const {
  if (place < 1 || place > listed_) RaiseHere(failureSubscript);
  Number& frame = lastPlace_.frame;
  std::int32_t& before = lastPlace_.before;
  const auto isListed = [&] { return frames_[frame].count != unlisted; };
  while (before >= place) {
    --frame;
    if (isListed()) --before;
  }
  while (before < place - 1 || !isListed()) {
    if (isListed()) ++before;
    ++frame;
  }
  return IdOf(frames_[frame]);
}

std::int32_t FrameStore::CountTexts(std::string_view id) const {
  const Frame* frame = Find(id);
  return frame != nullptr && frame->count != unlisted ? frame->count : 0;
}

std::size_t FrameStore::SlotOf(std::string_view id) const {
  const std::size_t mask = slots_.size() - 1;
  // The upper half of the product: it depends on all bits below.
  std::size_t slot = (std::hash<std::string_view>()(id) * SecretFactor() >> 32) & mask;
  while (slots_[slot] != 0 && IdOf(frames_[slots_[slot] - 1]) != id) slot = (slot + 1) & mask;
  return slot;
}

const FrameStore::Frame* FrameStore::Find(std::string_view id) const {
  if (slots_.empty()) return nullptr;
  const Number found = slots_[SlotOf(id)];
  return found != 0 ? &frames_[found - 1] : nullptr;
}

void FrameStore::GrowSlots() {
  const std::vector<Number> old = std::move(slots_);
  slots_.assign(old.empty() ? 16 : old.size() * 2, 0);
  for (const Number frame : old) {
    if (frame != 0) slots_[SlotOf(IdOf(frames_[frame - 1]))] = frame;
  }
}

std::uint32_t FrameStore::Keep(std::string_view bytes) {
  const auto at = static_cast<std::uint32_t>(bytes_.size());
  bytes_ += bytes;
  return at;
}

// The frame of that id, which comes to the end if it wasn't there. Texts that an earlier one left
// behind go over to it.
FrameStore::Frame& FrameStore::Listed(std::string_view id) {
  if (4 * (usedSlots_ + 1) > 3 * slots_.size()) GrowSlots();
  const std::size_t slot = SlotOf(id);
  const Number found = slots_[slot];
  if (found != 0 && frames_[found - 1].count != unlisted) return frames_[found - 1];
  Frame frame{0, static_cast<std::uint32_t>(id.size()), 0, 0, 0, 0};
  if (found != 0) {
    frame = std::exchange(frames_[found - 1], frame);
    frame.count = 0;
    frames_[found - 1].count = unlisted;
  } else {
    frame.at = Keep(id);
    ++usedSlots_;
  }
  frames_.push_back(frame);
  slots_[slot] = static_cast<Number>(frames_.size());
  ++listed_;
  return frames_.back();
}

void FrameStore::Append(Frame& frame, Text text) {
  texts_.push_back(text);
  const auto number = static_cast<Number>(texts_.size());
  (frame.texts == 0 ? frame.first : TextOf(frame.last).next) = number;
  frame.last = number;
  ++frame.texts;
}

FrameStore::Text* FrameStore::FindText(const Frame& frame, std::int32_t number) {
  if (number < 1 || number > frame.texts) return nullptr;
  Number found = frame.first;
  while (--number > 0) found = TextOf(found).next;
  return &TextOf(found);
}

void FrameStore::Add(std::string_view id, std::string_view text) {
  if (IsWasteful()) Compact();
  if (id.size() + text.size() >= removed - bytes_.size()) RaiseHere(failureOverflow);
  Frame& frame = Listed(id);
  if (frame.count == noCount) RaiseHere(failureInvalidArgument);
  ++frame.count;
  Text* waiting = FindText(frame, frame.count);
  if (waiting != nullptr && waiting->length != removed) RaiseHere(failureDuplicateKey);
  const Text added{Keep(text), static_cast<std::uint32_t>(text.size()), 0};
  if (waiting == nullptr) return Append(frame, added);
  waiting->at = added.at;
  waiting->length = added.length;
}

void FrameStore::Drop(Text& text) {
  waste_ += text.length;
  text.length = removed;
}

bool FrameStore::Remove(std::string_view id) {
  if (CountTexts(id) == 0) return false;
  const Number number = slots_[SlotOf(id)] - 1;
  Frame& frame = frames_[number];
  frame.count = unlisted;
  --listed_;
  if (number < lastPlace_.frame) --lastPlace_.before;
  std::int32_t dropped = 0;
  for (Number text = frame.first; text != 0 && TextOf(text).length != removed; ++dropped) {
    Drop(TextOf(text));
    text = TextOf(text).next;
  }
  waste_ += sizeof(Frame);
  if (dropped < frame.texts) return true;
  waste_ += static_cast<std::size_t>(frame.texts) * sizeof(Text);
  frame.texts = 0;
  frame.first = frame.last = 0;
  return true;
}

bool FrameStore::RemoveText(std::string_view id, std::int32_t number) {
  const Frame* found = Find(id);
  if (found == nullptr) return false;
  Frame& frame = frames_[slots_[SlotOf(id)] - 1];
  Text* text = FindText(frame, number);
  if (text == nullptr || text->length == removed) return false;
  Drop(*text);
  if (frame.count != unlisted) frame.count = noCount;
  return true;
}

void FrameStore::Visit(const std::function<void(std::string_view id, std::int32_t count)>& frame,
                       const std::function<void(std::string_view text)>& text) const {
  for (const Frame& each : frames_) {
    if (each.count == unlisted) continue;
    frame(IdOf(each), each.count);
    Number number = each.first;
    for (std::int32_t i = 0; i < each.count; ++i) {
      const Text& found = TextOf(number);
      text(std::string_view(bytes_).substr(found.at, found.length));
      number = found.next;
    }
  }
}

bool FrameStore::IsWasteful() const {
  const std::size_t all =
      bytes_.size() + frames_.size() * sizeof(Frame) + texts_.size() * sizeof(Text);
  constexpr std::size_t unnoticed = 4096;
  return waste_ > all / 2 + unnoticed;
}

// What lives, and what waits for a frame to come back, is put into a store of its own.
void FrameStore::Compact() {
  FrameStore fresh;
  for (const Frame& old : frames_) {
    if (old.count == unlisted && old.texts == 0) continue;
    Frame& frame = fresh.Listed(IdOf(old));
    frame.count = old.count;
    if (old.count == unlisted) --fresh.listed_;
    Number number = old.first;
    for (std::int32_t i = 0; i < old.texts; ++i) {
      const Text& text = TextOf(number);
      const bool isThere = text.length != removed;
      const auto bytes = std::string_view(bytes_).substr(text.at, isThere ? text.length : 0);
      fresh.Append(frame, {fresh.Keep(bytes), text.length, 0});
      number = text.next;
    }
  }
  *this = std::move(fresh);
}

}  // namespace tallowbrook
