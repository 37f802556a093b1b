#pragma once
// Every question and message the user sees passes through here: the program
// shows message boxes titled with the product name, tests answer from a script.

#include <optional>
#include <vector>

#include <QString>

namespace ksv {

enum class MsgIcon { None, Critical, Question, Exclamation, Information };
enum class MsgButtons { Ok, OkCancel, YesNo, YesNoCancel, CancelTryContinue };
enum class MsgAnswer { Ok, Cancel, Yes, No, TryAgain, Continue };

// The buttons of a set, in the order they stand in the box.
std::vector<MsgAnswer> answersOf(MsgButtons buttons);
// The text-table entry that captions a button.
int buttonCaption(MsgAnswer answer);

class Messages {
 public:
  virtual ~Messages() = default;

  // Shows one box and returns the button pressed. `preselected` is the default
  // button; none means the first button of the set.
  virtual MsgAnswer show(const QString& text, MsgButtons buttons, MsgIcon icon,
                         std::optional<MsgAnswer> preselected = std::nullopt) = 0;

  void information(const QString& text) { show(text, MsgButtons::Ok, MsgIcon::Information); }
  void critical(const QString& text) { show(text, MsgButtons::Ok, MsgIcon::Critical); }
  void exclamation(const QString& text) { show(text, MsgButtons::Ok, MsgIcon::Exclamation); }
  // A Yes/No question; questions that delete preselect No.
  bool askYesNo(const QString& text, MsgAnswer preselected = MsgAnswer::Yes, MsgIcon icon = MsgIcon::Question) {
    return show(text, MsgButtons::YesNo, icon, preselected) == MsgAnswer::Yes;
  }
  MsgAnswer askYesNoCancel(const QString& text, MsgAnswer preselected = MsgAnswer::Yes) {
    return show(text, MsgButtons::YesNoCancel, MsgIcon::Question, preselected);
  }
};

}  // namespace ksv
