#include "invoice_menus.h"

#include <QGuiApplication>
#include <QScreen>

#include "config/ini_file.h"
#include "config/option_reader.h"
#include "core/clock.h"
#include "core/regional.h"
#include "core/texts.h"
#include "invoice_dialog.h"
#include "storage/planning_session.h"

namespace ksv {

void showCashSale(PlanningSession& session, IniFile& ini, Messages& messages, const Texts& texts, const Clock& clock,
                  QWidget* parent) {
  if (!session.IsOpen) return;
  AmountDisplay display;
  display.NbDecimal = static_cast<short>(readOption(ini, "Company", "NbDecimal", QStringLiteral("2")).toInt());
  display.OnlyIfDecExist = isYes(readOption(ini, "Company", "OnlyIfDecExist", QStringLiteral("O")));
  const Regional regional = Regional::fromSystem();
  InvoiceDialog dialog(messages, texts, regional, clock, InvoiceCatalogue::read(session.connection()->db(), clock),
                       parent);
  InvoicePresenter& invoice = dialog.presenter();
  invoice.prepareCashSale();
  dialog.showHandOver();
  // Ten lines fit on a large screen, nine on a small one.
  const QScreen* screen = QGuiApplication::primaryScreen();
  invoice.Form_Load(display, screen && screen->size().height() < 768 ? 9 : 10);
  dialog.exec();
}

}  // namespace ksv
