#pragma once
// The Ecran form: reads the real screen into the screen description when it
// loads; shown only on a first run, with its one OK button.

#include <QDialog>

#include "board/screen_description.h"

class QLabel;
class QScreen;

namespace ksv {

// Size in device pixels, depth, refresh rate and logical dpi of a screen.
ScreenFacts screenFacts(const QScreen* screen);

class EcranDialog : public QDialog {
  Q_OBJECT
 public:
  // The load step: fills `screen` from the display the dialog is on.
  EcranDialog(ScreenDescription& screen, const Texts& texts, QWidget* parent = nullptr);

  // Loaded without being shown: only the reading.
  static void readActualScreen(ScreenDescription& screen);

  QString resolutionText() const;

 private:
  QLabel* resolution_ = nullptr;
};

}  // namespace ksv
