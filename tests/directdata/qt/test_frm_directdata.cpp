// The direct data window: typing in the grids (the sixth, of the axial force, too), the clipboard,
// the limits of the header fields, the file commands and the saved axial grid as the solver reads it.
#include <QtTest>
#include <QtWidgets>
#include <memory>

#include "directdata/qt/Frm_DirectData.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "../../foundation/scratch_dir.h"
#include "solver/Mod_StabMat.h"

using namespace zarvek;
using foundation_test::Read_File;

namespace {

// Keys go where the window's focus is, as the user's would.
void Key(QWidget& form, Qt::Key key, Qt::KeyboardModifiers mods = Qt::NoModifier) {
  QVERIFY(form.focusWidget());
  QTest::keyClick(form.focusWidget(), key, mods);
}
void Type(QWidget& form, const QString& text) {
  for (QChar c : text) {
    QVERIFY(form.focusWidget());
    QTest::keyClick(form.focusWidget(), c.toLatin1());
  }
}

}  // namespace

class Test_Frm_DirectData : public QObject {
  Q_OBJECT

  QTemporaryDir dir_;
  std::unique_ptr<Frm_DirectData> f_;                  // the window under test
  std::vector<std::string> boxes_;                     // exclamation boxes shown
  std::vector<std::pair<int, std::string>> dialogs_;  // file dialogs: action (2: save), name offered
  std::string answer_;                                 // what the file dialog returns
  using Dialogs = std::vector<std::pair<int, std::string>>;
  using Texts = std::vector<std::string>;

  std::string Path(const char* name) { return dir_.path().toStdString() + "/" + name; }

  // The window of `file` in f_, its file dialogs (and, with `boxes`, exclamation boxes) answered here.
  Frm_DirectData* Open(const std::string& file, int nb = 50, bool boxes = true) {
    f_ = std::make_unique<Frm_DirectData>(file, dir_.path().toStdString(), nb);
    if (boxes) f_->Show_Exclamation = [this](const std::string& t) { boxes_.push_back(t); };
    f_->Choose_File = [this](int action, const std::string& offered) {
      dialogs_.emplace_back(action, offered);
      return answer_;
    };
    f_->show();
    if (boxes && !QTest::qWaitForWindowExposed(f_.get())) return nullptr;
    boxes_.clear();
    dialogs_.clear();
    return f_.get();
  }

  Data_Grid* Show_Tab(int t, Data_Grid* g = nullptr) {
    f_->Tab_Data->setCurrentIndex(t);
    if (g) g->setFocus();
    return g;
  }

  void Cell(Data_Grid* g, int r, int c, const char* text, Qt::Key end = Qt::Key_Return) {
    g->Go_To(r, c);
    Type(*f_, text);
    Key(*f_, end);
  }

  static void Select(Data_Grid* g, int r1, int c1, int r2, int c2) {
    g->Go_To(r1, c1);
    g->setRangeSelected(QTableWidgetSelectionRange(std::min(r1, r2) - 2, std::min(c1, c2) - 1,
                                                    std::max(r1, r2) - 2, std::max(c1, c2) - 1), true);
  }

 private slots:
  void initTestCase() {
    QVERIFY(dir_.isValid());
    QVERIFY(Load_LanguageFile(std::string(ZARVEK_BIN_DIR) + "/ZARVEK_UK.MSG", Path("L.TMP")));
    Load_Messages();
    Dec_Sep = '.';
  }

  void init() { answer_.clear(); }  // the boxes and dialogs are cleared as the window opens
  void cleanup() { f_.reset(); }

  // A new problem closed at once offers Save As once: the file holds the number of elements asked.
  void newProblemClosedAtOnce() {
    QVERIFY(Open(Msg(40), 64));
    answer_ = Path("NEW.ZVK");
    f_->close();
    QVERIFY(!f_->isVisible());
    QCOMPARE(dialogs_, (Dialogs{{2, "*.ZVK"}}));
    QCOMPARE(f_->File_External(), answer_);
    DirectDataSheet s = New_DirectData(50);
    QVERIFY(Read_FileZVK(answer_, s).Ok);
    QCOMPARE(s.Txt_NB, std::string("64"));
  }

