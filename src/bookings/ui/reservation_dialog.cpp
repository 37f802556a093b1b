#include "reservation_dialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "board/ui/ecran_dialog.h"
#include "core/texts.h"

namespace ksv {

ReservationDialog::ReservationDialog(ReservationPresenter& presenter, BookingContext& ctx, QWidget* parent)
    : BookingEditDialog(presenter, parent), p_(presenter) {
  const Texts& texts = ctx.texts;
  const QStringList labels = texts.list(txt::ModifLabels, 11);
  setObjectName(QStringLiteral("Reservation"));
  setWindowTitle(texts.get(txt::ModifTitle));
  ScreenDescription screen;
  EcranDialog::readActualScreen(screen);

  auto* layout = new QHBoxLayout(this);
  auto* left = new QVBoxLayout;
  fields_ = new CustomerFields(p_, texts, this);
  left->addWidget(fields_);
  lists_ = new ResourceLists(
      p_.choice, QString(), [this](int i) { p_.Category_Click(i); }, [this](int i) { p_.Resource_Click(i); }, this);
  left->addWidget(new QLabel(labels.value(9) + QStringLiteral(" / ") + labels.value(10), this));
  left->addWidget(lists_);
  Bloc_ = new QCheckBox(labels.value(5), this);
  Bloc_->setObjectName(QStringLiteral("Bloc"));
  connect(Bloc_, &QCheckBox::toggled, this, [this](bool on) { p_.setBloc(on); });
  left->addWidget(Bloc_);
  layout->addLayout(left);

  auto* dates = new QGridLayout;
  FirstDate_ = new QLabel(this);
  FirstDate_->setObjectName(QStringLiteral("FirstDate"));
  LastDate_ = new QLabel(this);
  LastDate_->setObjectName(QStringLiteral("LastDate"));
  CalF_ = new CalendarBox(screen, texts, QStringLiteral("CalF"), [this](QDate d) {
    p_.CalF_DateClicked(d);
    showValues();
  }, this);
  CalT_ = new CalendarBox(screen, texts, QStringLiteral("CalT"), [this](QDate d) {
    p_.CalT_DateClicked(d);
    showValues();
  }, this);
  NB_Jour_ = new QLabel(this);
  NB_Jour_->setObjectName(QStringLiteral("NB_Jour"));
  dates->addWidget(new QLabel(labels.value(6), this), 0, 0);
  dates->addWidget(new QLabel(labels.value(7), this), 0, 1);
  dates->addWidget(CalF_, 1, 0);
  dates->addWidget(CalT_, 1, 1);
  dates->addWidget(FirstDate_, 2, 0);
  dates->addWidget(LastDate_, 2, 1);
  auto* days = new QHBoxLayout;
  days->addWidget(new QLabel(labels.value(8), this));
  days->addWidget(NB_Jour_);
  dates->addLayout(days, 3, 0, 1, 2);
  layout->addLayout(dates);

  auto* buttons = new QVBoxLayout;
  const auto add = [&](int caption, const char* name, std::function<void()> run, bool enabled = true) {
    return addCommand(buttons, texts.get(caption), name, std::move(run), enabled);
  };
  add(txt::ModifModify, "Modify", [this] { p_.Modify_Click(); })->setDefault(true);
  add(txt::ModifSplit, "Split", [this] { p_.Split_Click(); });
  add(txt::ModifDelete, "Supprimer", [this] { p_.Supprimer_Click(); });
  add(txt::ModifHoles, "Holes", [this] { p_.Holes_Click(); }, p_.holesEnabled());
  add(txt::ModifSearch, "Search", [this] { p_.Search_Click(); }, p_.searchEnabled());
  add(txt::ModifBlackList, "BlackList", [this] { p_.BlackList_Click(); }, p_.blackListEnabled());
  add(txt::ModifPutBlackList, "PutBlackList", [this] { p_.PutBlackList_Click(); }, p_.putBlackListEnabled());
  addCommand(buttons, sendEmailCaption(texts), "cmdSendEmail", [this] { p_.cmdSendEmail_Click(); },
             p_.sendEmailEnabled());
  addCommand(buttons, p_.cmdGroupCaption, "cmdGroup", [this] { p_.cmdGroup_Click(); });
  add(txt::ModifInvoice, "CdInvoice", [this] { p_.CdInvoice_Click(); }, p_.invoiceEnabled());
  add(txt::ModifCancel, "Annuler", [this] { p_.Annuler_Click(); });
  buttons->addStretch();
  layout->addLayout(buttons);

  bindForm(fields_);
}

void ReservationDialog::showValues() {
  fields_->showValues();
  lists_->showValues();
  {
    const QSignalBlocker block(Bloc_);
    Bloc_->setChecked(p_.Bloc);
  }
  CalF_->show(p_.CalF);
  CalT_->show(p_.CalT);
  NB_Jour_->setText(QString::number(p_.NB_Jour));
  FirstDate_->setText(dateLabel(p_.FirstDate));
  LastDate_->setText(dateLabel(p_.LastDate));
}

bool showReservation(BookingContext& ctx, QWidget* parent) {
  ReservationPresenter presenter(ctx);
  presenter.Form_Load();
  ReservationDialog dialog(presenter, ctx, parent);
  dialog.exec();
  return presenter.OpenGroup;
}

}  // namespace ksv
