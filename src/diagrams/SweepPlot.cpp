#include "diagrams/SweepPlot.h"

#include <algorithm>
#include <cmath>

#include "diagrams/Diagrams.h"
#include "foundation/Mod_Zarvek.h"

namespace zarvek {

std::vector<double> Nice_Ticks(double lo, double hi, int count) {
  if (!(hi > lo)) {
    // one value: a unit band around it
    const double d = lo == 0 ? 1 : std::pow(10.0, std::floor(std::log10(std::fabs(lo))));
    lo -= d;
    hi += d;
  }
  const double raw = (hi - lo) / std::max(1, count - 1);
  const double p = std::pow(10.0, std::floor(std::log10(raw)));
  double step = 10 * p;
  for (double f : {1.0, 2.0, 5.0})
    if (f * p >= raw) {
      step = f * p;
      break;
    }
  std::vector<double> t;
  const long first = (long)std::floor(lo / step + 1e-9), last = (long)std::ceil(hi / step - 1e-9);
  for (long k = first; k <= last; ++k) t.push_back(k * step == 0 ? 0.0 : k * step);
  return t;
}

void Draw_SweepPlot(Surface& s, const std::vector<SweepPoint>& points, const std::string& xLabel,
                    const std::string& yLabel) {
  s.BackColor(0xFFFFFF);
  s.Cls();
  s.ScaleMode(Scale_Twips);
  s.FontName("Arial");
  s.FontSize(8);
  s.FontBold(false);
  s.DrawWidth(1);
  const double W = s.Width(), H = s.Height();
  // the frame of the curve, room left for the tick texts and the labels
  const double x0 = 1100, x1 = W - 350, y0 = 500, y1 = H - 800;
  if (x1 - x0 < 300 || y1 - y0 < 300) return;

  double vlo = 0, vhi = 0, mhi = 0;
  bool any = false;
  for (const SweepPoint& p : points) {
    vlo = any ? std::min(vlo, p.value) : p.value;
    vhi = any ? std::max(vhi, p.value) : p.value;
    any = true;
    if (p.ok()) mhi = std::max(mhi, std::fabs(p.Mcr));
  }
  const std::vector<double> xt = Nice_Ticks(vlo, vhi);
  // Mcr from 0, so that the eye reads ratios off the curve
  const std::vector<double> yt = Nice_Ticks(0, mhi > 0 ? mhi : 1);
  const double ax = xt.front(), bx = xt.back(), ay = yt.front(), by = yt.back();
  const auto X = [&](double v) { return x0 + (v - ax) / (bx - ax) * (x1 - x0); };
  const auto Y = [&](double v) { return y1 - (v - ay) / (by - ay) * (y1 - y0); };

  // grid and ticks
  for (double v : xt) {
    s.Line(X(v), y0, X(v), y1, Colour_LightGrey);
    const std::string t = Number_To_Text(v);
    s.ForeColor(Colour_Black);
    s.CurrentX(X(v) - s.TextWidth(t) / 2);
    s.CurrentY(y1 + 60);
    s.Print(t);
  }
  for (double v : yt) {
    s.Line(x0, Y(v), x1, Y(v), Colour_LightGrey);
    const std::string t = Number_To_Text(v);
    s.ForeColor(Colour_Black);
    s.CurrentX(x0 - 80 - s.TextWidth(t));
    s.CurrentY(Y(v) - s.TextHeight(t) / 2);
    s.Print(t);
  }
  s.Line(x0, y1, x1, y1, Colour_Black);
  s.Line(x0, y0, x0, y1, Colour_Black);

  // labels: the value under the axis, Mcr above its axis
  s.FontBold(true);
  s.ForeColor(Colour_Black);
  s.CurrentX((x0 + x1) / 2 - s.TextWidth(xLabel) / 2);
  s.CurrentY(H - 80 - s.TextHeight(xLabel));
  s.Print(xLabel);
  s.CurrentX(std::max(60.0, x0 - s.TextWidth(yLabel) / 2));
  s.CurrentY(y0 - 120 - s.TextHeight(yLabel));
  s.Print(yLabel);
  s.FontBold(false);

  // the curve; a failed point breaks it and shows as a cross on the axis
  s.DrawWidth(2);
  bool open = false;
  for (const SweepPoint& p : points) {
    const double x = X(p.value);
    if (!p.ok()) {
      s.DrawWidth(1);
      s.Line(x - 60, y1 - 60, x + 60, y1 + 60, Colour_Red);
      s.Line(x - 60, y1 + 60, x + 60, y1 - 60, Colour_Red);
      s.DrawWidth(2);
      open = false;
      continue;
    }
    const double y = Y(std::fabs(p.Mcr));
    if (open)
      s.LineTo(x, y, Colour_Blue);
    else
      s.Line(x, y, x, y, Colour_Blue);
    open = true;
  }
  s.DrawWidth(1);
  s.Refresh();
}

}  // namespace zarvek
