#include "resource_dialog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "board_colors.h"
#include "core/texts.h"

namespace ksv {
namespace {

QString colours(Colour back, Colour fore) {
  return QStringLiteral("background: %1; color: %2;")
      .arg(bgrColor(int(back)).name(), bgrColor(int(fore)).name());
}

}  // namespace

ResourceDialog::ResourceDialog(ResourcePresenter& presenter, const Texts& texts, QWidget* parent)
    : QDialog(parent), p_(presenter) {
  setObjectName(QStringLiteral("Resource"));
  setWindowTitle(texts.get(txt::ResourceTitle));
  auto* layout = new QVBoxLayout(this);
  Res_Modif_ = new QLineEdit(p_.Res_Modif, this);
  Res_Modif_->setObjectName(QStringLiteral("Res_Modif"));
  Res_Modif_->setMaxLength(12);
  Res_Modif_->setReadOnly(p_.nameLocked());
  Res_Modif_->setCursorPosition(int(p_.Res_Modif.size()));
  layout->addWidget(Res_Modif_);
  auto* grid = new QGridLayout;
  for (int i = 0; i < 6; ++i) {
    const auto& c = p_.Category()[std::size_t(i)];
    auto* b = new QPushButton(c.caption, this);
    b->setObjectName(QStringLiteral("Category%1").arg(i));
    b->setStyleSheet(colours(c.back, c.fore));
    b->setAutoDefault(false);
    connect(b, &QPushButton::clicked, this, [this, i] {
      p_.Category_Click(i);
      paintName();
    });
    grid->addWidget(b, i / 3, i % 3);
  }
  layout->addLayout(grid);
  layout->addWidget(new QLabel(texts.get(txt::ResourceStarNote), this));
  auto* buttons = new QHBoxLayout;
  auto* ok = new QPushButton(p_.actionCaption(), this);
  ok->setObjectName(QStringLiteral("OK"));
  ok->setDefault(true);
  auto* cancel = new QPushButton(texts.get(txt::ButtonCancel), this);
  cancel->setObjectName(QStringLiteral("Cancel"));
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  layout->addLayout(buttons);
  paintName();

  const auto okClick = [this] {
    p_.Res_Modif = Res_Modif_->text();
    if (p_.OK_Click()) {
      accept();
    } else {
      Res_Modif_->setFocus();
    }
  };
  connect(ok, &QPushButton::clicked, this, okClick);
  connect(Res_Modif_, &QLineEdit::returnPressed, this, okClick);
  connect(cancel, &QPushButton::clicked, this, [this] {
    p_.Cancel_Click();
    reject();
  });
}

void ResourceDialog::paintName() { Res_Modif_->setStyleSheet(colours(p_.nameBack(), p_.nameFore())); }

void ResourceDialog::show(ResourcePresenter& presenter, const Texts& texts, QWidget* parent) {
  ResourceDialog(presenter, texts, parent).exec();
}

}  // namespace ksv
