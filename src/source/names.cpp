#include "source/names.h"

#include <array>
#include <string>

#include "base/text.h"

namespace kolvane::source {
namespace {

// Each word between commas.
constexpr std::string_view kReservedWords =
    ",Else,ElseIf,End If,If,Alias,And,As,Base,Binary,ByVal,Call,Case,CBool,CByte,CCur,CDate,CDbl,CDec,CInt,"
    "CLng,Close,Compare,Const,CSng,CStr,CVar,CVErr,Declare,DefBool,DefByte,DefCur,DefDate,DefDbl,DefDec,"
    "DefInt,DefLng,DefObj,DefSng,DefStr,DefVar,Dim,Do,Each,Else,ElseIf,End,Enum,Eqv,Erase,Error,Exit,"
    "Explicit,False,For,Function,Get,Global,GoSub,GoTo,If,Imp,In,Input,Is,LBound,Let,Lib,Like,Line,Lock,"
    "Long,Loop,LSet,Name,New,Next,Not,On,Open,Option,Or,Output,Print,Private,Property,Public,Put,Random,"
    "Read,ReDim,Resume,Return,RSet,Seek,Select,Set,Spc,Static,Stop,Sub,Tab,Then,True,Type,UBound,Unlock,"
    "Wend,While,With,Xor,Nothing,To,";

constexpr auto kLowerReservedWords = [] {
  std::array<char, kReservedWords.size()> lower{};
  for (std::size_t i = 0; i < lower.size(); ++i) {
    const char c = kReservedWords[i];
    lower[i] = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return lower;
}();

}  // namespace

bool InvalidName(std::string_view text) {
  text = base::trim(text);
  return text.empty() || !base::isAsciiLetter(text.front()) || NameReservedVBWord(text);
}

bool InvalidTypeName(std::string_view text) {
  return InvalidName(text) && !base::equalNoCase(base::trim(text), "Long");
}

bool NameReservedVBWord(std::string_view text) {
  constexpr std::string_view kWords(kLowerReservedWords.data(), kLowerReservedWords.size());
  return kWords.find("," + base::lCase(text) + ",") != std::string_view::npos;
}

}  // namespace kolvane::source
