// Small widgets of the main window: the pictures of the section shapes on
// Tab_Dim and the panes that hold the diagrams.
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

// A pane that holds a diagram; it tells when it is resized or double-clicked.
class Diagram_Pane : public QFrame {
  Q_OBJECT
 public:
  explicit Diagram_Pane(const char* name, QWidget* parent = nullptr);
  QSize sizeHint() const override { return {489, 117}; }  // 7335 x 1755 twips at 96 dpi
  QSize minimumSizeHint() const override { return {200, 80}; }
  // Empties the pane (Cls).
  void Cls();
  // Writes a text at a place given as fractions of the width and height.
  void Print_At(double fx, double fy, const QString& text);

 signals:
  void doubleClicked();
  void resized();

 protected:
  void paintEvent(class QPaintEvent*) override;
  void mouseDoubleClickEvent(class QMouseEvent*) override;
  void resizeEvent(class QResizeEvent*) override;

 private:
  QString text_;
  double fx_ = 0, fy_ = 0;
};

}  // namespace zarvek
