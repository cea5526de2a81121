#include "view3d/TriD.h"

#include <algorithm>
#include <cmath>

namespace zarvek {

namespace {

// Mode value k (1..4) of station i; 0 past the end of a short vector.
float Mode_At(const std::vector<float>& mode, int i, int k) {
  const std::size_t idx = static_cast<std::size_t>(k + 4 * (i - 1));
  return idx < mode.size() ? mode[idx] : 0.0f;
}

void Set_Rotation(TriD_Scene& t, int index, float angle) {
  const float c = std::cos(angle), s = std::sin(angle);
  switch (index) {
    case 1: t.CosX = c; t.SinX = s; t.RotAxis = TriD_Axis::X; break;
    case 2: t.CosY = c; t.SinY = s; t.RotAxis = TriD_Axis::Y; break;
    case 3: t.CosZ = c; t.SinZ = s; t.RotAxis = TriD_Axis::Z; break;
    default: t.RotAxis = TriD_Axis::None; break;
  }
}

// Step of the light drawing: (Stations - 1) / 10 rounded to a whole number.
int Light_Step(int stations) {
  return static_cast<int>(std::lround((stations - 1) / 10.0));
}

}  // namespace

float TriD_DefaultRatio(const std::vector<float>& mode, int stations, float L) {
  float vmax = 0, tmax = 0;
  for (int i = 1; i <= stations; ++i) {
    vmax = std::max(vmax, std::fabs(Mode_At(mode, i, 1)));
    tmax = std::max(tmax, std::fabs(Mode_At(mode, i, 2)));
  }
  const float r1 = vmax > 0 ? (L / 8.0f) / vmax : 0.0f;
  const float r2 = tmax > 0 ? (TriD_Pi / 6.0f) / tmax : 0.0f;
  if (r1 > 0 && r2 == 0) return r1;
  if (r2 > 0 && r1 == 0) return r2;
  return std::min(r1, r2);
}

void TriD_SetScale(Surface& s, float L) {
  s.ScaleMode(Scale_User);
  s.ScaleLeft(-L / 2.0 - L / 20.0);
  const double w = L + L / 10.0;
  s.ScaleWidth(w);
  // Negative: z goes up on the screen, with the same scale both ways.
  const double h = s.Width() > 0 ? -w * s.Height() / s.Width() : -w;
  s.ScaleHeight(h);
  s.ScaleTop(-h / 2.0);
}

void TriD_Init(TriD_Scene& t, Surface& s, float L, int NB, float b1, float b2, float h1, float h2,
               const std::vector<float>& mode) {
  t.L = L;
  TriD_SetScale(s, L);
  t.Stations = NB + 1;
  const std::size_t n = static_cast<std::size_t>(t.Stations) + 1;
  t.NodeX.assign(n, 0.0f);
  for (int i = 1; i <= t.Stations; ++i)
    t.NodeX[i] = static_cast<float>(i - 1) * L / static_cast<float>(NB) - L / 2.0f;
  t.Mode.assign(4 * static_cast<std::size_t>(t.Stations) + 1, 0.0f);
  for (std::size_t k = 1; k < t.Mode.size() && k < mode.size(); ++k) t.Mode[k] = mode[k];
  for (int p = 0; p < TriD_PointCount; ++p) {
    t.X[p].assign(n, 0.0f);
    t.Y[p].assign(n, 0.0f);
    t.Z[p].assign(n, 0.0f);
  }
  t.b1 = b1;
  t.b2 = b2;
  t.h1 = h1;
  t.h2 = h2;

  t.RapDep = t.RapDep0 = TriD_DefaultRatio(t.Mode, t.Stations, L);
  t.ZoomStep = t.ZoomTotal = 1;
  t.Angle = {};
  t.RotAxis = TriD_Axis::None;
  t.LocAngle = t.LocTotal = 0;
  t.Dragging = false;
  t.Hold = false;
  t.DrawAll = true;
  t.Cursor = TriD_Cursor::Default;
  TriD_BuildBeam(t);
  TriD_Draw(t, s);
}

void TriD_BuildBeam(TriD_Scene& t) {
  const float r = t.RapDep;
  const float a1 = t.b1 / 2.0f, a2 = t.b2 / 2.0f;
  for (int i = 1; i <= t.Stations; ++i) {
    const float x = t.NodeX[i], z = 0.0f;
    const float v = r * t.Mode[1 + 4 * (i - 1)];
    const float th = r * t.Mode[2 + 4 * (i - 1)];
    const float vp = r * t.Mode[3 + 4 * (i - 1)];
    const float tp = r * t.Mode[4 + 4 * (i - 1)];
    const float s = std::sin(th), c = std::cos(th);

    // Flange centres: the section turns about the axis as a rigid figure.
    const float y1 = v - t.h1 * s, z1 = z + t.h1 * c;
    const float y2 = v - t.h2 * s, z2 = z + t.h2 * c;
    // Warping: each flange turns in its own plane by v' - h theta'.
    const float al1 = vp - t.h1 * tp, al2 = vp - t.h2 * tp;
    const float sx1 = a1 * std::sin(al1), sy1 = a1 * (1.0f - std::cos(al1));
    const float sx2 = a2 * std::sin(al2), sy2 = a2 * (1.0f - std::cos(al2));

    auto put = [&](int p, float px, float py, float pz) {
      t.X[p][i] = px;
      t.Y[p][i] = py;
      t.Z[p][i] = pz;
    };
    put(P1, x, y1, z1);
    put(P2, x, y2, z2);
    put(P3, x + sx1, y1 - a1 * c + sy1, z1 - a1 * s);
    put(P4, x - sx1, y1 + a1 * c - sy1, z1 + a1 * s);
    put(P5, x + sx2, y2 - a2 * c + sy2, z2 - a2 * s);
    put(P6, x - sx2, y2 + a2 * c - sy2, z2 + a2 * s);
    put(P7, x, v, z);
  }
}

bool TriD_IsLightStation(const TriD_Scene& t, int i) {
  const int step = Light_Step(t.Stations);
  // A beam of fewer than 15 elements has no tenth to speak of: all of it.
  if (step < 2) return true;
  return i % step == 1;
}

void TriD_Draw(TriD_Scene& t, Surface& s, bool picture) {
  if (picture) s.Cls();
  const bool zoom = t.ZoomStep != 1.0f;
  const float zs = t.ZoomStep;
  const TriD_Axis axis = t.RotAxis;
  const float cx = t.CosX, sx = t.SinX, cy = t.CosY, sy = t.SinY, cz = t.CosZ, sz = t.SinZ;
  const float ux = t.LocAxis[0], uy = t.LocAxis[1], uz = t.LocAxis[2];
  const float cl = std::cos(t.LocAngle), sl = std::sin(t.LocAngle);

  float px[TriD_PointCount], py[TriD_PointCount], pz[TriD_PointCount];
  float qx[TriD_PointCount] = {}, qz[TriD_PointCount] = {};  // previous drawn station
  double rho = 0;

  for (int i = 1; i <= t.Stations; ++i) {
    for (int p = 0; p < TriD_PointCount; ++p) {
      float x = t.X[p][i], y = t.Y[p][i], z = t.Z[p][i];
      if (zoom) {
        x *= zs;
        y *= zs;
        z *= zs;
      }
      px[p] = x;
      py[p] = y;
      pz[p] = z;
    }
    if (i == 1) {
      const float dx = px[P1] - px[P2], dy = py[P1] - py[P2], dz = pz[P1] - pz[P2];
      const float d = std::sqrt(dx * dx + dy * dy + dz * dz);
      rho = (d / 20.0) / std::sqrt(static_cast<double>(t.ZoomTotal));
    }
    if (axis != TriD_Axis::None) {
      for (int p = 0; p < TriD_PointCount; ++p) {
        const float x = px[p], y = py[p], z = pz[p];
        switch (axis) {
          case TriD_Axis::X:
            py[p] = y * cx - z * sx;
            pz[p] = y * sx + z * cx;
            break;
          case TriD_Axis::Y:
            px[p] = x * cy + z * sy;
            pz[p] = -x * sy + z * cy;
            break;
          case TriD_Axis::Z:
            px[p] = x * cz - y * sz;
            py[p] = x * sz + y * cz;
            break;
          case TriD_Axis::Loc: {
            // Rodrigues: about the unit vector u through the origin.
            const float d = ux * x + uy * y + uz * z;
            px[p] = d * ux + sl * (uy * z - uz * y) + cl * (x - d * ux);
            py[p] = d * uy + sl * (uz * x - ux * z) + cl * (y - d * uy);
            pz[p] = d * uz + sl * (ux * y - uy * x) + cl * (z - d * uz);
            break;
          }
          case TriD_Axis::None: break;
        }
      }
    }

    const bool tenth = TriD_IsLightStation(t, i);
    const bool draw = (t.DrawAll || tenth) && (tenth || !t.Dragging);
    if (draw && !t.Hold) {
      s.Line(px[P1], pz[P1], px[P2], pz[P2], TriD_WebColour);
      s.Line(px[P3], pz[P3], px[P4], pz[P4], TriD_WireColour);
      s.Line(px[P5], pz[P5], px[P6], pz[P6], TriD_WireColour);
      if (i > 1) {
        for (int p = P1; p <= P6; ++p) s.Line(qx[p], qz[p], px[p], pz[p], TriD_WireColour);
        s.Line(qx[P7], qz[P7], px[P7], pz[P7], TriD_AxisColour);
      }
      if (i == 1 || i == t.Stations) {
        s.ForeColor(TriD_AxisColour);
        s.Circle(px[P7], pz[P7], rho, TriD_AxisColour);
        s.CurrentY(pz[P7] + 2 * rho);
        if (i == t.Stations && i > 1) {
          s.CurrentX(px[P7] + 2 * rho);
          s.Print("2");
        } else {
          s.CurrentX(px[P7] - 2 * rho - 1.1 * s.TextWidth("1"));
          s.Print("1");
        }
        s.ForeColor(TriD_WireColour);
      }
    }
    if (draw) {
      for (int p = 0; p < TriD_PointCount; ++p) {
        qx[p] = px[p];
        qz[p] = pz[p];
      }
    }
    for (int p = 0; p < TriD_PointCount; ++p) {
      t.X[p][i] = px[p];
      t.Y[p][i] = py[p];
      t.Z[p][i] = pz[p];
    }
  }
  // A rotation is applied once: a plain redraw rotates nothing.
  t.RotAxis = TriD_Axis::None;
  if (picture) s.Refresh();
}

void TriD_ResetView(TriD_Scene& t, Surface& s) {
  s.ScaleLeft(-s.ScaleWidth() / 2);
  s.ScaleTop(-s.ScaleHeight() / 2);
  t.Hold = true;
  const float angles[3] = {0.0f, 15.0f * TriD_Pi / 180.0f, -45.0f * TriD_Pi / 180.0f};
  for (int index = 1; index <= 3; ++index) {
    t.CosX = t.SinX = t.CosY = t.SinY = t.CosZ = t.SinZ = 0;
    if (index == 3) t.Hold = false;
    Set_Rotation(t, index, angles[index - 1]);
    t.Angle[index] = angles[index - 1];
    TriD_Draw(t, s);
  }
  t.RotAxis = TriD_Axis::None;
}

void TriD_RotGlob(TriD_Scene& t, int step, int index, Surface& s) {
  if (index < 1 || index > 3) return;
  const float angle = step == 0 ? -t.Angle[index] : static_cast<float>(step) * TriD_AngleStep;
  t.Angle[index] += angle;
  Set_Rotation(t, index, angle);
  TriD_Draw(t, s);
  t.RotAxis = TriD_Axis::None;
}

void TriD_RotLocX(TriD_Scene& t, int step, Surface& s) {
  if (t.Stations < 1) return;
  t.RotAxis = TriD_Axis::Loc;
  // The axis point of the last station, from its two flange centres.
  const int n = t.Stations;
  const float f = t.h1 - t.h2 != 0 ? t.h1 / (t.h1 - t.h2) : 0.0f;
  const float p[3] = {t.X[P1][n] - (t.X[P1][n] - t.X[P2][n]) * f,
                      t.Y[P1][n] - (t.Y[P1][n] - t.Y[P2][n]) * f,
                      t.Z[P1][n] - (t.Z[P1][n] - t.Z[P2][n]) * f};
  const float len = std::sqrt(p[0] * p[0] + p[1] * p[1] + p[2] * p[2]);
  if (len > 0) t.LocAxis = {p[0] / len, p[1] / len, p[2] / len};
  t.LocAngle = step == 0 ? -t.LocTotal : static_cast<float>(step) * TriD_AngleStep;
  t.LocTotal += t.LocAngle;
  TriD_Draw(t, s);
  t.RotAxis = TriD_Axis::None;
}

void TriD_Zoom(TriD_Scene& t, int step, Surface& s) {
  if (step > 0) {
    if (t.ZoomTotal < TriD_ZoomMax) {
      t.ZoomTotal *= TriD_ZoomFactor;
      t.ZoomStep *= TriD_ZoomFactor;
    }
  } else if (step < 0) {
    if (t.ZoomTotal > TriD_ZoomMin) {
      t.ZoomTotal /= TriD_ZoomFactor;
      t.ZoomStep /= TriD_ZoomFactor;
    }
  } else {
    t.ZoomStep = 1.0f / t.ZoomTotal;
    t.ZoomTotal = 1;
  }
  TriD_Draw(t, s);
  t.ZoomStep = 1;
}

void TriD_SetRapDep(TriD_Scene& t, int step, Surface& s) {
  const float a = t.RapDep0;
  // Five steps of a/5 in single precision may fall a hair short of 2a: the
  // limit is taken with a thousandth of a step to spare.
  const float limit = 2 * a - a / 5000;
  t.ZoomTotal = 1;
  if (step > 0) {
    if (t.RapDep < limit) t.RapDep += a / 5;
  } else if (step < 0) {
    if (t.RapDep > -limit) t.RapDep -= a / 5;
  } else {
    t.RapDep = 0;
  }
  TriD_BuildBeam(t);
  TriD_ResetView(t, s);
}

void TriD_ReCenter(TriD_Scene& t, Surface& s) {
  s.ScaleLeft(-s.ScaleWidth() / 2);
  s.ScaleTop(-s.ScaleHeight() / 2);
  TriD_Draw(t, s);
}

void TriD_PanX(TriD_Scene& t, int step, Surface& s) {
  s.ScaleLeft(s.ScaleLeft() + ((step * s.ScaleWidth()) / 10) / t.ZoomTotal);
  TriD_Draw(t, s);
}

void TriD_PanZ(TriD_Scene& t, int step, Surface& s) {
  s.ScaleTop(s.ScaleTop() + ((step * s.ScaleHeight()) / 10) / t.ZoomTotal);
  TriD_Draw(t, s);
}

TriD_Zone TriD_ZoneOf(const Surface& s, float X, float Y) {
  const double W = std::fabs(s.ScaleWidth()), H = std::fabs(s.ScaleHeight());
  const double dx = std::fabs(X - (s.ScaleLeft() + s.ScaleWidth() / 2));
  const double dy = std::fabs(Y - (s.ScaleTop() + s.ScaleHeight() / 2));
  if (dy < H / 3 && dx < W / 6) return TriD_Zone::Upright;
  if (dy < H / 6 && dx < W / 3) return TriD_Zone::Flat;
  return TriD_Zone::Outside;
}

namespace {
TriD_Cursor Cursor_Of(TriD_Zone z) {
  switch (z) {
    case TriD_Zone::Upright: return TriD_Cursor::RotX;
    case TriD_Zone::Flat: return TriD_Cursor::RotZ;
    case TriD_Zone::Outside: break;
  }
  return TriD_Cursor::RotY;
}
}  // namespace

void TriD_MouseDown(TriD_Scene& t, Surface& s, float X, float Y, int Button) {
  t.Dragging = true;
  t.DragButton = Button;
  t.RotAxis = TriD_Axis::None;
  t.LastX = X;
  t.LastY = Y;
  if (Button == 1)
    t.Cursor = Cursor_Of(TriD_ZoneOf(s, X, Y));
  else if (Button == 2)
    t.Cursor = TriD_Cursor::TransXY;
}

void TriD_MouseMove(TriD_Scene& t, Surface& s, float X, float Y, int Button) {
  if (!t.Dragging) return;
  const float dX = X - t.LastX, dY = Y - t.LastY;
  if (Button == 2) {
    s.ScaleLeft(s.ScaleLeft() - dX);
    s.ScaleTop(s.ScaleTop() - dY);
    t.Cursor = TriD_Cursor::TransXY;
    TriD_Draw(t, s);
    // The scale moved with the mouse: the same place of the picture now
    // reads (X - dX, Y - dY), which is where the next move starts from.
    t.LastX = X - dX;
    t.LastY = Y - dY;
    return;
  }
  if (Button == 1) {
    const float W = static_cast<float>(std::fabs(s.ScaleWidth()));
    const float H = static_cast<float>(std::fabs(s.ScaleHeight()));
    const TriD_Zone zone = TriD_ZoneOf(s, X, Y);
    int index = 2;
    float angle = 0;
    switch (zone) {
      case TriD_Zone::Upright:
        index = 1;
        angle = H > 0 ? TriD_DragGain * (-2 * TriD_Pi * dY / H) : 0.0f;
        break;
      case TriD_Zone::Flat:
        index = 3;
        angle = W > 0 ? TriD_DragGain * (2 * TriD_Pi * dX / W) : 0.0f;
        break;
      case TriD_Zone::Outside: {
        // The mouse's turn about the origin turns the picture in its plane.
        const float r2 = X * X + Y * Y;
        angle = r2 > 0 ? TriD_DragGain * (-(X * dY - Y * dX) / r2) : 0.0f;
        break;
      }
    }
    t.Cursor = Cursor_Of(zone);
    t.Angle[index] += angle;
    Set_Rotation(t, index, angle);
    TriD_Draw(t, s);
  }
  t.LastX = X;
  t.LastY = Y;
}

void TriD_MouseUp(TriD_Scene& t, Surface& s) {
  if (!t.Dragging) return;
  t.Dragging = false;
  t.DragButton = 0;
  t.RotAxis = TriD_Axis::None;
  TriD_Draw(t, s);
  t.Cursor = TriD_Cursor::Default;
}

}  // namespace zarvek