  void pasteRules() {
    QVERIFY(Open(Msg(40)));
    Data_Grid* g = Show_Tab(3, f_->Grd_MV);
    QClipboard* clip = QGuiApplication::clipboard();
    auto paste = [&](const char* text, int r1, int c1, int r2, int c2) {
      clip->setText(text);
      Select(g, r1, c1, r2, c2);
      Key(*f_, Qt::Key_V, Qt::ControlModifier);
    };
    paste("1\t2\n3\t4\n5\t6\n", 10, 1, 12, 2);  // from a spreadsheet (each rule: the core test)
    QCOMPARE(g->TextMatrix(10, 1) + g->TextMatrix(12, 2), std::string("16"));
    // "abc" in the second row: the first row stays pasted, Msg(75) shows
    paste("11\t12\r\nabc\t14\r\n", 30, 1, 31, 2);
    QCOMPARE(g->TextMatrix(30, 1) + " " + g->TextMatrix(30, 2) + " " + g->TextMatrix(31, 1),
             std::string("11 12 1000"));
    QCOMPARE(boxes_, Texts{Msg(75)});
    // a block copied from the grid: tab-separated rows ended by CR LF
    Select(g, 10, 1, 11, 2);
    Key(*f_, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(clip->text(), QString("1\t2\r\n3\t4\r\n"));
    // Delete empties the block; the save is then refused with the cell shown
    Select(g, 10, 1, 11, 2);
    Key(*f_, Qt::Key_Delete);
    QCOMPARE(g->TextMatrix(11, 2), std::string());
    answer_ = Path("DELETED.ZVK");
    boxes_.clear();
    f_->Menu_File_SaveAs();
    QCOMPARE(boxes_, Texts{Msg(43)});
    QVERIFY(!QFile::exists(QString::fromStdString(answer_)));
    QCOMPARE(f_->Tab_Data->currentIndex(), 3);
    QCOMPARE(g->Row() * 10 + g->Col(), 101);
  }

  // NF up to N + 1; a change of NF rebuilds the point loads' grid as its tab shows, not the other.
  void countsAndTheirGrids() {
    QVERIFY(Open(Msg(40)));
    auto type_count = [&](QLineEdit* e, const char* n) {
      Show_Tab(0);
      e->setFocus();
      e->selectAll();
      Type(*f_, n);
      Show_Tab(4);
    };
    type_count(f_->Txt_NQ, "2");
    QCOMPARE(f_->Grd_SpanLoadsQ->rowCount(), 2);
    f_->Grd_SpanLoadsQ->Set_TextMatrix(3, 1, "-33");
    type_count(f_->Txt_NF, "52");  // N + 2
    QCOMPARE(f_->Tab_Data->currentIndex(), 0);
    QCOMPARE(boxes_, Texts{Msg(48) + " : NFmax = 51 !"});
    QCOMPARE(f_->focusWidget(), static_cast<QWidget*>(f_->Txt_NF));
    type_count(f_->Txt_NF, "51");
    QCOMPARE(f_->Tab_Data->currentIndex(), 4);
    QCOMPARE(f_->Grd_SpanLoadsF->rowCount(), 51);
    QCOMPARE(f_->Grd_SpanLoadsF->TextMatrix(52, 1), std::string("-1000"));
    QCOMPARE(f_->Grd_SpanLoadsQ->TextMatrix(3, 1), std::string("-33"));
  }

  // A value still in the cell's editor when Save is chosen reaches the file.
  void valueInTheEditorIsSaved() {
    const std::string path = Path("EDIT.ZVK");
    QVERIFY(Save_FileZVK(path, New_DirectData(55)));
    QVERIFY(Open(path));
    int cleared = 0;
    connect(f_.get(), &Frm_DirectData::Results_Cleared, [&] { ++cleared; });
    Show_Tab(2, f_->Grd_Restraints)->Go_To(30, 1);
    Type(*f_, "4321");
    f_->Menu_File_Save();
    QVERIFY(dialogs_.empty() && cleared == 1);
    DirectDataSheet back = New_DirectData(50);
    QVERIFY(Read_FileZVK(path, back).Ok);
    QCOMPARE(Num_Of_Text(back.Grd_Restraints.TextMatrix(30, 1)), 4321.0);
  }

  // A file that can't be read: an exclamation box names it, the line where the reading stopped
  // and what stood there; the title says the problem has no file. Save then asks for a name:
  // nothing is ever written under "Untitled" in the working folder.
  void unreadableFileThenSave() {
    const std::string path = Path("BROKEN.ZVK");  // element 4, on line 9, 1e400 cm long
    QVERIFY(Save_FileZVK(path, New_DirectData(50)));
    std::string t = Read_File(path);
    const size_t at = t.find("\n  4       10 ");
    QVERIFY(at != std::string::npos);
    std::ofstream(path, std::ios::binary) << t.replace(at, 14, "\n  4   1e400 ");
    const QString stray = QString::fromStdString(Msg(81));
    QFile::remove(stray);
    QString text;  // of the first real box, read and closed as it comes up; the timer dies with the test
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QTimer poll;
    connect(&poll, &QTimer::timeout, [&] {
      if (auto* b = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        std::tie(text, icon) = std::tuple(b->text(), b->icon());
        b->accept();
        poll.stop();
      }
    });
    poll.start(10);
    Open(path, 50, false);
    QTRY_VERIFY(!text.isEmpty());
    QCOMPARE(icon, QMessageBox::Warning);  // the box had no icon
    QVERIFY2(text.contains(QString::fromStdString(path)), qPrintable(text));
    QVERIFY2(text.contains("line 9") && text.contains("1e400"), qPrintable(text));
    QVERIFY(f_->windowTitle().endsWith(stray));
    // File > Save from the keyboard, the file dialog cancelled
    f_->Show_Exclamation = [this](const std::string& t) { boxes_.push_back(t); };
    f_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(f_.get()));
    QTest::keyClick(f_.get(), Qt::Key_F, Qt::AltModifier);
    QTRY_VERIFY(f_->Menu_File->isVisible());
    QTest::keyClick(f_->Menu_File, Qt::Key_S);
    QCOMPARE(dialogs_, (Dialogs{{2, "*.ZVK"}}));
    QCOMPARE(boxes_, Texts{});
    QVERIFY(!QFile::exists(stray) && !QFile::exists(dir_.path() + "/" + stray));
  }

