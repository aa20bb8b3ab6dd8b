// The advanced mask: a text whose keywords become facts of one file.
#pragma once

#include <string>
#include <string_view>

#include "engine/fill_in.h"
#include "platform/clock.h"
#include "platform/files.h"

namespace tallowbrook {

struct FactKeyword;

class KeywordMask {
 public:
  KeywordMask(Files& files, Clock& clock) : files_(files), clock_(clock) {}

  // `fullName` is `baseName` with its extension, `folder` ends in "/" or is empty, as for the
  // sample. One keyword after the other is replaced, and later ones find what earlier ones put in.
  // Facts are read from the disk only if the mask asks for them; a fact that can't be had changes
  // nothing else.
  std::string ExpandKeywords(const std::string& wholeMask, std::string_view baseName,
                             std::string_view fullName, std::string_view folder,
                             std::string_view extension);

 private:
  Files& files_;
  Clock& clock_;
  PlainMask<FactKeyword> plain_;
};

// The last folder of a path; all of it if it has no "/".
std::string_view LastFolderName(std::string_view folder);

}  // namespace tallowbrook
