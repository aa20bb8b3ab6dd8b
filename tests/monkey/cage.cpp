// The fence around the disk that the monkey plays on.
#include <algorithm>
#include <filesystem>

#include "tests/monkey/game.h"

namespace tallowbrook {

namespace {

namespace fs = std::filesystem;

// clang-format off
// As FileCall has them.
constexpr const char* deeds[] = {
    "list", "rename", "move", "copy", "delete", "append", "write", "rewrite", "open", "read", "write at",
    "copy with room", "set a time", "facts", "facts listed", "exists", "make", "read whole"};
// clang-format on

enum class Links { Follow, Stay };

// Not the folder itself.
bool IsBelow(const std::string& path, const std::string& folder, Links links) {
  if (!path.starts_with('/')) return false;
  std::error_code ignored;
  const fs::path whole(WithoutSlash(path));
  const fs::path real = links == Links::Follow
                            ? fs::weakly_canonical(whole, ignored)
                            : fs::weakly_canonical(whole.parent_path(), ignored) / whole.filename();
  return real.lexically_normal().string().starts_with(folder);
}

class Cage {
 public:
  explicit Cage(Game& game) : game_(game) {}

  FileError operator()(FileCall call, const std::string& path, const std::string& otherPath) {
    const bool may = Allows(call, path, otherPath);
    ++game_.deeds[deeds[static_cast<std::size_t>(call)] + std::string(may ? "" : " (refused)")];
    if (may && call == FileCall::Delete) NoteDeletion(path);
    return may ? FileError::None : FileError::NotPermitted;
  }

 private:
  bool Allows(FileCall call, const std::string& path, const std::string& otherPath) {
    switch (call) {
      case FileCall::Facts:
      case FileCall::EntryFacts:
      case FileCall::Exists:
      case FileCall::Open:
      case FileCall::Read:
      case FileCall::ReadWhole:
        return true;
      case FileCall::List:
        return IsBelow(JoinPath(path, "any name"), copies_, Links::Follow);
      case FileCall::Copy:
        return AllowsCopy(otherPath);
      case FileCall::Rename:
      case FileCall::Move:
        return MayChange(path, Links::Stay) && MayChange(otherPath, Links::Stay);
      case FileCall::Delete:
        return MayChange(path, Links::Stay);
      case FileCall::CopyPadded:
        lastGrown_ = path;
        [[fallthrough]];
      default:
        return MayChange(path, Links::Follow);
    }
  }
  // The user names the target, which may lie anywhere, and knows that it replaces a file there.
  bool AllowsCopy(const std::string& target) {
    if (!IsBelow(target, copies_, Links::Stay)) return false;
    game_.given.merge(MarksIn(target));
    lastCopy_ = target;
    return true;
  }
  // Elsewhere a change is a fault; but of a link among the copies that leads out a user may ask
  // what he likes.
  bool MayChange(const std::string& path, Links links) {
    const Playground& place = game_.playground;
    const auto isInside = [&](Links how) {
      return std::ranges::any_of(
          std::vector{copies_, place.Data(), place.Temporary()},
          [&](const std::string& folder) { return IsBelow(path, folder, how); });
    };
    const bool may = isInside(links);
    if (!may && !isInside(Links::Stay)) game_.faults.push_back("change outside: " + path);
    return may;
  }
  // Of the user's will, or of a file that was just copied: a move between folders, or a tag that
  // grows.
  void NoteDeletion(const std::string& path) {
    std::set<int> marks = MarksIn(path);
    const bool isMoved = path == lastGrown_ || (path != lastCopy_ && MarksIn(lastCopy_) == marks);
    if (!isMoved && !game_.saidYes) game_.faults.push_back("deleted unasked: " + path);
    if (!isMoved) game_.given.merge(marks);
    lastGrown_.clear();
  }

  Game& game_;
  const std::string copies_ = game_.playground.Copies();
  std::string lastCopy_, lastGrown_;
};

}  // namespace

void Fence(FaultyFiles& files, Game& game) {
  files.guard = Cage(game);
}

}  // namespace tallowbrook