  // Esc after typing gives the cell its old text back and the grid the focus; Enter moves down.
  // "1e400" can't be any value, "1e39" no length, section constant, moment or load (single
  // precision) though a spring may be that stiff: the cell keeps its text and a box says why,
  // after typing as after a paste. Digits reach the file as typed: 1.005 cm is not saved as 1.00.
  void valuesTypedInACell() {
    QVERIFY(Open(Msg(40)));
    Data_Grid* g = Show_Tab(1, f_->Grd_Elements);
    g->Go_To(2, 1);
    Type(*f_, "99");
    QVERIFY(f_->focusWidget() != g);  // typing in the cell's editor
    Key(*f_, Qt::Key_Escape);
    QCOMPARE(g->TextMatrix(2, 1), std::string("10"));
    QCOMPARE(f_->focusWidget(), static_cast<QWidget*>(g));
    Cell(g, 2, 1, "12");
    QCOMPARE(g->TextMatrix(2, 1) + " " + std::to_string(g->Row()), std::string("12 3"));
    const Texts refused{Text_OutOfRange()};
    const struct { int col; const char *typed, *kept; bool box; } cases[] = {  // the filter writes E
        {1, "1e400", "12", true}, {2, "1e39", "603.78", true}, {6, "1e39", "1E39", false}};
    for (const auto& c : cases) {
      boxes_.clear();
      Cell(g, 2, c.col, c.typed);
      QCOMPARE(g->TextMatrix(2, c.col), std::string(c.kept));
      QTRY_COMPARE(boxes_, c.box ? refused : Texts{});
    }
    boxes_.clear();
    QGuiApplication::clipboard()->setText("1e400");
    g->Go_To(4, 4);
    Key(*f_, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(g->TextMatrix(4, 4), std::string("126332"));
    QCOMPARE(boxes_, refused);
    Cell(g, 2, 1, "1.005");
    answer_ = Path("TYPED.ZVK");
    f_->Menu_File_SaveAsAct->trigger();  // the menu's command reaches the writer
    QVERIFY(Read_File(answer_).find("\n  1    1.005      603.78 ") != std::string::npos);
  }

  // The sixth grid, the axial force of every element: chosen by a click on its tab, typed as the other
  // grids, saved as the optional block the solver reads; pictured when ZARVEK_SHOT_DIR is set.
  void sixthGridTypedSavedAndRead() {
    QVERIFY(Open(Msg(40)));
    answer_ = Path("AXIAL.ZVK");
    f_->resize(900, 560);
    QTabBar* bar = f_->Tab_Data->tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(5).center());
    QCOMPARE(f_->Tab_Data->currentIndex(), 5);
    Data_Grid* g = f_->Grd_Axial;
    QCOMPARE(g->rowCount(), 50);
    g->setFocus();
    for (int r = 2; r <= 51; ++r) Cell(g, r, 1, "-2000");
    Cell(g, 2, 2, "53.81");
    const QByteArray dir = qgetenv("ZARVEK_SHOT_DIR");
    if (!dir.isEmpty()) QVERIFY(f_->grab().save(QString::fromUtf8(dir + "/axial-grid.png")));
    f_->Menu_File_Save();
    SolverResult r;
    SolveControl ctl;
    Solve_Problem(answer_, 0, r, ctl);  // read and checked, not solved
    QCOMPARE(int(r.Solve_Status), 0);
    QCOMPARE(r.N, -2000.0);
  }
};

QTEST_MAIN(Test_Frm_DirectData)
#include "test_frm_directdata.moc"
