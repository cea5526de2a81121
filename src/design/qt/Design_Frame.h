// The "Design check" frame of the results page: the lines of the
// lateral-torsional buckling check in a table of three columns (what, value,
// unit) and the closing statement under it.
#pragma once

#include <QGroupBox>

#include "design/DesignModel.h"

class QLabel;

namespace zarvek {

class Design_Frame : public QGroupBox {
  Q_OBJECT
 public:
  explicit Design_Frame(QWidget* parent = nullptr);
  // Shows the check; a check that was not run shows its note alone.
  void Show(const DesignRun& d, const BeamModel& m);
  // Empty until the next solve.
  void Clear();
  // The title in the loaded language (the lines are rewritten by Show).
  void After_Translate();

 private:
  QLabel* body_ = nullptr;
};

}  // namespace zarvek
