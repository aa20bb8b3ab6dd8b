#include "shell/about.h"

namespace tallowbrook {

About::About(const Deployment& deployment, Desktop& desktop)
    : lblTitle1(screen, {.name = "lblTitle1", .caption = "Tallowbrook"}),
      lblVersion(screen, {.name = "lblVersion"}),
      lblPurpose(screen, {.name = "lblPurpose",
                          .caption = "Renames files and folders in batches, and undoes it."}),
      Label1(screen, {.name = "Label1", .caption = deployment.site}),
      Label12(screen, {.name = "Label12", .caption = "Visit our Website"}),
      Label14(screen, {.name = "Label14", .caption = "More about Tallowbrook"}),
      Label5(screen, {.name = "Label5", .caption = deployment.supportMail}),
      cmdOK(screen, {.name = "cmdOK", .caption = "OK"}) {
  lblVersion.SetCaption("Version " + deployment.version);
  const auto opens = [&desktop](Button& link, const std::string& address) {
    link.rule = [&desktop, address] { desktop.OpenAddress(address); };
  };
  opens(Label1, deployment.site);
  opens(Label12, deployment.site);
  opens(Label14, deployment.site + "/products_Tallowbrook.cfm");
  opens(Label5, "mailto:" + deployment.supportMail);
  cmdOK.rule = [this] {
    if (close) close();
  };
}

}  // namespace tallowbrook
