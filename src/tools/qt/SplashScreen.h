// The start screen: shown while the main window loads.
#pragma once

#include <QFrame>

class QLabel;

namespace zarvek {

class SplashScreen : public QFrame {
  Q_OBJECT
 public:
  explicit SplashScreen(QWidget* parent = nullptr);

  // Translates and centres the window, and completes the version and date.
  void Form_Load();
  // The disclaimer of the loaded language.
  void Translate_Form();

  QLabel* Lbl_Title = nullptr;
  QLabel* Lbl_Description = nullptr;
  QLabel* lblVersion = nullptr;
  QLabel* LblDate = nullptr;
  QLabel* Lbl_Disclaimer = nullptr;

 protected:
  // A key or a click closes it.
  void keyPressEvent(class QKeyEvent*) override;
  void mousePressEvent(class QMouseEvent*) override;
};

// Shows the splash, lets events run until `seconds` whole seconds have gone
// by since `shownAtMs` (a QDateTime msecs-since-epoch stamp), then hides it.
void Pause_Splash(SplashScreen& splash, int seconds, qint64 shownAtMs);

}  // namespace zarvek
