#include "view3d/TriD_Model.h"

#include <cmath>
#include <cstdio>
#include <sstream>

#include "foundation/Mod_Zarvek.h"

namespace zarvek {

TriD_Beam TriD_BeamOf(const BeamModel& m) {
  TriD_Beam b;
  b.L = static_cast<float>(L_Of(m));
  b.NB = NB_Of(m);
  if (m.Opt_Properties) {
    b.b1 = b.b2 = b.L / 30;
    b.h1 = b.L / 40;
    b.h2 = -b.L / 40;
  } else if (m.Opt_Dimensions) {
    const double f = m.Fact_Dim;
    const double h = Num_Of_Text(m.Txt_h) * f;
    const double e = (Num_Of_Text(m.Txt_zS[2]) + Num_Of_Text(m.Txt_zS_Hidden)) * f;
    b.b1 = static_cast<float>(Num_Of_Text(m.Txt_bf1) * f);
    b.b2 = static_cast<float>(Num_Of_Text(m.Txt_bf2) * f);
    b.h2 = static_cast<float>(-e);
    b.h1 = static_cast<float>(h - e);
  } else {
    b.b1 = b.b2 = static_cast<float>(m.Cat_b);
    b.h1 = static_cast<float>(m.Cat_h / 2);
    b.h2 = static_cast<float>(-m.Cat_h / 2);
  }
  return b;
}

bool TriD_DefaultView(TriD_Scene& t, Surface& s, const BeamModel& m) {
  if (!(m.Mode_Max > 0) || m.Mode_Vector.empty()) return false;
  const TriD_Beam b = TriD_BeamOf(m);
  if (!(b.L > 0) || b.NB < 1) return false;
  TriD_Init(t, s, b.L, b.NB, b.b1, b.b2, b.h1, b.h2, m.Mode_Vector);
  TriD_ResetView(t, s);
  return true;
}

namespace {

std::string Hex_Of(Colour c) {
  char buf[8];
  std::snprintf(buf, sizeof buf, "#%02x%02x%02x", c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
  return buf;
}

std::string Xml_Escape(const std::string& s) {
  std::string out;
  for (char ch : s) {
    switch (ch) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      default: out += ch;
    }
  }
  return out;
}

}  // namespace

std::string Svg_Of(const Recorder& r) {
  constexpr double k = 1.0 / 15.0;  // pixels a twip
  std::ostringstream o;
  o.setf(std::ios::fixed);
  o.precision(2);
  const double w = r.Width() * k, h = r.Height() * k;
  o << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << w << "\" height=\"" << h
    << "\" viewBox=\"0 0 " << w << ' ' << h << "\">\n";
  for (const auto& op : r.Ops()) {
    switch (op.kind) {
      case RecordedOp::Clear:
        o << "<rect x=\"0\" y=\"0\" width=\"" << w << "\" height=\"" << h << "\" fill=\""
          << Hex_Of(op.colour) << "\"/>\n";
        break;
      case RecordedOp::Line:
        o << "<line x1=\"" << op.tx1 * k << "\" y1=\"" << op.ty1 * k << "\" x2=\"" << op.tx2 * k
          << "\" y2=\"" << op.ty2 * k << "\" stroke=\"" << Hex_Of(op.colour) << "\" stroke-width=\""
          << op.width << "\" stroke-linecap=\"square\"/>\n";
        break;
      case RecordedOp::Arc: {
        const double cx = op.tx1 * k, cy = op.ty1 * k, rr = op.tr * k;
        if (op.sweep >= 2 * Pi_Value - 1e-9 || op.sweep <= 0) {
          o << "<circle cx=\"" << cx << "\" cy=\"" << cy << "\" r=\"" << rr << "\" fill=\"none\" stroke=\""
            << Hex_Of(op.colour) << "\" stroke-width=\"" << op.width << "\"/>\n";
        } else {
          // Counter-clockwise on the screen: y of the device grows downward.
          const double a1 = op.a0 + op.sweep;
          o << "<path d=\"M " << cx + rr * std::cos(op.a0) << ' ' << cy - rr * std::sin(op.a0) << " A " << rr
            << ' ' << rr << " 0 " << (op.sweep > Pi_Value ? 1 : 0) << " 0 " << cx + rr * std::cos(a1) << ' '
            << cy - rr * std::sin(a1) << "\" fill=\"none\" stroke=\"" << Hex_Of(op.colour)
            << "\" stroke-width=\"" << op.width << "\"/>\n";
        }
        break;
      }
      case RecordedOp::Text: {
        const double px = op.fontSize * 96.0 / 72.0;  // points to pixels at 96 dpi
        std::string family = op.font == "Courier New" ? "Liberation Mono, monospace" : "Liberation Sans, sans-serif";
        o << "<text x=\"" << op.tx1 * k << "\" y=\"" << op.ty1 * k + 0.9 * px << "\" font-family=\"" << family
          << "\" font-size=\"" << px << "\"" << (op.bold ? " font-weight=\"bold\"" : "") << " fill=\""
          << Hex_Of(op.colour) << "\">" << Xml_Escape(op.text) << "</text>\n";
        break;
      }
    }
  }
  o << "</svg>\n";
  return o.str();
}

}  // namespace zarvek
