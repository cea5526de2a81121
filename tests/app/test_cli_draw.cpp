// zarvek-cli draw: the pictures of a project and of a problem file, their
// design sizes, and the refusals.
#include <cstdint>
#include <functional>

#include "app_support.h"
#include "solver/Example.h"

using namespace app_test;

namespace {

RunResult Draw(const std::vector<std::string>& args) {
  TempDir dir;
  std::vector<std::string> a = {"draw"};
  a.insert(a.end(), args.begin(), args.end());
  RunResult r = Run_Zarvek(dir.path, a, "zarvek-cli");
  EXPECT_TRUE(fs::is_empty(dir.path)) << "a file was left where the program ran";
  return r;
}

// Width and height of a PNG file from its header; 0 x 0 when it is none.
std::pair<std::uint32_t, std::uint32_t> Png_Size(const std::string& file) {
  const std::string d = Read_All(file);
  if (d.size() < 24 || d.compare(1, 3, "PNG") != 0 || d.compare(12, 4, "IHDR") != 0) return {0, 0};
  auto be = [&](size_t at) {
    return (std::uint32_t)(unsigned char)d[at] << 24 | (std::uint32_t)(unsigned char)d[at + 1] << 16 |
           (std::uint32_t)(unsigned char)d[at + 2] << 8 | (std::uint32_t)(unsigned char)d[at + 3];
  };
  return {be(16), be(20)};
}

}  // namespace

TEST(CliDraw, EachDiagramAtItsDesignSize) {
  TempDir files;
  const std::string dat = Save(files, "BEAM.DAT");
  // twips at 15 a pixel: 7335 x 1365, 3705 x 3795, 7335 x 1755, 7335 x 2775
  const struct {
    const char* what;
    std::uint32_t w, h;
  } cases[] = {{"loads", 489, 91}, {"section", 247, 253}, {"forces", 489, 117}, {"mode", 489, 185}};
  for (const auto& c : cases) {
    const std::string out = files / (std::string(c.what) + ".png");
    RunResult r = Draw({dat, "--what", c.what, "-o", out});
    ASSERT_EQ(r.exit_code, 0) << c.what << r.err;
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(Png_Size(out), std::make_pair(c.w, c.h)) << c.what;
  }
  // print quality: three times the size; SVG: the screen size in its header
  RunResult r = Draw({dat, "--what", "loads", "-o", files / "big.PNG", "--scale", "3"});
  ASSERT_EQ(r.exit_code, 0) << r.err;
  EXPECT_EQ(Png_Size(files / "big.PNG"), std::make_pair(1467u, 273u));
  r = Draw({dat, "--what", "mode", "-o", files / "mode.svg"});
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const std::string svg = Read_All(files / "mode.svg");
  EXPECT_NE(svg.find("width=\"489\" height=\"185\""), std::string::npos);
  EXPECT_NE(svg.find("stroke=\"#0000c0\""), std::string::npos);  // the v curve, 0xC00000
}

TEST(CliDraw, ProblemFileGivesForcesAndMode) {
  TempDir files;
  const std::string zvk = files / "BEAM.ZVK";
  zarvek::Write_ProblemFile(zvk, zarvek::Fork_Beam_Uniform_Load(100, 1000.0, 10.0, 0.0),
                            zarvek::ProblemLabels::Proceed);
  for (const char* what : {"forces", "mode"}) {
    RunResult r = Draw({zvk, "--what", what, "-o", files / "p.svg"});
    EXPECT_EQ(r.exit_code, 0) << what << r.err;
  }
  // a problem file has no loads scheme nor section
  EXPECT_EQ(Draw({zvk, "--what", "section", "-o", files / "p.png"}).exit_code, 1);
}

TEST(CliDraw, RefusalsAndTheirExitCodes) {
  TempDir files;
  const std::string dat = Save(files, "BEAM.DAT");
  const std::string png = files / "x.png";
  for (const auto& args : std::vector<std::vector<std::string>>{
           {dat, "--what", "pies", "-o", png},          // unknown picture
           {dat, "--what", "loads", "-o", files / "x.bmp"},  // unknown extension
           {dat, "--what", "loads"},                     // no output
           {dat, "--what", "loads", "-o", png, "--scale", "0"},
           {"--what", "loads", "-o", png}}) {
    RunResult r = Draw(args);
    EXPECT_EQ(r.exit_code, 1);
    EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;  // one line of usage
  }
  EXPECT_EQ(Draw({files / "MISSING.DAT", "--what", "loads", "-o", png}).exit_code, 2);
  // data refused by validation, and a beam without moment
  const std::string bad = Save(files, "BAD.DAT", [](zarvek::BeamModel& m) { m.Txt_L = "-3"; });
  EXPECT_EQ(Draw({bad, "--what", "loads", "-o", png}).exit_code, 2);
  const std::string none = Save(files, "NONE.DAT", [](zarvek::BeamModel& m) { m.Chk_M = false; });
  EXPECT_EQ(Draw({none, "--what", "forces", "-o", png}).exit_code, 2);
  EXPECT_FALSE(fs::exists(png));
}
