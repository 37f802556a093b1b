#pragma once
// The box of a remark. A remark is stored with at most kMaxRemark characters,
// each line end taking two (CR LF): the box refuses what would pass that as it
// is typed or pasted, instead of the store cutting the end without a word.

#include <QPlainTextEdit>

namespace ksv {

class RemarkEdit final : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit RemarkEdit(QWidget* parent = nullptr);
  RemarkEdit(const QString& text, QWidget* parent = nullptr);

  // The length of an edited text once stored.
  static int storedLength(const QString& edited);
  // What may still be typed, counted as stored, the selection being replaced.
  int room() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;
};

}  // namespace ksv
