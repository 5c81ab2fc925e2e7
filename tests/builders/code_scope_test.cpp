#include "builders/code_scope.h"

#include <gtest/gtest.h>

namespace tavrin::builders {
namespace {

using Strings = std::vector<std::string>;

TEST(CodeScopeTest, Labels) {
  const struct {
    std::string code;
    Strings labels;
  } cases[] = {
      {"Sub A()\r\nRetry:\r\n  x = 1\r\nHandleExit: Exit Sub\r\nEnd Sub", {"Retry", "HandleExit"}},
      {"Sub A()\r\n  Call F(n:=1)\r\n  Debug.Print \"a:\"\r\n10 x = 1\r\nEnd Sub", {}},
      {"Sub A() ' no labels\r\nEnd Sub", {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.code);
    EXPECT_EQ(LabelsOf(c.code), c.labels);
  }
}

TEST(CodeScopeTest, ObjectVariables) {
  const std::string declarations =
      "Option Explicit\r\nPrivate mcn As ADODB.Connection, mCount As Long\r\n"
      "Private WithEvents mForm As Form\r\nPublic gName$\r\n"
      "Private Declare Function GetTickCount Lib \"kernel32\" () As Long\r\n"
      "Dim rs As Recordset ' hidden by the local one";
  const struct {
    std::string code;
    Strings names;
  } cases[] = {
      {"Sub A(ByVal frm As Form, n As Integer)\r\n"
       "  Dim rs As New Recordset, s As String\r\n"
       "  Static col As _\r\n      Collection\r\n"
       "  Dim a(1 To 3) As Object ' arrays too\r\nEnd Sub",
       {"frm", "rs", "col", "a", "mcn", "mForm"}},
      {"Sub B()\r\nEnd Sub", {"mcn", "mForm", "rs"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.code);
    scan::C4_ProcArguments arguments;
    ASSERT_TRUE(arguments.init(c.code.substr(0, c.code.find("\r\n"))).ok());
    EXPECT_EQ(ObjectVariablesOf(declarations, c.code, arguments), c.names);
  }
}

}  // namespace
}  // namespace tavrin::builders
