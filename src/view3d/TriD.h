// TriD: the turning wire model of the buckled beam.
//
// The buckling mode (v, theta, v', theta' at every node) becomes an I-section
// beam of seven 3D points per station: the two flange centres, the four
// flange tips and the axis. The section turns about the shear-centre axis by
// theta as a rigid figure and moves sideways by v; each flange also turns in
// its own plane by the warping angle v' - h theta', so that the flange tips
// move along the beam.
//
// The projection is orthographic: a point (x, y, z) is drawn at (x, z) and y,
// the depth, is dropped. There is no view matrix: every rotation and zoom is
// applied to the stored points themselves, so rotations about the fixed view
// axes accumulate in the model. Pan is a change of the surface's user scale.
// Hidden lines are not removed.
//
// All state lives in one TriD_Scene that the caller owns and passes to every
// routine; the routines draw through the Surface interface, so the same scene
// goes to the screen picture, a printer, an image file or a test recorder.
// Coordinates are in cm, single precision as the model is only a picture.
#pragma once

#include <array>
#include <vector>

#include "diagrams/Surface.h"

namespace zarvek {

// What a rotation of the next drawing is about.
enum class TriD_Axis { None, X, Y, Z, Loc };

// Zone of the picture under the mouse when a drag starts or moves, which
// chooses the rotation of a left drag (and the mouse image).
enum class TriD_Zone { Upright, Flat, Outside };

// The mouse image the window should show.
enum class TriD_Cursor { Default, RotX, RotY, RotZ, TransXY };

// The seven points of a station.
enum TriD_Point { P1 = 0, P2, P3, P4, P5, P6, P7, TriD_PointCount };

constexpr float TriD_Pi = 3.1415926535f;

// The colours of the wire model (0xBBGGRR).
constexpr Colour TriD_WebColour = 0xC00000;   // blue
constexpr Colour TriD_WireColour = 0x000000;  // flanges and longitudinal lines
constexpr Colour TriD_AxisColour = 0x0000FF;  // red: the axis and the end marks

// Zoom limits and steps.
constexpr float TriD_ZoomMax = 20.0f;
constexpr float TriD_ZoomMin = 0.5f;
constexpr float TriD_ZoomFactor = 1.1f;
// One step of a scroll bar turns the model by pi/120 (1.5 degrees).
constexpr float TriD_AngleStep = TriD_Pi / 120.0f;
// Gain of a mouse drag.
constexpr float TriD_DragGain = 0.1f;

struct TriD_Scene {
  int Stations = 0;  // NB + 1
  float L = 0;       // beam length, cm
  // Undeformed axis: x of station i (1-based), centred on the origin.
  std::vector<float> NodeX;
  // The mode, 4 values per station (v, theta, v', theta'), 1-based, [0] unused.
  std::vector<float> Mode;
  // The current (rotated and scaled) points: X[p][i], Y[p][i], Z[p][i] for
  // point p (P1..P7) and station i (1-based, [0] unused).
  std::array<std::vector<float>, TriD_PointCount> X, Y, Z;

  float b1 = 0, b2 = 0;  // flange widths, upper and lower
  float h1 = 0;          // level of the upper flange above the axis (> 0)
  float h2 = 0;          // level of the lower flange (< 0)

  float RapDep = 0;   // displacement ratio multiplied into the mode
  float RapDep0 = 0;  // its default
  float ZoomStep = 1;   // one-shot factor of the next drawing
  float ZoomTotal = 1;  // accumulated zoom

  std::array<float, 4> Angle{};  // accumulated rotation about X, Y, Z ([1]..[3])
  float CosX = 1, SinX = 0, CosY = 1, SinY = 0, CosZ = 1, SinZ = 0;
  TriD_Axis RotAxis = TriD_Axis::None;  // what the next drawing applies

  std::array<float, 3> LocAxis{};  // unit vector of the beam's own axis
  float LocAngle = 0;              // angle of the next "Loc" rotation
  float LocTotal = 0;              // accumulated angle about it

