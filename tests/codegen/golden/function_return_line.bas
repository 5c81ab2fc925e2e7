Public Function Calculate(a As Long, ByVal b As Long) As Currency

    Calculate = Empty
End Function
