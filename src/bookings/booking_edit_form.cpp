#include "booking_edit_form.h"

#include "config/loaded_options.h"
#include "core/messages.h"
#include "core/texts.h"
#include "customers/customer_list.h"
#include "storage/sqlite_db.h"

namespace ksv {

void ResourceChoice::load(const Availability& availability, const LoadedOptions& options, const QString& resource) {
  categories = sixCategories(options);
  Category = availability.GetCategory(resource);
  // A resource no longer in the table lists nothing but stays the booking's.
  resources = Category < 0 ? QStringList() : availability.resourcesOf(Category);
  Resource = resource;
}

void ResourceChoice::Category_Click(const Availability& availability, int index) {
  if (index < 0 || index >= int(categories.size())) return;
  Category = index;
  resources = availability.resourcesOf(index);
  if (!resources.isEmpty() && !resources.contains(Resource)) Resource = resources.front();
}

void ResourceChoice::Resource_Click(int index) {
  if (index >= 0 && index < resources.size()) Resource = resources.at(index);
}

Colour ResourceChoice::back() const {
  return Category >= 0 && Category < int(categories.size()) ? categories[size_t(Category)].back : kWhite;
}

Colour ResourceChoice::fore() const {
  return Category >= 0 && Category < int(categories.size()) ? categories[size_t(Category)].fore : kBlack;
}

BookingEditForm::BookingEditForm(BookingContext& ctx) : ctx_(ctx) {}

void BookingEditForm::setNom(const QString& text) {
  Nom = text;
  changed = true;
}

void BookingEditForm::setEmail(const QString& text) {
  Email = text;
  changed = true;
}

void BookingEditForm::setHowMany(qint16 count) {
  HowMany = count;
  changed = true;
}

void BookingEditForm::setRemarque(const QString& text) {
  Remarque = text;
  changed = true;
}

void BookingEditForm::Def_Cl_Click(int index) {
  if (index < 0 || index >= int(Def_Cl.size())) return;
  NomBack = Def_Cl[size_t(index)].back;
  NomFore = Def_Cl[size_t(index)].fore;
  NomTag = index;
  changed = true;
  if (focusNom) focusNom();
}

void BookingEditForm::Search_Click() {
  if (!ctx_.windows.Customer_From_Reservation) return;
  CustomerCopyTarget target;
  ctx_.windows.Customer_From_Reservation(Nom, target, false);
  if (!target.Flg_Search) return;
  Nom = target.Nom;
  Email = target.Email;
  Remarque = target.Remarque;
  changed = true;
  showRefresh();
}

void BookingEditForm::BlackList_Click() {
  if (ctx_.windows.M_BlackList) ctx_.windows.M_BlackList();
}

void BookingEditForm::PutBlackList_Click() {
  if (ctx_.windows.BlackList_Add_Commun) ctx_.windows.BlackList_Add_Commun(Nom, Remarque);
}

void BookingEditForm::cmdSendEmail_Click() {
  if (ctx_.windows.sendEmail) ctx_.windows.sendEmail(Email);
}

void BookingEditForm::cmdGroup_Click() {
  OpenGroup = true;
  leave();
}

bool BookingEditForm::Annuler_Click() {
  if (closed_) return true;
  if (changed) {
    switch (ctx_.messages.askYesNoCancel(ctx_.texts.get(txt::ModifBeforeLeaving), MsgAnswer::Cancel)) {
      case MsgAnswer::Yes:
        return Modify_Click();
      case MsgAnswer::No:
        break;
      default:
        return false;
    }
  }
  leave();
  return true;
}

void BookingEditForm::loadCommon() {
  const BookingRecords& b = ctx_.records;
  Def_Cl = bookingStates(ctx_.options);
  cmdGroupCaption = ctx_.texts.get(b.GroupNb_L == 0 ? txt::ModifOpenAGroup : txt::ModifOpenTheGroup);
  Nom = b.Nom_L;
  Email = b.Email_L;
  HowMany = b.HowMany_L;
  Remarque = b.Rem_L;
  InvNb = b.InvNb_L;
  const int state = b.Color_L >= 0 && b.Color_L < int(Def_Cl.size()) ? b.Color_L : 0;
  NomBack = Def_Cl[size_t(state)].back;
  NomFore = Def_Cl[size_t(state)].fore;
  NomTag = b.Color_L;
  OpenGroup = false;
  closed_ = false;
}

void BookingEditForm::commonToBuffer() {
  BookingRecords& b = ctx_.records;
  b.Nom_L = Nom;
  b.Color_L = qint16(NomTag);
  b.Rem_L = Remarque;
  b.Email_L = Email;
  b.HowMany_L = HowMany;
  b.InvNb_L = InvNb;
}

bool BookingEditForm::nameGiven() {
  Nom = Nom.trimmed();
  return customerNameGiven(Nom, ctx_.messages, ctx_.texts, focusNom);
}

bool BookingEditForm::write(const std::function<void()>& writes) {
  try {
    JoinedTransaction transaction(ctx_.db);
    writes();
    transaction.commit();
    return true;
  } catch (const StorageError& e) {
    ctx_.messages.critical(QString::fromUtf8(e.what()));
    return false;
  }
}

void BookingEditForm::deleteInvoice() {
  if (!InvNb.trimmed().isEmpty() && ctx_.DeleteInvoice) ctx_.DeleteInvoice(InvNb);
}

void BookingEditForm::done() {
  if (ctx_.Dessiner_Ecran) ctx_.Dessiner_Ecran();
  leave();
}

void BookingEditForm::leave() {
  closed_ = true;
  if (close) close();
}

void BookingEditForm::showRefresh() {
  if (refresh) refresh();
}

InvoiceHandOver BookingEditForm::invoiceHandOverCommon() const {
  InvoiceHandOver h;
  h.Nom = Nom;
  const int state = ctx_.records.Color_L;
  const BookingState& colours = Def_Cl[size_t(state >= 0 && state < int(Def_Cl.size()) ? state : 0)];
  h.back = colours.back;
  h.fore = colours.fore;
  h.Remark = Remarque;
  h.InvNb = InvNb;
  return h;
}

TrousSearch BookingEditForm::holesSearch(int mode, QDate from, QDate to, const ResourceChoice& on) const {
  TrousSearch trous(ctx_.availability, ctx_.clock, ctx_.messages, ctx_.texts);
  trous.Mode = mode;
  trous.CalF = from;
  trous.CalT = to;
  trous.FirstDate = ctx_.FirstDate;
  trous.LastDate = ctx_.LastDate;
  trous.Category = on.Category;
  trous.Resource = on.Resource;
  return trous;
}

}  // namespace ksv
