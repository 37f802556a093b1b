#pragma once
// `CustomMerge`: what Unify does when a grouped remark is too long.

#include <optional>

#include <QDialog>

#include "customers/customer_ops.h"

class QPushButton;
class QRadioButton;

namespace ksv {

class Texts;

class CustomMergeDialog final : public QDialog {
  Q_OBJECT
 public:
  explicit CustomMergeDialog(const Texts& texts, QWidget* parent = nullptr);
  // The choice, or nothing when cancelled.
  static std::optional<MergeChoice> ask(const Texts& texts, QWidget* parent);
  MergeChoice choice() const;

  QRadioButton* Leave = nullptr;
  QRadioButton* Stopper = nullptr;
  QRadioButton* Cut = nullptr;
  QPushButton* OK = nullptr;
  QPushButton* Cancel = nullptr;
};

}  // namespace ksv
