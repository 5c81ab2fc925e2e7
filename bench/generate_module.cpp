// Writes a large, realistic Visual Basic module for the benchmarks: procedures
// of every kind with continued declarations, comments, string literals with
// quotes and apostrophes, labels, line numbers, error handlers, Select Case,
// loops and With blocks, enums, types and API declarations, and accented
// Windows-1252 text. Deterministic: the same size gives the same bytes.
//   generate_module OUT [PROCEDURES]
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>

namespace {

// A small fixed generator, so the file is the same on every machine.
class Random {
 public:
  std::uint32_t Next() {
    state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<std::uint32_t>(state_ >> 33);
  }
  int Below(int bound) { return static_cast<int>(Next() % static_cast<std::uint32_t>(bound)); }

 private:
  std::uint64_t state_ = 0x5eed;
};

const char* const kTypes[] = {"Long", "String", "Integer", "Boolean", "Double",
                              "Variant", "Date", "Currency", "Object", "Collection"};
const char* const kWords[] = {"Stock", "Item", "Order", "Customer", "Price", "Count",
                              "Total", "Name", "Index", "Record", "Line", "Value"};
// "Prix réduit", "Größe", "€" in Windows-1252.
const char* const kAccented[] = {"Prix r\xE9" "duit", "Gr\xF6\xDF" "e", "Co\xFB" "t en \x80"};

class Writer {
 public:
  explicit Writer(std::ostream& out) : out_(out) {}

  void Line(const std::string& text) { out_ << text << "\r\n"; }

  void Header() {
    Line("Attribute VB_Name = \"basLarge\"");
    Line("'---------------------------------------------------------------");
    Line("' Module    : basLarge");
    Line("' Purpose   : generated input for the benchmarks");
    Line("'---------------------------------------------------------------");
    Line("Option Explicit");
    Line("");
    Line("Private Declare Function GetTickCount Lib \"kernel32\" () As Long");
    Line("Private Declare Function SendMessage Lib \"user32\" Alias \"SendMessageA\" _");
    Line("    (ByVal hWnd As Long, ByVal wMsg As Long, _");
    Line("     ByVal wParam As Long, lParam As Any) As Long");
    Line("");
    Line("Public Enum StockState");
    Line("    ssAvailable = 0");
    Line("    ssReserved = 1 ' held for an order");
    Line("End Enum");
    Line("");
    Line("Private Type ItemRecord");
    Line("    Name As String * 40");
    Line("    Price As Currency");
    Line("End Type");
    Line("");
    Line("Private Const mcModuleName As String = \"basLarge\"");
    Line("Private mlngCount As Long");
    Line("");
  }

  void Procedure(int number) {
    const std::string word = kWords[random_.Below(12)];
    const std::string type = kTypes[random_.Below(10)];
    const std::string name = word + std::to_string(number);
    switch (random_.Below(5)) {
      case 0: Function(name, type); break;
      case 1: Sub(name); break;
      case 2: Property(name, type); break;
      case 3: NumberedSub(name); break;
      default: Function(name, type); break;
    }
    Line("");
  }

 private:
  void Comment() {
    Line("'---------------------------------------------------------------");
    Line("' Purpose   : works on the " + std::string(kWords[random_.Below(12)]) +
         " (" + kAccented[random_.Below(3)] + ")");
    Line("'---------------------------------------------------------------");
  }

  void Function(const std::string& name, const std::string& type) {
    Comment();
    Line("Public Function " + name + "(ByVal lngIndex As Long, _");
    Line("        Optional ByRef strText As String = \"it's \"\"quoted\"\"\", _");
    Line("        Optional ByVal blnStrict As Boolean = True) As " + type);
    Line("    Const PROC_NAME As String = \"" + name + "\"");
    Line("    On Error GoTo ErrHandler");
    Line("    Dim lngItem As Long, strLine As String ' two locals");
    Line("");
    Body();
    Line("ExitHere:");
    Line("    Exit Function");
    Line("ErrHandler:");
    Line("    Debug.Print mcModuleName & \".\" & PROC_NAME & \": \" & Err.Description");
    Line("    Resume ExitHere");
    Line("End Function");
  }

  void Sub(const std::string& name) {
    Comment();
    Line("Private Sub " + name + "(ByVal objTarget As Object, ParamArray avarRest() As Variant)");
    Line("    Dim intPos As Integer");
    Body();
    Line("End Sub");
  }

  void Property(const std::string& name, const std::string& type) {
    Line("Public Property Get " + name + "() As " + type);
    Line("    " + name + " = m" + name + " ' the stored value");
    Line("End Property");
    Line("");
    Line("Public Property Let " + name + "(ByVal vNewValue As " + type + ")");
    Line("    If vNewValue <> m" + name + " Then");
    Line("        m" + name + " = vNewValue");
    Line("    End If");
    Line("End Property");
  }

  void NumberedSub(const std::string& name) {
    Line("Friend Sub " + name + "()");
    Line("10      On Error GoTo 100");
    Line("20      mlngCount = mlngCount + 1: Debug.Print \"count: \"; mlngCount");
    Line("30      Exit Sub");
    Line("100     MsgBox \"Error \" & Err.Number & \" in line \" & Erl, vbCritical");
    Line("End Sub");
  }

  void Body() {
    const int blocks = 3 + random_.Below(4);
    for (int block = 0; block < blocks; ++block) {
      switch (random_.Below(4)) {
        case 0:
          Line("    Select Case lngIndex");
          Line("        Case 1 To 10: strLine = \"low\" ' inline comment with \"quotes\"");
          Line("        Case Is > 100");
          Line("            strLine = \"high: \" & CStr(lngIndex * 2.5)");
          Line("        Case Else");
          Line("            strLine = vbNullString");
          Line("    End Select");
          break;
        case 1:
          Line("    For lngItem = 1 To 100 Step 2");
          Line("        If lngItem Mod 3 = 0 Then Exit For");
          Line("        mlngCount = mlngCount + lngItem ' running total");
          Line("    Next lngItem");
          break;
        case 2:
          Line("    With New Collection");
          Line("        .Add \"" + std::string(kAccented[random_.Below(3)]) + "\", \"k\" & lngItem");
          Line("        Rem an old-style comment");
          Line("    End With");
          break;
        default:
          Line("    Do While mlngCount > 0");
          Line("        mlngCount = mlngCount - 1: If mlngCount = 42 Then GoTo Done");
          Line("    Loop");
          Line("Done:");
          break;
      }
    }
  }

  std::ostream& out_;
  Random random_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "usage: generate_module OUT [PROCEDURES]\n";
    return 2;
  }
  const int procedures = argc > 2 ? std::stoi(argv[2]) : 11000;
  std::ofstream out(argv[1], std::ios::binary);
  Writer writer(out);
  writer.Header();
  for (int number = 1; number <= procedures; ++number) writer.Procedure(number);
  out.close();
  if (!out) {
    std::cerr << "generate_module: cannot write " << argv[1] << '\n';
    return 1;
  }
  return 0;
}
