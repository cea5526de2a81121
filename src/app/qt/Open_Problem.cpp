#include "app/qt/Open_Problem.h"

#include <QAction>

#include "foundation/Mod_Zarvek.h"
#include "model/DataEntry.h"
#include "model/qt/Frm_Zarvek.h"

namespace zarvek {

bool Open_InFileDataMode(Frm_Zarvek& f, const std::string& file) {
  if (!File_Exists(file) || !f.Menu_Tools_External || !f.Menu_Tools_External->isEnabled()) return false;
  if (!f.ExternalMode()) f.Menu_Tools_External->trigger();
  if (!f.ExternalMode()) return false;
  f.File_External = file;
  f.Set_FileCurrent(file);
  InitProcessInfo(f.Model());
  InitEffortsInfo(f.Model());
  f.Refresh_FromModel();
  f.Update_Commands();
  if (f.Hooks.DirectData) f.Hooks.DirectData();
  return true;
}

}  // namespace zarvek