  bool Dragging = false;
  int DragButton = 0;  // 1 left (rotate), 2 right (pan)
  float LastX = 0, LastY = 0;
  TriD_Cursor Cursor = TriD_Cursor::Default;

  bool DrawAll = true;  // all cross-sections, or a tenth of them
  bool Hold = false;    // rotate the points without drawing a line
};

// ---- set-up --------------------------------------------------------------

// The default displacement ratio of a mode (1-based, 4 values per station):
// the largest lateral shift becomes L/8 or the largest twist pi/6, whichever
// is reached first; 0 when the mode is flat.
float TriD_DefaultRatio(const std::vector<float>& mode, int stations, float L);

// User scale of a surface: the beam of length L fills the width with L/20 of
// margin at each side, the origin in the middle, z upward, same scale both
// ways.
void TriD_SetScale(Surface& s, float L);

// Sets up the scene of a beam of length L (cm) cut into NB elements, with its
// flange widths b1, b2 and levels h1 (> 0), h2 (< 0) about the shear-centre
// axis, and the mode (1-based, v, theta, v', theta' per node; missing values
// count 0). Builds the beam and draws it once, unrotated.
void TriD_Init(TriD_Scene& t, Surface& s, float L, int NB, float b1, float b2, float h1, float h2,
               const std::vector<float>& mode);

// Computes the seven points of every station from the mode and the ratio,
// undoing every rotation and zoom.
void TriD_BuildBeam(TriD_Scene& t);

// Applies the pending rotation and step zoom to every point and draws. The
// rotation is then cleared, so that a plain redraw turns nothing.
// `picture`: a screen picture or image, which is cleared first and
// refreshed after; false for a printer page, which is drawn on as it is.
void TriD_Draw(TriD_Scene& t, Surface& s, bool picture = true);

// Stations drawn in a light drawing or a drag: one in (Stations - 1) / 10,
// the first and the last included. True when station i is one of them.
bool TriD_IsLightStation(const TriD_Scene& t, int i);

// ---- view commands (a step is -1, 0 or 1; 0 goes back to the start) -------

// Recentres and applies the first view: 0 about X, 15 degrees about Y, then
// -45 degrees about Z (the only one drawn).
void TriD_ResetView(TriD_Scene& t, Surface& s);
// Rotation about the fixed view axis X (index 1), Y (2) or Z (3).
void TriD_RotGlob(TriD_Scene& t, int step, int index, Surface& s);
// Rotation about the beam's own axis, through the origin and the axis of the
// last station.
void TriD_RotLocX(TriD_Scene& t, int step, Surface& s);
// Zoom by 1.1 a step within 0.5 and 20; step 0 back to 1.
void TriD_Zoom(TriD_Scene& t, int step, Surface& s);
// Displacement ratio by a fifth of the default a step, within twice the
// default either way (through 0: the beam buckles to the other side); step 0
// gives the undeformed beam. Rebuilds the beam and resets the view.
void TriD_SetRapDep(TriD_Scene& t, int step, Surface& s);
// Puts the origin back in the middle of the surface.
void TriD_ReCenter(TriD_Scene& t, Surface& s);
// Pan by a tenth of the picture (divided by the zoom).
void TriD_PanX(TriD_Scene& t, int step, Surface& s);
void TriD_PanZ(TriD_Scene& t, int step, Surface& s);

// ---- mouse ---------------------------------------------------------------

// Zone of the point (X, Y), in the surface's user scale.
TriD_Zone TriD_ZoneOf(const Surface& s, float X, float Y);

// Mouse events with X, Y in the surface's user scale at the time of the
// event; Button 1 left, 2 right. They leave the image to show in t.Cursor.
void TriD_MouseDown(TriD_Scene& t, Surface& s, float X, float Y, int Button);
void TriD_MouseMove(TriD_Scene& t, Surface& s, float X, float Y, int Button);
void TriD_MouseUp(TriD_Scene& t, Surface& s);

}  // namespace zarvek
