// A file of any name for the toolkit's readers, whose own file names must be valid text.
#pragma once

#include <QIODevice>

#include "media/file_parts.h"
#include "platform/files.h"

namespace tallowbrook {

class FileDevice : public QIODevice {
 public:
  // Opened for reading: parts of a file, one behind the other. The file outlives it.
  FileDevice(RandomAccessFile& file, const FileParts& parts);

  // Whether the file couldn't be read somewhere.
  bool HasFailed() const { return hasFailed_; }

  bool isSequential() const override { return false; }
  qint64 size() const override { return places_.empty() ? 0 : places_.back().end; }

 protected:
  qint64 readData(char* data, qint64 most) override;
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  struct Place {
    qint64 end;    // of a part, in what is shown
    qint64 shift;  // from there to the file
  };

  RandomAccessFile& file_;
  std::vector<Place> places_;
  bool hasFailed_ = false;
};

}  // namespace tallowbrook
