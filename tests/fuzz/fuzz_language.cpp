// Language files (.MSG, scrambled): a file is loaded (every section it holds
// of exactly its size; a file may stop after a whole section) or refused, and
// a refused file leaves the texts loaded before untouched.
#include <cstdlib>
#include <string>

#include "foundation/Language.h"
#include "fuzz_support.h"

using namespace zarvek;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string path = fuzz_support::Put("ZARVEK_XX.MSG", data, size);
  const std::string tmp = fuzz_support::Dir().File("LANGUAGE.TMP");
  Set_Msg(1, "before");
  const std::string first = Text_Line(1);
  if (Load_LanguageFile(path, tmp)) {
    Load_Messages();
  } else {
    if (Text_Line(1) != first) std::abort();
  }
  // the language list reads only the head of each file
  (void)Load_Languages(fuzz_support::Dir().dir, tmp);
  return 0;
}
