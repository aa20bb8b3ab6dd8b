#include "fuzzing/seeds.h"

#include <algorithm>
#include <random>

namespace tallowbrook {

void AddDisturbed(Seeds& seeds) {
  std::mt19937 chance(1);  // NOLINT: the same ones each time
  const std::string bytes{"\0\0\0\1\2\3\4\x7f\x80\xff\xfb ITAGD3()9", 20};
  for (const std::string& whole : Seeds(seeds)) {
    for (int i = 0; i < 8 && !whole.empty(); ++i) {
      seeds.push_back(whole.substr(0, chance() % whole.size()));
      std::string disturbed = whole;
      const auto reach = std::min<std::size_t>(whole.size(), 200);
      for (int n = 0; n < 4; ++n) disturbed[chance() % reach] = bytes[chance() % bytes.size()];
      seeds.push_back(std::move(disturbed));
    }
  }
}

}  // namespace tallowbrook
