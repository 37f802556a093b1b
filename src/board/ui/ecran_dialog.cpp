#include "ecran_dialog.h"

#include <cmath>

#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace ksv {

ScreenFacts screenFacts(const QScreen* screen) {
  ScreenFacts f;
  if (!screen) return f;
  const qreal ratio = screen->devicePixelRatio();
  f.widthPx = static_cast<int>(std::lround(screen->geometry().width() * ratio));
  f.heightPx = static_cast<int>(std::lround(screen->geometry().height() * ratio));
  f.bitsPerPixel = screen->depth();
  f.refreshRate = static_cast<int>(std::lround(screen->refreshRate()));
  f.logicalDpi = static_cast<int>(std::lround(screen->logicalDotsPerInch()));
  return f;
}

void EcranDialog::readActualScreen(ScreenDescription& screen) {
  readScreen(screenFacts(QGuiApplication::primaryScreen()), screen);
}

EcranDialog::EcranDialog(ScreenDescription& screen, const Texts& texts, QWidget* parent) : QDialog(parent) {
  const QScreen* display = parent ? parent->screen() : QGuiApplication::primaryScreen();
  readScreen(screenFacts(display), screen);

  const EcranTexts t = ecranTexts(screen, texts);
  setWindowTitle(t.title);
  auto* grid = new QGridLayout;
  auto* heading = new QLabel(t.heading, this);
  QFont boldFont = heading->font();
  boldFont.setBold(true);
  heading->setFont(boldFont);
  resolution_ = new QLabel(t.resolution, this);
  grid->addWidget(heading, 0, 0);
  grid->addWidget(resolution_, 1, 0);
  grid->addWidget(new QLabel(t.color, this), 2, 0);
  grid->addWidget(new QLabel(t.font, this), 3, 0);
  auto* designed = new QLabel(t.designedFor, this);
  designed->setFont(boldFont);
  grid->addWidget(designed, 0, 1);
  grid->addWidget(new QLabel(t.designedSizes, this), 1, 1);
  grid->addWidget(new QLabel(t.designedColors, this), 2, 1);
  grid->addWidget(new QLabel(t.designedFonts, this), 3, 1);
  grid->setHorizontalSpacing(24);

  auto* ok = new QPushButton(texts.get(txt::ButtonOk), this);
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(grid);
  layout->addWidget(ok, 0, Qt::AlignHCenter);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

QString EcranDialog::resolutionText() const { return resolution_->text(); }

}  // namespace ksv
