#pragma once
// The Invoicing menu's entries that open the `Invoice` window.

class QWidget;

namespace ksv {

class Clock;
class IniFile;
class Messages;
class PlanningSession;
class Texts;

// M_CashSale: an empty cash sale over the open planning's catalogues.
void showCashSale(PlanningSession& session, IniFile& ini, Messages& messages, const Texts& texts, const Clock& clock,
                  QWidget* parent);

}  // namespace ksv
