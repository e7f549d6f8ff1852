#pragma once

#include <string_view>

#include "ui/model/control.h"
#include "ui/model/platform.h"

namespace bq {

// The How To Play window: a page of pictures (the rules as an image, a caption, a screenshot of
// a finished game) in one column that a vertical scroll bar moves as one piece. Nothing in the
// game window opens it; it is a ready window that the exit takes down with the others.
//
// Lengths are twips (1/1440 inch); the pictures are 96-dot art, 15 twips to the pixel.
class HowToModel : public WindowModel {
 public:
  static constexpr int kTwipsPerPixel = 15;
  static constexpr int kTextWidth = 492 * kTwipsPerPixel;  // ImgText, 492 x 838 pixels
  static constexpr int kTextHeight = 838 * kTwipsPerPixel;
  static constexpr int kLabelHeight = 285;                 // Label1, one line
  static constexpr int kShotWidth = 454 * kTwipsPerPixel;  // imgScreenShot, 454 x 251 pixels
  static constexpr int kShotHeight = 251 * kTwipsPerPixel;
  static constexpr int kWidth = 7650;  // the window on opening, frame included
  static constexpr int kHeight = 8000;
  static constexpr int kLargeChange = 100;
  static constexpr int kSmallChange = 50;

  explicit HowToModel(Platform& platform);

  // Opens at the top of the page, sized kWidth x kHeight; the front end then reports the inner
  // height that the frame leaves (until it does, the whole height is taken as inner).
  void Open();
  bool IsOpen() const { return open_; }
  bool Close();

  // The window's inner height changed (it opened, or was resized): the scroll range follows.
  void Resize(int inner_height);
  // The bar's position changed (a step, a page, or the thumb dragged); kept within the range.
  void Scroll(int position);

  // As the bar holds them. The maximum is the page's height less 0.95 of the inner height,
  // rounded as a 16-bit integer; on a window taller than the page it falls below the minimum,
  // and then the only position is 0.
  int ScrollMax() const { return scroll_max_; }
  int Position() const { return VScroll.value; }
  // The top of "ImgText", "Label1" or "imgScreenShot" inside the window; 0 for another name.
  int Top(std::string_view piece) const;

  Control Caption, ImgText, Label1, imgScreenShot, VScroll;

 private:
  Platform& platform_;
  bool open_ = false;
  int inner_height_ = kHeight;
  int scroll_max_ = 0;
};

}  // namespace bq
