// The report in real readers: LibreOffice Writer's PDF of the RTF and the program's own PDF hold the text,
// Greek letters, every data value and the four pictures; zarvek-cli report writes both without a display.
// Without LibreOffice (libreoffice-writer-nogui) or poppler-utils the checks skip.
#include <QtTest>

#include "report/qt/Report_Qt.h"
#include "report/solved_model.h"

using namespace zarvek;

namespace {

// A beam that shows more than the defaults: a point load above the shear centre and a punctual restraint.
BeamModel Loaded_Beam() {
  BeamModel m = report_test::Default_Model();
  m.Chk_F1 = m.Chk_Punctual1 = true;
  m.Txt_F1 = "-25", m.Txt_zF1 = "15", m.Txt_xfint1 = "0.5";
  m.Lst_vi_p1 = Restraint_Item(1);
  m.Lst_ti_p1 = RestraintList{-1, "40", true};
  return m;
}

struct Run { int code = -1; QString out, err; };

Run Run_Program(const QString& program, const QStringList& args, const QString& dir = QString(), int ms = 180000) {
  QProcess p;
  if (!dir.isEmpty()) p.setWorkingDirectory(dir);
  p.start(program, args);
  if (!p.waitForStarted(10000) || !p.waitForFinished(ms)) return p.kill(), p.waitForFinished(), Run{};
  const int code = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
  return {code, QString::fromUtf8(p.readAllStandardOutput()), QString::fromUtf8(p.readAllStandardError())};
}

QString Pdf_Text(const QString& pdf) { return Run_Program("pdftotext", {"-enc", "UTF-8", pdf, "-"}).out; }

// Number of pictures in a PDF, by pdfimages' listing (two heading lines).
int Pdf_Pictures(const QString& pdf) {
  int n = 0;
  for (const QString& l : Run_Program("pdfimages", {"-list", pdf}).out.split('\n', Qt::SkipEmptyParts).mid(2))
    if (l.contains(" image ")) ++n;  // soft masks are listed as "smask"
  return n;
}

// What a PDF of the report must hold: names, Greek letters, every value of the data blocks as shown.
void Check_Pdf_Text(const QString& text, const BeamModel& m, const char* which) {
  const auto u = [](const char* s) { return QString::fromUtf8(s); };  // theta, psi, nu, mu, theta prime
  QStringList must = {"NORVE", "Mcr", u("\xCE\xB8"), u("\xCF\x88"), u("\xCE\xBD"), u("\xCE\xBC"),
                      u("\xCE\xB8\xE2\x80\xB2"), "Beam", "Steel", "Section - IPE 300",
                      "Intermediate restraint 1", "Point loads", "Fixed", "Free", "kN.m", "cm6"};
  for (const std::string& v : {m.Txt_L, m.Txt_E, m.Txt_G, m.Txt_Nu, m.Txt_Iz[1], m.Txt_It[1], m.Txt_Iw[1],
                               m.Txt_M1, m.Txt_M2, m.Txt_F1, m.Txt_zF1, m.Txt_xfint1, m.Lst_ti_p1.text,
                               m.Txt_Mcr, m.Txt_mucr, m.Txt_Mmax[0], m.Lbl_Iteration})
    must << QString::fromStdString(v);
  for (const QString& s : must) QVERIFY2(text.contains(s), qPrintable(QString::fromLatin1(which) + ": " + s));
}

bool Have(const char* tool) { return !QStandardPaths::findExecutable(tool).isEmpty(); }

}  // namespace

