#include "reservation_creer.h"

#include <algorithm>

#include <QFile>
#include <QFileInfo>

#include "config/cp1252.h"
#include "config/loaded_options.h"
#include "core/messages.h"
#include "core/number_text.h"
#include "core/paths.h"
#include "core/texts.h"
#include "customers/black_list.h"
#include "customers/customer_list.h"
#include "customers/customer_ops.h"
#include "storage/planning_session.h"
#include "storage/recordset.h"
#include "storage/sqlite_db.h"

namespace ksv {

namespace {

// The days a new booking lasts until the operator says otherwise.
constexpr int kProposedStay = 7;

// The remark template, read whole; an empty file gives an empty remark.
QString remarkTemplate(const QString& file) {
  QFile f(file);
  if (!f.open(QIODevice::ReadOnly)) return QString();
  return decodeIniText(f.readAll());
}

}  // namespace

ReservationCreerPresenter::ReservationCreerPresenter(BookingContext& ctx) : ctx_(ctx) {}

void ReservationCreerPresenter::Form_Load() {
  Def_Cl = bookingStates(ctx_.options);

  // A new booking starts in the first state.
  NomBack = Def_Cl[0].back;
  NomFore = Def_Cl[0].fore;
  NomTag = QStringLiteral("0");

  CalFLowest = ctx_.FirstDate;
  CalFHighest = ctx_.LastDate.addDays(-1);
  CalF = ctx_.records.DD_L;
  // A press on the board's last day still leaves room for one night.
  if (CalFHighest.isValid() && CalF > CalFHighest) CalF = CalFHighest;
  CalTLowest = ctx_.FirstDate.addDays(1);
  CalTHighest = ctx_.LastDate;
  CalT = CalF.addDays(kProposedStay);
  // The calendar holds no date past its range.
  if (CalTHighest.isValid() && CalT > CalTHighest) CalT = CalTHighest;
  NB_Jour = int(CalF.daysTo(CalT));

  ctx_.records.Split_L = QStringLiteral("0");
  ctx_.records.GroupId_L = QStringLiteral("C");
  recomputeGroupId();

  if (ctx_.options.WithFrame) {
    const QString file = ctx_.paths.remarksTemplate();
    if (QFileInfo::exists(file)) Remarque = QFileInfo(file).size() > 0 ? remarkTemplate(file) : QString();
  }

  Load_Combo();
  changed = false;
}

void ReservationCreerPresenter::Load_Combo() {
  categories = trousCategories(ctx_.options, ctx_.texts);
  const int category = ctx_.availability.GetCategory(ctx_.records.Res_L);
  // Select the pressed resource once its category's list is there.
  resources.clear();
  resourceIndex = -1;
  Category_Click(category + 1);
  const qsizetype at = resources.indexOf(ctx_.records.Res_L);
  if (at >= 0) Resource_Click(int(at));
}

void ReservationCreerPresenter::Def_Cl_Click(int Index) {
  if (Index < 0 || Index >= int(Def_Cl.size())) return;
  NomBack = Def_Cl[size_t(Index)].back;
  NomFore = Def_Cl[size_t(Index)].fore;
  NomTag = QString::number(Index);
  if (focusNom) focusNom();
  changed = true;
}

void ReservationCreerPresenter::CalF_DateClicked(QDate date) {
  CalF = date;
  NB_Jour = int(CalF.daysTo(CalT));
  recomputeAvailability();
  changed = true;
}

void ReservationCreerPresenter::CalT_DateClicked(QDate date) {
  CalT = date;
  NB_Jour = int(CalF.daysTo(CalT));
  recomputeAvailability();
  changed = true;
}

void ReservationCreerPresenter::Category_Click(int index) {
  if (index < 0 || index >= int(categories.size())) index = 0;
  categoryIndex = index;
  const QString kept = resource();
  resources = ctx_.availability.resourcesOf(index - 1);
  const qsizetype at = resources.indexOf(kept);
  resourceIndex = at >= 0 ? int(at) : (resources.isEmpty() ? -1 : 0);
  if (resource() != kept && !kept.isEmpty()) changed = true;
  listBack = categories[size_t(index)].back;
  listFore = categories[size_t(index)].fore;
  recomputeAvailability();
}

void ReservationCreerPresenter::Resource_Click(int index) {
  if (index < 0 || index >= resources.size()) return;
  resourceIndex = index;
  changed = true;
  setListColours(ctx_.availability.GetCategory(resource()));
}

void ReservationCreerPresenter::setListColours(int category) {
  // Index 0 of the list is "All categories", black on white.
  const size_t at = category >= 0 && category + 1 < int(categories.size()) ? size_t(category + 1) : 0;
  if (categories.empty()) return;
  listBack = categories[at].back;
  listFore = categories[at].fore;
}

void ReservationCreerPresenter::recomputeAvailability() {
  const int n = ctx_.availability.Available_Nb(CalF, CalT, categoryIndex - 1);
  if (n < 0) {
    NbAvailable = QStringLiteral("0");
    ctx_.messages.critical(ctx_.texts.get(txt::CalendarFromBeforeTo));
    return;
  }
  NbAvailable = QString::number(n);
}

void ReservationCreerPresenter::Nom_Change(const QString& text) {
  Nom = text;
  changed = true;
}

void ReservationCreerPresenter::Email_Change(const QString& text) {
  Email = text;
  changed = true;
}

void ReservationCreerPresenter::HowMany_Change(const QString& text) {
  HowMany = text;
  changed = true;
}

void ReservationCreerPresenter::Remarque_Change(const QString& text) {
  Remarque = text;
  changed = true;
}

void ReservationCreerPresenter::NbRequested_Change(const QString& text) {
  NbRequested = text;
  changed = true;
  recomputeGroupId();
}

void ReservationCreerPresenter::optCustomer_Click() {
  optAgent = false;
  changed = true;
  recomputeGroupId();
}

void ReservationCreerPresenter::optAgent_Click() {
  optAgent = true;
  changed = true;
  recomputeGroupId();
}

void ReservationCreerPresenter::recomputeGroupId() {
  if (optAgent)
    groupId_ = QStringLiteral("A");
  else
    groupId_ = NbRequested == QLatin1String("1") ? QStringLiteral("C") : QStringLiteral("L");
  ctx_.records.GroupId_L = groupId_;
}

void ReservationCreerPresenter::fromList(bool agents) {
  if (!ctx_.windows.Customer_From_Reservation) return;
  CustomerCopyTarget target{Nom, Email, Remarque, Flg_Search};
  ctx_.windows.Customer_From_Reservation(Nom, target, agents);
  if (!target.Flg_Search) return;
  Nom = target.Nom;
  Email = target.Email;
  Remarque = target.Remarque;
  Flg_Search = true;
  changed = true;
}

void ReservationCreerPresenter::CustomerList_Click() { fromList(false); }
void ReservationCreerPresenter::AgentList_Click() { fromList(true); }

void ReservationCreerPresenter::BlackList_Click() {
  if (ctx_.windows.M_BlackList) ctx_.windows.M_BlackList();
}

void ReservationCreerPresenter::Holes_Click() {
  if (!ctx_.windows.Trous) return;
  TrousSearch trous(ctx_.availability, ctx_.clock, ctx_.messages, ctx_.texts);
  trous.Mode = 1;
  trous.CalF = CalF;
  trous.CalT = CalT;
  trous.FirstDate = ctx_.FirstDate;
  trous.LastDate = ctx_.LastDate;
  trous.Category = categoryIndex - 1;
  trous.Resource = resource();
  const std::optional<HoleChoice> choice = ctx_.windows.Trous(trous);
  if (!choice || !choice->toBooking) return;
  Category_Click(choice->category + 1);
  const qsizetype at = resources.indexOf(choice->resource);
  if (at >= 0) Resource_Click(int(at));
}

void ReservationCreerPresenter::cmdSendEmail_Click() {
  if (sendEmailEnabled()) ctx_.windows.sendEmail(Email);
}

bool ReservationCreerPresenter::readDialog() {
  bool ok = false;
  const int persons = HowMany.trimmed().toInt(&ok);
  if (!ok || persons < -32768 || persons > 32767) {
    ctx_.messages.critical(ctx_.texts.get(txt::HowManyNotNumber));
    return false;
  }
  BookingRecords& b = ctx_.records;
  b.Nom_L = Nom;
  b.Color_L = qint16(NomTag.toInt());
  b.DD_L = CalF;
  b.DF_L = CalT;
  b.Email_L = Email;
  b.HowMany_L = qint16(persons);
  b.Rem_L = Remarque;
  b.InvNb_L = QString();
  b.Bloc_L = Bloc;
  return true;
}

void ReservationCreerPresenter::Create_Click() {
  Messages& m = ctx_.messages;
  const Texts& t = ctx_.texts;
  if (NB_Jour <= 0) {
    m.information(t.get(txt::CalendarFromBeforeTo));
    return;
  }
  // A blank typed after the name would slip past the black list and be stored.
  Nom = Nom.trimmed();
  if (!customerNameGiven(Nom, m, t, focusNom)) return;
  // One booking needs a resource: a category without resources leaves none.
  if (groupId_ == QLatin1String("C") && resource().trimmed().isEmpty()) {
    m.critical(t.get(txt::ResourceMustBeDefined));
    return;
  }
  // Compared as texts, as the operators have always had it: "10" does not
  // exceed "9".
  if (QString::compare(NbRequested, NbAvailable) > 0 &&
      !m.askYesNo(t.get(txt::RequestedExceedAvailable), MsgAnswer::Yes))
    return;
  if (Search_BlackList(ctx_.objects.BlackList, Nom, BL_Remark)) {
    const QString question = t.get(txt::BlackListRemark) + QStringLiteral("\r\n\r\n") + BL_Remark +
                             QStringLiteral("\r\n\r\n") + t.get(txt::BlackListCreateAnyway);
    // Enter must not book a listed guest.
    if (m.show(question, MsgButtons::YesNo, MsgIcon::Critical, MsgAnswer::No) != MsgAnswer::Yes) {
      close();
      return;
    }
  }
  if (!Flg_Search) {
    const QString query = optAgent ? kRQ_Agent : kRQ_Customer;
    if (Customer_Search(ctx_.customers(), Nom) &&
        m.askYesNo(t.get(customerSearchWarning(query)), MsgAnswer::Yes)) {
      fromList(optAgent);
      return;
    }
  }

  if (!readDialog()) return;
  BookingRecords& b = ctx_.records;
  b.Split_L = QStringLiteral("0");
  b.Res_L = resource();
  b.GroupNb_L = 0;
  recomputeGroupId();
  try {
    if (groupId_ == QLatin1String("C"))
      b.Creer_Reservation();
    else
      createGroup(Nom);
  } catch (const StorageError& e) {
    // Nothing of it was kept: the dialog stays open with what was typed, and
    // the board shows the file as it is.
    b.Nom_L = Nom;
    m.critical(QString::fromUtf8(e.what()));
    if (ctx_.Dessiner_Ecran) ctx_.Dessiner_Ecran();
    return;
  }

  if (ctx_.Dessiner_Ecran) ctx_.Dessiner_Ecran();
  close();
}

void ReservationCreerPresenter::createGroup(const QString& name) {
  BookingRecords& b = ctx_.records;
  // The header, its number and every member go in together or not at all.
  Transaction transaction(ctx_.db);

  b.Split_L = QStringLiteral("3");
  b.Res_L = QString();
  Recordset& info = ctx_.objects.DataBaseInfo;
  info.requery();
  info.moveFirst();
  const int next = info.field(QStringLiteral("MaxGroupNb")).toInt() + 1;
  b.GroupNb_L = qint16(next);
  info.setField(QStringLiteral("MaxGroupNb"), next);
  info.update();
  b.Creer_Reservation();

  b.Split_L = QStringLiteral("0");
  b.GroupId_L = QStringLiteral("C");
  const int available = int(val(NbAvailable));
  const int requested = int(val(NbRequested));
  const QStringList& free = ctx_.availability.Res_Free;
  auto member = [&](int number, int entry) {
    b.Nom_L = name + QLatin1Char('_') + QString::number(number);
    // When every resource of the list is free, the entry past them holds
    // nothing: the extra bookings then pile up on the last free one rather
    // than on a blank that no board would ever show.
    QString resource = free.value(entry);
    for (int k = entry; resource.trimmed().isEmpty() && k > 0;) resource = free.value(--k);
    b.Res_L = resource;
    b.Creer_Reservation();
  };
  int i = 0;
  bool allPlaced = false;
  for (; i <= available - 1; ++i) {
    member(i + 1, i);
    if (i == requested - 1) {
      allPlaced = true;
      break;
    }
  }
  // More wanted than free: the rest pile up on the entry just past the free ones.
  if (!allPlaced)
    for (int j = i; j <= requested - 1; ++j) member(j + 1, i);

  transaction.commit();
  Nom = name;
  b.Nom_L = name;
}

void ReservationCreerPresenter::CdExit_Click() {
  if (changed) {
    switch (ctx_.messages.askYesNoCancel(ctx_.texts.get(txt::CreateBeforeLeaving), MsgAnswer::Cancel)) {
      case MsgAnswer::Cancel:
        return;
      case MsgAnswer::Yes:
        Create_Click();
        return;
      default:
        break;
    }
  }
  close();
}

void ReservationCreerPresenter::close() {
  closed = true;
  if (unload) unload();
}

}  // namespace ksv
