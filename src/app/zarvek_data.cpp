// Build-time helper: fills the start directory with the data the program reads.
//   zarvek-data crypt SOURCE TARGET      scramble a plain language file
//   zarvek-data example TARGET           write the example problem file
//   zarvek-data sectiondb CSV TARGET     build the section catalogue
//   zarvek-data project TARGET           write the example project (a new
//                                        document: IPE 300 of 10 m, 100 kN.m)
#include <cstdio>
#include <cstring>
#include <string>

#include "foundation/Language.h"
#include "model/BeamModel.h"
#include "model/ProjectFile.h"
#include "section/Catalogue.h"
#include "solver/Example.h"
#include "solver/Mod_StabMat.h"

int main(int argc, char** argv) {
  using namespace zarvek;
  if (argc == 4 && std::strcmp(argv[1], "crypt") == 0) {
    if (!Crypt_File(argv[2], 0, argv[3])) {
      std::fprintf(stderr, "zarvek-data: cannot scramble %s\n", argv[2]);
      return 1;
    }
    return 0;
  }
  if (argc == 3 && std::strcmp(argv[1], "example") == 0) {
    // IPE 300 of 10 m in 100 elements, fork supports, uniform moment 100 kN.m
    if (!Write_ProblemFile(argv[2], Fork_Beam_Uniform_Moment(100), ProblemLabels::Proceed)) {
      std::fprintf(stderr, "zarvek-data: cannot write %s\n", argv[2]);
      return 1;
    }
    return 0;
  }
  if (argc == 4 && std::strcmp(argv[1], "sectiondb") == 0) {
    if (!Write_SectionDB(argv[2], argv[3])) {
      std::fprintf(stderr, "zarvek-data: cannot build %s from %s\n", argv[3], argv[2]);
      return 1;
    }
    return 0;
  }
  if (argc == 3 && std::strcmp(argv[1], "project") == 0) {
    BeamModel m;
    Init_Default(m, ".");
    if (!Save_FileDAT(m, argv[2])) {
      std::fprintf(stderr, "zarvek-data: cannot write %s\n", argv[2]);
      return 1;
    }
    return 0;
  }
  std::fprintf(stderr, "usage: zarvek-data crypt SRC DST | example DST | sectiondb CSV DST | project DST\n");
  return 2;
}
