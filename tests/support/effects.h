// What an act of the program comes to in the world around it.
#pragma once

#include "tests/support/test_world.h"

namespace tallowbrook {

class Effects {
 public:
  // Takes the place of the window: each of its dialogs is noted and not shown.
  Effects(TestWorld& world, Form1& form) : world_(world), form_(form) {
    form.unload = [this] { Note("unload"); };
    form.showSaveProfile = [this](SaveProfileDialog&) { Note("save as"); };
    form.showManageProfiles = [this](ManageProfiles&) { Note("manage"); };
    form.showOptions = [this](Options&) { Note("options"); };
    form.showAbout = [this](About&) { Note("about"); };
    form.showHistory = [this](LogHistory&) { Note("log"); };
    form.showTips = [this](StartupTips&) { Note("tips"); };
  }
  void Note(const std::string& what) { done_ += (done_.empty() ? "" : ";") + what; }
  // All that the act leads to, in one line; its messages are answered by Ok.
  std::string Of(const std::function<void()>& act) {
    done_.clear(), world_.desktop.opened.clear(), world_.dialogs.asked.clear();
    world_.socket.calls.clear();
    world_.dialogs.answers = {Answer::Ok};
    form_.ExitDone = false;
    form_.settings.Text_UniqueMask.Set("x");
    act();
    if (form_.settings.Text_UniqueMask.Value() != "x") Note("reset");
    for (const std::string& address : world_.desktop.opened) Note(address);
    for (const std::string& call : world_.socket.calls) {
      if (call != "close") Note(call);
    }
    for (const MessageBox& box : world_.dialogs.asked) Note(box.title + "|" + box.text);
    return done_;
  }

 private:
  TestWorld& world_;
  Form1& form_;
  std::string done_;
};

}  // namespace tallowbrook
