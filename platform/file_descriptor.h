// One open file of the system, closed at the end of its scope.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace tallowbrook {

class FileDescriptor {
 public:
  explicit FileDescriptor(int number) : number_(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&&) = delete;
  ~FileDescriptor() { Close(); }

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }
  // 0 or errno: some file systems tell only here that written bytes were lost.
  int Close() {
    if (!IsOpen()) return 0;
    return close(std::exchange(number_, -1)) == 0 ? 0 : errno;
  }

 private:
  int number_;
};

}  // namespace tallowbrook
