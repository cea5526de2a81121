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
  void SetUp() override {
    Dec_Sep = '.';
    dir_ = fs::temp_directory_path() / ("zarvek_section_" + std::to_string(::getpid()));
    fs::create_directories(dir_);
  }
  void TearDown() override { fs::remove_all(dir_); }

  std::string Write(const std::string& name, const std::string& text) const {
    std::ofstream((dir_ / name).string(), std::ios::binary) << text;
    return (dir_ / name).string();
  }
  static std::string Read(const std::string& path) {
    std::stringstream s;
    s << std::ifstream(path, std::ios::binary).rdbuf();
    return s.str();
  }
  std::string Built() const {
    std::string db = (dir_ / "SECTION.DB").string();
    EXPECT_TRUE(Write_SectionDB(std::string(ZARVEK_SHARED_DIR) + "/data/rolled-sections.csv", db));
    return db;
  }
  fs::path dir_;
};

}  // namespace

TEST_F(Catalogue, BuiltFromTheTableAndListedByArea) {
  std::string db = Built();
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
  const std::string text = Read(db);
  EXPECT_NE(text.find("\n1\nIPE,18\nIPE 80,80,46,3.8,5.2,5\n"), std::string::npos);

  SectionRecord s;
  ASSERT_TRUE(Find_Section(db, "  UB 457x191x67 ", s));
  EXPECT_EQ(s.name, "457x191x67");
  EXPECT_FLOAT_EQ(s.h, 45.3f);
  EXPECT_FALSE(Find_Section(db, "IPE 301", s));
  EXPECT_FALSE(Find_Section(db, "XYZ 300", s));
  EXPECT_EQ(Select_Item(series, "HEB"), 2);
  EXPECT_EQ(Select_Item(series, "W"), 0);  // no longer there: the first item
}

TEST_F(Catalogue, IPE300GivesTheStartingFiguresOfTheMainWindow) {
  std::string db = Built();
  CatalogueDims dims;
  ASSERT_TRUE(Catalogue_Dims(db, "IPE 300", dims));
  EXPECT_EQ(dims.Cat_h, 30);
  EXPECT_EQ(dims.Cat_b, 15);
  EXPECT_EQ(dims.Cat_tf, 1.07);
  EXPECT_EQ(dims.Cat_tw, 0.71);
  EXPECT_EQ(dims.Cat_r, 1.5);

  SectionRecord s;
  ASSERT_TRUE(Find_Section(db, "IPE 300", s));
  SectionI r = Calculer_SectionI(s);
  SectionTransfer t = Transfer_Section(r, "IPE", 1, 1);
  EXPECT_EQ(t.Iz, "603.78");
  EXPECT_EQ(t.It, "19.868");
  EXPECT_EQ(t.Iw, "126332");
  EXPECT_EQ(t.SelectedProfile, "IPE 300");
  // Tables: A 53.81, Av,z 25.68, Iy 8356, Wpl,y 628.4, Wpl,z 125.2.
  EXPECT_NEAR(r.A, 53.81, 0.27);
  EXPECT_NEAR(r.Avz, 25.68, 0.13);
  EXPECT_NEAR(r.Iy, 8356, 42);
  EXPECT_NEAR(r.Wply, 628.4, 3.1);
  EXPECT_NEAR(r.Wplz, 125.2, 0.6);

  // Without a root radius the closed forms reduce to three plates.
  SectionI plain = Calculer_SectionI(SectionRecord{"p", 20, 10, 1, 0.5f, 0});
  EXPECT_FLOAT_EQ(plain.A, 2 * 10 + 18 * 0.5f);
  EXPECT_FLOAT_EQ(plain.Iy, (8000 * 10 - 18 * 18 * 18 * 9.5f) / 12);
  EXPECT_FLOAT_EQ(plain.Iz, (2 * 1000 + 0.125f * 18) / 12);
  EXPECT_EQ(Calculer_SectionI(SectionRecord{"x", 0, 15, 1, 1, 1}).name, "?");
}

TEST_F(Catalogue, FileOrderDoesNotMatter) {
  // Areas: big 126, small 34, mid and twin 74.6 cm2; remarks between series.
  std::string db = Write("hand.DB",
                         "hand-made catalogue\n1\nXA,4\n"
                         "XA big,500,200,10,20,0\nXA small,300,100,5,10,0\n"
                         "XA mid,400,150,8,15,0\nXA twin,400,150,8,15,0\n"
                         "a remark\n1\r\n\"XB\",1\r\n\"XB one\",200,100,6,9,12\r\n");
  std::vector<SectionRecord> list;
  ASSERT_TRUE(Load_SerieNumbers(db, "XA", list));
  ASSERT_EQ(list.size(), 4u);
  EXPECT_EQ(list[0].name, "small");
  EXPECT_EQ(list[1].name.size() + list[2].name.size(), 7u);  // mid and twin, in either order
  EXPECT_EQ(list[3].name, "big");
  ASSERT_TRUE(Load_SerieNumbers(db, "XB", list));
  ASSERT_EQ(list.size(), 1u);
  EXPECT_FLOAT_EQ(list[0].r, 1.2f);
  EXPECT_TRUE(Load_SerieNumbers(db, "XC", list));  // not in the file: an empty list
  EXPECT_TRUE(list.empty());
}

TEST_F(Catalogue, DamagedFilesGiveEmptyListsAndTablesNeverHalfAFile) {
  std::vector<std::string> series{"stale"};
  std::vector<SectionRecord> list;
  EXPECT_FALSE(Load_SectionsSeries((dir_ / "absent.DB").string(), series));
  EXPECT_TRUE(series.empty());

  const std::string good = "1\nOK,1\nOK 1,100,50,4,6,5\n";
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
    EXPECT_EQ(list.size(), 1u);
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

TEST_F(Catalogue, PropertiesTextStandsInColumns) {
  SectionI r = Calculer_SectionI(SectionRecord{"300", 30, 15, 1.07f, 0.71f, 1.5f});
  std::stringstream in(Show_SectionProperties(r));
  std::vector<std::string> lines;
  for (std::string l; std::getline(in, l);) lines.push_back(l);
  ASSERT_EQ(lines.size(), 16u);
  EXPECT_EQ(lines[0], " h     =      30.00 cm");
  EXPECT_EQ(lines[9], " Iz    =     603.78 cm4");
  EXPECT_EQ(lines[15], " Iw    =     126332 cm6");
  for (const auto& l : lines) EXPECT_EQ(l.find(" cm"), 19u) << l;
  Dec_Sep = ',';
  EXPECT_NE(Show_SectionProperties(r).find("     19,868 cm4\n"), std::string::npos);
  Dec_Sep = '.';
}
