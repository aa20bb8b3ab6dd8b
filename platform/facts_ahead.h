// Facts of many entries, asked by a second thread from the last one on while the rows are made
// from the first one on: they meet in the middle. On a local disk the question costs more than
// the row, on a far one nearly all the time.
#pragma once

#include <atomic>
#include <functional>
#include <optional>
#include <thread>
#include <vector>

#include "platform/files.h"

namespace tallowbrook {

class FactsAhead {
 public:
  // `ask` is called from both threads until the object is gone, and never throws.
  using Ask = std::function<std::optional<FileFacts>(std::size_t entry)>;

  // For few entries, on a machine with one processor or where no thread can be had, Of asks all.
  FactsAhead(Ask ask, std::vector<std::size_t> entries);
  ~FactsAhead();
  FactsAhead(const FactsAhead&) = delete;
  FactsAhead& operator=(const FactsAhead&) = delete;

  // The facts of an entry; those asked for in the order of `entries` may be known already.
  std::optional<FileFacts> Of(std::size_t entry);

 private:
  void AskFromTheEnd();

  const Ask ask_;
  const std::vector<std::size_t> entries_;
  // Of the last entry first. The room is reserved: only the second thread appends, and what it
  // has told of by `known_` stays where it is.
  std::vector<std::optional<FileFacts>> answers_;
  std::size_t next_ = 0;  // of entries_, in the order of Of
  // Apart, since each is written by one thread and read by the other.
  alignas(64) std::atomic<std::size_t> asked_ = 0;  // entries that Of has begun with
  alignas(64) std::atomic<std::size_t> known_ = 0;  // answers that may be read
  std::atomic<bool> over_ = false;  // a far disk answers slowly: not even a block is ended
  std::thread thread_;
};

}  // namespace tallowbrook
