#pragma once
// What the booking and split dialogs hold alike: the customer fields, the
// state buttons, the category and resource lists, the changed flag, and the
// commands that lead to other windows. Headless: the dialogs bind widgets to
// these values and forward their events.

#include <array>
#include <functional>
#include <vector>

#include <QDate>
#include <QString>
#include <QStringList>

#include "booking_context.h"
#include "booking_form.h"
#include "invoice_hand_over.h"
#include "trous_search.h"

namespace ksv {

// A calendar input: its date and the range it may pick from.
struct CalendarField {
  QDate value, lowest, highest;
};

// One Category list with its Resource list. The lists take the colours of
// the category shown.
struct ResourceChoice {
  std::vector<CategoryItem> categories;  // the six, list index = category
  int Category = -1;                     // -1: the resource is in no category
  QStringList resources;                 // of the category, in board order
  QString Resource;                      // the one chosen

  // Load_Combo for one resource: its category, that category's resources,
  // and the resource selected.
  void load(const Availability& availability, const LoadedOptions& options, const QString& resource);
  // Refills the resources; keeps the chosen one when listed, else takes the
  // first. A category without resources keeps the one chosen.
  void Category_Click(const Availability& availability, int index);
  void Resource_Click(int index);
  int resourceIndex() const { return int(resources.indexOf(Resource)); }
  Colour back() const;
  Colour fore() const;
};

class BookingEditForm {
 public:
  explicit BookingEditForm(BookingContext& ctx);
  virtual ~BookingEditForm() = default;

  // The common inputs.
  QString Nom, Email, Remarque;
  qint16 HowMany = 1;
  QString InvNb;  // read-only; blank: no invoice
  int NomTag = 0;  // the state index, Couleur
  Colour NomBack = 0, NomFore = 0;
  std::array<BookingState, 6> Def_Cl;
  QString cmdGroupCaption;

  bool changed = false;   // asked about on leaving
  bool OpenGroup = false;  // the group dialog opens next

  // Hooks to the window.
  std::function<void()> close;     // unloads the dialog
  std::function<void()> focusNom;  // the focus to Nom
  std::function<void()> refresh;   // values changed under the widgets

  bool isClosed() const { return closed_; }
  bool invoiceEnabled() const { return ctx_.invoice != nullptr; }
  bool searchEnabled() const { return bool(ctx_.windows.Customer_From_Reservation); }
  bool blackListEnabled() const { return bool(ctx_.windows.M_BlackList); }
  bool putBlackListEnabled() const { return bool(ctx_.windows.BlackList_Add_Commun); }
  bool holesEnabled() const { return bool(ctx_.windows.Trous); }
  bool sendEmailEnabled() const { return bool(ctx_.windows.sendEmail); }

  // Edits of the inputs; each sets the changed flag.
  void setNom(const QString& text);
  void setEmail(const QString& text);
  void setHowMany(qint16 count);
  void setRemarque(const QString& text);

  void Def_Cl_Click(int index);
  // The customer list with Copy: a copied line fills Nom, Email, Remarque.
  void Search_Click();
  void BlackList_Click();
  void PutBlackList_Click();
  // Mail to the text of Email, as it stands: an empty one opens an empty message.
  void cmdSendEmail_Click();
  // Leaves without saving; the group dialog opens next.
  void cmdGroup_Click();
  virtual bool Modify_Click() = 0;
  // Leaves, after asking when something changed. True when the dialog is left.
  bool Annuler_Click();

 protected:
  // Form_Load's common part: fields, Nom's state and the group caption.
  void loadCommon();
  // The common inputs into the buffer: Nom_L, Color_L, Rem_L, Email_L,
  // HowMany_L, InvNb_L.
  void commonToBuffer();
  // False, after the error and the focus to Nom, when the name is blank.
  bool nameGiven();
  // Runs the writes of one command as one transaction; a refused write is
  // shown and leaves the dialog open with nothing written.
  bool write(const std::function<void()>& writes);
  // The booking's invoice, when it has one; called inside the write that
  // deletes the booking, so that one goes only with the other.
  void deleteInvoice();
  // Redraws the board and unloads.
  void done();
  void leave();
  void showRefresh();
  // The hand-over's part both dialogs share: the name in its state's
  // colours, the remark and the invoice number.
  InvoiceHandOver invoiceHandOverCommon() const;
  // The hole search over the dialog's dates and the board's range.
  TrousSearch holesSearch(int mode, QDate from, QDate to, const ResourceChoice& on) const;

  BookingContext& ctx_;
  bool closed_ = false;
};

}  // namespace ksv
