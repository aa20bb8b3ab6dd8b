// A file of any name for the toolkit's readers, whose own file names must be valid text.
#pragma once

#include <QIODevice>
#include <memory>
#include <string>

#include "platform/files.h"

namespace tallowbrook {

class FileDevice : public QIODevice {
 public:
  // Opened for reading if the file could be; otherwise it stays closed.
  FileDevice(Files& files, const std::string& path);

  bool isSequential() const override { return false; }
  qint64 size() const override { return file_ ? file_->Size() : 0; }

 protected:
  qint64 readData(char* data, qint64 most) override;
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  std::unique_ptr<RandomAccessFile> file_;
};

}  // namespace tallowbrook
