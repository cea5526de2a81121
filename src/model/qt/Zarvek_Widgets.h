// The pictures of the section shapes on Tab_Dim of the main window.
#pragma once

#include <QFrame>
#include <QIcon>

namespace zarvek {

// The four shapes of the dimensions route, drawn to scale-free proportions:
// 0 double symmetric I, 1 mono-symmetric I, 2 flange 1 only, 3 flange 2 only.
// Flange 1 is the upper flange.
class Shape_Picture : public QFrame {
  Q_OBJECT
 public:
  explicit Shape_Picture(QWidget* parent = nullptr);
  void Set_Shape(int shape);
  int Shape() const { return shape_; }
  QSize sizeHint() const override { return {120, 120}; }
  // A small picture of a shape for the tab of the shape.
  static QIcon Shape_Icon(int shape);
  // Paints a shape in the rectangle r.
  static void Paint_Shape(class QPainter& p, const QRectF& r, int shape, bool dimensions);

 protected:
  void paintEvent(class QPaintEvent*) override;

 private:
  int shape_ = 0;
};

}  // namespace zarvek
