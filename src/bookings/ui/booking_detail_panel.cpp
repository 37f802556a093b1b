#include "booking_detail_panel.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "booking_widgets.h"
#include "core/texts.h"
#include "customers/ui/remark_text.h"

namespace ksv {
namespace {

QLineEdit* readOnly(QWidget* parent, const char* name) {
  auto* e = new QLineEdit(parent);
  e->setObjectName(QString::fromLatin1(name));
  e->setReadOnly(true);
  return e;
}

}  // namespace

BookingDetailPanel::BookingDetailPanel(const Texts& texts, bool canWrite, QWidget* parent) : QWidget(parent) {
  const QStringList labels = texts.list(txt::DetailLabels, 9);
  auto* form = new QFormLayout(this);
  setMinimumWidth(300);
  Resource_ = readOnly(this, "Resource");
  Dt_Deb_ = readOnly(this, "Dt_Deb");
  Dt_Fin_ = readOnly(this, "Dt_Fin");
  NB_Jour_ = readOnly(this, "NB_Jour");
  Nom_ = readOnly(this, "Nom");
  HowMany_ = readOnly(this, "HowMany");
  Email_ = readOnly(this, "Email");
  Remarque_ = new QPlainTextEdit(this);
  Remarque_->setObjectName(QStringLiteral("Remarque"));
  Remarque_->setReadOnly(!canWrite);
  Remarque_->setMinimumHeight(90);
  Remarque_->installEventFilter(this);
  connect(Remarque_, &QPlainTextEdit::textChanged, this, [this] { changed_ = true; });
  Lib_Alarm_ = new QLabel(this);
  Lib_Alarm_->setObjectName(QStringLiteral("Lib_Alarm"));
  Lib_Alarm_->setAlignment(Qt::AlignCenter);
  Lib_Alarm_->setMinimumHeight(22);
  Split_ = new QCheckBox(this);
  Split_->setObjectName(QStringLiteral("Split"));
  Split_->setEnabled(false);
  Lib_split_ = new QLabel(labels[8], this);
  Lib_split_->setObjectName(QStringLiteral("Lib_split"));
  auto* split = new QWidget(this);
  auto* splitRow = new QHBoxLayout(split);
  splitRow->setContentsMargins(0, 0, 0, 0);
  splitRow->addWidget(Split_);
  splitRow->addWidget(Lib_split_);
  splitRow->addStretch();

  form->addRow(labels[0], Resource_);
  form->addRow(labels[1], Dt_Deb_);
  form->addRow(labels[2], Dt_Fin_);
  form->addRow(labels[3], NB_Jour_);
  form->addRow(labels[4], Nom_);
  form->addRow(labels[5], HowMany_);
  form->addRow(labels[6], Email_);
  form->addRow(QString(), Lib_Alarm_);
  form->addRow(QString(), split);
  form->addRow(labels[7], Remarque_);
}

void BookingDetailPanel::show(const std::optional<BookingDetail>& d, const QString& dateFormat) {
  const BookingDetail none;
  const BookingDetail& b = d ? *d : none;
  Resource_->setText(b.Resource);
  Dt_Deb_->setText(b.Dt_Deb.toString(dateFormat));
  Dt_Fin_->setText(b.Dt_Fin.toString(dateFormat));
  NB_Jour_->setText(d ? QString::number(b.NB_Jour) : QString());
  Nom_->setText(b.Nom);
  HowMany_->setText(d ? QString::number(b.HowMany) : QString());
  Email_->setText(b.Email);
  Remarque_->setPlainText(remarkForEdit(b.Remarque));
  Remarque_->setEnabled(d.has_value());
  changed_ = false;
  Lib_Alarm_->setText(b.Lib_Alarm);
  Lib_Alarm_->setStyleSheet(d ? colourStyle(b.back, b.fore) : QString());
  Lib_Alarm_->setVisible(d.has_value());
  Split_->setChecked(b.Split);
  Split_->setVisible(b.Split);
  Lib_split_->setVisible(b.Split);
}

QString BookingDetailPanel::email() const { return Email_->text(); }

bool BookingDetailPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == Remarque_ && event->type() == QEvent::FocusOut && changed_) {
    changed_ = false;
    if (remarkLeft) remarkLeft(remarkFromEdit(Remarque_->toPlainText()));
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace ksv
