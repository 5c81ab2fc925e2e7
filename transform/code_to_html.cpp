#include "transform/code_to_html.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <unordered_set>

#include "base/text.h"

namespace tavrin::transform {

const std::string_view kHtmlFunctionWords =
    "*Abs*Add*AddItem*AppActivate*Array*Asc*Atn*Beep*Begin*BeginProperty*ChDir*ChDrive*Choose*"
    "Chr*Clear*Collection*Command*Cos*CreateObject*CurDir*DateAdd*DateDiff*DatePart*DateSerial*"
    "DateValue*Day*DDB*DeleteSetting*Dir*DoEvents*EndProperty*Environ*EOF*Err*Exp*FileAttr*"
    "FileCopy*FileDateTime*FileLen*Fix*Format*FV*GetAllSettings*GetAttr*GetObject*GetSetting*"
    "Hex*Hide*Hour*InputBox*InStr*Int*Int*IPmt*IRR*IsArray*IsDate*IsEmpty*IsError*IsMissing*"
    "IsNull*IsNumeric*IsObject*Item*Kill*LCase*Left*Len*Load*Loc*LOF*Log*LTrim*Me*Mid*Minute*"
    "MIRR*MkDir*Month*Now*NPer*NPV*Oct*Pmt*PPmt*PV*QBColor*Raise*Randomize*Rate*Remove*"
    "RemoveItem*Reset*RGB*Right*RmDir*Rnd*RTrim*SaveSetting*Second*SendKeys*SetAttr*Sgn*Shell*"
    "Sin*Sin*SLN*Space*Sqr*Str*StrComp*StrConv*Switch*SYD*Tan*Text*Time*Time*Timer*TimeSerial*"
    "TimeValue*Trim*TypeName*UCase*Unload*Val*VarType*WeekDay*Width*Year*";

const std::string_view kHtmlKeywords =
    "*#Const*#Else*#ElseIf*#End If*#If*Alias*Alias*And*As*Base*Binary*Boolean*Byte*ByVal*Call*"
    "Case*CBool*CByte*CCur*CDate*CDbl*CDec*CInt*CLng*Close*Compare*Const*CSng*CStr*Currency*"
    "CVar*CVErr*Decimal*Declare*DefBool*DefByte*DefCur*DefDate*DefDbl*DefDec*DefInt*DefLng*"
    "DefObj*DefSng*DefStr*DefVar*Dim*Do*Double*Each*Else*ElseIf*End*Enum*Eqv*Erase*Error*Exit*"
    "Explicit*False*For*Function*Get*Global*GoSub*GoTo*If*Imp*In*Input*Input*Integer*Is*"
    "LBound*Let*Lib*Like*Line*Lock*Long*Loop*LSet*Name*New*Next*Not*Object*On*Open*Option*Or*"
    "Output*Print*Private*Property*Public*Put*Random*Read*ReDim*Resume*Return*RSet*Seek*Select*"
    "Set*Single*Spc*Static*String*Stop*Sub*Tab*Then*Then*True*Type*UBound*Unlock*Variant*Wend*"
    "While*With*Xor*Nothing*To*";

namespace {

// How far the literal, comment and Rem scans look ahead.
constexpr std::size_t kMaxScan = 9999999;
constexpr std::string_view kFontEnd = "</font>";

// A word list as a set of lower-cased entries, built once: a lookup of
// "*word*" in the list string is an exact, case-insensitive entry match.
class WordSet {
 public:
  explicit WordSet(std::string_view list) {
    std::size_t start = 0;
    for (std::size_t star; (star = list.find('*', start)) != std::string_view::npos;
         start = star + 1) {
      if (star == start) continue;
      words_.insert(ToLowerAscii(list.substr(start, star - start)));
      longest_ = std::min(kLongestWord, std::max(longest_, star - start));
    }
  }
  // Lower-cases into a buffer on the stack: no allocation per word.
  bool Contains(std::string_view word) const {
    if (word.size() > longest_) return false;
    std::array<char, kLongestWord> lower;
    std::transform(word.begin(), word.end(), lower.begin(), [](char c) { return ToLowerAscii(c); });
    return words_.contains(std::string_view(lower.data(), word.size()));
  }

