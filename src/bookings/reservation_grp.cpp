#include "reservation_grp.h"

#include <algorithm>

#include "booking_form.h"
#include "config/loaded_options.h"
#include "core/day_date.h"
#include "core/messages.h"
#include "core/number_text.h"
#include "core/texts.h"
#include "storage/planning_session.h"
#include "storage/query_command.h"
#include "storage/sqlite_db.h"

namespace ksv {

namespace {

QString textOf(const Recordset& r, const char* name) {
  const QVariant v = r.field(QString::fromLatin1(name));
  return v.isNull() ? QString() : v.toString();
}

QDate dateOf(const Recordset& r, const char* name) { return dayOf(r.field(QString::fromLatin1(name))); }

// A whole booking or a first part: what the members list shows.
bool listedMember(const QString& split) { return split < QLatin1String("2"); }

}  // namespace

QString possibleUserLine(const QString& nom, const QString& resource, QDate first, QDate last,
                         const Regional& regional) {
  return nom.leftJustified(25, QLatin1Char(' '), true) + resource.leftJustified(12, QLatin1Char(' '), true) +
         shortDateText(first, regional) + QStringLiteral(" - ") + shortDateText(last, regional);
}

ReservationGrpPresenter::ReservationGrpPresenter(BookingContext& ctx, const Regional& regional)
    : ctx_(ctx), regional_(regional) {}

ReservationGrpPresenter::~ReservationGrpPresenter() {
  header_.close();
  members_.close();
  possible_.close();
}

template <typename Command>
bool ReservationGrpPresenter::guarded(Command&& command) {
  try {
    command();
    return true;
  } catch (const StorageError& e) {
    // A refused value leaves its edit pending; the next move would try it again.
    for (Recordset* r : {&header_, &members_, &possible_, &ctx_.objects.Reservation, &ctx_.objects.DataBaseInfo})
      if (r->isOpen() && r->isEditing()) r->cancelUpdate();
    ctx_.messages.critical(QString::fromUtf8(e.what()));
    rereadAfterError();
    return false;
  }
}

void ReservationGrpPresenter::rereadAfterError() {
  // The transaction rolled back: the snapshots may hold what was not kept.
  // What the user typed in the header's fields stays for another try.
  try {
    openHeader();
    if (header_.recordCount() > 0) {
      optAgent = textOf(header_, "GroupId") == QLatin1String("A");
      fillMembers(customerIndex);
      fillPossible();
    }
  } catch (const StorageError&) {
    // The store is still refusing; the user has been told already.
  }
  keptName_.clear();
  if (refreshed) refreshed();
}

void ReservationGrpPresenter::Form_Activate() {
  BookingRecords& b = ctx_.records;
  const qint16 number = b.GroupNb_L;
  const bool wasNew = groupNew_;
  bool written = false;
  guarded([&] {
    JoinedTransaction transaction(ctx_.db);
    if (b.GroupNb_L != 0) {
      openHeader();
      // A number whose header row is gone, at any activation: the clicked
      // member carries it and a header is written again from that member.
      if (header_.recordCount() == 0) {
        b.MAJ_Reservation();
        newHeader();
      }
    } else {
      groupNew_ = true;
      // Numbers are never reused: the counter only grows.
      Recordset& info = ctx_.objects.DataBaseInfo;
      info.requery();
      info.moveFirst();
      const int next = info.field(QStringLiteral("MaxGroupNb")).toInt() + 1;
      info.setField(QStringLiteral("MaxGroupNb"), next);
      info.update();
      b.GroupNb_L = qint16(next);
      b.MAJ_Reservation();
      if (b.Split_L != QLatin1String("0"))
        groupOtherPart(b.Nom_L, b.Color_L, b.GroupId_L, b.Split_L, b.DD_L, b.DF_L);
      newHeader();
    }
    transaction.commit();
    written = true;
    if (header_.recordCount() == 0) return;

    fillFromHeader();
    fillMembers(0);
    setBounds();
    fillPossible();
    firstActivation_ = false;
    if (refreshed) refreshed();
  });
  // Nothing was kept: the buffer goes back to the number it came with.
  if (!written) {
    b.GroupNb_L = number;
    groupNew_ = wasNew;
  }
}

void ReservationGrpPresenter::openHeader() {
  QueryCommand command = QueryCatalogue(ctx_.db, ctx_.clock).command(QStringLiteral("RQ_GroupResponsible"));
  command.setParameter(0, ctx_.records.GroupNb_L);
  header_ = command.openRecordset();
  if (header_.recordCount() > 0) header_.moveFirst();
}

void ReservationGrpPresenter::newHeader() {
  BookingRecords& b = ctx_.records;
  // The header copies the clicked booking; the buffer goes back to that
  // booking afterwards, so that whoever opened the dialog still holds it.
  const BookingBuffer clicked = b;
  b.Split_L = QStringLiteral("3");
  b.GroupId_L = QStringLiteral("L");
  b.Res_L.clear();
  // The member's invoice stays the member's: dissolving a fresh group must
  // not take that invoice away with the header.
  b.InvNb_L.clear();
  b.Creer_Reservation();
  static_cast<BookingBuffer&>(b) = clicked;
  openHeader();
}

void ReservationGrpPresenter::fillFromHeader() {
  const Recordset& h = header_;
  Nom = textOf(h, "Nom");
  Email = textOf(h, "Email");
  HowMany = qint16(h.field(QStringLiteral("HowMany")).toInt());
  Remarque = textOf(h, "Remarque");
  InvNb = textOf(h, "InvNb");
  nomTag = std::clamp(h.field(QStringLiteral("Couleur")).toInt(), 0, 5);
  const auto states = bookingStates(ctx_.options);
  nomBack = states[std::size_t(nomTag)].back;
  nomFore = states[std::size_t(nomTag)].fore;
  Bloc = h.field(QStringLiteral("Blocage")).toBool();
  optAgent = textOf(h, "GroupId") == QLatin1String("A");
  if (firstActivation_) {
    CalF = dateOf(h, "Date_Deb");
    CalT = dateOf(h, "Date_Fin");
  }
}

void ReservationGrpPresenter::fillMembers(int select) {
  QueryCommand command = QueryCatalogue(ctx_.db, ctx_.clock).command(QStringLiteral("RQ_GroupUsers"));
  command.setParameter(0, ctx_.records.GroupNb_L);
  members_ = command.openRecordset();
  Customer.clear();
  memberRow_.clear();
  for (members_.moveFirst(); !members_.isEOF(); members_.moveNext()) {
    if (!listedMember(textOf(members_, "Split"))) continue;
    Customer << textOf(members_, "Nom");
    memberRow_.push_back(members_.absolutePosition());
  }
  NbRequested = int(Customer.size());
  customerIndex = -1;
  if (!Customer.isEmpty()) {
    Customer_Click(std::clamp(select, 0, int(Customer.size()) - 1));
  } else {
    Resource.clear();
    Remark.clear();
    DtFrom = DtTo = QDate();
    Days = 0;
    resourceBack = kWhite;
    resourceFore = kBlack;
    customerBack = kWhite;
    customerFore = kBlack;
    hasPart2 = false;
    ResourceS.clear();
    DtFromS = DtToS = QDate();
    DaysS = 0;
    resourceSBack = kWhite;
    resourceSFore = kBlack;
    part2Row_ = 0;
  }
}

void ReservationGrpPresenter::setBounds() {
  // As for one booking: a group older than the board's first date stays editable.
  const QDate lowest = std::min(ctx_.FirstDate, CalF);
  FirstDateLabel = lowest;
  CalFLowest = lowest;
  CalFHighest = ctx_.LastDate.addDays(-1);
  CalTLowest = lowest.addDays(1);
  CalTHighest = ctx_.LastDate;
  NB_Jour = int(CalF.daysTo(CalT));
}

void ReservationGrpPresenter::fillPossible() {
  QueryCommand command = QueryCatalogue(ctx_.db, ctx_.clock).command(QStringLiteral("RQ_PossibleUsers"));
  command.setParameter(0, CalF);
  command.setParameter(1, CalT);
  possible_ = command.openRecordset();
  cboPossible.clear();
  for (possible_.moveFirst(); !possible_.isEOF(); possible_.moveNext())
    cboPossible << possibleUserLine(textOf(possible_, "Nom"), textOf(possible_, "Resource"),
                                    dateOf(possible_, "Date_Deb"), dateOf(possible_, "Date_Fin"), regional_);
  possibleIndex = cboPossible.isEmpty() ? -1 : 0;
}

void ReservationGrpPresenter::groupOtherPart(const QString& nom, int couleur, const QString& groupId,
                                             const QString& split, QDate first, QDate last) {
  Recordset& t = ctx_.objects.Reservation;  // R_TB
  t.requery();
  for (t.moveFirst(); !t.isEOF(); t.moveNext()) {
    if (textOf(t, "Nom") != nom || t.field(QStringLiteral("Couleur")).toInt() != couleur ||
        textOf(t, "GroupId") != groupId)
      continue;
    const QString other = textOf(t, "Split");
    // The parts touch: a first part leaves on the day the second arrives.
    const bool firstPart = other == QLatin1String("1") && dateOf(t, "Date_Fin") == first;
    const bool secondPart = other == QLatin1String("2") && dateOf(t, "Date_Deb") == last;
    if ((firstPart && split != QLatin1String("1")) || (secondPart && split != QLatin1String("2"))) {
      t.setField(QStringLiteral("GroupNb"), ctx_.records.GroupNb_L);
      t.update();
      return;
    }
  }
  ctx_.messages.exclamation(ctx_.texts.get(txt::SplitPartLost));
}

void ReservationGrpPresenter::Def_Cl_Click(int index) {
  nomTag = std::clamp(index, 0, 5);
  const auto states = bookingStates(ctx_.options);
  nomBack = states[std::size_t(nomTag)].back;
  nomFore = states[std::size_t(nomTag)].fore;
  changed_ = true;
}

void ReservationGrpPresenter::optCustomer_Click() {
  optAgent = false;
  if (header_.recordCount() == 0) return;
  guarded([&] {
    header_.setField(QStringLiteral("GroupId"), QStringLiteral("L"));
    header_.update();
  });
}

void ReservationGrpPresenter::optAgent_Click() {
  optAgent = true;
  if (header_.recordCount() == 0) return;
  guarded([&] {
    header_.setField(QStringLiteral("GroupId"), QStringLiteral("A"));
    header_.update();
  });
}

void ReservationGrpPresenter::CalF_DateClicked(QDate date) {
  CalF = date;
  changed_ = true;
  NB_Jour = int(CalF.daysTo(CalT));
  Form_Activate();
}

void ReservationGrpPresenter::CalT_DateClicked(QDate date) {
  CalT = date;
  changed_ = true;
  NB_Jour = int(CalF.daysTo(CalT));
  Form_Activate();
}

bool ReservationGrpPresenter::ModifyGroup_Click(bool silent) {
  Messages& m = ctx_.messages;
  const Texts& t = ctx_.texts;
  if (NB_Jour <= 0) {
    m.information(t.get(txt::CalendarFromBeforeTo));
    return false;
  }
  Nom = Nom.trimmed();
  if (Nom.isEmpty()) {
    m.critical(t.get(txt::CustomerNameEmpty));
    if (focusNom) focusNom();
    return false;
  }
  if (header_.recordCount() == 0) return false;

  const bool written = guarded([&] {
    members_.requery();
    bool disagree = false;
    for (members_.moveFirst(); !members_.isEOF() && !disagree; members_.moveNext()) {
      const QString split = textOf(members_, "Split");
      const QDate first = dateOf(members_, "Date_Deb"), last = dateOf(members_, "Date_Fin");
      disagree = (split == QLatin1String("0") && (first != CalF || last != CalT)) ||
                 (split == QLatin1String("1") && first != CalF) || (split == QLatin1String("2") && last != CalT);
    }
    const bool moveDates = !disagree || m.askYesNo(t.get(txt::GrpDatesDiffer), MsgAnswer::No);

    Transaction transaction(ctx_.db);
    // The header keeps the dates it was created with.
    header_.setField(QStringLiteral("Nom"), Nom);
    header_.setField(QStringLiteral("Couleur"), nomTag);
    header_.setField(QStringLiteral("HowMany"), HowMany);
    header_.setField(QStringLiteral("Remarque"), Remarque);
    header_.setField(QStringLiteral("Email"), Email);
    if (!InvNb.trimmed().isEmpty()) header_.setField(QStringLiteral("InvNb"), val(InvNb));
    header_.update();

    for (members_.moveFirst(); !members_.isEOF(); members_.moveNext()) {
      const QString split = textOf(members_, "Split");
      if (moveDates) {
        // A part cannot be stretched over its partner: its cut day stays.
        const bool stuck = (split == QLatin1String("1") && CalF >= dateOf(members_, "Date_Fin")) ||
                           (split == QLatin1String("2") && dateOf(members_, "Date_Deb") >= CalT);
        if (stuck) {
          m.exclamation(t.get(txt::GrpSplitDatesKept));
        } else {
          if (split == QLatin1String("0") || split == QLatin1String("1"))
            members_.setField(QStringLiteral("Date_Deb"), CalF);
          if (split == QLatin1String("0") || split == QLatin1String("2"))
            members_.setField(QStringLiteral("Date_Fin"), CalT);
        }
      }
      members_.setField(QStringLiteral("Couleur"), nomTag);
      members_.setField(QStringLiteral("Blocage"), Bloc);
      members_.update();
    }
    transaction.commit();
  });
  if (!written) return false;
  changed_ = false;
  if (!silent) redrawAndClose();
  return true;
}

void ReservationGrpPresenter::deleteInvoice(const QString& invNb) {
  if (!ctx_.DeleteInvoice || invNb.trimmed().isEmpty()) return;
  // Both parts of a split booking carry one invoice: it goes once.
  if (std::find(deletedInvoices_.begin(), deletedInvoices_.end(), invNb) != deletedInvoices_.end()) return;
  deletedInvoices_.push_back(invNb);
  ctx_.DeleteInvoice(invNb);
}

bool ReservationGrpPresenter::DeleteGroup_Click() {
  if (!ctx_.messages.askYesNo(ctx_.texts.get(txt::GrpDeleteQuestion), MsgAnswer::No, MsgIcon::Critical))
    return false;
  if (!guarded([this] { deleteGroup(); })) return false;
  redrawAndClose();
  return true;
}

void ReservationGrpPresenter::deleteGroup() {
  members_.requery();
  // The invoices go in the same write: a refused row keeps them all.
  deletedInvoices_.clear();
  Transaction transaction(ctx_.db);
  if (header_.recordCount() > 0) deleteInvoice(textOf(header_, "InvNb"));
  for (members_.moveFirst(); !members_.isEOF(); members_.moveNext()) deleteInvoice(textOf(members_, "InvNb"));
  if (header_.recordCount() > 0) header_.deleteRecord();
  for (members_.moveFirst(); !members_.isEOF(); members_.moveNext()) members_.deleteRecord();
  transaction.commit();
}

bool ReservationGrpPresenter::SplitGroup_Click(bool silent) {
  if (!silent &&
      !ctx_.messages.askYesNo(ctx_.texts.get(txt::GrpSplitQuestion), MsgAnswer::No, MsgIcon::Critical))
    return false;
  if (!guarded([this] { splitGroup(); })) return false;
  if (!silent) redrawAndClose();
  return true;
}

void ReservationGrpPresenter::splitGroup() {
  // Only the group's own invoice goes; the members keep theirs.
  members_.requery();
  deletedInvoices_.clear();
  Transaction transaction(ctx_.db);
  if (header_.recordCount() > 0) deleteInvoice(textOf(header_, "InvNb"));
  if (header_.recordCount() > 0) header_.deleteRecord();
  for (members_.moveFirst(); !members_.isEOF(); members_.moveNext()) {
    members_.setField(QStringLiteral("GroupNb"), 0);
    members_.update();
  }
  transaction.commit();
}

void ReservationGrpPresenter::cmdAdd_Click() {
  membership_ = true;
  if (cboPossible.isEmpty() || possibleIndex < 0 || possibleIndex >= int(cboPossible.size())) return;
  const bool written = guarded([&] {
    possible_.setAbsolutePosition(possibleIndex + 1);
    const QString split = textOf(possible_, "Split");
    const QString nom = textOf(possible_, "Nom"), groupId = textOf(possible_, "GroupId");
    const int couleur = possible_.field(QStringLiteral("Couleur")).toInt();
    const QDate first = dateOf(possible_, "Date_Deb"), last = dateOf(possible_, "Date_Fin");
    Transaction transaction(ctx_.db);
    possible_.setField(QStringLiteral("GroupNb"), ctx_.records.GroupNb_L);
    possible_.update();
    if (split != QLatin1String("0")) groupOtherPart(nom, couleur, groupId, split, first, last);
    transaction.commit();
  });
  if (written) Form_Activate();
}

int ReservationGrpPresenter::partTwoOf(const QString& nom, QDate dtTo) {
  for (members_.moveFirst(); !members_.isEOF(); members_.moveNext())
    if (textOf(members_, "Nom") == nom && textOf(members_, "Split") == QLatin1String("2") &&
        dateOf(members_, "Date_Deb") == dtTo)
      return members_.absolutePosition();
  return 0;
}

void ReservationGrpPresenter::cmdRemove_Click() {
  membership_ = true;
  if (customerIndex < 0 || customerIndex >= int(memberRow_.size())) return;
  const bool written = guarded([&] {
    members_.setAbsolutePosition(memberRow_[std::size_t(customerIndex)]);
    const QString split = textOf(members_, "Split"), nom = textOf(members_, "Nom");
    const QDate last = dateOf(members_, "Date_Fin");
    Transaction transaction(ctx_.db);
    members_.setField(QStringLiteral("GroupNb"), 0);
    members_.update();
    if (split != QLatin1String("0")) {
      if (const int second = partTwoOf(nom, last)) {
        members_.setAbsolutePosition(second);
        members_.setField(QStringLiteral("GroupNb"), 0);
        members_.update();
      }
    }
    transaction.commit();
  });
  if (written) Form_Activate();
}

void ReservationGrpPresenter::Customer_Click(int index) {
  if (index < 0 || index >= int(memberRow_.size())) return;
  customerIndex = index;
  members_.setAbsolutePosition(memberRow_[std::size_t(index)]);
  const auto states = bookingStates(ctx_.options);
  const int state = std::clamp(members_.field(QStringLiteral("Couleur")).toInt(), 0, 5);
  customerBack = states[std::size_t(state)].back;
  customerFore = states[std::size_t(state)].fore;
  const QString nom = textOf(members_, "Nom");
  const QString split = textOf(members_, "Split");
  DtFrom = dateOf(members_, "Date_Deb");
  DtTo = dateOf(members_, "Date_Fin");
  Days = int(DtFrom.daysTo(DtTo));
  Resource = textOf(members_, "Resource");
  Remark = textOf(members_, "Remarque");

  const auto categoryColours = [this](const QString& resource, Colour& back, Colour& fore) {
    const int category = ctx_.availability.GetCategory(resource);
    back = category >= 0 ? ctx_.options.CategoryBack[std::size_t(category)] : kWhite;
    fore = category >= 0 ? ctx_.options.CategoryFore[std::size_t(category)] : kBlack;
  };
  categoryColours(Resource, resourceBack, resourceFore);

  part2Row_ = split == QLatin1String("1") ? partTwoOf(nom, DtTo) : 0;
  hasPart2 = part2Row_ != 0;
  if (hasPart2) {
    members_.setAbsolutePosition(part2Row_);
    ResourceS = textOf(members_, "Resource");
    DtFromS = dateOf(members_, "Date_Deb");
    DtToS = dateOf(members_, "Date_Fin");
    DaysS = int(DtFromS.daysTo(DtToS));
    categoryColours(ResourceS, resourceSBack, resourceSFore);
  } else {
    ResourceS.clear();
    DtFromS = DtToS = QDate();
    DaysS = 0;
    resourceSBack = kWhite;
    resourceSFore = kBlack;
  }
}

void ReservationGrpPresenter::writeMemberText(const char* column, const QString& text) {
  if (customerIndex < 0 || customerIndex >= int(memberRow_.size())) return;
  const QString name = QString::fromLatin1(column);
  members_.setAbsolutePosition(memberRow_[std::size_t(customerIndex)]);
  const QString split = textOf(members_, "Split");
  Transaction transaction(ctx_.db);
  if (listedMember(split)) {
    members_.setField(name, text);
    members_.update();
  }
  // Both parts of a split booking keep one name, or they lose each other.
  if (split != QLatin1String("0") && part2Row_ != 0) {
    members_.setAbsolutePosition(part2Row_);
    members_.setField(name, text);
    members_.update();
  }
  transaction.commit();
}

void ReservationGrpPresenter::Customer_LostFocus() {
  if (keptName_.isEmpty() || customerIndex < 0) return;
  const int selected = customerIndex;
  const QString name = keptName_;
  keptName_.clear();
  if (!guarded([&] { writeMemberText("Nom", name); })) return;
  fillMembers(selected);
  if (refreshed) refreshed();
}

void ReservationGrpPresenter::Remark_LostFocus() {
  if (Remark.isEmpty() || customerIndex < 0) return;
  const int selected = customerIndex;
  if (!guarded([&] { writeMemberText("Remarque", Remark.left(250)); })) return;
  fillMembers(selected);
  if (refreshed) refreshed();
}

void ReservationGrpPresenter::CdInvoice_Click() {
  if (!ctx_.invoice) return;
  InvoiceHandOver h;
  h.Nom = Nom;
  h.back = nomBack;
  h.fore = nomFore;
  h.InvNb = InvNb;
  h.GrpDtFrom = CalF;
  h.GrpDtTo = CalT;
  h.GroupNb = ctx_.records.GroupNb_L;
  ctx_.invoice->show(h);
  // Saving the invoice writes its number on the header.
  openHeader();
  if (header_.recordCount() > 0) InvNb = textOf(header_, "InvNb");
  if (refreshed) refreshed();
}

bool ReservationGrpPresenter::CmdExit_Click() {
  Messages& m = ctx_.messages;
  bool dissolved = false;
  if (groupNew_ && !membership_) {
    const MsgAnswer a = m.askYesNoCancel(ctx_.texts.get(txt::GrpCreatedKeep), MsgAnswer::Cancel);
    if (a == MsgAnswer::Cancel) return false;
    if (a == MsgAnswer::No) {
      // A refused dissolution keeps the dialog open.
      if (!SplitGroup_Click(true)) return false;
      dissolved = true;
    }
  }
  // A group just dissolved has nothing left to modify.
  if (changed_ && !dissolved) {
    const MsgAnswer a = m.askYesNoCancel(ctx_.texts.get(txt::GrpModifyBeforeLeaving), MsgAnswer::Cancel);
    if (a == MsgAnswer::Cancel) return false;
    // A refused edit keeps the dialog open, so that nothing typed is lost.
    if (a == MsgAnswer::Yes && !ModifyGroup_Click(true)) return false;
  }
  redrawAndClose();
  return true;
}

void ReservationGrpPresenter::redrawAndClose() {
  if (ctx_.Dessiner_Ecran) ctx_.Dessiner_Ecran();
  if (close) close();
}

}  // namespace ksv
