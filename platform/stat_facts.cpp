// statx, asked for what a row shows and no more.
#include "platform/stat_facts.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace tallowbrook {
namespace {

constexpr unsigned wantedFacts = STATX_TYPE | STATX_SIZE | STATX_MTIME | STATX_BTIME;

EntryKind KindOfMode(mode_t mode) {
  if (S_ISREG(mode)) return EntryKind::File;
  return S_ISDIR(mode) ? EntryKind::Folder : EntryKind::Other;
}

}  // namespace

std::optional<FileFacts> StatFacts(int folder, const char* path) {
  struct statx found;
  if (statx(folder, path, 0, wantedFacts, &found) != 0) return std::nullopt;
  FileFacts facts;
  facts.kind = KindOfMode(found.stx_mode);
  facts.size = static_cast<std::int64_t>(found.stx_size);
  facts.modified = found.stx_mtime.tv_sec;
  const bool hasBirth = (found.stx_mask & STATX_BTIME) != 0 && found.stx_btime.tv_sec != 0;
  facts.created = hasBirth ? found.stx_btime.tv_sec : facts.modified;
  return facts;
}

}  // namespace tallowbrook
