#pragma once
// `ReservationCreer`: the dialog that turns a free stretch of the board into
// a booking, or into a group of bookings when several resources are wanted.
// Headless: the window binds its widgets to these fields and forwards its
// events to the handlers; what needs another window goes through the hooks.
//
// The caller has put the proposal in the booking buffer: Res_L the pressed
// resource, DD_L the pressed day.

#include <array>
#include <functional>
#include <vector>

#include <QDate>
#include <QString>
#include <QStringList>

#include "booking_context.h"
#include "booking_form.h"
#include "trous_search.h"

namespace ksv {

class ReservationCreerPresenter {
 public:
  explicit ReservationCreerPresenter(BookingContext& ctx);

  // The state buttons Def_Cl(0..5).
  std::array<BookingState, 6> Def_Cl{};

  // `Nom` with the colours of the chosen state; its tag is the state index.
  QString Nom;
  QString NomTag = QStringLiteral("0");
  Colour NomBack = 0, NomFore = 0;

  // The two calendars: value and bounds.
  QDate CalF, CalT;
  QDate CalFLowest, CalFHighest, CalTLowest, CalTHighest;
  int NB_Jour = 7;

  // `Category`: "All categories" then the six; list index = category + 1.
  std::vector<CategoryItem> categories;
  int categoryIndex = 0;
  // `Resource`: the resources of the category in board order.
  QStringList resources;
  int resourceIndex = -1;
  QString resource() const { return resources.value(resourceIndex); }
  // The colours both lists show.
  Colour listBack = kWhite, listFore = kBlack;

  QString NbAvailable = QStringLiteral("0");
  QString NbRequested = QStringLiteral("1");
  bool optAgent = false;  // optCustomer is the other choice
  QString Email, HowMany = QStringLiteral("1"), Remarque;
  bool Bloc = false;

  // Form-level state.
  QString BL_Remark;
  bool Flg_Search = false;
  bool changed = false;
  bool closed = false;  // set when the dialog unloads

  // Which buttons have a window behind them.
  bool listsEnabled() const { return bool(ctx_.windows.Customer_From_Reservation); }
  bool blackListEnabled() const { return bool(ctx_.windows.M_BlackList); }
  bool holesEnabled() const { return bool(ctx_.windows.Trous); }
  // Mail asks nothing of the address: an empty one opens an empty message.
  bool sendEmailEnabled() const { return bool(ctx_.windows.sendEmail); }

  // The window's side: unload, and put the focus on `Nom`.
  std::function<void()> unload;
  std::function<void()> focusNom;

  void Form_Load();
  void Load_Combo();

  void Def_Cl_Click(int Index);
  void CalF_DateClicked(QDate date);
  void CalT_DateClicked(QDate date);
  void Category_Click(int index);
  void Resource_Click(int index);

  // The edits that set the changed flag; the last three also decide the kind of row.
  void Nom_Change(const QString& text);
  void Email_Change(const QString& text);
  void HowMany_Change(const QString& text);
  void Remarque_Change(const QString& text);
  void Bloc_Click(bool checked) { Bloc = checked; }
  void NbRequested_Change(const QString& text);
  void optCustomer_Click();
  void optAgent_Click();
  // The kind of the row being made: "C" one booking, "L" a customer group, "A" an agent's.
  QString GroupId_L() const { return groupId_; }

  void CustomerList_Click();
  void AgentList_Click();
  void BlackList_Click();
  void Holes_Click();
  void cmdSendEmail_Click();
  void Create_Click();
  void CdExit_Click();

 private:
  void recomputeGroupId();
  void recomputeAvailability();
  void setListColours(int category);
  void fromList(bool agents);
  // The dialog into the buffer; false (with a message) when HowMany is no number.
  bool readDialog();
  void createGroup(const QString& name);
  void close();

  BookingContext& ctx_;
  QString groupId_ = QStringLiteral("C");
};

}  // namespace ksv
