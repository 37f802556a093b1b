#pragma once
// ReservationGrp: one group of bookings, its header row (GroupId "L" or "A",
// Split "3") and its members (the "C" rows bearing its GroupNb). Opened on a
// clicked booking: finds or creates the group around it, lists the members
// and the unattached bookings that lie within the group's period.

#include <functional>
#include <vector>

#include <QDate>
#include <QString>
#include <QStringList>

#include "booking_context.h"
#include "config/option_reader.h"
#include "core/regional.h"
#include "storage/recordset.h"

namespace ksv {

// A candidate's line: Nom on 25 columns, Resource on 12, then the stay.
QString possibleUserLine(const QString& nom, const QString& resource, QDate first, QDate last,
                         const Regional& regional);

class ReservationGrpPresenter {
 public:
  // The buffer holds the clicked booking and RS stands on it at I_L.
  ReservationGrpPresenter(BookingContext& ctx, const Regional& regional);
  ~ReservationGrpPresenter();  // Form_Unload: the three recordsets close
  ReservationGrpPresenter(const ReservationGrpPresenter&) = delete;
  ReservationGrpPresenter& operator=(const ReservationGrpPresenter&) = delete;

  // The header's fields. Edits through the dialog call Header_Change.
  QString Nom, Email, Remarque, InvNb;
  qint16 HowMany = 1;
  int nomTag = 0;  // the state (Couleur) of the group
  Colour nomBack = 0, nomFore = 0;
  bool Bloc = false;
  bool optAgent = false;  // optCustomer is the other choice

  // The period and the calendars' bounds.
  QDate CalF, CalT;
  QDate CalFLowest, CalFHighest, CalTLowest, CalTHighest;
  QDate FirstDateLabel;  // the lowest date, shown beside the calendars
  int NB_Jour = 0;

  int NbRequested = 0;

  // Members: whole bookings and first parts, one line each.
  QStringList Customer;
  int customerIndex = -1;
  Colour customerBack = kWhite, customerFore = kBlack;
  // The selected member.
  QString Resource, Remark;
  QDate DtFrom, DtTo;
  int Days = 0;
  Colour resourceBack = kWhite, resourceFore = kBlack;
  // Its second part; blank (and white) when the member is not split.
  bool hasPart2 = false;
  QString ResourceS;
  QDate DtFromS, DtToS;
  int DaysS = 0;
  Colour resourceSBack = kWhite, resourceSFore = kBlack;

  QStringList cboPossible;
  int possibleIndex = -1;

  bool invoiceEnabled() const { return ctx_.invoice != nullptr; }
  bool groupNew() const { return groupNew_; }
  bool changed() const { return changed_; }
  qint16 groupNumber() const { return ctx_.records.GroupNb_L; }

  // The dialog goes away (after the screen was redrawn).
  std::function<void()> close;
  std::function<void()> focusNom;
  // Called after Form_Activate refilled the fields, so that a dialog shows them.
  std::function<void()> refreshed;

  void Form_Activate();

  void Header_Change() { changed_ = true; }
  void Def_Cl_Click(int index);
  void optCustomer_Click();
  void optAgent_Click();
  void CalF_DateClicked(QDate date);
  void CalT_DateClicked(QDate date);

  // Each returns true when it wrote; `silent` is the run from CmdExit_Click.
  bool ModifyGroup_Click(bool silent = false);
  bool DeleteGroup_Click();
  bool SplitGroup_Click(bool silent = false);

  void cmdAdd_Click();
  void cmdRemove_Click();

  void Customer_Click(int index);
  void Customer_Change(const QString& text) { keptName_ = text; }
  void Customer_LostFocus();
  void Customer_KeyPress() { Customer_LostFocus(); }
  void Remark_LostFocus();

  void CdInvoice_Click();
  // True when the dialog may close.
  bool CmdExit_Click();

 private:
  void newHeader();
  void openHeader();
  void fillFromHeader();
  void fillMembers(int select);
  void fillPossible();
  void setBounds();
  void groupOtherPart(const QString& nom, int couleur, const QString& groupId, const QString& split, QDate first,
                      QDate last);
  int partTwoOf(const QString& nom, QDate dtTo);
  void deleteInvoice(const QString& invNb);
  void deleteGroup();
  void splitGroup();
  void redrawAndClose();
  void writeMemberText(const char* column, const QString& text);
  // Runs a command that writes; a write the store refuses is told, undone,
  // and the recordsets are read again. False when it was refused.
  template <typename Command>
  bool guarded(Command&& command);
  void rereadAfterError();

  BookingContext& ctx_;
  Regional regional_;
  Recordset header_, members_, possible_;
  std::vector<int> memberRow_;  // Customer line -> position in members_ (1 = first)
  int part2Row_ = 0;            // position in members_ of the selected member's part 2; 0 none
  QString keptName_;
  bool firstActivation_ = true;  // the calendars take the header's dates only then
  bool changed_ = false;
  bool groupNew_ = false;
  bool membership_ = false;
  std::vector<QString> deletedInvoices_;
};

}  // namespace ksv
