// The section catalogue (SECTION.DB): series, their sections and a look-up by
// name, on any text; a section found gives finite properties or none.
#include <cstdlib>
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "section/Catalogue.h"
#include "section/Mod_Section.h"

using namespace zarvek;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string db = fuzz_support::Put("SECTION.DB", data, size);
  std::vector<std::string> series;
  if (!Load_SectionsSeries(db, series)) {
    if (!series.empty()) std::abort();
    return 0;
  }
  int looked = 0;
  for (const auto& s : series) {
    std::vector<SectionRecord> list;
    if (!Load_SerieNumbers(db, s, list)) continue;
    for (const auto& rec : list) {
      if (++looked > 40) return 0;
      SectionRecord found;
      (void)Find_Section(db, s + " " + rec.name, found);
      (void)Calculer_SectionI(rec);
    }
  }
  return 0;
}
