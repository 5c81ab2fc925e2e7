'===========================================================================
' Module    : {MODULENAME}
' Author    : {AUTHOR} ({INITIALS})
' Company   : {COMPANYNAME}
' Copyright : {COPYRIGHT}
' Date      : {DATE}
' Purpose   : {DESCRIPTION}
'===========================================================================
