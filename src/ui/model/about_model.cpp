#include "ui/model/about_model.h"

#ifndef BQ_VERSION
#define BQ_VERSION "0.0.0"
#endif

namespace bq {
namespace {

constexpr const char* kWebsite = "https://bramblequay.example/";

}  // namespace

AboutModel::AboutModel(Platform& platform) : WindowModel("frmAbout"), platform_(platform) {
  caption_.caption = "About Bramblequay";
  lbl_title_.caption = "Bramblequay";
  lbl_version_.caption = std::string("Version ") + BQ_VERSION;
  lbl_description_.caption = "A card game for two: put your Stack in order first.";
  lbl_company_.caption = "The Bramblequay developers";
  lbl_website_.caption = kWebsite;
  lbl_email_.caption =
      "bramblequay@example.org: join the mailing list, send suggestions, report bugs";
  cmd_ok_.caption = "OK";
  Register("Caption", caption_);
  Register("picIcon", pic_icon_);
  Register("lblTitle", lbl_title_);
  Register("lblVersion", lbl_version_);
  Register("lblDescription", lbl_description_);
  Register("lblCompany", lbl_company_);
  Register("lblWebsite", lbl_website_);
  Register("lblEmail", lbl_email_);
  Register("cmdOK", cmd_ok_);
}

void AboutModel::Open() {
  if (!open_) platform_.WindowOpened(Name());
  open_ = true;
  SetFocus("cmdOK");
}

bool AboutModel::Click(std::string_view control) {
  if (!open_) return false;
  if (control == "lblWebsite") {
    platform_.Open(kWebsite);
    return true;
  }
  return control == "cmdOK" && Close();
}

bool AboutModel::Close() {
  if (!open_) return false;
  open_ = false;
  platform_.WindowClosed(Name());
  return true;
}

}  // namespace bq
