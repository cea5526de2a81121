// The catalogue file: built from the table of rolled sections, read back by
// series, listed by area, and robust against damaged files.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

#include "foundation/Mod_Zarvek.h"
#include "section/Catalogue.h"

using namespace zarvek;
namespace fs = std::filesystem;

namespace {

class Catalogue : public ::testing::Test {
 protected:
  void SetUp() override { fs::create_directories(dir_); }
  void TearDown() override {
    Dec_Sep = '.';
    fs::remove_all(dir_);
  }

  std::string Write(const std::string& name, const std::string& text) const {
    std::ofstream((dir_ / name).string(), std::ios::binary) << text;
    return (dir_ / name).string();
  }
  static std::string Read(const std::string& path) {
    std::stringstream s;
    s << std::ifstream(path, std::ios::binary).rdbuf();
    return s.str();
  }
  const fs::path dir_ = fs::temp_directory_path() / ("zarvek_section_" + std::to_string(::getpid()));
};

}  // namespace

TEST_F(Catalogue, BuiltFromTheTableListedByAreaAndComputed) {
  const std::string db = (dir_ / "SECTION.DB").string();
  ASSERT_TRUE(Write_SectionDB(std::string(ZARVEK_SOURCE_DIR) + "/data/rolled-sections.csv", db));
  std::vector<std::string> series;
  ASSERT_TRUE(Load_SectionsSeries(db, series));
  EXPECT_EQ(series, (std::vector<std::string>{"IPE", "HEA", "HEB", "HEM", "UB", "UC"}));
  const size_t rows[] = {18, 24, 24, 24, 125, 60};  // rows of the table per series
  for (size_t k = 0; k < series.size(); ++k) {
    std::vector<SectionRecord> list;
    ASSERT_TRUE(Load_SerieNumbers(db, series[k], list));
    EXPECT_EQ(list.size(), rows[k]);
    for (size_t i = 1; i < list.size(); ++i)
      EXPECT_LE(Section_Area(list[i - 1]), Section_Area(list[i])) << list[i].name;
  }
  EXPECT_NE(Read(db).find("\n1\nIPE,18\nIPE 80,80,46,3.8,5.2,5\n"), std::string::npos);
  SectionRecord s;
  ASSERT_TRUE(Find_Section(db, "  UB 457x191x67 ", s));
  EXPECT_FLOAT_EQ(s.h, 45.3f);
  EXPECT_FALSE(Find_Section(db, "IPE 301", s));
  EXPECT_EQ(Select_Item(series, "W"), 0);  // no longer there: the first item

  // IPE 300 gives the starting figures of the main window
  ASSERT_TRUE(Find_Section(db, "IPE 300", s));
  SectionI r = Calculer_SectionI(s);
  SectionTransfer t = Transfer_Section(r, "IPE", 1, 1);
  EXPECT_EQ(t.Iz + " " + t.It + " " + t.Iw + " " + t.SelectedProfile, "603.78 19.868 126332 IPE 300");
  // Tables: A 53.81, Av,z 25.68, Iy 8356, Wpl,y 628.4, Wpl,z 125.2, within 0.5 %.
  const double got[] = {r.A, r.Avz, r.Iy, r.Wply, r.Wplz}, table[] = {53.81, 25.68, 8356, 628.4, 125.2};
  for (int i = 0; i < 5; ++i) EXPECT_NEAR(got[i], table[i], 0.005 * table[i]) << i;
  // The window's text, in the decimal mark of the locale.
  Dec_Sep = ',';
  EXPECT_NE(Show_SectionProperties(r).find("     19,868 cm4\n"), std::string::npos);

  // Without a root radius the closed forms reduce to three plates.
  SectionI plain = Calculer_SectionI(SectionRecord{"p", 20, 10, 1, 0.5f, 0});
  EXPECT_FLOAT_EQ(plain.A, 2 * 10 + 18 * 0.5f);
  EXPECT_FLOAT_EQ(plain.Iy, (8000 * 10 - 18 * 18 * 18 * 9.5f) / 12);
  EXPECT_FLOAT_EQ(plain.Iz, (2 * 1000 + 0.125f * 18) / 12);
  EXPECT_EQ(Calculer_SectionI(SectionRecord{"x", 0, 15, 1, 1, 1}).name, "?");
}

TEST_F(Catalogue, DamagedFilesGiveEmptyListsAndTablesNeverHalfAFile) {
  std::vector<std::string> series{"stale"};
  std::vector<SectionRecord> list;
  EXPECT_FALSE(Load_SectionsSeries((dir_ / "absent.DB").string(), series));
  EXPECT_TRUE(series.empty());

  // a remark, then a series in quotes with DOS line ends, r = 12 mm
  const std::string good = "a remark\n1\r\n\"OK\",1\r\n\"OK 1\",100,50,4,6,12\r\n";
  for (const std::string& bad : {good + "1\nBAD,x\n", good + "1\nBAD,3\nBAD 1,100,50,4,6,5\n",
                                 good + "1\n", good + "1\nBAD\n"}) {
    series = {"stale"};
    EXPECT_FALSE(Load_SectionsSeries(Write("bad.DB", bad), series)) << bad;
    EXPECT_TRUE(series.empty());
  }
  // A damaged section line breaks its own series only.
  for (const char* item : {"5O", "1,5", "nan", "-4", "", "1e400"}) {
    std::string db = Write("line.DB", good + "1\nZ,1\nZ 1,100,50," + item + ",6,5\n");
    list.resize(3);
    EXPECT_FALSE(Load_SerieNumbers(db, "Z", list)) << item;
    EXPECT_TRUE(list.empty());
    EXPECT_TRUE(Load_SerieNumbers(db, "OK", list));
    ASSERT_EQ(list.size(), 1u);
    EXPECT_FLOAT_EQ(list[0].r, 1.2f);
    EXPECT_TRUE(Load_SerieNumbers(db, "XC", list));  // not in the file: an empty list
    EXPECT_TRUE(list.empty());
  }

  const std::string db = Write("SECTION.DB", "previous\n");
  const std::string head = "series,designation,h_mm,b_mm,tw_mm,tf_mm,r_mm\n";
  for (const std::string& table : {head + "IPE,80,80,46,3.8,five,5\n", head + "IPE,80,80,46\n",
                                   head + "I PE,80,80,46,3.8,5.2,5\n", head,
                                   std::string("series,h_mm\nIPE,80\n")}) {
    EXPECT_FALSE(Write_SectionDB(Write("table.csv", table), db)) << table;
    EXPECT_EQ(Read(db), "previous\n");
  }
}
