// Validation of the beam model before anything is drawn, saved or solved.
//
// The checks walk the tabs in order (beam, restraints, loads) and stop at the
// first value that can't be accepted. Nothing is shown and nothing selected
// here: the result carries the message, the tab and the name of the field to
// select, and the window does the rest. The limits guard the numerical model
// and are written in internal units (cm, daN/cm2); a value is compared after
// multiplying it by the factor of its unit, by its magnitude only, with the
// bounds widened by one part in ten thousand so that a value that went
// through a change of unit does not fail on rounding.
#pragma once

#include <string>
#include <vector>

#include "model/BeamModel.h"

namespace zarvek {

struct ValidationResult {
  bool ok = true;
  std::string Error_Text;  // the pending message; the caller shows and empties it
  // The tab to show and the field to select, as the last selection left them
  // (-1 and empty when nothing was selected). Field names are those of the
  // record, slots with their number: "Txt_L", "Txt_Iz(3)", "Lst_v1".
  int tab = -1;
  std::string field;
  // Messages already shown on the way (the confirmation of the dimensions
  // shows its own errors); the window shows them in this order before it
  // shows Error_Text.
  std::vector<std::string> Shown;
};

// The whole check: beam, then restraints, then loads. RefreshLocked is true
// during the check and false on return, whatever it was before. On the
// dimensions route the section is confirmed again (Cmd_Dimensions), which
// rewrites slot 2 of the section fields: hence the model is not const.
ValidationResult IsDataOK(BeamModel& m);

// The three parts; each stops at its first failure.
ValidationResult IsDataBeamOK(BeamModel& m);
ValidationResult IsDataRestraintsOK(const BeamModel& m);
ValidationResult IsDataLoadsOK(const BeamModel& m);

// True when text is a number of the locale (an empty text isn't); otherwise
// r gets Msg(43), the tab and the field, and the result is false.
bool IsNumValid(const std::string& text, const std::string& field, int tab, ValidationResult& r);

// |factor x number| must lie in [vmin x 0.9999, vmax x 1.0001]; otherwise r
// gets Msg(50), the tab and the field, and the result is false.
bool IsValueInLimits(const std::string& text, const std::string& field, double factor,
                     double vmin, double vmax, int tab, ValidationResult& r);

// Brings a field to the user: the tab and the field to select.
void Select_Text(const std::string& field, int tab, ValidationResult& r);

}  // namespace zarvek
