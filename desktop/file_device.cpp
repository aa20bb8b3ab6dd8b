#include "desktop/file_device.h"

namespace tallowbrook {

FileDevice::FileDevice(Files& files, const std::string& path)
    : file_(files.Open(path, FileAccess::Read)) {
  if (file_) open(QIODevice::ReadOnly);
}

qint64 FileDevice::readData(char* data, qint64 most) {
  std::size_t got = 0;
  const FileError error = file_->Read(pos(), {data, static_cast<std::size_t>(most)}, got);
  return error == FileError::None ? static_cast<qint64>(got) : -1;
}

}  // namespace tallowbrook
