#include "diagrams/Diagrams.h"

namespace zarvek {
void Tracer_Loads(Surface&, const BeamModel&) {}
void Draw_Force(Surface&, double, bool, double, double, double, double&, double&) {}
void Draw_DistributedLoad(Surface&, double&, double&, double, double, double, double) {}
void Draw_Moment(Surface&, double, double, double, std::string_view) {}
void Mark_LateralRestraints(Surface&, const BeamModel&, double, double, double, double, Colour) {}
void Draw_Section(Surface&, const BeamModel&) {}
void Tracer_Efforts(Surface&, BeamModel&, EffortsData&, DiagramState&) {}
std::string RefreshMV_Refusal(const BeamModel&, const DiagramState&) { return {}; }
std::string Cmd_RefreshMV(Surface&, BeamModel&, EffortsData&, DiagramState&) { return {}; }
ReadOut Forces_ReadOut(Surface&, const BeamModel&, const EffortsData&, const DiagramState&, double, double,
                       double, double) { return {}; }
void Place_ForcesLabel(ReadOut&, double, double, double, double) {}
void Tracer_VecteurPropre(Surface&, const BeamModel&, DiagramState&) {}
ReadOut Eigen_ReadOut(Surface&, const DiagramState&, double, double) { return {}; }
const char* Forces_Caption(int curve) { return curve == 2 ? "V" : "M"; }
const char* Mode_Caption(int curve) {
  switch (curve) {
    case 2: return "\xCE\xB8";
    case 3: return "v'";
    case 4: return "\xCE\xB8\xE2\x80\xB2";
    default: return "v";
  }
}
}  // namespace zarvek
