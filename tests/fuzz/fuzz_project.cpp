// Project files (.DAT): any text is read into the model or refused with the
// reading message, never a crash; a project that reads back is saved and read
// again without loss of a line.
#include <cstdlib>

#include "fuzz_support.h"
#include "model/BeamModel.h"
#include "model/ProjectFile.h"
#include "model/Validation.h"

using namespace zarvek;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string path = fuzz_support::Put("PROJECT.DAT", data, size);
  const std::string start = fuzz_support::Dir().dir;
  BeamModel m;
  Init_Default(m, start);
  const FileReadResult r = Read_FileDAT(m, path, start);
  if (!r.ok) {
    if (r.Error_Text.empty()) std::abort();
    return 0;
  }
  // the checks of the Proceed button run on whatever was read
  (void)IsDataOK(m);
  // what was read is written back the same way a second time
  const std::string once = Project_Text(m);
  const std::string again = fuzz_support::Dir().File("AGAIN.DAT");
  if (!Save_FileDAT(m, again)) std::abort();
  BeamModel m2;
  Init_Default(m2, start);
  // and what the program saved, it reads back unchanged
  if (!Read_FileDAT(m2, again, start).ok || Project_Text(m2) != once) std::abort();
  return 0;
}
