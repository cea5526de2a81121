// The four diagrams of the main window: the beam and its loads, the section,
// the internal forces and the buckling mode, with the mouse read-outs of the
// last two.
//
// Every routine draws on the surface it is given and reads the plain beam
// record (and the internal forces or the mode it needs); none of them looks at
// a window. The state that belongs to the diagrams rather than to the beam —
// the element count kept for external mode, the read-out transformation, the
// colours of the curve check boxes — travels in a DiagramState.
//
// Design sizes, in twips: loads 7335 x 1365, section 3705 x 3795, internal
// forces 7335 x 1755, mode 7335 x 2775. Background 0xE0E0E0.
#pragma once

#include <string>
#include <string_view>

#include "analysis/Calculer_Efforts.h"
#include "diagrams/Surface.h"
#include "model/BeamModel.h"

namespace zarvek {

// ---- design sizes, twips ---------------------------------------------------
constexpr double Loads_Width = 7335, Loads_Height = 1365;
constexpr double Section_Width = 3705, Section_Height = 3795;
constexpr double Forces_Width = 7335, Forces_Height = 1755;
constexpr double Eigenmode_Width = 7335, Eigenmode_Height = 2775;
constexpr Colour Diagram_Back = 0xE0E0E0;

// ---- fixed colours -----------------------------------------------------------
constexpr Colour Colour_Black = 0x000000;
constexpr Colour Colour_Blue = 0xC00000;      // supports, centroid, V, v
constexpr Colour Colour_Red = 0x0000C0;       // loads and moments
constexpr Colour Colour_Green = 0x008000;     // shear centre, theta'
constexpr Colour Colour_MidGrey = 0x808080;   // axes, frames, restraint crosses
constexpr Colour Colour_LightGrey = 0xC0C0C0; // grid

// State of the diagrams kept by the main window beside the beam record.
struct DiagramState {
  // The problem came from a problem file (Menu_Tools_External): the entries
  // of the main window don't apply; NB then stays as the file set it.
  bool ExternalMode = false;
  // Set after a solve stopped in external mode: the forces diagram keeps its
  // old picture.
  bool No_Forces = false;
  int NB = 0;
  // Read-out transformation of the forces diagram, set by Tracer_Efforts.
  float Forces_X0 = 0, Forces_DX = 0;
  // Largest |M| of the last moment curve drawn.
  float Efforts_Mmax = 0;
  // Foreground colours of the check boxes, which are the curve colours.
  Colour Color_EffM = 0x000000, Color_EffV = 0xC00000;
  Colour Color_v = 0xC00000, Color_t = 0x000000, Color_vp = 0x0000FF, Color_tp = 0x008000;
};

// ---- beam and loads ----------------------------------------------------------

// Full redraw of the scheme of the beam: axis, supports, restraint crosses,
// moments, point loads, distributed loads. Reads the texts as they stand.
void Tracer_Loads(Surface& s, const BeamModel& m);

// One load arrow. F is normalised (-1..1); proportional: length 0.4H F,
// otherwise 0.4H sgn (0.2 + 0.8|F|). x the abscissa, y the axis, z the level
// (only its sign counts). yStart and yEnd receive the arrow's two ends; they
// are left as they were when F = 0.
void Draw_Force(Surface& s, double F, bool proportional, double x, double y, double z, double& yStart,
                double& yEnd);

// A trapezoidal strip of two proportional arrows joined at both ends. A zero
// end takes a twentieth of the other (q1 and q2 are changed).
void Draw_DistributedLoad(Surface& s, double& q1, double& q2, double x1, double x2, double y, double z);

// A moment, normalised, as an arc with its head. side "G": the arc lies to
// the right of the point (left end), "D": to the left.
void Draw_Moment(Surface& s, double M, double x, double y, std::string_view side);

// Crosses at the ends and at the punctual restraints that hold something;
// size `size`, colour `colour`.
void Mark_LateralRestraints(Surface& s, const BeamModel& m, double xL, double xR, double y, double size,
                            Colour colour);

// ---- section -----------------------------------------------------------------

// The outline of the I-section to scale with its fillets; by dimensions also
// the centroid G and the shear centre S; by properties Msg(67) only.
void Draw_Section(Surface& s, const BeamModel& m);

// ---- internal forces ---------------------------------------------------------

// Full redraw of the bending moment and shear diagram. Outside external mode
// runs Calculer_Efforts on the record first (which fills `e` and Txt_Mmax)
// and takes NB from Txt_NB; in external mode `e` is drawn as it stands.
// Sets st.Forces_X0, st.Forces_DX, st.NB and st.Efforts_Mmax.
void Tracer_Efforts(Surface& s, BeamModel& m, EffortsData& e, DiagramState& st);

// The zero-moment test of Cmd_RefreshMV: the text to show instead of drawing
// ("Mmax = 0 ! - " + Msg(3), in UTF-8), or an empty text when the diagram may
// be drawn. Texts printed on the surfaces (Msg(14), Msg(67)) are likewise
// turned from the language file's character set into UTF-8.
std::string RefreshMV_Refusal(const BeamModel& m, const DiagramState& st);

// Cmd_RefreshMV: draws unless the test refuses; returns the refusal text
// (empty when drawn).
std::string Cmd_RefreshMV(Surface& s, BeamModel& m, EffortsData& e, DiagramState& st);

// What a mouse read-out shows.
struct ReadOut {
  bool hit = false;
  int curve = 0;         // forces: 1 M, 2 V; mode: 1 v, 2 theta, 3 v', 4 theta'
  double x = 0, y = 0;   // the picture element that was hit (X', Y')
  std::string caption;   // the label's text
  double Left = 0, Top = 0;  // the label's place, in scale units
};

// Read-out of the forces diagram at (X, Y): the curve under the mouse and
// "M = value" / "V = value" in the user's unit (element n, one to the right,
// as the diagram has always shown it). The label is placed for a label of
// labelWidth x labelHeight (scale units); it flips to the left or above the
// point when it would leave the surface. A negative labelWidth measures the
// caption on the surface.
ReadOut Forces_ReadOut(Surface& s, const BeamModel& m, const EffortsData& e, const DiagramState& st, double X,
                       double Y, double labelWidth = -1, double labelHeight = -1);
// Placement of the forces label once its size is known (the label's size
// follows its caption, which the read-out sets).
void Place_ForcesLabel(ReadOut& r, double labelWidth, double labelHeight, double scaleWidth,
                       double scaleHeight);

// ---- buckling mode -----------------------------------------------------------

// Full redraw of the mode: frame, grid, crosses (outside external mode), the
// ticked curves each on its own scale with the restraint circles on v; or
// Msg(14) when there is no mode (Mode_Max = 0).
void Tracer_VecteurPropre(Surface& s, const BeamModel& m, DiagramState& st);

// Read-out of the mode diagram: the name of the curve under the mouse, the
// label at (X' + 150, Y' - 80) without flipping.
ReadOut Eigen_ReadOut(Surface& s, const DiagramState& st, double X, double Y);

// Captions of the curves (Unicode for the Greek letters).
const char* Forces_Caption(int curve);  // "M", "V"
const char* Mode_Caption(int curve);    // "v", "θ", "v'", "θ′"

}  // namespace zarvek