class Test_Report_Readers : public QObject {
  Q_OBJECT
 private slots:
  void programPdfAndLibreOffice() {
    if (!Have("pdftotext") || !Have("pdfimages")) QSKIP("pdftotext/pdfimages (poppler-utils) not installed");
    BeamModel m = Loaded_Beam();
    QCOMPARE(report_test::Solve(m), std::string()); QVERIFY(m.Lbl_Iteration != "0");
    const Rich_Document doc = Build_Report(m, "UK", Qt_ReportPictures(m));
    QTemporaryDir dir;
    const QString rtf = dir.filePath("report.rtf"), own = dir.filePath("own.pdf");
    QVERIFY(Save_Rtf(doc, rtf)); QVERIFY(Export_Pdf(doc, own));

    // the program's own PDF
    const QString text = Pdf_Text(own);
    Check_Pdf_Text(text, m, "program's PDF");
    QCOMPARE(Pdf_Pictures(own), 4);
    // No block's title left alone at the foot of a page (today's report of this beam left "End moments" so).
    QStringList titles;
    for (const Rich_Paragraph& p : doc.paragraphs)
      if (p.keep_with_next && !p.runs.empty()) titles << QString::fromStdString(p.runs.back().text).trimmed();
    QVERIFY(titles.contains("End moments"));
    const QStringList pages = text.trimmed().split(QLatin1Char('\f'));
    QVERIFY(pages.size() >= 2);
    for (int i = 0; i + 1 < pages.size(); ++i) {
      const QString foot = pages[i].trimmed().split(QLatin1Char('\n')).last().trimmed();
      QVERIFY2(!titles.contains(foot), qPrintable(foot));
    }

    // the RTF through LibreOffice Writer
    const QString soffice = QStandardPaths::findExecutable("soffice");
    if (soffice.isEmpty())
      QSKIP("LibreOffice not installed (Debian: libreoffice-writer-nogui): RTF-to-PDF check skipped");
    QDir().mkpath(dir.filePath("lo"));
    const QString profile = QUrl::fromLocalFile(dir.filePath("profile")).toString();
    const Run r = Run_Program(soffice, {"-env:UserInstallation=" + profile, "--headless", "--convert-to", "pdf",
                                        "--outdir", dir.filePath("lo"), rtf});
    const QString lo = dir.filePath("lo/report.pdf");
    QVERIFY2(QFile::exists(lo), qPrintable("LibreOffice did not convert: " + r.err));
    Check_Pdf_Text(Pdf_Text(lo), m, "LibreOffice's PDF");
    QCOMPARE(Pdf_Pictures(lo), 4);
  }

  void commandLine() {
    const QString cli = ZARVEK_BIN_DIR "/zarvek-cli", example = ZARVEK_BIN_DIR "/EXAMPLE.DAT";
    if (!QFile::exists(cli) || !QFile::exists(example)) QSKIP("zarvek-cli or EXAMPLE.DAT not built");
    QTemporaryDir dir;
    for (const char* name : {"r.rtf", "r.PDF"}) {
      const QString out = dir.filePath(name);
      const Run r = Run_Program(cli, {"report", example, "-o", out}, dir.path());
      QCOMPARE(r.code, 0);
      QFile f(out);
      QVERIFY2(f.open(QIODevice::ReadOnly) && f.read(8).startsWith(name[2] == 'r' ? "{\\rtf1" : "%PDF-"), name);
      QCOMPARE(r.err, QString());  // quiet: no warnings of the toolkit
    }
    // exit codes as solve: 1 command line, 2 input, nothing written
    const QString none = dir.filePath("none.rtf");
    const std::pair<QStringList, int> cases[] = {
        {{"report", example}, 1},
        {{"report", "missing.DAT", "-o", none}, 2},
        {{"report", example, "-o", none, "--lang", "XX"}, 2},
        {{"report", example, "-o", dir.filePath("no/dir/r.rtf")}, 2}};
    for (const auto& [args, code] : cases) {
      const Run r = Run_Program(cli, args, dir.path());
      QVERIFY2(r.code == code, qPrintable(args.join(' ') + " -> " + QString::number(r.code)));
    }
    QVERIFY(!QFile::exists(none));
  }
};

QTEST_MAIN(Test_Report_Readers)
#include "test_report_readers.moc"
