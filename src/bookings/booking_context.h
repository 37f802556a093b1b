#pragma once
// What every booking dialog works with: the open planning, the booking buffer
// with its record operations, the availability rules, the options, and the
// other windows a dialog may call. Built by the board for one gesture; all
// references outlive the dialog.

#include <functional>
#include <optional>

#include <QDate>
#include <QString>

#include "availability.h"
#include "booking_records.h"
#include "customers/customer_context.h"
#include "invoice_hand_over.h"

namespace ksv {

class Clock;
class Database;
class Messages;
class Paths;
class Texts;
class TrousSearch;
struct CustomerCopyTarget;
struct HoleChoice;
struct LoadedOptions;
struct SessionObjects;

// The windows of other subsystems a booking dialog opens. An empty hook
// means the window is not there: its button is disabled.
struct BookingWindows {
  // The customer (or agent) list with Copy; fills `target` when a line was copied.
  std::function<void(const QString& name, CustomerCopyTarget& target, bool agents)> Customer_From_Reservation;
  std::function<void()> M_BlackList;
  // BlackList_Add_Commun with N_Add_BL and R_Add_BL.
  std::function<void(const QString& N_Add_BL, const QString& R_Add_BL)> BlackList_Add_Commun;
  // Trous, modal, on a search its opener has set up; what Trous_OK_Click gave back.
  std::function<std::optional<HoleChoice>(TrousSearch&)> Trous;
  // Mail to the address (cmdSendEmail_Click).
  std::function<void(const QString& email)> sendEmail;
};

struct BookingContext {
  Database& db;
  SessionObjects& objects;     // R_TB is objects.Reservation; DataBaseInfo, RQ_Resource, BlackList
  BookingRecords& records;     // the buffer, RS and R_TB already set
  Availability& availability;
  const LoadedOptions& options;
  Messages& messages;
  const Texts& texts;
  const Clock& clock;
  const Paths& paths;
  QDate FirstDate, LastDate;   // the board's range: the calendars' bounds
  std::function<void()> Dessiner_Ecran;
  BookingWindows windows;
  InvoiceWindow* invoice = nullptr;  // none until invoicing is there
  // Removes an invoice with its amounts in the accounts, before the booking
  // that names it goes.
  std::function<void(const QString& invNb)> DeleteInvoice = nullptr;

  CustomerContext customers() const { return {db, clock, messages, texts, paths}; }
};

}  // namespace ksv
