// What whoever builds the program decides: its version, and the hosts that it speaks to.
//
// The hosts are options of the build. Their defaults end in ".invalid" (RFC 2606), which no name
// server knows, so that a build that nobody configured speaks to nobody.
#pragma once

#include <cstdint>
#include <string>

namespace tallowbrook {

struct Deployment {
  std::string version = TALLOWBROOK_VERSION;  // major.minor.revision
  std::string updateHost = TALLOWBROOK_UPDATE_HOST;
  std::uint16_t updatePort = 3877;
  std::string site = TALLOWBROOK_SITE;  // an address without a slash at its end
  std::string supportMail = TALLOWBROOK_SUPPORT_MAIL;
};

}  // namespace tallowbrook
