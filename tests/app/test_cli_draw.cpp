// zarvek-cli draw: the pictures of a project and of a problem file, their
// design sizes, and the refusals.
#include <algorithm>
#include <cstdint>

#include "app_support.h"
#include "solver/Example.h"

using namespace app_test;

namespace {

RunResult Draw(Args args) {
  args.insert(args.begin(), "draw");
  return Cli(args);
}

// Width and height of a PNG file from its header; 0 x 0 when it is none.
std::pair<std::uint32_t, std::uint32_t> Png_Size(const std::string& file) {
  const std::string d = Read_All(file);
  if (d.size() < 24 || d.compare(1, 3, "PNG") != 0 || d.compare(12, 4, "IHDR") != 0) return {0, 0};
  auto be = [&](size_t at) {
    std::uint32_t v = 0;
    for (size_t i = at; i < at + 4; ++i) v = v << 8 | (unsigned char)d[i];
    return v;
  };
  return {be(16), be(20)};
}

TEST(CliDraw, EachDiagramAtItsDesignSize) {
  TempDir files;
  const std::string dat = Save(files, "BEAM.DAT");
  // twips at 15 a pixel: 7335 x 1365, 3705 x 3795, 7335 x 1755, 7335 x 2775
  const std::tuple<const char*, std::uint32_t, std::uint32_t> cases[] = {
      {"loads", 489, 91}, {"section", 247, 253}, {"forces", 489, 117}, {"mode", 489, 185}};
  for (const auto& [what, w, h] : cases) {
    const std::string out = files / (std::string(what) + ".png");
    RunResult r = Draw({dat, "--what", what, "-o", out});
    ASSERT_EQ(r.exit_code, 0) << what << r.err;
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(Png_Size(out), std::make_pair(w, h)) << what;
  }
  // print quality: three times the size; SVG: the screen size in its header
  RunResult r = Draw({dat, "--what", "loads", "-o", files / "big.PNG", "--scale", "3"});
  ASSERT_EQ(r.exit_code, 0) << r.err;
  EXPECT_EQ(Png_Size(files / "big.PNG"), std::make_pair(1467u, 273u));
  r = Draw({dat, "--what", "mode", "-o", files / "mode.svg"});
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const std::string svg = Read_All(files / "mode.svg");
  EXPECT_TRUE(Has(svg, "width=\"489\" height=\"185\""));
  EXPECT_TRUE(Has(svg, "stroke=\"#0000c0\""));  // the v curve, 0xC00000
}

TEST(CliDraw, ProblemFileAndRefusals) {
  TempDir files;
  const std::string zvk = files / "BEAM.ZVK", png = files / "x.png";
  zarvek::Write_ProblemFile(zvk, zarvek::Fork_Beam_Uniform_Load(100, 1000.0, 10.0, 0.0), zarvek::ProblemLabels::Proceed);
  for (const char* what : {"forces", "mode"}) EXPECT_EQ(Draw({zvk, "--what", what, "-o", files / "p.svg"}).exit_code, 0);
  // a problem file has no loads scheme nor section
  EXPECT_EQ(Draw({zvk, "--what", "section", "-o", png}).exit_code, 1);

  const std::string dat = Save(files, "BEAM.DAT");
  for (const Args& args : std::vector<Args>{{dat, "--what", "pies", "-o", png},
                                            {dat, "--what", "loads", "-o", files / "x.bmp"},
                                            {dat, "--what", "loads"},
                                            {dat, "--what", "loads", "-o", png, "--scale", "0"},
                                            {"--what", "loads", "-o", png}}) {
    RunResult r = Draw(args);
    EXPECT_EQ(r.exit_code, 1);
    EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;  // one line of usage
  }
  // a missing file, data refused by validation, a beam without moment
  const std::pair<std::string, const char*> refused[] = {
      {files / "MISSING.DAT", "loads"},
      {Save(files, "BAD.DAT", [](auto& m) { m.Txt_L = "-3"; }), "loads"},
      {Save(files, "NONE.DAT", [](auto& m) { m.Chk_M = false; }), "forces"}};
  for (const auto& [bad, what] : refused) EXPECT_EQ(Draw({bad, "--what", what, "-o", png}).exit_code, 2) << bad;
  EXPECT_FALSE(fs::exists(png));
}

}  // namespace
