// The small pictures that all programs of a desktop share, in the user's cache folder.
//
// Places, names and texts as of the freedesktop.org Thumbnail Managing Standard, version 0.8.
#pragma once

#include <QByteArray>
#include <QImage>
#include <string>

#include "platform/files.h"

namespace tallowbrook {

class ThumbnailCache {
 public:
  // Pixels: what is stored fits into a square of them.
  static constexpr int storedSize = 128;

  // `cacheHome` is the user's cache folder, with "/" at its end.
  ThumbnailCache(Files& files, const std::string& cacheHome)
      : files_(files), folder_(cacheHome + "thumbnails/") {}

  // The picture of a file as it is now, at most 256 x 256 pixels and upright; null without one.
  QImage Find(const std::string& path, const FileFacts& facts) const;
  // Keeps a picture of a file for the next time. A file that lies in the cache gets none; a cache
  // that can't be written is left as it is.
  void Store(const std::string& path, const FileFacts& facts, const QImage& picture) const;

  // Whether this program in this version couldn't make a picture of a file as it is now. Each
  // program notes that for itself alone.
  bool HasFailed(const std::string& path, const FileFacts& facts) const;
  void StoreFailure(const std::string& path, const FileFacts& facts) const;

  // Where the picture of a file lies; `kind` is "normal", "large" or `failures`.
  std::string PlaceOf(const std::string& path, const char* kind) const;
  static constexpr const char* failures = "fail/tallowbrook-" TALLOWBROOK_VERSION;

 private:
  QImage FindIn(const char* kind, const std::string& path, const FileFacts& facts) const;
  void StoreIn(const char* kind, const std::string& path, const FileFacts& facts,
               const QImage& picture) const;
  QImage Read(const std::string& place) const;
  bool IsInside(const std::string& path) const;

  Files& files_;
  std::string folder_;
};

}  // namespace tallowbrook
