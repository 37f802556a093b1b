#include "reservation_split_dialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "board/ui/ecran_dialog.h"
#include "core/texts.h"

namespace ksv {

ReservationSplitDialog::ReservationSplitDialog(ReservationSplitPresenter& presenter, BookingContext& ctx,
                                               QWidget* parent)
    : BookingEditDialog(presenter, parent), p_(presenter) {
  const Texts& texts = ctx.texts;
  const QStringList labels = texts.list(txt::ModifLabels, 11);
  const QStringList partLabels = texts.list(txt::ModifSplitLabels, 3);
  setObjectName(QStringLiteral("ReservationSplit"));
  setWindowTitle(texts.get(txt::ModifSplitTitle));
  ScreenDescription screen;
  EcranDialog::readActualScreen(screen);

  auto* layout = new QHBoxLayout(this);
  auto* left = new QVBoxLayout;
  fields_ = new CustomerFields(p_, texts, this);
  left->addWidget(fields_);
  for (int part = 0; part < 2; ++part) {
    left->addWidget(new QLabel(partLabels.value(part), this));
    lists_[size_t(part)] = new ResourceLists(
        p_.parts[size_t(part)], QString::number(part), [this, part](int i) { p_.Category_Click(part, i); },
        [this, part](int i) { p_.Resource_Click(part, i); }, this);
    left->addWidget(lists_[size_t(part)]);
    auto* bloc = new QCheckBox(labels.value(5), this);
    bloc->setObjectName(QStringLiteral("Bloc%1").arg(part));
    connect(bloc, &QCheckBox::toggled, this, [this, part](bool on) { p_.setBloc(part, on); });
    Bloc_[size_t(part)] = bloc;
    left->addWidget(bloc);
  }
  layout->addLayout(left);

  auto* dates = new QGridLayout;
  const auto calendar = [&](const char* name, void (ReservationSplitPresenter::*clicked)(QDate)) {
    return new CalendarBox(screen, texts, QString::fromLatin1(name), [this, clicked](QDate d) {
      (p_.*clicked)(d);
      showValues();
    }, this);
  };
  CalF_ = calendar("CalF", &ReservationSplitPresenter::CalF_DateClicked);
  CalS_ = calendar("CalS", &ReservationSplitPresenter::CalS_DateClicked);
  CalT_ = calendar("CalT", &ReservationSplitPresenter::CalT_DateClicked);
  NB_Jour1_ = new QLabel(this);
  NB_Jour1_->setObjectName(QStringLiteral("NB_Jour1"));
  NB_Jour2_ = new QLabel(this);
  NB_Jour2_->setObjectName(QStringLiteral("NB_Jour2"));
  FirstDate_ = new QLabel(this);
  FirstDate_->setObjectName(QStringLiteral("FirstDate"));
  LastDate_ = new QLabel(this);
  LastDate_->setObjectName(QStringLiteral("LastDate"));
  dates->addWidget(new QLabel(labels.value(6), this), 0, 0);
  dates->addWidget(new QLabel(partLabels.value(2), this), 0, 1);
  dates->addWidget(new QLabel(labels.value(7), this), 0, 2);
  dates->addWidget(CalF_, 1, 0);
  dates->addWidget(CalS_, 1, 1);
  dates->addWidget(CalT_, 1, 2);
  dates->addWidget(FirstDate_, 2, 0);
  dates->addWidget(LastDate_, 2, 2);
  dates->addWidget(new QLabel(labels.value(8), this), 3, 0);
  dates->addWidget(NB_Jour1_, 3, 1);
  dates->addWidget(NB_Jour2_, 3, 2);
  layout->addLayout(dates);

  auto* buttons = new QVBoxLayout;
  const auto add = [&](const QString& caption, const char* name, std::function<void()> run, bool enabled = true) {
    return addCommand(buttons, caption, name, std::move(run), enabled);
  };
  add(texts.get(txt::ModifModify), "Modify", [this] { p_.Modify_Click(); })->setDefault(true);
  add(texts.get(txt::ModifMerge), "Merge", [this] { p_.Merge_Click(); });
  add(texts.get(txt::ModifDelete), "Supprimer", [this] { p_.Supprimer_Click(); });
  add(texts.get(txt::ModifHoles1), "Holes1", [this] { p_.Holes1_Click(); }, p_.holesEnabled());
  add(texts.get(txt::ModifHoles2), "Holes2", [this] { p_.Holes2_Click(); }, p_.holesEnabled());
  add(texts.get(txt::ModifHoles), "Holes", [this] { p_.Holes_Click(); }, p_.holesEnabled());
  add(texts.get(txt::ModifSearch), "Search", [this] { p_.Search_Click(); }, p_.searchEnabled());
  add(texts.get(txt::ModifBlackList), "BlackList", [this] { p_.BlackList_Click(); }, p_.blackListEnabled());
  add(texts.get(txt::ModifPutBlackList), "PutBlackList", [this] { p_.PutBlackList_Click(); },
      p_.putBlackListEnabled());
  add(sendEmailCaption(texts), "cmdSendEmail", [this] { p_.cmdSendEmail_Click(); }, p_.sendEmailEnabled());
  add(p_.cmdGroupCaption, "cmdGroup", [this] { p_.cmdGroup_Click(); });
  add(texts.get(txt::ModifInvoice), "CdInvoice", [this] { p_.CdInvoice_Click(); }, p_.invoiceEnabled());
  add(texts.get(txt::ModifCancel), "Annuler", [this] { p_.Annuler_Click(); });
  buttons->addStretch();
  layout->addLayout(buttons);

  bindForm(fields_);
}

void ReservationSplitDialog::showValues() {
  fields_->showValues();
  for (size_t part = 0; part < 2; ++part) {
    lists_[part]->showValues();
    const QSignalBlocker block(Bloc_[part]);
    Bloc_[part]->setChecked(p_.Bloc[part]);
  }
  CalF_->show(p_.CalF);
  CalS_->show(p_.CalS);
  CalT_->show(p_.CalT);
  NB_Jour1_->setText(QString::number(p_.NB_Jour1));
  NB_Jour2_->setText(QString::number(p_.NB_Jour2));
  FirstDate_->setText(dateLabel(p_.FirstDate));
  LastDate_->setText(dateLabel(p_.LastDate));
}

bool showReservationSplit(BookingContext& ctx, QWidget* parent) {
  ReservationSplitPresenter presenter(ctx);
  presenter.Form_Load();
  ReservationSplitDialog dialog(presenter, ctx, parent);
  dialog.exec();
  return presenter.OpenGroup;
}

}  // namespace ksv
