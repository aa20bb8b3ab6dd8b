#include "platform/facts_ahead.h"

#include <algorithm>
#include <utility>

#include "base/guards.h"

namespace tallowbrook {
namespace {

constexpr std::size_t worthAThread = 2000;
// Answered between two looks at how far the other thread is.
constexpr std::size_t block = 32;

}  // namespace

FactsAhead::FactsAhead(Ask ask, std::vector<std::size_t> entries)
    : ask_(std::move(ask)), entries_(std::move(entries)) {
  if (entries_.size() < worthAThread || std::thread::hardware_concurrency() < 2) return;
  Attempt([this] {
    answers_.reserve(entries_.size());
    thread_ = std::thread([this] { AskFromTheEnd(); });
  });
}

FactsAhead::~FactsAhead() {
  over_ = true;
  if (thread_.joinable()) thread_.join();
}

void FactsAhead::AskFromTheEnd() {
  for (std::size_t end = entries_.size(); end > asked_.load(std::memory_order_relaxed);) {
    const std::size_t begin = end - std::min(end, block);
    while (end > begin) {
      if (over_.load(std::memory_order_relaxed)) return;
      answers_.push_back(ask_(entries_[--end]));
    }
    known_.store(answers_.size(), std::memory_order_release);
  }
}

std::optional<FileFacts> FactsAhead::Of(std::size_t entry) {
  if (next_ == entries_.size() || entries_[next_] != entry) return ask_(entry);
  const std::size_t fromTheEnd = entries_.size() - ++next_;
  asked_.store(next_, std::memory_order_relaxed);
  const bool isKnown = fromTheEnd < known_.load(std::memory_order_acquire);
  return isKnown ? answers_.data()[fromTheEnd] : ask_(entry);
}

}  // namespace tallowbrook
