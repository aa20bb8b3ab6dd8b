// FrameStore: the frames of a tag in memory, ids in order and under each id its texts by number.
//
// A hostile file may hold millions of frames, all alike or all different, and none may cost much
// more than its bytes in the file: all ids and texts lie in one string, records are small and refer
// to each other by number. What is removed leaves a dead record, which Add clears away when there
// are too many. Ids and texts are bytes.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tallowbrook {

class FrameStore {
 public:
  // A frame without a count lost one of its texts, and stays like that until it is removed.
  static constexpr std::int32_t noCount = -1;

  // How many ids there are.
  std::int32_t Count() const { return listed_; }
  // By place, from 1; throws Failure failureSubscript for another. Valid until the next change.
  std::string_view Id(std::int32_t place) const;
  // How many texts a frame has, noCount included; 0 for an id that isn't there.
  std::int32_t CountTexts(std::string_view id) const;

  // Adds one more text to a frame; one that is missing is made, at the end. Throws Failure:
  // failureInvalidArgument for a frame without a count, failureDuplicateKey where the text's number
  // is taken (the count has grown then), failureOverflow beyond 4 GiB.
  void Add(std::string_view id, std::string_view text);
  // Takes a frame away, and its texts from number 1 up to the first that isn't there: those behind
  // one that RemoveText took stay, and wait for a frame of that id. False if it isn't there.
  bool Remove(std::string_view id);
  // False if there is no such text. Walks the texts of the frame.
  bool RemoveText(std::string_view id, std::int32_t number);

  // Calls `frame` with id and count of each frame in order, and `text` with its texts by number.
  void Visit(const std::function<void(std::string_view id, std::int32_t count)>& frame,
             const std::function<void(std::string_view text)>& text) const;

 private:
  using Number = std::uint32_t;  // of a record; those of texts begin at 1, so that 0 is none
  static constexpr std::int32_t unlisted = -2;

  struct Frame {
    std::uint32_t at, length;  // the id in bytes_
    std::int32_t count;
    std::int32_t texts;  // how many follow from first, removed ones included
    Number first, last;
  };
  struct Text {
    std::uint32_t at, length;  // length is `removed` for one that was taken away
    Number next;
  };
  // A frame, and how many listed ones stand before it.
  struct Place {
    Number frame = 0;
    std::int32_t before = 0;
  };
  static constexpr std::uint32_t removed = 0xFFFFFFFF;

  std::string_view IdOf(const Frame& frame) const;
  Text& TextOf(Number number) { return texts_[number - 1]; }
  const Text& TextOf(Number number) const { return texts_[number - 1]; }
  Text* FindText(const Frame& frame, std::int32_t number);
  // The slot that holds the frame of that id or is free for it. There must be slots.
  std::size_t SlotOf(std::string_view id) const;
  const Frame* Find(std::string_view id) const;
  Frame& Listed(std::string_view id);
  void GrowSlots();
  std::uint32_t Keep(std::string_view bytes);
  void Append(Frame& frame, Text text);
  void Drop(Text& text);
  bool IsWasteful() const;
  void Compact();

  std::string bytes_;
  std::deque<Frame> frames_;  // in order; dead ones are unlisted
  std::deque<Text> texts_;
  std::vector<Number> slots_;  // a power of two of them, by hash: the last frame of an id plus 1
  std::size_t usedSlots_ = 0;
  std::int32_t listed_ = 0;
  std::size_t waste_ = 0;    // about how many bytes belong to nothing any more
  mutable Place lastPlace_;  // where Id was last asked, so that a loop over the places is linear
};

}  // namespace tallowbrook
