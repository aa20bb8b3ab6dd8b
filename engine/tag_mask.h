// The tag mask: a text whose keywords become fields of an MP3 file's two tags. A file without what
// the mask asks for gets no name but a reason.
#pragma once

#include <string>
#include <string_view>

#include "engine/fill_in.h"
#include "media/mp3_id3v1.h"
#include "media/mp3_id3v2.h"
#include "platform/files.h"

namespace tallowbrook {

struct TagMaskRules {
  bool allInfoPresent;  // refuses a file that lacks a field which the mask uses
  bool mp3Extension;    // puts ".mp3" behind a name that doesn't end in it
};

struct TagFact;

class TagMask {
 public:
  explicit TagMask(Files& files) : files_(files), v1_(files), v2_(files) {}

  // The name that the mask gives to a file, or FailureMarker and why there is none. Keywords are
  // found in whatever case; texts of the tags go in as they are. Each tag is read only if the mask
  // asks for it. A tag that can't be read counts as missing.
  std::string Compose(const std::string& mask, TagMaskRules rules, std::string_view directory,
                      std::string_view fileName);

 private:
  struct Wanted {
    bool v1, v2;
  };
  std::string FillTags(const std::string& mask, Wanted wanted, bool& missing);

  Files& files_;
  cMP3ID3v1 v1_;
  cMP3ID3v2 v2_;
  PlainMask<TagFact> plain_;
};

}  // namespace tallowbrook