 private:
  static constexpr std::size_t kLongestWord = 64;  // longer entries are never matched
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>{}(text);
    }
  };
  std::unordered_set<std::string, Hash, std::equal_to<>> words_;
  std::size_t longest_ = 0;
};

const WordSet& FunctionWords() {
  static const WordSet words(kHtmlFunctionWords);
  return words;
}
const WordSet& Keywords() {
  static const WordSet words(kHtmlKeywords);
  return words;
}

bool IsWordChar(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == '#';
}

// Position of the next CR LF from `from`, or the end (searching at most
// kMaxScan characters).
std::size_t LineEnd(std::string_view text, std::size_t from) {
  const std::size_t limit = std::min(text.size(), from + kMaxScan);
  const std::size_t at = text.substr(0, limit).find(kCrLf, from);
  return at == std::string_view::npos ? limit : at;
}

// The byte offset `count` characters before `at` (not before 0).
std::size_t CharactersBack(std::string_view text, std::size_t at, int count) {
  while (count-- > 0 && at > 0) {
    --at;
    while (at > 0 && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80) --at;
  }
  return at;
}

class Converter {
 public:
  explicit Converter(std::string_view code)
      : text_(ReplaceAll(ReplaceAll(code, "<", "&lt;"), ">", "&gt;")) {
    out_.reserve(text_.size() * 2);
  }

  std::string Run() {
    const std::string_view text = text_;
    for (i_ = 0; i_ < text.size(); ++i_) {
      const char c = text[i_];
      if (IsWordChar(c)) {
        word_ += c;
      } else if (c == '"') {
        AppendLiteral();
      } else if (c == '\'') {
        AppendComment();
      } else if (Flush()) {
        AppendCharacter(c);
      }
    }
    Flush();
    return std::move(out_);
  }

 private:
  // The literal up to its closing quote (or as far as the scan goes); the
  // pending word stays pending.
  void AppendLiteral() {
    const std::string_view text = text_;
    const std::size_t limit = std::min(text.size(), i_ + 1 + kMaxScan);
    std::size_t close = text.substr(0, limit).find('"', i_ + 1);
    if (close == std::string_view::npos) close = limit - 1;
    out_.append(text, i_, close - i_ + 1);
    i_ = close;
  }

  // The comment up to the line end; the CR is skipped with it and the LF
  // writes nothing. The pending word stays pending.
  void AppendComment() {
    const std::size_t end = LineEnd(text_, i_);
    out_ += kCommentFont;
    out_.append(text_, i_, end - i_);
    out_ += "</font><br>";
    i_ = end;
  }

  // Writes the pending word; false when it was "Rem", which took the rest of
  // the line with it (the current character included).
  bool Flush() {
    if (word_.empty()) return true;
    bool found = false;
    if (FunctionWords().Contains(word_)) {
      AppendColoured(kFunctionWordFont);
      found = true;
    }
    if (Keywords().Contains(word_)) {
      AppendColoured(kKeywordFont);
      found = true;
    }
    const bool rem = EqualsIgnoreCase(word_, "rem");
    if (rem) {
      AppendRemComment();
    } else if (!found) {
      out_ += word_;
    }
    word_.clear();
    return !rem;
  }

  void AppendColoured(std::string_view font) {
    out_ += font;
    out_ += word_;
    out_ += kFontEnd;
  }

  // From one character before the "R" to one character before the line end
  // (at the very start of the text, from the "R"). Kept as users know it.
  void AppendRemComment() {
    const std::string_view text = text_;
    const std::size_t start = CharactersBack(text, i_, 4);
    const std::size_t end = LineEnd(text, i_);
    const std::size_t stop = std::max(CharactersBack(text, end, 1), start);
    out_ += kCommentFont;
    out_.append(text, start, stop - start);
    out_ += kFontEnd;
    i_ = end;
  }

  void AppendCharacter(char c) {
    switch (c) {
      case '\r': out_ += "<br>"; break;
      case '\n': break;
      case ' ': out_ += "&nbsp;"; break;
      default: out_ += c;
    }
  }

  std::string text_;
  std::string out_;
  std::string word_;
  std::size_t i_ = 0;
};

}  // namespace

std::string ConvertCodeToHtml(std::string_view code) { return Converter(code).Run(); }

}  // namespace tavrin::transform
