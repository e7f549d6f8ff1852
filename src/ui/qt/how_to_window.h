#pragma once

#include <QWidget>

#include "ui/model/how_to_model.h"
#include "ui/qt/model_window.h"

class QLabel;
class QScrollBar;

namespace bq::qt {

// frmHowTo: the rules as a picture, a caption and a screenshot of a finished game, one column
// moved by the scroll bar at the side. Lengths follow the model's twips at 15 to the pixel, the
// scale of the pictures.
class HowToWindow : public ModelWindow<QWidget> {
  Q_OBJECT
 public:
  HowToWindow(FrontEnd& front, HowToModel& model, QWidget* parent);

  void Refresh() override;
  // The size the window takes on every opening.
  static QSize OpeningSize();

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void Layout();

  HowToModel& model_;
  QLabel* text_ = nullptr;
  QLabel* label_ = nullptr;
  QLabel* shot_ = nullptr;
  QScrollBar* bar_ = nullptr;
};

}  // namespace bq::qt
