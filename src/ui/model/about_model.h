#pragma once

#include <string_view>

#include "ui/model/control.h"
#include "ui/model/platform.h"

namespace bq {

// The About window: the program's name and version, and where its makers can be reached.
class AboutModel : public WindowModel {
 public:
  explicit AboutModel(Platform& platform);

  void Open();
  bool IsOpen() const { return open_; }
  bool Click(std::string_view control);
  bool Close();

 private:
  Platform& platform_;
  bool open_ = false;
  Control caption_, pic_icon_, lbl_title_, lbl_version_, lbl_description_, lbl_company_,
      lbl_website_, lbl_email_, cmd_ok_;
};

}  // namespace bq
