#include "ui/model/how_to_model.h"

#include <algorithm>
#include <cmath>

namespace bq {

HowToModel::HowToModel(Platform& platform) : WindowModel("frmHowTo"), platform_(platform) {
  Caption.caption = "How To Play Bramblequay";
  Label1.caption = "Player A won the following game";
  Register("Caption", Caption);
  Register("ImgText", ImgText);
  Register("Label1", Label1);
  Register("imgScreenShot", imgScreenShot);
  Register("VScroll", VScroll);
  Resize(kHeight);
}

void HowToModel::Open() {
  if (open_) return;
  open_ = true;
  Scroll(0);
  platform_.WindowOpened(Name());
}

bool HowToModel::Close() {
  if (!open_) return false;
  open_ = false;
  platform_.WindowClosed(Name());
  return true;
}

void HowToModel::Resize(int inner_height) {
  inner_height_ = std::max(inner_height, 0);
  const double page = kTextHeight + kLabelHeight + kShotHeight;
  // Rounded half to even, as the conversion to a 16-bit integer does; saturated, since only a
  // window more than a screen tall gets there.
  const double max = std::nearbyint(page - 0.95 * inner_height_);
  scroll_max_ = static_cast<int>(std::clamp(max, -32768.0, 32767.0));
  Scroll(Position());
}

void HowToModel::Scroll(int position) {
  VScroll.value = std::clamp(position, 0, std::max(scroll_max_, 0));
}

int HowToModel::Top(std::string_view piece) const {
  const int p = Position();
  if (piece == "ImgText") return -p;
  if (piece == "Label1") return kTextHeight - p;
  if (piece == "imgScreenShot") return kTextHeight - p + kLabelHeight;
  return 0;
}

}  // namespace bq
