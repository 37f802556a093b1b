#pragma once
// Choosing the language of the interface: from the session's locale when it
// names English or French, otherwise through the `Langage` dialog.

#include <optional>

#include <QString>

#include "core/texts.h"

namespace ksv {

class IniFile;

// The language a locale name stands for ("fr_FR.UTF-8" is French, "en_GB"
// English); none for any other, or for "C" and "POSIX".
std::optional<Language> languageFromLocaleName(const QString& localeName);
// From LC_ALL, LC_MESSAGES, then LANG, the first one set.
std::optional<Language> sessionLanguage();

// Writes `Language` ("En" or "Fr") and returns the text offset it selects.
int writeLanguage(IniFile& ini, Language language);

// The dialog: two choices, each turning the dialog's own captions into the
// language it names, so that it can be read whichever is wanted.
class LangagePresenter {
 public:
  explicit LangagePresenter(IniFile& ini, Language initial = Language::En) : ini_(ini), chosen_(initial) {}

  void English_Click() { chosen_ = Language::En; }
  void Francais_Click() { chosen_ = Language::Fr; }
  Language chosen() const { return chosen_; }

  QString caption() const { return Texts(textOffset(chosen_)).get(txt::Language); }
  QString okCaption() const { return Texts(textOffset(chosen_)).get(txt::ButtonYes); }
  QString englishCaption() const { return Texts::entry(txt::LangEnglish); }
  QString francaisCaption() const { return Texts::entry(txt::LangFrench); }

  // Writes the choice; the text offset it selects.
  int OK_Click() { return writeLanguage(ini_, chosen_); }

 private:
  IniFile& ini_;
  Language chosen_;
};

}  // namespace ksv
