#include "desktop/file_device.h"

#include <algorithm>

namespace tallowbrook {

FileDevice::FileDevice(RandomAccessFile& file, const FileParts& parts) : file_(file) {
  for (const FilePart& part : parts) {
    const qint64 start = size();
    places_.push_back({start + part.size, part.at - start});
  }
  open(QIODevice::ReadOnly);
}

qint64 FileDevice::readData(char* data, qint64 most) {
  const qint64 from = pos();
  qint64 at = from;
  auto place = std::ranges::upper_bound(places_, at, {}, &Place::end);
  for (; place != places_.end() && at < from + most; ++place) {
    const auto wanted = static_cast<std::size_t>(std::min(place->end, from + most) - at);
    std::size_t got = 0;
    if (file_.Read(at + place->shift, {data + (at - from), wanted}, got) != FileError::None) {
      hasFailed_ = true;
      return -1;
    }
    at += static_cast<qint64>(got);
    if (got < wanted) break;
  }
  return at - from;
}

}  // namespace tallowbrook
