#include "messages.h"

#include "texts.h"

namespace ksv {

std::vector<MsgAnswer> answersOf(MsgButtons buttons) {
  switch (buttons) {
    case MsgButtons::Ok: return {MsgAnswer::Ok};
    case MsgButtons::OkCancel: return {MsgAnswer::Ok, MsgAnswer::Cancel};
    case MsgButtons::YesNo: return {MsgAnswer::Yes, MsgAnswer::No};
    case MsgButtons::YesNoCancel: return {MsgAnswer::Yes, MsgAnswer::No, MsgAnswer::Cancel};
    case MsgButtons::CancelTryContinue: return {MsgAnswer::Cancel, MsgAnswer::TryAgain, MsgAnswer::Continue};
  }
  return {MsgAnswer::Ok};
}

int buttonCaption(MsgAnswer answer) {
  switch (answer) {
    case MsgAnswer::Yes: return txt::ButtonYes;
    case MsgAnswer::No: return txt::ButtonNo;
    case MsgAnswer::Cancel: return txt::ButtonCancel;
    case MsgAnswer::TryAgain: return txt::ButtonTryAgain;
    case MsgAnswer::Continue: return txt::ButtonContinue;
    case MsgAnswer::Ok: break;
  }
  return txt::ButtonOk;
}

}  // namespace ksv
