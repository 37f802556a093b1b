#include "invoice_menus.h"

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
  invoice.Form_Load(display, 10);
  dialog.exec();
}

}  // namespace ksv
