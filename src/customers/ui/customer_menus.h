#pragma once
// The entries of the Customers menu and the list a booking dialog calls:
// each builds its presenter over the open planning and shows its window.

#include <functional>

#include <QString>

#include "customers/customer_list.h"

class QWidget;

namespace ksv {

class Clock;
class Messages;
class Paths;
class PlanningSession;
class Texts;

struct CustomerWindowsContext {
  PlanningSession& session;
  Messages& messages;
  const Texts& texts;
  const Clock& clock;
  const Paths& paths;
  std::function<void()> Dessiner_Ecran;  // the board after bookings changed
};

// M_CustomerList_Click and M_AgentList_Click (`queryName` kRQ_Customer or kRQ_Agent).
void showCustomerList(const CustomerWindowsContext& ctx, const QString& queryName, QWidget* parent);
// M_BlackList_Click.
void showBlackList(const CustomerWindowsContext& ctx, QWidget* parent);
// BlackList_Add_Commun with N_Add_BL and R_Add_BL: from a booking dialog or the customer list.
void addToBlackList(const CustomerWindowsContext& ctx, const QString& N_Add_BL, const QString& R_Add_BL);
// Customer_From_Reservation: the list with Copy; fills `target` when a line was copied.
void showCustomerFromReservation(const CustomerWindowsContext& ctx, const QString& name, CustomerCopyTarget& target,
                                 bool agents, QWidget* parent);

}  // namespace ksv
