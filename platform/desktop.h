// What the desktop does for us: opening a file in its program, showing it in the file manager.
#pragma once

#include <string>

namespace tallowbrook {

class Desktop {
 public:
  virtual ~Desktop() = default;
  // Opens a file or folder in the program that the user chose for its kind. Doesn't wait for it;
  // a path that nothing opens is passed over in silence.
  virtual void Open(const std::string& path) = 0;
  // Opens an address of the web or of a mail ("https:", "mailto:").
  virtual void OpenAddress(const std::string& address) = 0;
  // Shows the folder in the file manager, the file selected in it where the manager can do that.
  virtual void ShowInFolder(const std::string& folder, const std::string& path) = 0;
};

}  // namespace tallowbrook
